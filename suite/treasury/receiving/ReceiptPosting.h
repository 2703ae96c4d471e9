// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/Cheque.h"

#include <QList>

#include <optional>

// Saves money that is received or paid, and makes it void.
namespace ReceiptPosting {

// What one handing over of money was for, in parts: each becomes a receipt with a document of its own.
struct Part
{
    double amount = 0; // above 0, in the suite's money unit
    QString desc;
    ReceiptPurpose purpose = {};
};

struct Handover
{
    CTblReceipts::Kind kind = CTblReceipts::received;
    int personID = 0; // from or to whom
    QDateTime date;
    CTblReceipts::Method method = CTblReceipts::cash;
    int account = 0;              // cash box or bank account; not asked for with a cheque
    std::optional<Cheque> cheque; // with the method cheque; its amount is that of all parts
    QList<Part> parts;
};

struct Posted
{
    int receiptID = 0;
    int docNum = 0;
    int fiscalYear = 0;
    int chequeID = 0;
};

// Writes all parts, with their documents and the cheque, in one unit; in their order. Throws KAccountingError, with nothing
// changed, in a closed database, for a part without an amount, without a person or account, for a date outside the fiscal year, for a
// cheque that may not be entered, for a record that nobody owns, and what a purpose requires. The message of a wrong field is a
// FieldRefused by its name: "iPersonID", "dAmount", "date", "iAccount", and those of Cheque.
TZTREASURYDATA_EXPORT QList<Posted> save(const Handover &handover, int database = 0);

// Makes it void, and all others that came with the same cheque: rows and numbers stay, with reason, user and time; what it had paid
// is open again. Its document loses its rows and is void too; one of an earlier fiscal year stays, and a reversing document of
// today is written. Throws KAccountingError, with nothing changed: when it is gone, already void (by whom, when), when its cheque has
// been deposited or the like, without a reason, in a closed database, and when its record's owner is not there.
TZTREASURYDATA_EXPORT void makeVoid(int receiptID, const QString &reason, int database = 0);
// The same for several at once, all or none. Of those that came with a cheque, one alone.
TZTREASURYDATA_EXPORT void makeVoid(const QList<int> &receipts, const QString &reason, int database = 0);
// Why its cheque keeps it from being made void, in words for the user; empty when it does not.
TZTREASURYDATA_EXPORT QString voidRefusal(int receiptID, int database = 0);
// The other parts of the same handing over that are still valid. Empty for what came with a cheque, whose parts go together anyway,
// and for receipts from before it was kept when they were entered.
TZTREASURYDATA_EXPORT QList<int> handedOverWith(int receiptID, int database = 0);

}
