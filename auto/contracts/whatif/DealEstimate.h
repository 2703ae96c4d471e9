// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/instalments/InstalmentPlan.h"

#include <optional>

// What a deal would bring and cost at a price, by the rules that its contract, its plan and the car's sale page go by. Amounts in the suite's
// money unit, percentages 0 to 100.
struct DealTerms
{
    double price = 0;
    double purchase = 0; // from the owner
    double expenses = 0; // of the car
    double notary = 0;   // borne by the office, as the sale page has it
    CommissionTiers tiers;
    double commissionByHand = 0; // where the price is above the last tier
    double taxPercent = 0;
    double dutyPercent = 0;
    double sellerDiscountPercent = 0;
    double buyerDiscountPercent = 0;
    // What is not paid at once is split into instalments; count 0: there are none.
    double paidAtOnce = 0;
    InstalmentTerms instalments;
};

struct DealEstimate
{
    CommissionFields figures; // as those of a contract
    bool isCommissionByHand = false;
    double sellerGets = 0;       // the price less what he pays
    double buyerPays = 0;        // the price and what he pays of the commission
    double saleMargin = 0;       // as the car's sale page has it
    double commissionMargin = 0; // both commissions less the discounts, without tax and duty
    std::optional<InstalmentPlan> plan;

    bool isOwnCar = false; // bought by the office; of another the price is not the office's

    double margin() const { return (isOwnCar ? saleMargin : 0) + commissionMargin + (plan ? plan->interest : 0); }

    static DealEstimate of(const DealTerms &terms);
};
