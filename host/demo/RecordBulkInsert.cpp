// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/RecordBulkInsert.h"

using namespace Qt::StringLiterals;

namespace {

// Big enough that the round trip costs little, far below what a server accepts as one statement.
constexpr qsizetype statementBytes = qsizetype{512} * 1024;

QStringList allColumns(KMySQL &record)
{
    QStringList names;
    for (const KMySQL::Column &column : record.columns()) {
        if (column.name != "iID"_L1)
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
    for (const KMySQL::Column *column : m_columns)
        m_rows += literal(*column) + ',';
    m_rows.back() = ')';
    if (m_rows.size() > statementBytes)
        flush();
}

void RecordBulkInsert::flush()
{
    if (m_rows.isEmpty())
        return;
    KConnection::forThread(m_record.database()).run(m_start + m_rows);
    m_rows.clear();
}
