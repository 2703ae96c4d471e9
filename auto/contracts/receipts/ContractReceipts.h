// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptPurpose.h"

#include <QDateTime>
#include <QList>
#include <QString>

class CTblAutomobilContracts;

// The money that was received for a contract: commission from its parties, and instalments.
//
// A receipt says itself what it is for. Older ones do not: of those, a receipt of one of the parties whose text is to the letter
// the one that settling proposes counts, and each instalment that is marked as paid without a receipt that says so.
namespace ContractReceipts {

struct Entry
{
    int receiptID = 0; // 0: an instalment that is marked as paid, and no receipt is found for it
    int paymentID = 0; // the instalment; 0: commission
    int personID = 0;
    QDateTime date; // of the receipt; of the instalment where there is none
    double amount = 0;
    QString description;
    int docNum = 0;
    int fiscalYear = 0;
    bool isVoid = false;
    int voidUserID = 0;
    QDateTime voidDate;
    QString voidReason;
};

// All of them, also those that are void, by date. The contract is loaded.
QList<Entry> list(const CTblAutomobilContracts &contract);
// What is received and not void, in the suite's money unit.
double sum(const QList<Entry> &entries);

// The text that settling proposes for a receipt; number: CTblAutomobilContracts::number.
QString commissionText(int number);
// For the commission of the party. The unit that receives it throws KAccountingError when the contract is gone or void, and, once,
// when another desk has received from the same party since purpose was called: that may be the same money.
ReceiptPurpose commission(const CTblAutomobilContracts &contract, int personID);

// Makes the entry void with the receipt behind it, and the instalment unpaid, in one unit of work. Throws as ReceiptPosting::makeVoid
// does, and KAccountingError when the contract is gone, or the instalment no longer paid.
void makeVoid(int contractID, const Entry &entry, const QString &reason);

}
