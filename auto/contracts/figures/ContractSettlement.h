// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What one side of a contract owes the dealership. Amount in the suite's money unit; person 0: nobody to receive from.
struct ContractSettlement
{
    int personID = 0;
    double amount = 0;
};

// What the party pays for the commission plus its tax and duty on it.
inline ContractSettlement settlement(int personID, double pays, double tax, double duty)
{
    return {personID, pays + tax + duty};
}
