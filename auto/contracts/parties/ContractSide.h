// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilContracts.h"

// The columns of a contract that belong to one of its two sides.
struct ContractSide
{
    using Text = QString CTblAutomobilContracts::*;
    using Number = qint32 CTblAutomobilContracts::*;
    using Amount = double CTblAutomobilContracts::*;

    static constexpr int seller = 1;
    static constexpr int buyer = 2;

    int number;
    Number personID;
    Number kind; // PartyKind
    Text name;
    Text nationalCode;
    Text mobile;
    Text telephone;
    Text address;
    Amount discount;
    Amount tax;
    Amount duty;
    Amount pays;

    // Side 1, or 2 for any other number.
    static const ContractSide &of(int side);
    const ContractSide &other() const { return of(number == seller ? buyer : seller); }
    // "فروشنده" or "خریدار", as lists and receipts call the sides of every type of contract.
    static QString nameOf(int side);
};
