// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/figures/Commission.h"
#include "suite/accounting/books/DocumentRow.h"

#include <optional>

// Rules of a contract's accounting document: its header text and its rows.

// One side of the contract as the document sees it. Amounts in the suite's money unit.
struct ContractDocumentParty
{
    int personID = 0; // 0: no person of the suite (typed by hand, or the dealership itself)
    QString name;
    PartyKind kind = PartyKind::Ordinary;
    double discount = 0;
    double taxPercent = 0;
    double tax = 0;
    double dutyPercent = 0;
    double duty = 0;
};

// The price that the buyer of an instalment sale owes, as the books hold it.
struct ContractSale
{
    double price = 0;
    double interest = 0; // of the stored plan
};

struct ContractForDocument
{
    double commission = 0;
    ContractDocumentParty first;
    ContractDocumentParty second;
    ContractSale sale = {}; // as constructed: the books do not hold it
};

// Header text: the type's name and the contract's number.
QString contractDocumentDescription(int contractType, int number);

// The rows in pairs, debit before credit, so that every run of pairs balances; each amount in the decimals of the money unit, and a
// zero one makes no pair. In order, each for the first and then for the second party:
//   commission  a party with a person code owes it: party / commission income
//   discount    of a party with a person code: commission income / party
//   tax, duty   of every party: party / payable account
//   tax, duty   of a party that is the dealership itself, again: expense account / party, which clears what the pair
//               before charged, so that the dealership bears its own tax and duty as an expense
// and then, of a sale in the books to a buyer with a person code:
//   price       party / clearing account of car sales; and from there to whoever sells: clearing account / party, or clearing
//               account / car sales where the dealership sells its own car. What is owed to a seller typed in by hand stays on the
//               clearing account until he is entered as a person.
//   interest    party / interest on instalments
QList<DocumentRow> contractDocumentRows(const ContractForDocument &contract);

// What the rows charge one party: a person by the rows that name the person, the dealership itself by the tax and duty that it
// bears. Nothing for a party typed in by hand, whose commission no row can name.
std::optional<double> amountCharged(double commission, const ContractDocumentParty &party);
