// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentPaper.h"

#include "suite/accounting/books/DocumentSheet.h"
#include "suite/accounting/papers/CDlgPaper.h"

using namespace Qt::StringLiterals;

void DocumentPaper::show(int num, int fiscalYear, QWidget *parent)
{
    const auto make = [=] {
        const std::optional<PaperSheet> sheet = DocumentSheet::read(num, fiscalYear);
        return sheet ? QList<PaperSheet>{*sheet} : QList<PaperSheet>();
    };
    CDlgPaper::run(u"Documents"_s, KSecurity::PrintList, make, u"سند حسابداری وجود ندارد."_s, parent);
}
