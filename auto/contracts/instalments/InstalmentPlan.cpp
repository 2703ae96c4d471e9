// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentPlan.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

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
