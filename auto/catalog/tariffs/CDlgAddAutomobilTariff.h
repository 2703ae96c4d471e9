// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilTariffs.h"
#include "suite/accounting/changes/AddedSince.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KForm;
class QCheckBox;

// The editor of one notary tariff.
class CDlgAddAutomobilTariff final : public KDialog
{
    Q_OBJECT

public:
    // tariffID 0: a new tariff. With editMode or viewMode the tariff is shown first; viewMode keeps it as it is.
    CDlgAddAutomobilTariff(int tariffID, bool editMode, bool viewMode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilTariff() override;

    // Key of the tariff; of a new one from its saving on.
    int tariffID() const { return m_edit.key(); }

    // Saves. A tariff that somebody else has deleted cancels the window unless the user wants it as a new one; an entry that cannot
    // be stored, or a closed database, keeps it open.
    bool OnOK() override;

private:
    void build();
    void load();
    bool isEntryGood();
    void write();
    void settle();

    bool m_viewMode;
    CTblAutomobilTariffs m_record;
    RowEdit m_edit;
    AddedSince m_added;
    KForm *m_form = nullptr;
    QCheckBox *m_active = nullptr;
    KDateEdit *m_created = nullptr;
};
