// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/FilterClauses.h"

#include "suite/utility/values/ShamsiDate.h"

#include <QDateTime>

namespace {

using Clause = KListFilter::Clause;

Clause dateClause(const char *start, int laterDays)
{
    return [start, laterDays](const QVariant &value, int) {
        const QDateTime date = value.toDateTime();
        return date.isValid() ? QLatin1String(start) + DateToSQL(date.addDays(laterDays)) : QString();
    };
}

}

Clause FilterClauses::number(const char *start)
{
    return [start](const QVariant &value, int) {
        const int number = value.toInt();
        return number == 0 ? QString() : QLatin1String(start) + QString::number(number);
    };
}

Clause FilterClauses::position(const char *start)
{
    return [start](const QVariant &value, int) {
        const int position = value.toInt();
        return position > 0 ? QLatin1String(start) + QString::number(position - 1) : QString();
    };
}

Clause FilterClauses::amount(const char *start)
{
    return [start](const QVariant &value, int) {
        const double amount = value.toDouble();
        return amount == 0 ? QString() : QLatin1String(start) + QString::number(amount, 'f', 6);
    };
}

Clause FilterClauses::from(const char *start)
{
    return dateClause(start, 0);
}

Clause FilterClauses::upTo(const char *start)
{
    return dateClause(start, 1);
}

Clause FilterClauses::part(const char *column)
{
    return [column](const QVariant &value, int) {
        const QString text = value.toString();
        return text.isEmpty() ? QString()
                              : QLatin1String(" AND ") + QLatin1String(column) + QLatin1String(" LIKE '%") + text
                + QLatin1String("%'");
    };
}

Clause FilterClauses::flag(const char *set, const char *notSet)
{
    return [set, notSet](const QVariant &value, int) { return QString::fromLatin1(value.toBool() ? set : notSet); };
}

Clause FilterClauses::always(const char *clause)
{
    return [clause](const QVariant &, int) { return QString::fromLatin1(clause); };
}
