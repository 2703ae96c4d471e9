// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/KLookup.h"

#include "suite/db/KConnection.h"

#include <mysql.h>

#include <algorithm>

QHash<int, QString> KLookup::names(const QString &table, const QString &keyColumn, const QString &displayColumn,
                                   const QList<int> &keys, int database)
{
    QList<int> wanted = keys;
    std::sort(wanted.begin(), wanted.end());
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    wanted.removeAll(0);
    QHash<int, QString> found;
    if (wanted.isEmpty())
        return found;

    QByteArray statement = "SELECT " + keyColumn.toUtf8() + ',' + displayColumn.toUtf8() + " FROM " + table.toUtf8()
        + " WHERE " + keyColumn.toUtf8() + " IN (";
    for (int key : std::as_const(wanted))
        statement += QByteArray::number(key) + ',';
    statement.back() = ')';

    found.reserve(wanted.size());
    const KConnection::Result rows = KConnection::forThread(database).run(statement);
    while (MYSQL_ROW row = mysql_fetch_row(rows.get()))
        found.insert(QByteArray(row[0]).toInt(), QString::fromUtf8(row[1]));
    return found;
}

QString KLookup::name(const QString &table, const QString &keyColumn, const QString &displayColumn, int key, int database)
{
    return names(table, keyColumn, displayColumn, {key}, database).value(key);
}
