// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

class CTblAutomobilContracts;

// Turns a contract into a filled document and has it opened. Prints from the template of the contract's type: the one that the office
// put into use (ContractTemplates), else the file that came along, in the folder AutomobileDocx beside the module. The file of a letter is
// always asked for, with the office's own, or the one that came along, as the proposal.
class ContractPrinting
{
public:
    enum class Trouble {
        TemplateMissing,    // the template has to be chosen; printing continues with the one chosen
        ProcessorMissing,   // documents cannot be worked on here
        TemplateUnreadable, // missing, damaged, not a document, or one that could do harm
        NotSaved,           // the document could not be written to the temporary folder
        NotOpened           // there is a document, but nothing to show it with
    };

    // What printing needs from the user and from the desktop.
    struct Dialogs
    {
        std::function<void(Trouble)> warn;
        std::function<QString()> chooseTemplate;       // the path; empty: cancelled
        std::function<bool(const QString &path)> open; // shows the finished document; false: nothing to show it with
        // Whether to print all the same a contract that its instalment plan does not agree with, as the text says. Empty: yes.
        std::function<bool(const QString &disagreement)> goOn = {};
        // The file of a letter, where there is one to propose: the office's own, else the one that came along. Empty: chooseTemplate.
        std::function<QString(const QString &proposed)> chooseLetter = {};
        // What whoever prints should know; the print goes on.
        std::function<void(const QString &notice)> tell = {};
    };

    // Folders of the templates and of the documents. Empty: beside the module; the user's temporary folder.
    struct Places
    {
        QString templates;
        QString temporary;
    };

    explicit ContractPrinting(Dialogs dialogs, Places places = {});

    // Prints the contract with that key; a contract that is gone is ignored. Every failure ends it, with at most one
    // warning. The document has the template's file name, in a new folder under the temporary one that no other user can
    // look into: it names persons, and an older print that is still open stays what it is. Folders of prints older than a
    // week are removed. Throws CMySQLException.
    //
    // A template that had to be chosen becomes the office's, for every desk, where the user may change contracts; and it is
    // copied into the templates' folder under its own file name and, when the type has a template, also under that one's.
    // Neither happens before it has proved readable, and the print goes on where they cannot be done, as for an ordinary user
    // of an installed program.
    //
    // True when a document was opened.
    bool print(int contractID);

    // File name of the template of a contract type; empty for a letter and for an unknown type.
    static QString templateName(int contractType);
    static QString defaultTemplateFolder();
    // File name of the letter's template that comes along, which is proposed and never taken unasked.
    static QString letterName();

private:
    bool printChosen(CTblAutomobilContracts &contract);
    bool fillAndOpen(CTblAutomobilContracts &contract, const QString &path, bool chosen);
    static void keep(const CTblAutomobilContracts &contract, const QString &path);

    Dialogs m_dialogs;
    Places m_places;
};
