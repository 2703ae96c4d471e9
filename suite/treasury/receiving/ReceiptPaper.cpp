// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptPaper.h"

#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/accounting/papers/Letterhead.h"
#include "suite/treasury/receiving/ReceiptSheet.h"

using namespace Qt::StringLiterals;

namespace {

QList<PaperSheet> sheetsOf(const QList<int> &receiptIDs)
{
    const QString unit = OfficeSettings::read().moneyUnitName();
    const QString office = Letterhead::read().name;
    QList<PaperSheet> sheets;
    for (const int id : receiptIDs) {
        if (const std::optional<ReceiptDetails> found = ReceiptDetails::read(id))
            sheets.append(ReceiptSheet::of(*found, office, unit));
    }
    return sheets;
}

}

void ReceiptPaper::show(const QList<int> &receiptIDs, QWidget *parent)
{
    // Who takes money hands out a receipt for it, whether or not lists may be printed.
    CDlgPaper::run(
        u"Receipts"_s, KSecurity::Read, [&] { return sheetsOf(receiptIDs); }, u"این رسید دیگر وجود ندارد."_s, parent);
}
