// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalRow.h"

#include <array>

// How contracts and invoices become rows of the seasonal report. Amounts are in the suite's money unit.
namespace SeasonalRules {

// What the report needs of one party of a contract.
struct ContractParty
{
    int mark = 0; // 0 pays the commission, 1 does not; the amounts of any other mark are not stated
    double tax = 0;
    double duty = 0;
    double discount = 0;
};

struct Contract
{
    double commission = 0;
    bool returned = false;
    ContractParty first;
    ContractParty second;
};

// Contracts below the minimum amount are not listed by themselves; one that equals it is.
bool isSmall(double commission, double minimumAmount);

// Puts the figures of one party into its row: the amount is the commission for mark 0 and 0 for mark 1; the tax is tax and
// duty together; the total is tax + duty + commission - discount for mark 0, tax + duty for mark 1.
void setFigures(SeasonalRow &row, double commission, const ContractParty &party);

// Small contracts, those returned apart from the rest: twice the commission, both parties' taxes, duties and discounts.
class SmallContracts
{
public:
    void add(const Contract &contract);
    // First the row of those not returned, then the row of those returned, each only when its amount is above 0.
    QVector<SeasonalRow> rows() const;

private:
    struct Sums
    {
        double amount = 0;
        double tax = 0;
        double duty = 0;
        double discount = 0;
    };
    std::array<Sums, 2> m_sums; // by Contract::returned
};

// Figures that an invoice states for all its lines together.
struct Invoice
{
    double amount = 0; // the total that the shares refer to
    double discount = 0;
    double tax = 0;
    double duty = 0;
};

// Whether a line is listed at all: not with a negative quantity or price, and not below the minimum amount. Unlike a small
// contract a small line is not summed either.
bool isLineListed(double count, double price, double minimumAmount);

// Puts the figures of a line into its row: price times quantity, and of the invoice's discount, tax and duty the share that
// this amount is of the invoice's total (nothing of a total of 0); total = amount + tax + duty - discount.
void setFigures(SeasonalRow &row, double count, double price, const Invoice &invoice);

}
