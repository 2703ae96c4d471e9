// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListColumn.h"

#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

KListColumn KListColumn::rowNumber(int width)
{
    return {.key = u"row"_s,
            .title = u"ردیف"_s,
            .width = width,
            .cell = [](KMySQL &, int row) { return number(row); },
            .countsRows = true};
}

KListColumn::Cell KListColumn::yesOrDash(const QVariant &value)
{
    return {value.toInt() != 0 ? u"بلی"_s : u"-"_s};
}

KListColumn::Cell KListColumn::money(double amount)
{
    return {DToMoney(amount), amount};
}

KListColumn::Cell KListColumn::number(int number)
{
    return {QString::number(number), number};
}
