// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/ReceiptOwners.h"

// The invoices of one type among what receipts are for: a sale is received for, a purchase is paid for, and a return the other way
// round.
class TZTREASURYDATA_EXPORT InvoiceReceiptOwner : public ReceiptOwner
{
public:
    // The number of the type is that of the kind of record.
    explicit InvoiceReceiptOwner(int type);
    ~InvoiceReceiptOwner() override;

    // Enters both types, for as long as the program runs; invoices are then neither made void nor given to another person while
    // money stands against them, nor lowered below it.
    static void enter();

    QList<OpenItem> openItems(int personID, CTblReceipts::Kind kind) const override;
    // An invoice that is void is gone for this.
    void lock(int recordID, bool mustExist) const override;
    // An invoice keeps nothing of its receipts.
    void recount(const CTblReceipts &receipt) const override;

private:
    int m_type;
};
