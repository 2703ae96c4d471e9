// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/lists/KListRequest.h"
#include "suite/db/records/KRowBound.h"

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

    // Opens the set with the first rows of the filter in that order. limit: of the rows; 0: all. Throws CMySQLException.
    void open(KMySQL &set, const KSql &filter, const KSql &order, int limit);
    // With as many rows that stand behind those read so far, whatever has become of these. Nothing is forgotten where it throws.
    void openNext(KMySQL &set, int limit);
    // Whether the limit may have kept rows back, and how many have been read.
    bool isCut() const { return !m_end.isEmpty(); }
    qint64 readSoFar() const { return m_read; }
    // Whether the rows that are being read stand behind others that the list has.
    bool isReadingOn() const { return m_isReadingOn; }
    // Nothing has been read.
    void forgetRows();

    // Whether the list would show rows with another filter: clauses are those that it has, widest those of a filter that asks for all. Asked
    // once until it is forgotten: a search that finds nothing may be one of many, letter by letter. Where it cannot be told, the filter is
    // what the user can change.
    bool hasFurtherRows(KMySQL &set, const KSql &clauses, const KSql &widest, bool hasFilters);
    // Some were found since.
    void noteRows();
    void forgetFurtherRows() { m_hasFurtherRows.reset(); }

private:
    KSql listed(KMySQL &set, const KSql &filter) const;
    void read(KMySQL &set, const KRowBound &behind, int limit);

    bool m_hasPlaceholders = false;
    KListRequest m_request;
    KSql m_filter;     // of the rows read so far
    KSql m_order;      // theirs
    KRowBound m_end;   // where they end; empty where nothing was kept back
    qint64 m_read = 0; // how many they are
    bool m_isReadingOn = false;
    std::optional<bool> m_hasFurtherRows; // what the database said; none until it is asked
};
