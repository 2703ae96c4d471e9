// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// What one party of a contract owes the dealership for the commission, with its tax and duty, and what was received of it. Amounts
// in the suite's money unit.
struct ContractSettlement
{
    double charged = 0;
    double received = 0; // less what was paid back

    // In the decimals that money is received in, never below 0: what is left of a fraction that nobody can pay is nothing.
    double rest() const;
    // Something was to be paid, and nothing of it is left.
    bool isSettled() const;
    // "تسویه"; how much of it was received, from "0٪" to "99٪"; "-" where nothing is to be paid.
    QString inWords() const;
};
