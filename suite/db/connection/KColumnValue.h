// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KLongBinary.h"
#include "suite/sql/KSql.h"

#include <QDateTime>
#include <QVariant>

#include <charconv>
#include <cmath>
#include <type_traits>

using namespace Qt::StringLiterals;

// The C++ types that a column's member may have, one specialization each: how a value comes out of a result's cell, passes
// through a QVariant and goes into a statement, which value is the empty one (as constructed; what NULL reads as), and
// which cannot be written. The cell readers are inline: they run for every cell of every row. read() is fromCell() into a member, which
// keeps what memory it has; cell is not null.
template <class Value>
struct KColumnValue;

namespace KColumnValueParts {

// What most types share.
template <class Value>
struct Plain
{
    static QVariant toVariant(const Value &value) { return value; }
    static bool isEmpty(const Value &value) { return value == Value(); }
    // Why the value cannot be written, for the log; null for one that can.
    static const char *refusal(const Value &) { return nullptr; }
};

// Most cells of numbers are a whole one of few digits. Below 2^53, so that a double holds it too.
constexpr unsigned long mostDigits = 15;

template <class Number>
Number parsed(const char *cell, unsigned long length)
{
    if (length <= (std::is_same_v<Number, qint32> ? 9 : mostDigits)) {
        qint64 whole = 0;
        unsigned long at = 0;
        for (; at < length; ++at) {
            const unsigned digit = static_cast<unsigned char>(cell[at]) - unsigned('0');
            if (digit > 9)
                break;
            whole = whole * 10 + digit;
        }
        if (at == length)
            return static_cast<Number>(whole);
    }
    Number number{};
    std::from_chars(cell, cell + length, number);
    return number;
}

// UTF-8 of one and two bytes a letter, which is all that most texts hold; out has room for size. Returns the letters' number, -1 where it
// is anything else.
inline qsizetype widened(QChar *out, const char *text, qsizetype size)
{
    const auto *in = reinterpret_cast<const unsigned char *>(text);
    const unsigned char *const end = in + size;
    QChar *const begin = out;
    while (in != end) {
        const unsigned char first = *in++;
        if (first < 0x80) {
            *out++ = QChar(char16_t(first));
            continue;
        }
        if (first < 0xc2 || first > 0xdf || in == end || (*in & 0xc0) != 0x80)
            return -1;
        *out++ = QChar(char16_t((first & 0x1f) << 6 | (*in++ & 0x3f)));
    }
    return out - begin;
}

inline int digits(const char *text, int count)
{
    int number = 0;
    for (int i = 0; i < count; ++i)
        number = number * 10 + (text[i] - '0');
    return number;
}

}

template <>
struct KColumnValue<qint32> : KColumnValueParts::Plain<qint32>
{
    static qint32 fromCell(const char *cell, unsigned long length) { return KColumnValueParts::parsed<qint32>(cell, length); }
    static void read(qint32 &member, const char *cell, unsigned long length) { member = fromCell(cell, length); }
    static qint32 fromVariant(const QVariant &value) { return value.toInt(); }
    static QByteArray literal(qint32 value) { return QByteArray::number(value); }
};

template <>
struct KColumnValue<double> : KColumnValueParts::Plain<double>
{
    static double fromCell(const char *cell, unsigned long length) { return KColumnValueParts::parsed<double>(cell, length); }
    static void read(double &member, const char *cell, unsigned long length) { member = fromCell(cell, length); }
    static double fromVariant(const QVariant &value) { return value.toDouble(); }
    static const char *refusal(double value) { return std::isfinite(value) ? nullptr : ": no finite number"; }
    static QByteArray literal(double value) { return QByteArray::number(value, 'g', 17); }
};

template <>
struct KColumnValue<QString> : KColumnValueParts::Plain<QString>
{
    static QString fromCell(const char *cell, unsigned long length)
    {
        QString text;
        read(text, cell, length);
        return text;
    }
    static void read(QString &member, const char *cell, unsigned long length)
    {
        const auto size = static_cast<qsizetype>(length);
        if (size == 0) {
            if (!member.isNull())
                member = QString();
            return;
        }
        // What somebody else holds as well is left to him. No letter needs more units than its bytes.
        if (member.isDetached() && member.capacity() >= size)
            member.resize(size);
        else
            member = QString(size, Qt::Uninitialized);
        const qsizetype units = KColumnValueParts::widened(member.data(), cell, size);
        if (units >= 0)
            member.truncate(units);
        else
            member = QString::fromUtf8(cell, size);
    }
    static QString fromVariant(const QVariant &value) { return value.toString(); }
    static bool isEmpty(const QString &value) { return value.isEmpty(); }
    static QByteArray literal(const QString &value) { return KSql::quoted(value).utf8(); }
};

template <>
struct KColumnValue<QDateTime> : KColumnValueParts::Plain<QDateTime>
{
    // "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS", as the server writes them; the zero date is no date.
    static QDateTime fromCell(const char *cell, unsigned long length)
    {
        using KColumnValueParts::digits;
        if (length < 10)
            return {};
        const QDate date(digits(cell, 4), digits(cell + 5, 2), digits(cell + 8, 2));
        if (!date.isValid())
            return {};
        const QTime time =
            length >= 19 ? QTime(digits(cell + 11, 2), digits(cell + 14, 2), digits(cell + 17, 2)) : QTime(0, 0);
        return QDateTime(date, time, Qt::UTC);
    }
    static void read(QDateTime &member, const char *cell, unsigned long length) { member = fromCell(cell, length); }
    static QDateTime fromVariant(const QVariant &value) { return value.toDateTime(); }
    static bool isEmpty(const QDateTime &value) { return !value.isValid(); }
    // The server would read the digits of such a year as another date.
    static const char *refusal(const QDateTime &value)
    {
        const int year = value.date().year();
        return value.isValid() && (year < 1 || year > 9999) ? ": no year of four digits" : nullptr;
    }
    static QByteArray literal(const QDateTime &value)
    {
        return value.isValid() ? KSql::quoted(value.toString(u"yyyy-MM-dd HH:mm:ss"_s)).utf8() : "NULL";
    }
};

template <>
struct KColumnValue<KLongBinary> : KColumnValueParts::Plain<KLongBinary>
{
    static KLongBinary fromCell(const char *cell, unsigned long length)
    {
        return {QByteArray(cell, static_cast<qsizetype>(length))};
    }
    static void read(KLongBinary &member, const char *cell, unsigned long length) { member = fromCell(cell, length); }
    static QVariant toVariant(const KLongBinary &value) { return value.data; }
    static KLongBinary fromVariant(const QVariant &value) { return {value.toByteArray()}; }
    static bool isEmpty(const KLongBinary &value) { return value.isEmpty(); }
    static QByteArray literal(const KLongBinary &value)
    {
        return value.isEmpty() ? QByteArrayLiteral("NULL") : KSql::quoted(value.data).utf8();
    }
};
