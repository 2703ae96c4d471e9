// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/income/ComprehensiveReport.h"

#include <QList>
#include <QString>

// Rule: the bars that the comprehensive report is drawn as, and the axis that they stand on.
struct IncomeBars
{
    // Of a side, the largest first; what does not fit is one bar more.
    static constexpr int mostOfASide = 6;

    struct Bar
    {
        QString name;
        double amount = 0; // in the money unit; above 0 for income in credit and expenses in debit
        bool isIncome = false;
    };

    QList<Bar> bars; // from the top: income, then expenses
    // The axis, in multiples of unit: from lowest to highest in steps of step, with 0 among them. Long amounts are shown in
    // millions, since an axis has no room for a dozen digits.
    double unit = 1;
    double lowest = 0;
    double highest = 1;
    double step = 1;
    // Amounts above this, without their signs, are cut: beside them the others would have no length to see.
    double longest = 0;

    bool isCut(const Bar &bar) const;

    // The names are those of the bars for the rest of each side.
    static IncomeBars of(const ComprehensiveReport &report, const QString &otherIncome, const QString &otherExpenses);
};
