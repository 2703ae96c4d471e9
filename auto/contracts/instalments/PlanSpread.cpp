// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanSpread.h"

#include "suite/utility/values/Money.h"

#include <algorithm>

namespace {

using PlanSpread::Part;
using PlanSpread::Row;

bool isOpen(const Row &row)
{
    return row.rest > 0 && !IsEquals(row.rest, 0);
}

double interestShare(const Row &row)
{
    return row.amount > 0 ? row.interest / row.amount : 0;
}

// What of the principal is in the parts that are paid, and in those that are open.
struct Principal
{
    long double closed = 0;
    long double open = 0;
};

Principal principalOf(const std::vector<Row> &rows)
{
    Principal sum;
    for (const Row &row : rows) {
        const double share = 1 - interestShare(row);
        sum.open += row.rest * share;
        sum.closed += (row.due - row.rest) * share;
    }
    return sum;
}

}

PlanSpread::Problem PlanSpread::problemOf(const std::vector<Row> &rows, double principal)
{
    if (std::ranges::none_of(rows, isOpen))
        return Problem::NothingOpen;
    const auto left = static_cast<double>(principal - principalOf(rows).closed);
    return left < 0 && !IsEquals(left, 0) ? Problem::MoreReceived : Problem::None;
}

std::vector<Part> PlanSpread::of(const std::vector<Row> &rows, double principal, int decimals)
{
    const Principal before = principalOf(rows);
    const long double factor = std::max(0.0L, (principal - before.closed) / before.open);
    long double total = 0;
    for (const Row &row : rows)
        total += (row.due - row.rest) + row.rest * factor;
    long double left = roundToDecimals(static_cast<double>(total), decimals);
    long double interestLeft = left - principal;

    std::vector<Part> parts;
    std::size_t last = 0;
    double largest = 0;
    for (const Row &row : rows) {
        const double open = roundToDecimals(static_cast<double>(row.rest * factor), decimals);
        if (isOpen(row) && open >= largest) {
            largest = open;
            last = parts.size();
        }
        const double amount = row.due - row.rest + open;
        parts.push_back({amount, amount * interestShare(row)});
        left -= parts.back().amount;
        interestLeft -= parts.back().interest;
    }
    parts[last].amount = roundToDecimals(static_cast<double>(parts[last].amount + left), decimals);
    parts[last].interest += static_cast<double>(interestLeft);
    return parts;
}
