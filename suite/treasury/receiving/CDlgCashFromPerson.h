// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/treasury/receiving/ReceiptSpread.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class AmountWords;
class CardPage;
class ChequeFields;
class KDateEdit;
class KEdit;
class KPersonField;
class OpenItemField;
class QCheckBox;
class QHBoxLayout;
class QComboBox;
class QLabel;

// Receives an amount from one person, or pays it ("دریافت نقدی", "دریافت", "پرداخت"): in cash, by a bank account, a card or a cheque,
// for what the person still owes or on account. More than is owed for the one thing goes on to the next, after a question.
class TZTREASURY_EXPORT CDlgCashFromPerson : public KDialog
{
    Q_OBJECT

public:
    // What the window begins with.
    struct Start
    {
        CTblReceipts::Kind kind = CTblReceipts::received;
        int personID = 0;  // 0: the user picks one
        double amount = 0; // 0: what is still owed for the purpose
        QString desc = {};
        ReceiptPurpose purpose = {}; // one of a record is chosen and cannot be changed; else the user chooses
        CTblReceipts::Method method = CTblReceipts::cash;
        Cheque cheque = {};  // proposed where the method is a cheque
        bool spreads = true; // what is more than the purpose still owes goes on to what is owed next, after a question; else all is for the purpose
    };

    explicit CDlgCashFromPerson(const Start &start, QWidget *parent = nullptr);
    CDlgCashFromPerson(int personID, double amount, const QString &desc, QWidget *parent = nullptr, const ReceiptPurpose &purpose = {});
    ~CDlgCashFromPerson() override;

    // Opens the window and waits until it closes. True when a receipt was saved.
    static bool receive(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose = {});
    // The same for a user who may add receipts, in a database that is open; says so otherwise. What was saved, in parts; empty when
    // nothing was.
    static QList<ReceiptPosting::Posted> run(const Start &start, QWidget *parent);

    // What was saved; empty before that.
    const QList<ReceiptPosting::Posted> &posted() const { return m_posted; }
    // Number of the first document that was written; 0 before that.
    int docNum() const;

    bool OnOK() override;

private:
    static QList<ReceiptPosting::Posted> open(const Start &start, QWidget *parent);
    void build();
    QHBoxLayout *buildAmount();
    void connectFields();
    void begin();
    void methodChosen();
    void followFields();
    void fillAccounts();
    void personChosen();
    void showOnAccount();
    void itemChosen();
    void describe(const QString &text);
    void showRest();
    void showWords(double amount);
    bool refuse(const QString &why, QWidget *field);
    bool checkEntries();
    QWidget *fieldOf(const QString &column) const;
    CTblReceipts::Method method() const;
    bool isWanted(const QString &question, QWidget *field);
    bool areDatesWanted();
    bool mayGoOn(double surplus);
    ReceiptPosting::Handover handover() const;
    QList<ReceiptSpread::Share> shares() const;
    QList<ReceiptPosting::Part> parts() const;
    void printIfWanted();

    const OfficeSettings m_settings; // as they were when the window was opened
    const Start m_start;
    QString m_proposedDesc;
    double m_proposedAmount = 0;
    QList<ReceiptPosting::Posted> m_posted;
    CardPage *m_page = nullptr;
    KPersonField *m_person;
    OpenItemField *m_for;
    KEdit *m_amount;
    AmountWords *m_words;
    KEdit *m_desc;
    KDateEdit *m_date;
    QComboBox *m_method;
    QLabel *m_accountLabel = nullptr;
    QComboBox *m_account;
    ChequeFields *m_cheque;
    QCheckBox *m_print;
};
