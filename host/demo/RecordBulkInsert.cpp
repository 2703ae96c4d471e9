// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/RecordBulkInsert.h"

#include "suite/db/connection/KMadeAhead.h"

using namespace Qt::StringLiterals;

namespace {

// Big enough that the round trip costs little, far below what a server accepts as one statement.
constexpr qsizetype statementBytes = qsizetype{512} * 1024;
const QString keyColumn = u"iID"_s;

QStringList allColumns(KMySQL &record)
{
    QStringList names;
    for (const KMySQL::Column &column : record.columns()) {
        if (column.name != keyColumn)
            names.append(column.name);
    }
    return names;
}

}

RecordBulkInsert::RecordBulkInsert(KMySQL &record, const QStringList &columns)
    : m_record(record)
{
    for (const QString &name : columns)
        m_columns.push_back(record.column(name));
    m_start = "INSERT INTO " + record.GetTableName().toUtf8() + '(' + columns.join(u',').toUtf8() + ") VALUES";
}

RecordBulkInsert::RecordBulkInsert(KMySQL &record)
    : RecordBulkInsert(record, allColumns(record))
{
}

RecordBulkInsert::RecordBulkInsert(KMySQL &record, const QStringList &columns, EmptyTable)
    : RecordBulkInsert(record, columns)
{
    QStringList written = columns;
    if (!written.contains(keyColumn)) {
        written.prepend(keyColumn);
        m_key = 0;
    }
    m_sorted = std::make_unique<KSortedInsert>(record.GetTableName(), written, record.database());
}

RecordBulkInsert::RecordBulkInsert(KMySQL &record, EmptyTable empty)
    : RecordBulkInsert(record, allColumns(record), empty)
{
}

RecordBulkInsert::~RecordBulkInsert() = default;

QByteArray RecordBulkInsert::literal(const KMySQL::Column &column) const
{
    const bool isNumber = std::holds_alternative<qint32 *>(column.member) || std::holds_alternative<double *>(column.member);
    if (!isNumber && column.isEmpty())
        return QByteArrayLiteral("NULL");
    return column.literal();
}

void RecordBulkInsert::add()
{
    m_rows += m_rows.isEmpty() ? "(" : ",(";
    if (m_key >= 0)
        m_rows += QByteArray::number(++m_key) + ',';
    for (const KMySQL::Column *column : m_columns)
        m_rows += literal(*column) + ',';
    m_rows.back() = ')';
    if (m_rows.size() > statementBytes)
        send();
}

void RecordBulkInsert::send()
{
    if (m_rows.isEmpty())
        return;
    if (m_give)
        m_give(m_rows);
    else
        store(m_rows);
    m_rows.clear();
}

void RecordBulkInsert::store(const QByteArray &rows)
{
    if (m_sorted)
        m_sorted->put(rows);
    else
        KConnection::forThread(m_record.database()).run(m_start + rows);
}

void RecordBulkInsert::flush()
{
    send();
    if (m_sorted)
        m_sorted->finish();
}

void RecordBulkInsert::fillAhead(const QList<RecordBulkInsert *> &inserts, const std::function<void()> &make)
{
    struct Rows
    {
        RecordBulkInsert *of;
        QByteArray rows;
    };
    KMadeAhead<Rows> made([&](const KMadeAhead<Rows>::Give &give) {
        for (RecordBulkInsert *insert : inserts)
            insert->m_give = [insert, &give](const QByteArray &rows) { give({insert, rows}); };
        make();
        for (RecordBulkInsert *insert : inserts)
            insert->send();
    });
    while (const std::optional<Rows> some = made.next())
        some->of->store(some->rows);
    for (RecordBulkInsert *insert : inserts) {
        insert->m_give = nullptr;
        insert->flush();
    }
}
