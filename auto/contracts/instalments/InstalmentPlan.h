// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

#include <vector>

// The plan that splits an owed amount into equal instalments with interest.

enum class InterestMethod {
    DecliningPrincipal = 0, // interest on what is still owed: each instalment repays an equal part of the principal
    WholePrincipal = 1      // interest on the whole principal for the whole term
};

enum class RateUnit {
    Monthly,
    Yearly
};
enum class IntervalUnit {
    Days,
    Months
};

struct InstalmentTerms
{
    double principal = 0; // in the suite's money unit
    double rate = 0;      // percent per month or year
    RateUnit rateUnit = RateUnit::Monthly;
    InterestMethod method = InterestMethod::WholePrincipal;
    int count = 0;
    int interval = 0; // in days or months
    IntervalUnit intervalUnit = IntervalUnit::Months;
    QDate start;
};

struct Instalment
{
    QDate due;
    double amount = 0;
};

struct InstalmentPlan
{
    std::vector<Instalment> instalments;
    double total = 0;    // count times the instalment
    double interest = 0; // total less the principal
};

// What keeps terms from being calculated, in the order in which it is looked for.
enum class InstalmentProblem {
    None,
    NoPrincipal,
    NoCount,
    NoInterval
};
InstalmentProblem problemOf(const InstalmentTerms &terms);

// Percent per month; a yearly rate is divided by 12.
double monthlyRate(double rate, RateUnit unit);
// An interval in months of interest; 30 days count as one month.
double intervalInMonths(int interval, IntervalUnit unit);

// All instalments are equal, with no rounding and no remainder on the last. The first falls one step after the start date.
// A step is the interval in days, or, for months, the length of the Shamsi month that contains the current date - one month
// whatever the interval, which counts in the interest only. Terms must have no problem.
InstalmentPlan instalmentPlan(const InstalmentTerms &terms);

// What is received for each of a plan's instalments, in their order: its amount rounded to the decimals of the money unit, 0 to
// 4. The last one carries the difference, so that together they are the plan's sum in those decimals; none is below zero.
std::vector<double> amountsToReceive(const std::vector<double> &instalments, int decimals);
