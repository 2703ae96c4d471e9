// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

#include <memory>

class CardPage;
class KForm;
class TaxFields;
class TwinNote;

// The editor of one person ("مشخصات شخص"). A name is all that it insists on; a national code or mobile that looks wrong
// gets a hint beside the field and is saved as it is, because people do bring such papers.
class TZCRM_EXPORT CDlgAddPerson : public KDialog
{
    Q_OBJECT

public:
    enum class Mode {
        Add,
        Edit,
        Show
    };

    // Key of the new person; 0 when cancelled. What was typed in a search is put into the field it looks like: national code,
    // mobile or name.
    static int Add(QWidget *parent, const QString &searchedFor = {});
    // What another record says of somebody who is not in the list yet.
    struct Known
    {
        QString name; // of a person with the family name behind it
        QString nationalCode;
        QString mobile;
        QString telephone;
        QString address;
    };
    // The same, with the fields filled; one with the national identifier of a company becomes a legal person.
    static int AddKnown(QWidget *parent, const Known &known);
    // True when the person was saved. Does nothing when the person is gone.
    static bool Edit(QWidget *parent, int personID);
    static void Show(QWidget *parent, int personID);

    // personID counts outside Add only.
    CDlgAddPerson(Mode mode, int personID, QWidget *parent = nullptr);
    ~CDlgAddPerson() override;

    // False when the person to edit or show does not exist.
    bool isLoaded() const { return m_loaded; }
    int personID() const { return m_edit.key(); }
    void prefill(const QString &searchedFor);
    void prefill(const Known &known);

    // Refused: no name, an entry that is no value, a code that another person has, a closed database. Asked about: a national
    // code that another person has, a field that somebody else has changed meanwhile, a person who is gone.
    bool OnOK() override;

private:
    void build();
    void placeIdentity(CardPage *page);
    void placeContact(CardPage *page);
    void placeTax(CardPage *page);
    void loadRecord();
    void prefillName(const QString &name);
    void applyKind();
    void updateHints();
    bool isEntryGood();
    // The columns as the controls hold them; and what follows from them, with the checks against other persons.
    void storeEntries();
    void settle();
    void settleCode();
    void settleTwins();
    void refuseTwins();
    void wireTwins();
    bool saveRecord();

    Mode m_mode;
    bool m_loaded = false;
    CTblPersons m_record;
    RowEdit m_edit;
    int m_proposedCode = 0;
    qint32 m_openedKind = CTblPersons::kindNatural;
    KForm *m_form = nullptr;
    std::unique_ptr<TaxFields> m_tax;
    TwinNote *m_nationalTwin = nullptr;
    TwinNote *m_mobileTwin = nullptr;
    TwinNote *m_nameTwin = nullptr; // beside the father's name
};
