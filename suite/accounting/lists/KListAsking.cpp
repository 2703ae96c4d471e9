// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListAsking.h"

#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/records/KMySQL.h"

#include <algorithm>
#include <vector>

KSql KListAsking::asked(const KSql &clauses) const
{
    if (m_request.condition.isEmpty())
        return clauses;
    // Before the filter, which may end by grouping the rows.
    const KSql condition = "(" + m_request.condition + ")";
    return clauses.isEmpty() ? condition : condition + " AND " + clauses.withoutStart(" AND ");
}

// What the list adds to its filter stands before it: a filter may end by grouping the rows.
KSql KListAsking::listed(KMySQL &set, const KSql &filter) const
{
    if (!m_hasPlaceholders)
        return filter;
    const std::vector<KMySQL::Column> &columns = set.columns();
    const auto joined = std::ranges::find_if(columns, [](const KMySQL::Column &column) { return column.name.endsWith(u".iID"); });
    const KSql saved = Placeholders::none(set.GetTableName(), joined == columns.cend() ? QString() : joined->name);
    return filter.isEmpty() ? saved : saved + " AND " + filter;
}

void KListAsking::open(KMySQL &set, const KSql &filter, const KSql &order, int limit)
{
    m_isReadingOn = false;
    m_filter = listed(set, filter);
    m_order = order;
    read(set, {}, limit);
}

void KListAsking::openNext(KMySQL &set, int limit)
{
    m_isReadingOn = true;
    read(set, m_end, limit);
}

void KListAsking::read(KMySQL &set, const KRowBound &behind, int limit)
{
    set.m_filter = m_filter;
    set.m_sort = m_order;
    set.SetListing(true);
    set.SetBehind(behind);
    set.SetLimit(limit);
    set.Open(true, true, true);
    m_read = set.GetRecordsCount() + (m_isReadingOn ? m_read : 0);
    m_end = limit > 0 && set.GetRecordsCount() >= limit ? set.LastRow() : KRowBound();
}

void KListAsking::forgetRows()
{
    m_end = {};
    m_read = 0;
}

bool KListAsking::hasFurtherRows(KMySQL &set, const KSql &clauses, const KSql &widest, bool hasFilters)
{
    if (m_request.condition.isEmpty() && (!hasFilters || clauses == widest))
        return false;
    if (m_hasFurtherRows)
        return *m_hasFurtherRows;
    try {
        set.m_filter = listed(set, widest);
        m_hasFurtherRows = set.CountMatching() > 0;
    } catch (const CMySQLException &) {
        return true;
    }
    return *m_hasFurtherRows;
}

void KListAsking::noteRows()
{
    if (m_hasFurtherRows)
        m_hasFurtherRows = true;
}
