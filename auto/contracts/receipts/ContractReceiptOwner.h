// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/ReceiptOwners.h"

class CTblAutomobilContracts;

// Contracts as what money is received and paid for: commissions, instalments, the price of the car.
class ContractReceiptOwner final : public ReceiptOwner
{
public:
    // Enters it for as long as the module is loaded; again does nothing.
    static void enter();

    QList<OpenItem> openItems(int personID, CTblReceipts::Kind kind) const override;
    void lock(int recordID, bool mustExist) const override;
    void recount(const CTblReceipts &receipt) const override;

    // What both parties together still owe for the contract: commission, price, instalments, as openItems has them. 0 for one that is void or
    // not confirmed.
    static double restOf(const CTblAutomobilContracts &contract);

private:
    ContractReceiptOwner();
    ~ContractReceiptOwner() override;
};
