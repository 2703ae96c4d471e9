// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/TariffFilter.h"

#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

QList<KListFilter> tariffFilters()
{
    using K = KListFilter::Kind;
    return {
        // Kept for the filter's sake, not shown: the editor does not show whether a tariff is active either.
        {.key = u"inactive"_s, .label = u"غير فعال ها را نيز نمايش بده"_s, .kind = K::Flag,
         .clause = FilterClauses::flag("", " AND iStatus=0")},
        {.key = u"name"_s, .label = u"نام :"_s, .kind = K::Text, .place = {0, 0}, .clause = FilterClauses::pattern("sTitle"),
         .maxLength = 50, .options = KListFilter::FindGoesHere},
    };
}
