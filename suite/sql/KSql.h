// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/TzSQLExport.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <initializer_list>
#include <type_traits>

class QRegularExpression;

// A statement, or a part of one such as a condition or an order. It is made of constants of the program, numbers, names of
// columns and quoted literals, and of nothing else: a QString does not convert, so what somebody types can stand in a
// statement as a value only.
class TZSQL_EXPORT KSql
{
public:
    KSql() = default;
    // A constant of the program. (A buffer that is filled while it runs is none.)
    template <std::size_t size>
    KSql(const char (&constant)[size])
        : m_utf8(constant, static_cast<qsizetype>(size) - 1)
    {
    }
    template <std::size_t size>
    KSql(char (&buffer)[size]) = delete;

    // The text as a literal with its quotes, whatever it holds. This is the only way of a text into a statement. (With the
    // sql_mode that every connection has, in which a backslash escapes.)
    static KSql quoted(const QString &text);
    static KSql quoted(const QByteArray &binary);
    static KSql number(int value);
    static KSql number(qint64 value);
    // Six decimals, as the C format "%f".
    static KSql amount(double value);
    // A table's or column's name, with its table's alias or without: letters, digits, underscores and dots. Empty for any
    // other text.
    static KSql name(QAnyStringView name);
    // Columns after ORDER BY: names, or sums of them, each with or without its direction and with commas between. Empty for any
    // other text.
    static KSql order(QAnyStringView columns);
    // A text column as a term after ORDER BY in the order of the Persian alphabet. The table's own collation follows the code
    // points, which puts the letters that only Persian has behind all others.
    static KSql alphabetical(const KSql &column);
    // A constant in which %1, %2 ... stand for numbers and parts of statements. A value's own % is no placeholder.
    template <std::size_t size, class... Values>
        requires((std::is_same_v<Values, int> || std::is_same_v<Values, qint64> || std::is_same_v<Values, KSql>) && ...)
    static KSql formatted(const char (&pattern)[size], const Values &...values)
    {
        return KSql(pattern).filled({part(values)...});
    }
    template <std::size_t size, class... Values>
    static KSql formatted(char (&pattern)[size], const Values &...values) = delete;
    static KSql joined(const QList<KSql> &parts, const KSql &between);
    // The numbers with commas between.
    template <class Numbers>
    static KSql list(const Numbers &numbers)
    {
        QList<KSql> parts;
        for (const auto number : numbers)
            parts.append(KSql::number(number));
        return joined(parts, ",");
    }

    bool isEmpty() const { return m_utf8.isEmpty(); }
    const QByteArray &utf8() const { return m_utf8; }
    // For logs and tests.
    QString text() const { return QString::fromUtf8(m_utf8); }
    // Without that beginning, where it begins so.
    KSql withoutStart(const KSql &start) const;
    // Without that end, where it ends so.
    KSql withoutEnd(const KSql &end) const;

    KSql &operator+=(const KSql &other)
    {
        m_utf8 += other.m_utf8;
        return *this;
    }
    friend KSql operator+(KSql first, const KSql &second) { return first += second; }
    friend bool operator==(const KSql &first, const KSql &second) { return first.m_utf8 == second.m_utf8; }

private:
    static KSql checked(QAnyStringView text, const QRegularExpression &allowed);
    static KSql part(int value) { return number(value); }
    static KSql part(qint64 value) { return number(value); }
    static KSql part(const KSql &value) { return value; }
    KSql filled(std::initializer_list<KSql> values) const;

    QByteArray m_utf8;
};

// The day as a literal: '2026-11-20'. NULL (without quotes) for no date.
TZSQL_EXPORT KSql DateToSQL(const QDateTime &dateTime);
