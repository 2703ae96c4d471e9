// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QHash>
#include <QString>

// What the database says of a table's columns; read once per table and database, then remembered.
class TZDB_EXPORT KTableSchema
{
public:
    struct Column
    {
        qint64 maxCharacters = 0;    // 0: not a text column
        bool basicPlaneOnly = false; // the column's character set holds no character above U+FFFF
    };

    // Throws CMySQLException when the database cannot be asked. An unknown table has no columns.
    static const KTableSchema &of(const QString &table, int database = 0);
    // That it will be asked for (KReadAhead), where it is not known yet.
    static void expect(const QString &table, int database = 0);
    // Characters that the text column holds, 0 when unknown or not a text.
    static int textLength(const QString &table, const QString &column, int database = 0);
    // To be called after a change of the schema.
    static void forgetAll();

    const Column *column(const QString &name) const;
    bool isEmpty() const { return m_columns.isEmpty(); }

    // The column by which the table orders that text in the Persian alphabet, so that an index can serve it; empty where it has none.
    // Such a column is not among the others: nobody writes it.
    QString orderColumn(const QString &text) const { return m_orderColumns.value(text); }
    // With which its name begins, before that of the text.
    static QString orderPrefix();

private:
    QHash<QString, Column> m_columns;
    QHash<QString, QString> m_orderColumns;
};
