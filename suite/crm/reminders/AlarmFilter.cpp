// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/AlarmFilter.h"

#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

namespace {

KSql ownOnes(const QVariant &, int userID)
{
    return KSql::formatted(" AND iUserID=%1", userID);
}

}

QList<KListFilter> alarmFilters()
{
    using K = KListFilter::Kind;
    return {
        {.key = u"own"_s, .kind = K::Always, .clause = ownOnes},
        {.key = u"done"_s, .label = u"نمايش انجام شده ها"_s, .kind = K::Flag, .place = {0, 2},
         .clause = FilterClauses::flag("", " AND iStatus=0")},
        {.key = u"description"_s, .label = u"شرح :"_s, .kind = K::Text, .place = {0, 0}, .clause = FilterClauses::part("sDesc"),
         .options = KListFilter::FindGoesHere},
    };
}
