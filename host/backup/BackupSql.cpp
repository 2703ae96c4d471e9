// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupSql.h"

#include <mysql.h>

using namespace Qt::StringLiterals;

namespace BackupSql {

QByteArray name(const QString &identifier)
{
    return '`' + identifier.toUtf8().replace('`', "``") + '`';
}

QByteArray name(const QString &database, const QString &table)
{
    return name(database) + '.' + name(table);
}

QByteArray text(const QString &literal)
{
    return KSql::quoted(literal).utf8();
}

QList<QByteArrayList> rows(KConnection &connection, const QByteArray &statement)
{
    const KConnection::Result result = connection.run(statement);
    QList<QByteArrayList> all;
    if (!result)
        return all;
    const unsigned int columns = mysql_num_fields(result.get());
    while (const MYSQL_ROW row = mysql_fetch_row(result.get())) {
        const unsigned long *lengths = mysql_fetch_lengths(result.get());
        QByteArrayList values;
        for (unsigned int column = 0; column < columns; ++column)
            values << (row[column] ? QByteArray(row[column], static_cast<qsizetype>(lengths[column])) : QByteArray());
        all << values;
    }
    return all;
}

QByteArray value(KConnection &connection, const QByteArray &statement)
{
    const QList<QByteArrayList> all = rows(connection, statement);
    return all.isEmpty() ? QByteArray() : all.constFirst().constFirst();
}

QStringList tablesOf(KConnection &connection, const QString &database)
{
    QStringList tables;
    const QList<QByteArrayList> all = rows(connection,
                                           "SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_TYPE='BASE TABLE' AND TABLE_SCHEMA="
                                               + text(database) + " ORDER BY TABLE_NAME");
    for (const QByteArrayList &row : all)
        tables << QString::fromUtf8(row.constFirst());
    return tables;
}

bool hasTable(KConnection &connection, const QString &database, const QString &table)
{
    return !value(connection, "SELECT 1 FROM information_schema.TABLES WHERE TABLE_SCHEMA=" + text(database) + " AND TABLE_NAME=" + text(table)).isNull();
}

bool hasDatabase(KConnection &connection, const QString &database)
{
    return !value(connection, "SELECT 1 FROM information_schema.SCHEMATA WHERE SCHEMA_NAME=" + text(database)).isNull();
}

}
