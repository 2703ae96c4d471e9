// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListColumn.h"
#include "suite/accounting/lists/KListFigures.h"
#include "suite/db/records/KMySQL.h"

#include <functional>
#include <memory>
#include <vector>

// Makes the cells of the rows that a record set has read, once they are seen: out of the record, which it keeps for itself, and the column
// table of the list. The columns are found in the record once. What is said of all rows, and the keys whose names are shown, is noted
// while the set goes through them.
class KListCells : public KListModel::Maker
{
public:
    // warns: whether the row of the record stands out; empty: none does. first: the running number of the first row.
    KListCells(const QList<KListColumn> &columns, std::shared_ptr<KMySQL> record, int first, std::function<bool(KMySQL &)> warns);
    ~KListCells() override;

    // Notes the row that the set stands on and returns its key; one row after the other.
    int note();
    // When all are noted: one statement for each table of names, whatever the number of rows. Throws CMySQLException.
    void readNames();

    void make(KListModel::Row &row) const override;
    Amount amount(int place, int column) const override;
    QString longestFigure(int column) const override;

private:
    struct Bound;
    struct Source;

    int columnOf(const QString &key) const;
    KListModel::Cell cell(const Bound &bound, int number) const;
    Amount amountOf(const Bound &bound, int number) const;
    std::vector<Source> sources() const;

    QList<KListColumn> m_columns;
    std::shared_ptr<KMySQL> m_record;
    int m_first;
    std::function<bool(KMySQL &)> m_warns;
    const qint32 *m_rowKey;
    std::vector<Bound> m_bound;
    int m_noted = 0;
};
