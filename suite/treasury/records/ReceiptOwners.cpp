// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/ReceiptOwners.h"

#include <QMap>

namespace {

QMap<int, const ReceiptOwner *> &owners()
{
    static QMap<int, const ReceiptOwner *> entered;
    return entered;
}

}

ReceiptOwner::~ReceiptOwner() = default;

void ReceiptOwners::enter(int recordKind, const ReceiptOwner &owner)
{
    owners().insert(recordKind, &owner);
}

void ReceiptOwners::remove(int recordKind)
{
    owners().remove(recordKind);
}

const ReceiptOwner *ReceiptOwners::of(int recordKind)
{
    return owners().value(recordKind);
}

QList<OpenItem> ReceiptOwners::openItems(int personID, CTblReceipts::Kind kind)
{
    QList<OpenItem> items;
    for (const ReceiptOwner *owner : std::as_const(owners()))
        items += owner->openItems(personID, kind);
    return items;
}
