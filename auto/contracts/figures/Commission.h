// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <optional>

// Rules of the dealership's commission on a contract: the figures of the editor's base page and how a change of one
// recomputes the others. Amounts in the suite's money unit, percentages 0 to 100; nothing is rounded here.

// What kind of party a side of the contract is; the value stored in iPersonContract1 and iPersonContract2.
enum class PartyKind {
    None = -1,    // nothing chosen: what the party pays is left alone by a change of the amount
    Ordinary = 0, // a person of the persons list
    Showroom = 1, // the dealership itself: pays only tax and duty
    Other = 2     // a person typed in by hand
};

// Commission tiers of the settings: an amount up to ceiling n (inclusive) costs percent n of it.
struct CommissionTiers
{
    std::array<double, 3> ceilings{};
    std::array<double, 3> percents{};
    bool thirdInUse = false;
};

struct CommissionParty
{
    PartyKind kind = PartyKind::Ordinary;
    double taxPercent = 0;
    double tax = 0;
    double dutyPercent = 0;
    double duty = 0;
    double discountPercent = 0;
    double discount = 0;
    double pays = 0;

    friend bool operator==(const CommissionParty &, const CommissionParty &) = default;
};

struct CommissionFields
{
    double amount = 0;
    double commission = 0;
    double perPartyTotal = 0; // one figure for both parties: whichever party's tax or duty changed last set it
    CommissionParty first;
    CommissionParty second;

    friend bool operator==(const CommissionFields &, const CommissionFields &) = default;
};

enum class CommissionField : std::size_t {
    Amount,
    Commission,
    PerPartyTotal,
    FirstKind,
    FirstTaxPercent,
    FirstTax,
    FirstDutyPercent,
    FirstDuty,
    FirstDiscountPercent,
    FirstDiscount,
    FirstPays,
    SecondKind,
    SecondTaxPercent,
    SecondTax,
    SecondDutyPercent,
    SecondDuty,
    SecondDiscountPercent,
    SecondDiscount,
    SecondPays,
    Count
};

// A figure by name, for tables that wire figures to edits. Not for the two kinds, which are no figures.
double commissionValue(const CommissionFields &fields, CommissionField field);
void setCommissionValue(CommissionFields &fields, CommissionField field, double value);

// The commission of an amount by its tier; none above the last tier in use, where the user enters it.
std::optional<double> tierCommission(double amount, const CommissionTiers &tiers);

// Brings the dependants of a field up to date after the user has set it to its current value. Each figure that gets a new
// value passes it on to its own dependants at once, before the next step of the figure that caused it:
//
//   amount            commission by tier (left as typed above the last tier in use); then what both parties pay, by kind;
//                     then both discounts by their percentage
//   commission        total = first duty + commission + first tax; then first tax, first duty, second tax, second duty
//                     by their percentages
//   tax or duty %     that tax or duty = commission * % / 100
//   tax or duty       total = commission + tax + duty of that party
//   total             both parties pay the total; a party that is the dealership itself still pays its tax and duty only
//   discount %        discount = commission * % / 100, exactly 0 for a percentage within 0.0001 of 0
//   discount          that party pays total - discount, the dealership itself its tax + duty
//   kind              ordinary and typed by hand: pays total - discount; the dealership itself: discount and its percentage
//                     become 0, pays tax + duty
//
// Taxes and duties never recompute each other: each follows from the commission and its own percentage alone, so that a
// change of the commission computes each of the four once, whatever their own changes set off. A figure that keeps its
// value sets off nothing. So after typing an amount or a commission the total is commission + tax + duty as shown, of the
// party whose tax or duty changed last (the second, when both did). A total that changes puts both payments back to the
// full total; a discount comes off again with the next change of the amount, of the discount or of its percentage.
void afterChange(CommissionField changed, CommissionFields &fields, const CommissionTiers &tiers);
