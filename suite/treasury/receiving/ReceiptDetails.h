// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/Cheque.h"

#include <optional>

// A receipt or payment with the names behind its keys, as its window and its paper show it.
struct TZTREASURYDATA_EXPORT ReceiptDetails
{
    int number = 0;
    int kind = CTblReceipts::received;
    int method = CTblReceipts::unknown;
    int status = CTblReceipts::valid;
    int personID = 0;
    QString person;
    QDateTime date;
    double amount = 0; // in the suite's money unit
    QString account;   // empty: by cheque, or not kept
    std::optional<Cheque> cheque;
    int chequeID = 0;
    double chequeAmount = 0; // above amount where the cheque came for more than this
    QString purpose;         // what it is for; "علی‌الحساب" where it is for nothing in particular
    QString desc;
    int docNum = 0;
    int fiscalYear = 0;
    QString user;
    QDateTime created; // invalid: from before it was kept
    QString voidUser;
    QDateTime voidDate;
    QString voidReason;
    int voidDocNum = 0; // the reversing document; 0: none
    int voidFiscalYear = 0;

    // Nothing when it is gone.
    static std::optional<ReceiptDetails> read(int receiptID, int database = 0);

    bool isPaid() const { return kind == CTblReceipts::paid; }
    bool isVoid() const { return status == CTblReceipts::voided; }
    // "نقدی، صندوق", or the particulars of the cheque.
    QString methodText() const;
    // Of a void one: who made it so, when and why. Else empty.
    QString voidText() const;
};
