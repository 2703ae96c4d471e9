// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What a late instalment costs. It is shown and never booked by itself.
namespace LateFee {

// A percentage of the rest for each day after the days of grace, rounded to the decimals of the money unit. 0 without a
// percentage, without a rest, and within the days of grace. daysOverdue: since the due date, 0 or below before it.
double of(double rest, int daysOverdue, double percentPerDay, int graceDays, int decimals);

}
