// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/EntryRange.h"

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

bool isDay(const KDateEdit &edit)
{
    return edit.isChecked() && edit.date().isValid();
}

bool isNumber(const KEdit &edit)
{
    return !IsEquals(edit.number(), 0);
}

bool isBackwards(const QWidget *from, const QWidget *to)
{
    const auto *firstDay = qobject_cast<const KDateEdit *>(from);
    const auto *lastDay = qobject_cast<const KDateEdit *>(to);
    if (firstDay && lastDay)
        return isDay(*firstDay) && isDay(*lastDay) && firstDay->date() > lastDay->date();
    const auto *lowest = qobject_cast<const KEdit *>(from);
    const auto *highest = qobject_cast<const KEdit *>(to);
    return lowest && highest && isNumber(*lowest) && isNumber(*highest) && lowest->number() > highest->number();
}

QString nameOf(const QWidget *line)
{
    return line->accessibleName().remove(u':').trimmed();
}

}

QString rangeError(const QWidget *from, const QWidget *to)
{
    if (!isBackwards(from, to))
        return {};
    return u"«%1» بزرگتر از «%2» است. لطفا اصلاح نمایید."_s.arg(nameOf(from), nameOf(to));
}

std::optional<RangeProblem> problemOfDays(KDateEdit *from, KDateEdit *to)
{
    for (KDateEdit *edit : {from, to}) {
        if (!edit->isEntryValid())
            return RangeProblem{edit, edit->accessibleName() + u' ' + edit->entryError()};
    }
    const QString error = rangeError(from, to);
    return error.isEmpty() ? std::nullopt : std::optional(RangeProblem{from, error});
}
