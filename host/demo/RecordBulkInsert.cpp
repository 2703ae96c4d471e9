// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/RecordBulkInsert.h"

namespace {

// Big enough that the trip to the server costs little, far below what a server accepts as one statement.
constexpr qsizetype statementBytes = qsizetype{512} * 1024;

}

RecordBulkInsert::RecordBulkInsert(KMySQL &record, const QStringList &columns)
    : m_record(record)
{
    for (const QString &name : columns)
        m_columns.push_back(record.column(name));
    m_start = "INSERT INTO " + record.GetTableName().toUtf8() + '(' + columns.join(u',').toUtf8() + ") VALUES";
}

RecordBulkInsert::~RecordBulkInsert() = default;

QByteArray RecordBulkInsert::literal(const KMySQL::Column &column) const
{
    KConnection &connection = KConnection::forThread(m_record.database());
    switch (column.kind) {
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Bool:
        return QByteArray::number(*static_cast<const qint32 *>(column.member));
    case KMySQL::ColumnKind::Double:
        return QByteArray::number(*static_cast<const double *>(column.member), 'g', 17);
    case KMySQL::ColumnKind::Text: {
        const QString &text = *static_cast<const QString *>(column.member);
        return text.isEmpty() ? QByteArrayLiteral("NULL") : connection.quoted(text);
    }
    case KMySQL::ColumnKind::Date: {
        const QDateTime &date = *static_cast<const QDateTime *>(column.member);
        return date.isValid() ? date.toString(QStringLiteral("''yyyy-MM-dd HH:mm:ss''")).toLatin1() : QByteArrayLiteral("NULL");
    }
    case KMySQL::ColumnKind::LongBlob: {
        const auto *binary = static_cast<const KLongBinary *>(column.member);
        return binary->isEmpty() ? QByteArrayLiteral("NULL") : connection.quoted(binary->data);
    }
    }
    Q_UNREACHABLE();
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
