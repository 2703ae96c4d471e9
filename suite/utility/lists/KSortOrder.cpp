// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KSortOrder.h"

namespace {

constexpr QLatin1StringView descendingSuffix(" DESC");

}

QString KSortOrder::expression(const QString &sortKey) const
{
    return descending ? sortKey + descendingSuffix : sortKey;
}

bool KSortOrder::isDescending(const QString &expression)
{
    return expression.endsWith(descendingSuffix);
}

QString KSortOrder::sortKey(const QString &expression)
{
    return isDescending(expression) ? expression.chopped(descendingSuffix.size()) : expression;
}
