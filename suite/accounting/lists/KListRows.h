// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListColumn.h"
#include "suite/db/records/KMySQL.h"

#include <vector>

// Makes the rows of one fill out of a record set and the column table of a list. The columns are found in the record once, and
// names behind keys are looked up when all rows are there: one statement for each table of names, whatever the number of rows.
class TZACCOUNTING_EXPORT KListRows
{
public:
    // Both outlive the rows' making.
    KListRows(const QList<KListColumn> &columns, KMySQL &record);

    // The record columns that the table reads, each once.
    static QStringList fetched(const QList<KListColumn> &columns);
    // The table as the list shows it; the record's declaration says which columns are dates.
    static QVector<KListModel::Column> shown(const QList<KListColumn> &columns, KMySQL &record);

    void reserve(qsizetype rows);
    // The row of the record that the set stands on now.
    KListModel::Row &add(int number);
    // All rows, with their names; throws CMySQLException.
    QVector<KListModel::Row> take();

private:
    struct Bound
    {
        const KListColumn *column = nullptr;
        const KMySQL::Column *value = nullptr; // null where the cell needs none
        KNameSource names;                 // without a table: no lookup
        const qint32 *key = nullptr;           // in the record, of a lookup
        QList<int> keys;                       // of the rows so far
    };

    KListModel::Cell cell(const Bound &bound, int number);
    void lookUp(size_t first);
    void fillEmpty();

    KMySQL &m_record;
    std::vector<Bound> m_bound;
    const qint32 *m_rowKey = nullptr;
    QVector<KListModel::Row> m_rows;
};
