// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>

// The kind of contract whose price is paid in instalments.
namespace InstalmentSale {

// As iContractType of a contract keeps it.
inline constexpr int contractType = 2;

// What of the price is split into instalments.
inline double amountLeft(double amount, double inCash, double byCheque)
{
    return std::max(0.0, amount - inCash - byCheque);
}

}
