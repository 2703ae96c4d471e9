// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalRow.h"
#include "suite/utility/lists/KListModel.h"

// The gathered rows as the list shows them, in an order of their own. A row's key is its number.
class SeasonalList : public KListModel::Source
{
public:
    int count() const override { return int(m_order.size()); }
    KListModel::Row row(int row) const override;
    int rowOfKey(int key) const override;

    const SeasonalRow &at(int row) const { return rowOf(m_order[std::size_t(row)]); }
    // Null when no row has the key.
    const SeasonalRow *find(int key) const;

    // New rows come after all others, whatever the order.
    void append(const QVector<SeasonalRow> &rows);
    // By what the column's cells hold: numbers as numbers, dates as dates, texts as they are read; ties in the order of
    // gathering. Column RowNumber is that order itself.
    void sort(int column, bool descending);
    // Every row of that person names the party from now on.
    void setParty(int personID, const TaxParty &party);
    // As the rows stand now; -1 when there is none.
    int firstTooLongAddress() const;

private:
    const SeasonalRow &rowOf(int position) const;

    // As they arrived: rows are never moved again, so that the list can grow while it is shown.
    std::vector<QVector<SeasonalRow>> m_batches;
    std::vector<int> m_starts; // position of each batch's first row
    std::vector<int> m_order;
};
