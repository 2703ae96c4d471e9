// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KWholeRow.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/records/KRowFollowers.h"
#include "suite/db/connection/KTableSchema.h"

#include <QCborArray>
#include <QCborValue>

#include <algorithm>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

QList<qint32> keysOf(const KSql &statement, int database)
{
    QList<qint32> keys;
    const KConnection::Result rows = KConnection::forThread(database).run(statement);
    while (const MYSQL_ROW row = mysql_fetch_row(rows.get()))
        keys.append(QByteArray(row[0]).toInt());
    return keys;
}

}

std::optional<KWholeRow> KWholeRow::read(const QString &table, qint32 key, int database)
{
    // A locking read, which sees what is there now and not what was there when the transaction began.
    const KConnection::Result rows =
        KConnection::forThread(database).run(KSql::formatted("SELECT * FROM %1 WHERE iID=%2 LOCK IN SHARE MODE", KSql::name(table), key));
    const MYSQL_ROW values = mysql_fetch_row(rows.get());
    if (!values)
        return std::nullopt;
    const unsigned long *lengths = mysql_fetch_lengths(rows.get());
    const MYSQL_FIELD *fields = mysql_fetch_fields(rows.get());
    KWholeRow row(table);
    for (unsigned int i = 0; i < mysql_num_fields(rows.get()); ++i)
        row.m_cells.append({QString::fromUtf8(fields[i].name), values[i] ? QByteArray(values[i], static_cast<qsizetype>(lengths[i])) : QByteArray(),
                            values[i] == nullptr});
    return row;
}

QList<qint32> KWholeRow::keys(const QString &table, const KSql &condition, int database, bool forUpdate)
{
    return keysOf(KSql::formatted("SELECT iID FROM %1 WHERE %2 ORDER BY iID", KSql::name(table), condition) + (forUpdate ? KSql(" FOR UPDATE") : KSql()),
                  database);
}

QList<qint32> KWholeRow::numbers(const QString &table, const QString &column, const KSql &condition, int database)
{
    return keysOf(KSql::formatted("SELECT %1 FROM %2 WHERE %3", KSql::name(column), KSql::name(table), condition), database);
}

QList<qint32> KWholeRow::present(const QString &table, const QList<qint32> &keys, int database)
{
    if (keys.isEmpty())
        return {};
    return keysOf(KSql::formatted("SELECT iID FROM %1 WHERE iID IN (%2) LOCK IN SHARE MODE", KSql::name(table), KSql::list(keys)), database);
}

const KWholeRow::Cell *KWholeRow::cell(QStringView column) const
{
    const auto found = std::ranges::find_if(m_cells, [&](const Cell &cell) { return cell.column == column; });
    return found == m_cells.cend() ? nullptr : &*found;
}

qint32 KWholeRow::number(QStringView column) const
{
    return bytes(column).toInt();
}

QString KWholeRow::text(QStringView column) const
{
    return QString::fromUtf8(bytes(column));
}

QByteArray KWholeRow::bytes(QStringView column) const
{
    const Cell *found = cell(column);
    return found ? found->bytes : QByteArray();
}

void KWholeRow::put(QStringView column, const QByteArray &bytes)
{
    const auto found = std::ranges::find_if(m_cells, [&](const Cell &cell) { return cell.column == column; });
    if (found == m_cells.end())
        return;
    found->bytes = bytes;
    found->isNull = false;
}

void KWholeRow::set(QStringView column, qint32 number)
{
    put(column, QByteArray::number(number));
}

void KWholeRow::set(QStringView column, const QString &text)
{
    put(column, text.toUtf8());
}

qint32 KWholeRow::insert(int database, bool keepsKey) const
{
    const KTableSchema &schema = KTableSchema::of(m_table, database);
    QList<KSql> columns;
    QList<KSql> values;
    for (const Cell &cell : m_cells) {
        if (!schema.column(cell.column) || (!keepsKey && cell.column == u"iID"))
            continue;
        columns.append(KSql::name(cell.column));
        values.append(cell.isNull ? KSql("NULL") : KSql::quoted(cell.bytes));
    }
    KConnection &connection = KConnection::forThread(database);
    connection.run("INSERT INTO " + KSql::name(m_table) + "(" + KSql::joined(columns, ",") + ") VALUES(" + KSql::joined(values, ",") + ")");
    const qint32 inserted = keepsKey ? key() : static_cast<qint32>(connection.lastInsertedId());
    KRowFollowers::added(m_table, inserted, database);
    return inserted;
}

QByteArray KWholeRow::toBytes() const
{
    QCborArray all;
    for (const Cell &cell : m_cells)
        all.append(QCborArray{cell.column, cell.isNull ? QCborValue(nullptr) : QCborValue(cell.bytes)});
    return QCborValue(all).toCbor();
}

std::optional<KWholeRow> KWholeRow::fromBytes(const QString &table, const QByteArray &bytes)
{
    QCborParserError error;
    const QCborValue all = QCborValue::fromCbor(bytes, &error);
    if (error.error != QCborError::NoError || !all.isArray())
        return std::nullopt;
    KWholeRow row(table);
    for (const QCborValue &one : all.toArray()) {
        const QCborArray cell = one.toArray();
        if (cell.size() != 2 || !cell.at(0).isString() || KSql::name(cell.at(0).toString()).isEmpty())
            return std::nullopt;
        row.m_cells.append({cell.at(0).toString(), cell.at(1).toByteArray(), cell.at(1).isNull()});
    }
    return row.has(u"iID") ? std::optional(row) : std::nullopt;
}
