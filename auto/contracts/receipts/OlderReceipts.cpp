// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/OlderReceipts.h"

#include "suite/utility/values/Money.h"

#include <QHash>
#include <QMultiHash>

using namespace Qt::StringLiterals;

namespace {

using OlderReceipts::Claim;
using OlderReceipts::Link;
using OlderReceipts::Receipt;

using ClaimsByText = QMultiHash<std::pair<QString, int>, const Claim *>;

// Null where none fits, or several do.
const Claim *onlyFitting(const Receipt &receipt, const ClaimsByText &claims)
{
    const Claim *fitting = nullptr;
    const auto [first, last] = claims.equal_range({receipt.text, receipt.personID});
    for (auto claim = first; claim != last; ++claim) {
        const double amount = (*claim)->amount;
        if (amount > 0 && !IsEquals(amount, receipt.amount))
            continue;
        if (fitting)
            return nullptr;
        fitting = *claim;
    }
    return fitting;
}

}

QList<Link> OlderReceipts::links(const QList<Receipt> &receipts, const QList<Claim> &claims)
{
    ClaimsByText byText;
    for (const Claim &claim : claims)
        byText.insert({claim.text, claim.personID}, &claim);
    QList<Link> found;
    QHash<int, int> receiptsOfInstalment;
    for (const Receipt &receipt : receipts) {
        if (const Claim *claim = onlyFitting(receipt, byText)) {
            found.append({receipt.id, *claim});
            ++receiptsOfInstalment[claim->paymentID];
        }
    }
    found.removeIf([&receiptsOfInstalment](const Link &link) {
        return link.claim.paymentID != 0 && receiptsOfInstalment.value(link.claim.paymentID) > 1;
    });
    return found;
}
