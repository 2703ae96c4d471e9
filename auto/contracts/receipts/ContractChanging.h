// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class CTblAutomobilContracts;

// What money that was received or paid for a contract keeps from being changed in it.
namespace ContractChanging {

// In the unit that saves the contract, which it has locked and set to what will be stored. Throws ContractDeleting::MoneyReceived, with
// how much and what is to be done first: where this save makes the contract inactive while money or a cheque stands for it, where it makes
// something else of a sale that the books hold while money for the price or its instalments stands, and where
// it gives a side another person while what was received from or paid to somebody else for that side stands.
void requireAllowed(const CTblAutomobilContracts &contract);
// That it will be asked about the contract of that key (KReadAhead).
void expect(int key);

}
