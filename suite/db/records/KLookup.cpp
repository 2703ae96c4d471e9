// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KLookup.h"

#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KMySQL.h"

#include <QSet>

#include <mysql.h>

#include <algorithm>

namespace {

KLookup::Source sourceOf(KMySQL &record, QStringView column)
{
    const KLookup::Source source = record.nameSource(column);
    Q_ASSERT_X(!source.table.isEmpty(), "KLookup", "no names behind this column");
    return source;
}

// In their order. Rows name few different ones, so that these are found before they are sorted.
QList<int> distinct(const QList<int> &keys)
{
    const QSet<int> found(keys.cbegin(), keys.cend());
    QList<int> wanted(found.cbegin(), found.cend());
    wanted.removeAll(0);
    std::ranges::sort(wanted);
    return wanted;
}

KSql namesStatement(const KLookup::Source &source, const QList<int> &wanted)
{
    return KSql::formatted("SELECT %1,%2 FROM %3 WHERE %1 IN (%4)", KSql::name(source.key), KSql::name(source.display),
                           KSql::name(source.table), KSql::list(wanted));
}

}

void KLookup::expectNames(const Source &source, const QList<int> &keys, int database)
{
    if (const QList<int> wanted = distinct(keys); !wanted.isEmpty())
        KReadAhead::expect(namesStatement(source, wanted), database);
}

QHash<int, QString> KLookup::names(const Source &source, const QList<int> &keys, int database)
{
    const QList<int> wanted = distinct(keys);
    QHash<int, QString> found;
    if (wanted.isEmpty())
        return found;

    const KSql statement = namesStatement(source, wanted);
    found.reserve(wanted.size());
    const KConnection::Result rows = KConnection::forThread(database).run(statement);
    while (MYSQL_ROW row = mysql_fetch_row(rows.get()))
        found.insert(QByteArray(row[0]).toInt(), QString::fromUtf8(row[1]));
    return found;
}

QString KLookup::name(const Source &source, int key, int database)
{
    return names(source, {key}, database).value(key);
}

QHash<int, QString> KLookup::names(KMySQL &record, QStringView column, const QList<int> &keys)
{
    return names(sourceOf(record, column), keys, record.database());
}

void KLookup::expectNames(KMySQL &record, QStringView column, const QList<int> &keys)
{
    expectNames(sourceOf(record, column), keys, record.database());
}

QString KLookup::name(KMySQL &record, QStringView column, int key)
{
    return name(sourceOf(record, column), key, record.database());
}

QString KLookup::name(KMySQL &record, QStringView column)
{
    return name(record, column, record.value(column).toInt());
}
