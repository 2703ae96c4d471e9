// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/IncomeBars.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

using IncomeAndExpenses::Account;

constexpr double million = 1'000'000;
// Longer amounts than this are shown in millions.
constexpr double highestPlain = 10 * million;
constexpr int steps = 5; // of the axis, approximately
// How many times the next smaller amount one may be without being cut.
constexpr double mostTimesTheNext = 20;

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

// The largest amount that hides none of the others, without its sign.
double longestWhole(const QList<IncomeBars::Bar> &bars)
{
    QList<double> amounts;
    for (const IncomeBars::Bar &bar : bars)
        amounts.append(std::abs(bar.amount));
    std::sort(amounts.begin(), amounts.end(), std::greater<>());
    const auto hidesTheNext = [](double amount, double next) { return next > 0 && amount > mostTimesTheNext * next; };
    const auto found = std::adjacent_find(amounts.cbegin(), amounts.cend(), hidesTheNext);
    return found == amounts.cend() ? amounts.value(0) : *std::next(found);
}

}

bool IncomeBars::isCut(const Bar &bar) const
{
    return std::abs(bar.amount) > longest;
}

IncomeBars IncomeBars::of(const ComprehensiveReport &report, const QString &otherIncome, const QString &otherExpenses)
{
    IncomeBars result;
    result.bars = barsOf(report.income.accounts, true, otherIncome) + barsOf(report.expenses.accounts, false, otherExpenses);
    result.longest = longestWhole(result.bars);
    double low = 0;
    double high = 0;
    for (const Bar &bar : std::as_const(result.bars)) {
        low = std::max(std::min(low, bar.amount), -result.longest);
        high = std::min(std::max(high, bar.amount), result.longest);
    }
    result.unit = std::max(high, -low) >= highestPlain ? million : 1;
    result.step = niceStep((high - low) / result.unit);
    result.lowest = std::floor(low / result.unit / result.step) * result.step;
    result.highest = std::ceil(high / result.unit / result.step) * result.step;
    if (result.highest == result.lowest)
        result.highest = result.step;
    return result;
}
