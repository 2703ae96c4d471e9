// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KWholeRow.h"

#include <QList>
#include <QString>

// A record with all rows that belong to it (RecordParts): where it lives, or in the bin. What the rows hold is read one by one, because
// an attached file may be large.
class TZACCOUNTINGDATA_EXPORT RecordPackage
{
public:
    // A row of a table.
    struct Ref
    {
        QString table;
        qint32 key = 0;
    };

    // A living record. Within a transaction, forUpdate: nobody changes what belongs to it until that ends. Without rows when the
    // record is gone. Throws CMySQLException.
    static RecordPackage ofRecord(const QString &table, qint32 key, int database = 0, bool forUpdate = false);
    // An entry of the bin. Without rows when it is gone.
    static RecordPackage ofBin(qint32 entry, int database = 0);

    bool isEmpty() const { return m_rows.isEmpty(); }
    QString table() const { return m_table; }
    qint32 key() const { return m_key; }
    // The record's own row first.
    const QList<Ref> &rows() const { return m_rows; }
    QList<qint32> keysOf(const QString &table) const;
    // Throws KAccountingError for a row that is gone or damaged.
    KWholeRow row(const Ref &ref) const;
    // What belongs to the record besides its own row, as "سند، 12 قسط، 3 پرونده"; empty when there is nothing.
    QString contents() const;

    // Writes all rows under that entry of the bin. Joins the caller's transaction.
    void putInto(qint32 entry) const;

    // The words for a number of rows in each table; record: the table of the record that they belong to.
    static QString contentsOf(const QString &record, const QList<std::pair<QString, int>> &counts);

private:
    QString m_table;
    qint32 m_key = 0;
    int m_database = 0;
    qint32 m_entry = 0; // of the bin; 0: the rows are where they live
    QList<Ref> m_rows;
};
