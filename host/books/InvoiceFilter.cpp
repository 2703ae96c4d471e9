// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/InvoiceFilter.h"

#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

QList<KListFilter> invoiceFilters(const KListFilter::Choices &types)
{
    using namespace FilterClauses;
    using K = KListFilter::Kind;
    return {
        {.key = u"voided"_s, .label = u"نمایش باطل شده‌ها"_s, .kind = K::Flag, .place = {1, 0, 2}, .clause = flag("", " AND iStatus=0")},
        {.key = u"person"_s, .label = u"شخص :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND iPersonID="), .options = KListFilter::FindGoesHere},
        {.key = u"type"_s, .label = u"نوع :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND iType="), .choices = types},
        {.key = u"from"_s, .label = u"از تاریخ :"_s, .kind = K::PlainDate, .place = {0, 4}, .clause = from(" AND date>=")},
        {.key = u"to"_s, .label = u"تا تاریخ :"_s, .kind = K::PlainDate, .place = {0, 6}, .clause = upTo(" AND date<")},
    };
}
