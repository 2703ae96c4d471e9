// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What the dealership sold and bought in one season, as the basis of what it has to pay.
struct PayableAmount
{
    double sales = 0; // in the suite's money unit, as the others
    double purchases = 0;

    double result() const { return sales - purchases; }

    // The season (0 spring to 3 winter) of a Shamsi year; a season that does not exist holds nothing. A contract's commission
    // counts twice, since both parties pay it. Void contracts and invoices, lines without a service and invoices without
    // a person do not count. Throws CMySQLException.
    static PayableAmount ofSeason(int season, int shamsiYear);
};
