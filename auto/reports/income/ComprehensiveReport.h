// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/income/IncomeAndExpenses.h"

#include <QDateTime>

// The dealership's income and expenses within a range of days.
struct ComprehensiveReport
{
    // The first two digits of the general accounts of each side.
    static constexpr int incomeGroup = 41;
    static constexpr int expenseGroups[] = {61, 62};

    IncomeAndExpenses::Side income;
    IncomeAndExpenses::Side expenses;

    // An invalid end of the range is open; its last day counts whole. Each level of a group's accounts and each level of its
    // balances is one statement. Throws CMySQLException.
    static ComprehensiveReport read(const QDateTime &from, const QDateTime &to);
};
