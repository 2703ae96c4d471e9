// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

namespace MonthsToday {

// Contracts, their amounts and commissions, and the cars that came and went, by Shamsi month; income and expenses of the running month by day.
// One statement. Throws CMySQLException.
TodayFigures read(const TodayFrame &frame);

}
