// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

// Spreads a changed price over what a plan has still open, at the plan's own rate and on its own dates.
namespace PlanSpread {

// An instalment as it is stored and as far as it is paid.
struct Row
{
    double amount = 0;
    double interest = 0; // within amount
    double due = 0;      // what is to be received for it, in the decimals of the money unit
    double rest = 0;     // of that, still to be received
};

struct Part
{
    double amount = 0;
    double interest = 0;

    friend bool operator==(const Part &, const Part &) = default;
};

enum class Problem {
    None,
    NothingOpen, // all is paid
    MoreReceived // what was received holds more principal than there is to be now
};
Problem problemOf(const std::vector<Row> &rows, double principal);

// The instalments anew, in their order: what was received for one stays in it, and what is open of all grows or shrinks in the same
// proportion, interest with it. Open parts are rounded to the decimals; the largest of them, and of equal ones the last, carries
// the difference, so that amounts less interest are the principal. One of which nothing is received and nothing stays open has the amount 0. There must be no problem.
std::vector<Part> of(const std::vector<Row> &rows, double principal, int decimals);

}
