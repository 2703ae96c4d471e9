// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptSpread.h"

#include "suite/utility/values/Money.h"

#include <algorithm>

namespace {

bool isMoney(double amount)
{
    return amount > 0 && !IsEquals(amount, 0);
}

bool isOfRecord(const ReceiptPurpose &first, const ReceiptPurpose &second)
{
    return first.recordKind == second.recordKind && first.recordID == second.recordID;
}

// The other open items of the record, beginning behind the one that is paid.
QList<OpenItem> othersOf(const ReceiptPurpose &purpose, const QList<OpenItem> &open)
{
    QList<OpenItem> before;
    QList<OpenItem> behind;
    bool isBehind = false;
    for (const OpenItem &item : open) {
        if (ReceiptSpread::isSame(item.purpose, purpose))
            isBehind = true;
        else if (isOfRecord(item.purpose, purpose))
            (isBehind ? behind : before).append(item);
    }
    return behind + before;
}

}

bool ReceiptSpread::isSame(const ReceiptPurpose &first, const ReceiptPurpose &second)
{
    return isOfRecord(first, second) && first.paymentID == second.paymentID && first.what == second.what && first.side == second.side;
}

const OpenItem *ReceiptSpread::find(const QList<OpenItem> &items, const ReceiptPurpose &purpose)
{
    if (purpose.recordKind == 0)
        return nullptr;
    const auto found = std::ranges::find_if(items, [&](const OpenItem &item) { return isSame(item.purpose, purpose); });
    return found == items.end() ? nullptr : &*found;
}

const OpenItem *ReceiptSpread::firstDue(const QList<OpenItem> &items)
{
    // An invalid day is before every other.
    const auto first = std::ranges::min_element(items, {}, [](const OpenItem &item) { return item.due.isValid() ? item.due.date().toJulianDay() : 0; });
    return first == items.end() ? nullptr : &*first;
}

double ReceiptSpread::surplus(double amount, const ReceiptPurpose &purpose, const QList<OpenItem> &open)
{
    const OpenItem *item = find(open, purpose);
    return item && isMoney(amount - item->rest) ? amount - item->rest : 0;
}

QList<ReceiptSpread::Share> ReceiptSpread::of(double amount, const ReceiptPurpose &purpose, const QList<OpenItem> &open)
{
    double left = surplus(amount, purpose, open);
    QList<Share> shares{{amount - left, purpose}};
    if (!isMoney(left))
        return shares;
    for (const OpenItem &item : othersOf(purpose, open)) {
        if (!isMoney(left))
            break;
        const double share = std::min(left, item.rest);
        shares.append(Share{share, item.purpose});
        left -= share;
    }
    if (isMoney(left))
        shares.append(Share{left, {}});
    return shares;
}
