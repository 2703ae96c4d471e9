// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/DocumentFilter.h"

#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

QList<KListFilter> documentFilters(const KListFilter::Choices &years)
{
    using namespace FilterClauses;
    using K = KListFilter::Kind;
    return {
        {.key = u"year"_s, .label = u"سال مالی :"_s, .kind = K::Choice, .place = {0, 0}, .clause = number(" AND iFiscalYear="), .choices = years, .options = KListFilter::FindGoesHere},
        {.key = u"number"_s, .label = u"شماره سند :"_s, .kind = K::Number, .place = {0, 2}, .clause = number(" AND iNum=")},
        {.key = u"from"_s, .label = u"از تاریخ :"_s, .kind = K::PlainDate, .place = {0, 4}, .clause = from(" AND date>=")},
        {.key = u"to"_s, .label = u"تا تاریخ :"_s, .kind = K::PlainDate, .place = {0, 6}, .clause = upTo(" AND date<")},
        {.key = u"description"_s, .label = u"شرح سند :"_s, .kind = K::Text, .place = {1, 0, 5}, .clause = part("sDesc")},
    };
}
