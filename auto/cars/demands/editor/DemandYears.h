// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Whether a demand may state these production years: none at all (both 0), or both from 1000 to 3000.
constexpr bool areDemandYears(int from, int upTo)
{
    constexpr auto isYear = [](int year) { return year >= 1000 && year <= 3000; };
    return (from == 0 && upTo == 0) || (isYear(from) && isYear(upTo));
}
