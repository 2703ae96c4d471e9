// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"

#include <array>
#include <type_traits>

// A value of a printf format as it passes through "...".
namespace KStatementValue {

inline int of(int value)
{
    return value;
}
inline double of(double value)
{
    return value;
}
inline const char *of(const KSql &value)
{
    return value.utf8().constData();
}

// The conversion that takes a value of that type; 0: none does, as for any text.
template <class Value>
constexpr char conversion()
{
    if constexpr (std::is_same_v<Value, int>)
        return 'd';
    else if constexpr (std::is_same_v<Value, double>)
        return 'f';
    else if constexpr (std::is_same_v<Value, KSql>)
        return 's';
    else
        return 0;
}

}

// A printf format that is read while the program is compiled: each %d, %f or %s stands before a value of its type, and there are
// as many of them as values. %% is a percent sign.
template <class... Values>
struct KStatementFormat
{
    const char *text;

    consteval KStatementFormat(const char *format)
        : text(format)
    {
        constexpr std::array<char, sizeof...(Values) + 1> expected{KStatementValue::conversion<Values>()..., 0};
        std::size_t found = 0;
        for (const char *at = format; *at; ++at) {
            if (*at != '%' || *++at == '%')
                continue;
            if (found >= sizeof...(Values) || *at != expected[found++])
                throw "a conversion that does not fit its value";
        }
        if (found != sizeof...(Values))
            throw "a value without a conversion";
    }
};
