// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/lists/KListRequest.h"

#include <optional>

class KMySQL;

// What the rows of a list page are asked for: the clauses of its filter, what something else asked besides, and that no record is shown that
// an open editor has not saved yet. It also knows what the last answer kept back.
class TZACCOUNTINGDATA_EXPORT KListAsking
{
public:
    // For a list whose table gets rows of editors that are open.
    void setHasPlaceholders(bool on) { m_hasPlaceholders = on; }

    const KListRequest &request() const { return m_request; }
    void setRequest(const KListRequest &request) { m_request = request; }
    // Those clauses, and the condition of the request.
    KSql asked(const KSql &clauses) const;

    // Opens the set with the rows of the filter. Throws CMySQLException.
    void open(KMySQL &set, const KSql &filter, const KSql &order, int limit) const;
    // How many of the set's rows the limit kept back, where so many are shown.
    static qint64 leftOut(KMySQL &set, qsizetype shown, int limit);

    // Whether the list would show rows with another filter: clauses are those that it has, widest those of a filter that asks for all. Asked
    // once until it is forgotten: a search that finds nothing may be one of many, letter by letter. Where it cannot be told, the filter is
    // what the user can change.
    bool hasFurtherRows(KMySQL &set, const KSql &clauses, const KSql &widest, bool hasFilters);
    // Some were found since.
    void noteRows();
    void forgetFurtherRows() { m_hasFurtherRows.reset(); }

private:
    KSql listed(KMySQL &set, const KSql &filter) const;

    bool m_hasPlaceholders = false;
    KListRequest m_request;
    std::optional<bool> m_hasFurtherRows; // what the database said; none until it is asked
};
