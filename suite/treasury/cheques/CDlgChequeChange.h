// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/records/OpenItem.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KEdit;
class KPersonField;
class QComboBox;
class QLabel;

// Brings one cheque into its next state ("تغییر وضعیت چک"): the state, its date, and the account or person that the step needs.
class TZTREASURY_EXPORT CDlgChequeChange : public KDialog
{
    Q_OBJECT

public:
    // The cheque exists.
    explicit CDlgChequeChange(int chequeID, QWidget *parent = nullptr);

    // Opens the window and waits until it closes. True when the state was changed. Says why not for a cheque that is gone, or that has
    // come to its end.
    static bool run(int chequeID, QWidget *parent);

    bool OnOK() override;

private:
    void build();
    void load();
    void fillStates();
    void showStep();
    void fillAccounts();
    void fillPurposes();
    QList<ReceiptPosting::Part> pays() const;
    bool refuse(const QString &message, QWidget *field);
    QWidget *fieldOf(const QString &column) const;
    ChequeState chosen() const;

    ChequeChanging::Seen m_seen;
    bool m_given = false;
    int m_deposited = 0; // the account where the cheque was deposited
    KEdit *m_cheque;
    KEdit *m_state;
    QComboBox *m_newState;
    KDateEdit *m_date;
    QComboBox *m_account;
    QLabel *m_accountLabel = nullptr;
    KPersonField *m_person;
    QLabel *m_personLabel = nullptr;
    QComboBox *m_for; // what the endorsee has to get
    QLabel *m_forLabel = nullptr;
    QList<OpenItem> m_items;
    double m_amount = 0; // of the cheque
    KEdit *m_desc;
};
