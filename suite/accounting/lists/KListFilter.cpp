// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListFilter.h"

#include <algorithm>

KSql KListFilter::condition(const QList<KListFilter> &filters, const KFilterValues &values, int userID)
{
    Q_ASSERT_X(std::all_of(values.keyBegin(), values.keyEnd(), [&](const QString &key) {
        return std::any_of(filters.cbegin(), filters.cend(), [&key](const KListFilter &filter) { return filter.key == key; });
    }), "KListFilter", "no such filter");
    KSql clauses;
    for (const KListFilter &filter : filters) {
        if (filter.clause)
            clauses += filter.clause(values.value(filter.key), userID);
    }
    return clauses.withoutStart(" AND ");
}
