// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/figures/ContractSettlement.h"

#include <QHash>
#include <QList>

#include <array>

#include "suite/sql/KSql.h"

class CTblAutomobilContracts;

// What the parties of contracts still owe for the commission. Sides are 1 and 2.
namespace ContractDues {

using Due = ContractSettlement;
// By side, from the first.
using Sides = std::array<double, 2>;

// What the contract's document charges that side's person for the commission, its tax and its duty; levySeparate: what the party is
// stated to pay, and its tax and duty besides. Nothing for the showroom itself, nor for a party typed by hand, whom no row of a
// document names. The contract needs only the columns of chargedColumns.
double charged(const CTblAutomobilContracts &contract, int side, bool levySeparate);
QStringList chargedColumns();

// What that side owes, and what was received for it. The contract is loaded.
Due commission(const CTblAutomobilContracts &contract, int side, bool levySeparate);

// What was received for the commission of both sides, less what was paid back, by contract, in one statement. A contract for which
// nothing was received is not among them.
QHash<int, Sides> received(const QList<int> &contractIDs, int database = 0);
// The same of one side, as an expression of a statement over the contracts c.
KSql receivedOf(int side);

}
