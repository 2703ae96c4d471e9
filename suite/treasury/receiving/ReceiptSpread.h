// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/OpenItem.h"
#include "suite/treasury/TzTreasuryDataExport.h"

#include <QList>

// What becomes of an amount that is more than the item it is for still owes.
namespace ReceiptSpread {

struct Share
{
    double amount = 0; // above 0
    ReceiptPurpose purpose;
};

// Whether both are for the same thing; texts do not count.
TZTREASURYDATA_EXPORT bool isSame(const ReceiptPurpose &first, const ReceiptPurpose &second);
// The item that a purpose names, or nullptr.
TZTREASURYDATA_EXPORT const OpenItem *find(const QList<OpenItem> &items, const ReceiptPurpose &purpose);

// What is paid first: what is due at once, else what has been due longest, of two the first; nullptr where nothing is open.
TZTREASURYDATA_EXPORT const OpenItem *firstDue(const QList<OpenItem> &items);

// How much of the amount is more than the item's rest; 0 for one that is not among the open items, whose rest is not known.
TZTREASURYDATA_EXPORT double surplus(double amount, const ReceiptPurpose &purpose, const QList<OpenItem> &open);

// The purpose first, up to its rest; then the open items of the same record that follow it, then those before it, each up to its
// rest; what is left is on account. One share of everything where there is no surplus.
TZTREASURYDATA_EXPORT QList<Share> of(double amount, const ReceiptPurpose &purpose, const QList<OpenItem> &open);

}
