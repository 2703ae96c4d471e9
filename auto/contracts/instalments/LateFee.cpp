// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/LateFee.h"

#include "suite/utility/values/Money.h"

double LateFee::of(double rest, int daysOverdue, double percentPerDay, int graceDays, int decimals)
{
    const int days = daysOverdue - (graceDays > 0 ? graceDays : 0);
    if (days <= 0 || percentPerDay <= 0 || rest <= 0)
        return 0;
    return roundToDecimals(rest * percentPerDay / 100 * days, decimals);
}
