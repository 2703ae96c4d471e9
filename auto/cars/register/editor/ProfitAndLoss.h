// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The amounts of a car's sale from which its profit and loss follows, in the suite's money unit.
struct SaleAmounts
{
    double sold = 0;
    double purchase = 0; // from the owner
    double expenses = 0;
    double notaryCost = 0;
    double notaryRemaining = 0;
};

// The sale price less everything else; below 0 for a loss. The notary's remaining amount is subtracted as well as the
// notary's cost.
double profitAndLoss(const SaleAmounts &amounts);
