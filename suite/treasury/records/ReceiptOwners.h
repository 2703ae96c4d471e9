// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/OpenItem.h"

#include <QList>

// Who knows the records of one kind that money is received or paid for: contracts, invoices.
class TZTREASURYDATA_EXPORT ReceiptOwner
{
public:
    virtual ~ReceiptOwner();

    // What the person still owes (received), or is still owed (paid), oldest first.
    virtual QList<OpenItem> openItems(int personID, CTblReceipts::Kind kind) const = 0;
    // First in the unit that receives for the record or takes that back: nobody else does so until the unit ends. Throws KAccountingError
    // when mustExist is set and the record is gone or void.
    virtual void lock(int recordID, bool mustExist) const = 0;
    // Later in that unit, once the receipt counts or counts no more: what the record keeps of it follows.
    virtual void recount(const CTblReceipts &receipt) const = 0;
};

// The owners that are there, by the kind of their records (RecordKinds.h).
namespace ReceiptOwners {

// The owner must outlive its entry. A second one for the kind takes the first one's place.
TZTREASURYDATA_EXPORT void enter(int recordKind, const ReceiptOwner &owner);
TZTREASURYDATA_EXPORT void remove(int recordKind);
// nullptr: none is there.
TZTREASURYDATA_EXPORT const ReceiptOwner *of(int recordKind);
// Of all owners, by kind of record.
TZTREASURYDATA_EXPORT QList<OpenItem> openItems(int personID, CTblReceipts::Kind kind);

}
