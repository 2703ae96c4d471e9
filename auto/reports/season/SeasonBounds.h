// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"

#include <QDate>

// The seasons of the Shamsi year as the tax authority counts them: 0 spring, 1 summer, 2 autumn, 3 winter.
namespace Season {

inline constexpr int count = 4;

// First and last day of a season, as ordinary dates; both invalid for a season or a year that does not exist.
struct Bounds
{
    QDate first;
    QDate last; // winter ends on 30/12 in a leap year, else on 29/12
};

Bounds bounds(int season, int shamsiYear);

// The season that a report opens on in that Shamsi month (1 to 12): month / 3 - 1, never below spring. So the summer is
// offered from its last month on, and early in a year the winter before is not.
int ofMonth(int shamsiMonth);

// Whether the column's date-time is within the season. The upper bound is the day after the last one and not itself part of
// the season: all of the last day counts, and the first moment of the next season does not count twice. Nothing is in a
// season that does not exist.
KSql condition(const KSql &column, const Bounds &bounds);

}
