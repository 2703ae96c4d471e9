// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentPlan.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr double monthsOfYear = 12;
constexpr double daysOfMonth = 30;

double interestOf(const InstalmentTerms &terms)
{
    const double perInterval =
        monthlyRate(terms.rate, terms.rateUnit) / 100 * intervalInMonths(terms.interval, terms.intervalUnit);
    if (terms.method == InterestMethod::WholePrincipal)
        return terms.principal * perInterval * terms.count;
    double interest = 0;
    double balance = terms.principal;
    for (int i = 0; i < terms.count; ++i) {
        interest += balance * perInterval;
        balance -= terms.principal / terms.count;
    }
    return interest;
}

QDate nextDue(const QDate &date, const InstalmentTerms &terms)
{
    if (terms.intervalUnit == IntervalUnit::Days)
        return date.addDays(terms.interval);
    const ShamsiDate shamsi = GetShamsi(date);
    return date.addDays(shamsiDaysInMonth(shamsi.year, shamsi.month));
}

}

InstalmentProblem problemOf(const InstalmentTerms &terms)
{
    if (terms.principal < 0 || IsEquals(terms.principal, 0))
        return InstalmentProblem::NoPrincipal;
    if (terms.count < 1)
        return InstalmentProblem::NoCount;
    if (terms.interval < 1)
        return InstalmentProblem::NoInterval;
    return InstalmentProblem::None;
}

double monthlyRate(double rate, RateUnit unit)
{
    return unit == RateUnit::Yearly ? rate / monthsOfYear : rate;
}

double intervalInMonths(int interval, IntervalUnit unit)
{
    return unit == IntervalUnit::Days ? interval / daysOfMonth : interval;
}

InstalmentPlan instalmentPlan(const InstalmentTerms &terms)
{
    InstalmentPlan plan;
    const double instalment = (terms.principal + interestOf(terms)) / terms.count;
    QDate due = terms.start;
    for (int i = 0; i < terms.count; ++i) {
        due = nextDue(due, terms);
        plan.instalments.push_back({due, instalment});
    }
    plan.total = instalment * terms.count;
    plan.interest = plan.total - terms.principal;
    return plan;
}

std::vector<double> amountsToReceive(const std::vector<double> &instalments, int decimals)
{
    // Many large amounts are added up: in double alone their rounding would reach the decimals.
    const long double sum = std::accumulate(instalments.cbegin(), instalments.cend(), 0.0L);
    double left = roundToDecimals(static_cast<double>(sum), decimals);
    std::vector<double> amounts;
    for (std::size_t i = 0; i < instalments.size(); ++i) {
        const bool isLast = i + 1 == instalments.size();
        amounts.push_back(isLast ? left : std::min(roundToDecimals(instalments[i], decimals), left));
        left = roundToDecimals(left - amounts.back(), decimals);
    }
    return amounts;
}
