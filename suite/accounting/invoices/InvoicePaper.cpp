// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/InvoicePaper.h"

#include "suite/accounting/invoices/InvoiceSheet.h"
#include "suite/accounting/papers/CDlgPaper.h"

using namespace Qt::StringLiterals;

void InvoicePaper::show(int num, QWidget *parent)
{
    const auto make = [=] {
        const std::optional<PaperSheet> sheet = InvoiceSheet::read(num);
        return sheet ? QList<PaperSheet>{*sheet} : QList<PaperSheet>();
    };
    CDlgPaper::run(u"Factors"_s, KSecurity::PrintList, make, u"این فاکتور دیگر وجود ندارد."_s, parent);
}
