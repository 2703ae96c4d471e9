// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/sql/KSql.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// What stands for a byte that would end the literal or be read as another; 0: the byte stands for itself. In UTF-8 no byte of a
// longer character is one of these.
char escaped(char byte)
{
    switch (byte) {
    case '\0':
        return '0';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\x1a':
        return 'Z';
    case '\\':
    case '\'':
    case '"':
        return byte;
    default:
        return 0;
    }
}

QByteArray literal(const QByteArray &bytes)
{
    QByteArray literal;
    literal.reserve(bytes.size() + bytes.size() / 8 + 2);
    literal += '\'';
    for (const char byte : bytes) {
        if (const char escape = escaped(byte)) {
            literal += '\\';
            literal += escape;
        } else {
            literal += byte;
        }
    }
    literal += '\'';
    return literal;
}

const QString columnName = uR"([A-Za-z_][A-Za-z0-9_]*(?:\.[A-Za-z_][A-Za-z0-9_]*)?)"_s;

}

KSql KSql::quoted(const QByteArray &binary)
{
    KSql sql;
    sql.m_utf8 = literal(binary);
    return sql;
}

KSql KSql::quoted(const QString &text)
{
    return quoted(text.toUtf8());
}

KSql KSql::number(int value)
{
    return number(qint64{value});
}

KSql KSql::number(qint64 value)
{
    KSql sql;
    sql.m_utf8 = QByteArray::number(value);
    return sql;
}

KSql KSql::amount(double value)
{
    KSql sql;
    sql.m_utf8 = QByteArray::number(value, 'f', 6);
    return sql;
}

KSql KSql::checked(QAnyStringView text, const QRegularExpression &allowed)
{
    const QString checked = text.toString();
    KSql sql;
    if (allowed.match(checked).hasMatch())
        sql.m_utf8 = checked.toUtf8();
    return sql;
}

KSql KSql::name(QAnyStringView name)
{
    static const QRegularExpression isName(QRegularExpression::anchoredPattern(columnName));
    return checked(name, isName);
}

KSql KSql::order(QAnyStringView columns)
{
    static const QString sum = columnName + u"(?:[-+]"_s + columnName + u")*"_s;
    static const QString term = sum + u"(?: (?:ASC|DESC))?"_s;
    static const QRegularExpression isOrder(QRegularExpression::anchoredPattern(term + u"(?:,"_s + term + u")*"_s));
    return checked(columns, isOrder);
}

KSql KSql::alphabetical(const KSql &column)
{
    return formatted("CONVERT(%1 USING utf8mb4) COLLATE utf8mb4_persian_ci", column);
}

KSql KSql::joined(const QList<KSql> &parts, const KSql &between)
{
    KSql sql;
    for (const KSql &part : parts)
        sql += &part == &parts.front() ? part : between + part;
    return sql;
}

KSql KSql::withoutStart(const KSql &start) const
{
    KSql rest = *this;
    if (m_utf8.startsWith(start.m_utf8))
        rest.m_utf8.remove(0, start.m_utf8.size());
    return rest;
}

KSql KSql::withoutEnd(const KSql &end) const
{
    KSql rest = *this;
    if (m_utf8.endsWith(end.m_utf8))
        rest.m_utf8.chop(end.m_utf8.size());
    return rest;
}

KSql KSql::filled(std::initializer_list<KSql> values) const
{
    KSql sql;
    for (qsizetype i = 0; i < m_utf8.size(); ++i) {
        const bool isPlace = m_utf8.at(i) == '%' && i + 1 < m_utf8.size() && m_utf8.at(i + 1) >= '1' && m_utf8.at(i + 1) <= '9';
        if (!isPlace) {
            sql.m_utf8 += m_utf8.at(i);
            continue;
        }
        const auto place = static_cast<std::size_t>(m_utf8.at(++i) - '1');
        Q_ASSERT_X(place < values.size(), "KSql::formatted", "a placeholder without a value");
        if (place < values.size())
            sql += values.begin()[place];
    }
    return sql;
}

KSql DateToSQL(const QDateTime &dateTime)
{
    return dateTime.isValid() ? KSql::quoted(dateTime.toString(u"yyyy-MM-dd"_s)) : KSql("NULL");
}
