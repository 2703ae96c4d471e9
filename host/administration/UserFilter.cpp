// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/UserFilter.h"

#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

namespace {

KSql eitherName(const QVariant &value, int)
{
    const QString part = value.toString();
    if (part.isEmpty())
        return {};
    return KSql::formatted(" AND (%1 OR %2)", FilterClauses::contains("sUser", part), FilterClauses::contains("sName", part));
}

}

QList<KListFilter> userFilters()
{
    using K = KListFilter::Kind;
    return {
        {.key = u"name"_s, .label = u"نام :"_s, .kind = K::Text, .place = {0, 0}, .clause = eitherName,
         .options = KListFilter::FindGoesHere},
        {.key = u"inactive"_s, .label = u"نمایش غیرفعال‌ها"_s, .kind = K::Flag, .place = {0, 2},
         .clause = FilterClauses::flag("", " AND iStatus=0"), .initial = true},
    };
}
