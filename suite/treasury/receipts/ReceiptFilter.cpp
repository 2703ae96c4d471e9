// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receipts/ReceiptFilter.h"

#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

QList<KListFilter> receiptFilters(const KListFilter::Choices &kinds, const KListFilter::Choices &methods)
{
    using namespace FilterClauses;
    using K = KListFilter::Kind;
    return {
        {.key = u"voided"_s, .label = u"نمایش باطل شده‌ها"_s, .kind = K::Flag, .place = {2, 0, 2}, .clause = flag("", " AND iStatus<>1")},
        {.key = u"person"_s, .label = u"شخص :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND iPersonID="), .options = KListFilter::FindGoesHere},
        {.key = u"kind"_s, .label = u"نوع :"_s, .kind = K::Choice, .place = {0, 2}, .clause = position(" AND iKind="), .choices = kinds},
        {.key = u"from"_s, .label = u"از تاریخ :"_s, .kind = K::PlainDate, .place = {0, 4}, .clause = from(" AND date>=")},
        {.key = u"to"_s, .label = u"تا تاریخ :"_s, .kind = K::PlainDate, .place = {0, 6}, .clause = upTo(" AND date<")},
        {.key = u"for"_s, .label = u"بابت :"_s, .kind = K::Text, .place = {1, 0}, .clause = part("sFor"), .maxLength = 100},
        {.key = u"method"_s, .label = u"روش :"_s, .kind = K::Choice, .place = {1, 2}, .clause = number(" AND iMethod="), .choices = methods},
        {.key = u"amountFrom"_s, .label = u"از مبلغ :"_s, .kind = K::Amount, .place = {1, 4}, .clause = amount(" AND dAmount>=")},
        {.key = u"amountTo"_s, .label = u"تا مبلغ :"_s, .kind = K::Amount, .place = {1, 6}, .clause = amount(" AND dAmount<=")},
    };
}
