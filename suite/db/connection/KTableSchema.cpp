// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KTableSchema.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KReadAhead.h"

#include <QMutex>

#include <map>
#include <mysql.h>

namespace {

struct Cache
{
    QMutex mutex;
    // A map keeps the addresses that of() returns.
    std::map<std::pair<int, QString>, KTableSchema> tables;
};

Cache &cache()
{
    static Cache instance;
    return instance;
}

KSql statement(const QString &table)
{
    return "SELECT COLUMN_NAME,CHARACTER_MAXIMUM_LENGTH,CHARACTER_SET_NAME FROM information_schema.COLUMNS "
           "WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME="
        + KSql::quoted(table);
}

}

void KTableSchema::expect(const QString &table, int database)
{
    {
        QMutexLocker lock(&cache().mutex);
        if (cache().tables.contains({database, table}))
            return;
    }
    KReadAhead::expect(statement(table), database);
}

const KTableSchema &KTableSchema::of(const QString &table, int database)
{
    const auto key = std::make_pair(database, table);
    {
        QMutexLocker lock(&cache().mutex);
        const auto found = cache().tables.find(key);
        if (found != cache().tables.end())
            return found->second;
    }
    KTableSchema schema;
    const KConnection::Result rows = KConnection::forThread(database).run(statement(table));
    while (MYSQL_ROW row = mysql_fetch_row(rows.get())) {
        const QString name = QString::fromUtf8(row[0]);
        if (name.startsWith(orderPrefix())) {
            schema.m_orderColumns.insert(name.mid(orderPrefix().size()), name);
            continue;
        }
        const QByteArray charset(row[2] ? row[2] : "");
        schema.m_columns.insert(name,
                                {row[1] ? QByteArray(row[1]).toLongLong() : 0,
                                 charset == "utf8" || charset == "utf8mb3" || charset == "ucs2"});
    }
    QMutexLocker lock(&cache().mutex);
    return cache().tables.insert_or_assign(key, std::move(schema)).first->second;
}

QString KTableSchema::orderPrefix()
{
    return QStringLiteral("orderOf_");
}

int KTableSchema::textLength(const QString &table, const QString &name, int database)
{
    const Column *found = of(table, database).column(name);
    return found ? static_cast<int>(qMin<qint64>(found->maxCharacters, 65535)) : 0;
}

void KTableSchema::forgetAll()
{
    QMutexLocker lock(&cache().mutex);
    cache().tables.clear();
}

const KTableSchema::Column *KTableSchema::column(const QString &name) const
{
    const auto found = m_columns.constFind(name);
    return found == m_columns.cend() ? nullptr : &*found;
}
