// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class AmountWords;
class KDateEdit;
class KEdit;
class QComboBox;

// Receives an amount from one person into a cash or bank account ("دریافت نقدی").
class TZTREASURY_EXPORT CDlgCashFromPerson : public KDialog
{
    Q_OBJECT

public:
    CDlgCashFromPerson(int personID, double amount, const QString &desc, QWidget *parent = nullptr, const ReceiptPurpose &purpose = {});
    ~CDlgCashFromPerson() override;

    // Opens the window and waits until it closes. True when a receipt was saved.
    static bool receive(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose = {});

    // Number of the document that was written; 0 before that.
    int docNum() const { return m_docNum; }

    bool OnOK() override;

private:
    void build();
    void fillAccounts();
    void showWords(double amount);

    const OfficeSettings m_settings; // as they were when the window was opened
    int m_personID;
    const ReceiptPurpose m_purpose;
    int m_docNum = 0;
    KEdit *m_person;
    KEdit *m_amount;
    AmountWords *m_words;
    KEdit *m_desc;
    KDateEdit *m_date;
    QComboBox *m_account;
};
