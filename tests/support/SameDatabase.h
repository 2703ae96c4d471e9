// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/CTblTemp.h"

#include <QMap>
#include <QStringList>

// What all tables of a database hold, row by row and column by column, to be held against what they hold later.
class SameDatabase
{
public:
    // The tables that a test says are not to be the same; what every unit of work writes is left out by itself.
    explicit SameDatabase(QStringList except = {}, int database = 0)
        : m_except(std::move(except))
        , m_database(database)
        , m_rows(read())
    {
    }

    // A line for each row: "table: - row as it was", "table: + row as it is now". Empty: nothing differs.
    QString differences() const
    {
        QStringList found;
        const QMap<QString, QStringList> now = read();
        QStringList tables = m_rows.keys() + now.keys();
        tables.removeDuplicates();
        for (const QString &table : std::as_const(tables)) {
            QStringList after = now.value(table);
            for (const QString &row : m_rows.value(table)) {
                if (!after.removeOne(row))
                    found.append(table + QStringLiteral(": - ") + row);
            }
            for (const QString &row : std::as_const(after))
                found.append(table + QStringLiteral(": + ") + row);
        }
        return found.join(QLatin1Char('\n'));
    }

private:
    QMap<QString, QStringList> read() const
    {
        QStringList left = m_except;
        left += {QStringLiteral("UnitTokens"), QStringLiteral("Changes"), QStringLiteral("Leases")};
        QMap<QString, QStringList> cells;
        CTblTemp column(m_database);
        for (column.ExecuteQuery("SELECT c.TABLE_NAME,c.COLUMN_NAME,c.DATA_TYPE FROM information_schema.COLUMNS c JOIN information_schema.TABLES t"
                                 " ON t.TABLE_SCHEMA=c.TABLE_SCHEMA AND t.TABLE_NAME=c.TABLE_NAME WHERE c.TABLE_SCHEMA=DATABASE()"
                                 " AND t.TABLE_TYPE='BASE TABLE' ORDER BY c.TABLE_NAME,c.ORDINAL_POSITION");
             column.HasResultRow(); column.MoveNextResult()) {
            const QString name = column.GetTextFieldValue(1);
            const bool isBinary = column.GetTextFieldValue(2).endsWith(QStringLiteral("blob"));
            // A small picture is made anew with its record; nobody knows its key.
            const bool isMadeAnew = column.GetTextFieldValue(0) == QStringLiteral("Thumbnails") && name == QStringLiteral("iID");
            if (!isMadeAnew && !left.contains(column.GetTextFieldValue(0)))
                cells[column.GetTextFieldValue(0)].append(isBinary ? QStringLiteral("'%1=',IFNULL(MD5(%1),'NULL')").arg(name)
                                                                   : QStringLiteral("'%1=',QUOTE(%1)").arg(name));
        }
        QMap<QString, QStringList> rows;
        for (auto table = cells.cbegin(); table != cells.cend(); ++table) {
            QStringList &all = rows[table.key()];
            CTblTemp row(m_database);
            // A lock that has a name is a row that everybody writes who takes it.
            const QString locks = table.key() == QStringLiteral("Properties") ? QStringLiteral(" WHERE sSection<>'Codes'") : QString();
            const QString statement = QStringLiteral("SELECT CONCAT(%1) FROM %2%3").arg(table->join(QStringLiteral(",' ',")), table.key(), locks);
            for (row.ExecuteQuery(statement.toUtf8().constData(), true, true); row.HasResultRow(); row.MoveNextResult())
                all.append(row.GetTextFieldValue(0));
        }
        return rows;
    }

    QStringList m_except;
    int m_database;
    QMap<QString, QStringList> m_rows;
};
