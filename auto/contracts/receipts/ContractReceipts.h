// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/treasury/records/CTblReceipts.h"

#include <QDateTime>
#include <QList>
#include <QString>

class CTblAutomobilContracts;

// The money that was received or paid for a contract: commission from its parties, instalments, the price. A receipt says itself
// what it is for; an instalment that is marked as paid without one, as older ones are, counts too.
namespace ContractReceipts {

struct Entry
{
    int receiptID = 0; // 0: an instalment that is marked as paid without a receipt
    int paymentID = 0; // the instalment; 0: none
    int personID = 0;
    QDateTime date; // of the receipt; of the instalment where there is none
    double amount = 0;
    QString description;
    int docNum = 0;
    int fiscalYear = 0;
    int kind = CTblReceipts::received;
    int method = CTblReceipts::unknown;
    int side = 0;    // 1 or 2; 0: not kept
    QString purpose; // what it is for, in words; may be empty
    int status = CTblReceipts::valid;
    int voidUserID = 0;
    QDateTime voidDate;
    QString voidReason;

    bool isVoid() const { return status == CTblReceipts::voided; }
    bool counts() const { return status == CTblReceipts::valid; }
};

// All of them, also those that do not count, by date. The contract is loaded.
QList<Entry> list(const CTblAutomobilContracts &contract);
// What counts of that kind (CTblReceipts::Kind), in the suite's money unit.
double sum(const QList<Entry> &entries, int kind = CTblReceipts::received);

// The text that settling proposes for a receipt; number: CTblAutomobilContracts::number.
QString commissionText(int number);
// For the commission of that side. The unit that receives it throws KAccountingError when the contract is void, when its side is
// somebody else by then, and, once each, when another desk has changed what that side is charged since purpose was called, or
// has received from the same side: that may be the same money.
ReceiptPurpose commission(const CTblAutomobilContracts &contract, int side);

// Makes the entry void with the receipt behind it, as ReceiptPosting::makeVoid does. An instalment without a receipt is unpaid again; reason,
// user and time stand among what was said about it (CTblFollowUps). Throws as ReceiptPosting::makeVoid does, and KAccountingError when the contract
// is gone, or the instalment is no longer paid or has got a receipt.
void makeVoid(int contractID, const Entry &entry, const QString &reason);

}
