// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

class CTblAutomobilContracts;

// Turns a contract into a filled document and has it opened. Prints from the template of the contract's type, in the folder
// AutomobileDocx beside the module; a letter has no template of its own, its file is always asked for.
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
    // A template that had to be chosen is kept in the templates' folder under its own file name and, when the type has a
    // template, also under that one's, so that it is not asked for again; not before it has proved readable. When that
    // folder cannot be written, printing stops silently.
    //
    // True when a document was opened.
    bool print(int contractID);

    // File name of the template of a contract type; empty for a letter and for an unknown type.
    static QString templateName(int contractType);
    static QString defaultTemplateFolder();

private:
    bool fillAndOpen(CTblAutomobilContracts &contract, const QString &path, bool chosen);

    Dialogs m_dialogs;
    Places m_places;
};
