// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/ProfitAndLoss.h"

double profitAndLoss(const SaleAmounts &amounts)
{
    return amounts.sold - amounts.purchase - amounts.expenses - amounts.notaryCost - amounts.notaryRemaining;
}
