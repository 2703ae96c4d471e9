// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// What of a contract its instalment plan follows.
struct PlanBasis
{
    bool isInstalmentSale = false;
    double left = 0; // of the price, after cash and cheques
    int buyerID = 0; // 0: typed in by hand

    friend bool operator==(const PlanBasis &, const PlanBasis &) = default;
};

// What a stored plan says of it.
struct PlanFigures
{
    double principal = 0;         // amounts less interest
    std::optional<int> personID;  // who pays what is open; none where all is paid
    bool anyReceived = false;     // also a part of one instalment
    bool hasOpen = false;         // something is still to be received
    bool receivedIsWithin = true; // what was received fits into the price that there is now

    friend bool operator==(const PlanFigures &, const PlanFigures &) = default;
};

// What is done about a plan that no longer agrees with its contract. The order in which they are offered.
enum class PlanChoice {
    NewPlan, // a new one is calculated, once the contract is saved
    Spread,  // what is open is spread anew, and is the present buyer's
    Delete,
    Leave
};

// Where a contract and its plan disagree.
struct PlanAgreement
{
    bool type = false;   // a plan, and no instalment sale
    bool amount = false; // another amount than the one that is split
    bool buyer = false;  // another person than the one who pays

    // decimals: of the money unit; a smaller difference is none.
    static PlanAgreement of(const PlanBasis &contract, const PlanFigures &plan, int decimals);
    bool agrees() const { return !type && !amount && !buyer; }
    // One for each disagreement, for the user.
    QStringList sentences(const PlanBasis &contract, const PlanFigures &plan, const QString &moneyUnit, int decimals) const;
    // What can be done, the advisable one first, Leave always last.
    QList<PlanChoice> choices(const PlanBasis &contract, const PlanFigures &plan) const;
};
