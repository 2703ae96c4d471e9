// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// The three levels of the chart of accounts: general (four digits), subsidiary (six), detail (seven to nine); a code begins
// with that of the account above it.
enum class AccountLevel {
    Kol,
    Moeen,
    Tafsily
};

// The totals of the rows on an account, in the money unit.
struct TZACCOUNTINGDATA_EXPORT AccountBalance
{
    double bed = 0; // debit
    double bes = 0; // credit

    // Above 0 for a debit balance.
    double net() const { return bed - bes; }
    // Equal within 0.0001.
    bool isBalanced() const;
    // "بد", "بس", or "-" for a balanced account.
    QString nature() const;

    AccountBalance &operator+=(const AccountBalance &other);
};
