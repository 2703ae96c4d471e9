// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/totals/TotalsRange.h"

namespace {

int monthOf(const QDate &day)
{
    return day.year() * 100 + day.month();
}

bool isLastOfMonth(const QDate &day)
{
    return day.day() == day.daysInMonth();
}

QDate firstOfMonth(const QDate &day)
{
    return {day.year(), day.month(), 1};
}

}

TotalsRange TotalsRange::of(const QDate &from, const QDate &to)
{
    TotalsRange range;
    range.isEverything = !from.isValid() && !to.isValid();
    range.isEmpty = from.isValid() && to.isValid() && from > to;
    range.hasMonths = range.isEverything;
    if (range.isEverything || range.isEmpty)
        return range;
    const bool cutsFirst = from.isValid() && from.day() > 1;
    const bool cutsLast = to.isValid() && !isLastOfMonth(to);
    if (cutsFirst && to.isValid() && monthOf(from) == monthOf(to)) {
        range.days.append({monthOf(from), from.day(), to.day()});
        return range;
    }
    if (cutsFirst)
        range.days.append({monthOf(from), from.day(), from.daysInMonth()});
    if (cutsLast)
        range.days.append({monthOf(to), 1, to.day()});
    if (from.isValid())
        range.firstMonth = monthOf(cutsFirst ? firstOfMonth(from).addMonths(1) : from);
    if (to.isValid())
        range.lastMonth = monthOf(cutsLast ? firstOfMonth(to).addDays(-1) : to);
    range.hasMonths = !from.isValid() || !to.isValid() || range.firstMonth <= range.lastMonth;
    return range;
}
