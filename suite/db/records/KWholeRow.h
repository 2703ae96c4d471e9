// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"
#include "suite/sql/KSql.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// A row with all columns that its table has, each as the server writes it, whatever a record class knows of them. NULL stays apart
// from what is empty, and a number comes back as exactly the one that it was.
class TZDB_EXPORT KWholeRow
{
public:
    struct Cell
    {
        QString column;
        QByteArray bytes; // text in UTF-8, numbers and dates as the server writes them, binary data as it is
        bool isNull = false;

        friend bool operator==(const Cell &, const Cell &) = default;
    };

    KWholeRow() = default;
    explicit KWholeRow(QString table)
        : m_table(std::move(table))
    {
    }

    // The row of that key; nothing when it is gone. Throws CMySQLException.
    static std::optional<KWholeRow> read(const QString &table, qint32 key, int database = 0);
    // The keys of the rows, in their order. forUpdate: nobody changes or adds such rows until the transaction ends.
    static QList<qint32> keys(const QString &table, const KSql &condition, int database = 0, bool forUpdate = false);
    // The numbers that a column has in such rows.
    static QList<qint32> numbers(const QString &table, const QString &column, const KSql &condition, int database = 0);
    // Those of the keys that the table has now, whatever this transaction has read before; they stay until it ends.
    static QList<qint32> present(const QString &table, const QList<qint32> &keys, int database = 0);

    QString table() const { return m_table; }
    const QList<Cell> &cells() const { return m_cells; }
    qint32 key() const { return number(u"iID"); }
    bool has(QStringView column) const { return cell(column) != nullptr; }
    // 0 and empty for NULL and for a column that the row has not.
    qint32 number(QStringView column) const;
    QString text(QStringView column) const;
    QByteArray bytes(QStringView column) const;
    // Of a column that the row has; nothing happens for another.
    void set(QStringView column, qint32 number);
    void set(QStringView column, const QString &text);

    // Adds it to its table and returns its key there. A column that the table has not is left out, one that the row has not gets its
    // default. keepsKey false: under a new key. Throws CMySQLException.
    qint32 insert(int database, bool keepsKey) const;

    QByteArray toBytes() const;
    // Nothing for what toBytes() has not made.
    static std::optional<KWholeRow> fromBytes(const QString &table, const QByteArray &bytes);

    friend bool operator==(const KWholeRow &, const KWholeRow &) = default;

private:
    const Cell *cell(QStringView column) const;
    void put(QStringView column, const QByteArray &bytes);

    QString m_table;
    QList<Cell> m_cells;
};
