// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/IncomeBars.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using IncomeAndExpenses::Account;

constexpr double million = 1'000'000;
// Longer amounts than this are shown in millions.
constexpr double highestPlain = 10 * million;
constexpr int steps = 5; // of the axis, approximately

QList<IncomeBars::Bar> barsOf(QList<Account> accounts, bool isIncome, const QString &others)
{
    IncomeAndExpenses::sort(accounts, IncomeAndExpenses::Order::Amount, true);
    QList<IncomeBars::Bar> bars;
    IncomeBars::Bar rest{others, 0, isIncome};
    for (const Account &account : std::as_const(accounts)) {
        const double amount = isIncome ? -account.balance.net() : account.balance.net();
        if (bars.size() < IncomeBars::mostOfASide)
            bars.append({u"%1 - %2"_s.arg(account.code).arg(account.name), amount, isIncome});
        else
            rest.amount += amount;
    }
    if (accounts.size() > IncomeBars::mostOfASide)
        bars.append(rest);
    return bars;
}

// 1, 2 or 5 followed by zeros, so that the range has about that many steps.
double niceStep(double range)
{
    const double least = std::max(1.0, range / steps);
    const double magnitude = std::pow(10, std::floor(std::log10(least)));
    for (const int factor : {1, 2, 5}) {
        if (factor * magnitude >= least)
            return factor * magnitude;
    }
    return 10 * magnitude;
}

}

IncomeBars IncomeBars::of(const ComprehensiveReport &report, const QString &otherIncome, const QString &otherExpenses)
{
    IncomeBars result;
    result.bars = barsOf(report.income.accounts, true, otherIncome) + barsOf(report.expenses.accounts, false, otherExpenses);
    double low = 0;
    double high = 0;
    for (const Bar &bar : std::as_const(result.bars)) {
        low = std::min(low, bar.amount);
        high = std::max(high, bar.amount);
    }
    result.unit = std::max(high, -low) >= highestPlain ? million : 1;
    result.step = niceStep((high - low) / result.unit);
    result.lowest = std::floor(low / result.unit / result.step) * result.step;
    result.highest = std::ceil(high / result.unit / result.step) * result.step;
    if (result.highest == result.lowest)
        result.highest = result.step;
    return result;
}
