// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KSortedInsert.h"
#include "suite/db/records/KMySQL.h"

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <memory>

// Writes many rows of one table with statements of many rows each. The record's members are the row: fill them, add(), fill
// them again. Belongs inside a transaction.
class RecordBulkInsert
{
public:
    // Fills a table that is empty, of whatever size, and begins its keys with 1 where the columns have none. The rows are in the table once
    // they are flushed.
    enum EmptyTable {
        IntoEmptyTable
    };
    RecordBulkInsert(KMySQL &record, EmptyTable empty);
    RecordBulkInsert(KMySQL &record, const QStringList &columns, EmptyTable empty);
    // Every column but the key is written.
    explicit RecordBulkInsert(KMySQL &record);
    // Only these columns are written; the others get the table's default.
    RecordBulkInsert(KMySQL &record, const QStringList &columns);
    // Rows that were added and not flushed are dropped: an error is propagating then.
    ~RecordBulkInsert();
    RecordBulkInsert(const RecordBulkInsert &) = delete;
    RecordBulkInsert &operator=(const RecordBulkInsert &) = delete;

    // Throws CMySQLException, as flush does.
    void add();
    void flush();

    // Rows of some tables that a thread of its own makes, by add() alone and without the database, while this one stores them; flushes all in
    // their order.
    static void fillAhead(const QList<RecordBulkInsert *> &inserts, const std::function<void()> &make);

private:
    QByteArray literal(const KMySQL::Column &column) const;
    void send();
    void store(const QByteArray &rows);

    KMySQL &m_record;
    std::vector<const KMySQL::Column *> m_columns;
    QByteArray m_start;
    QByteArray m_rows;
    std::function<void(const QByteArray &)> m_give; // instead of storing them
    std::unique_ptr<KSortedInsert> m_sorted;
    int m_key = -1; // of the last row, where it is given here
};
