// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KStatementResult.h"

#include "suite/db/connection/KColumnValue.h"

#include <mysql.h>

void KStatementResult::set(KConnection::Result rows)
{
    m_rows = std::move(rows);
    m_row = nullptr;
    if (m_rows)
        moveNext();
}

qint64 KStatementResult::rowCount() const
{
    return m_rows ? static_cast<qint64>(mysql_num_rows(m_rows.get())) : 0;
}

bool KStatementResult::moveNext()
{
    m_row = mysql_fetch_row(m_rows.get());
    m_lengths = m_row ? mysql_fetch_lengths(m_rows.get()) : nullptr;
    return hasRow();
}

const char *KStatementResult::cell(int column) const
{
    if (!hasRow() || column < 0 || static_cast<unsigned int>(column) >= mysql_num_fields(m_rows.get()))
        return nullptr;
    return m_row[column];
}

template <class Value>
Value KStatementResult::value(int column) const
{
    const char *text = cell(column);
    return text ? KColumnValue<Value>::fromCell(text, m_lengths[column]) : Value();
}

template qint32 KStatementResult::value<qint32>(int) const;
template double KStatementResult::value<double>(int) const;
template QString KStatementResult::value<QString>(int) const;
template QDateTime KStatementResult::value<QDateTime>(int) const;
template KLongBinary KStatementResult::value<KLongBinary>(int) const;
