// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/cheques/MatterCheques.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/treasury/records/Cheque.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/treasury/records/ReceiptOwners.h"

#include <QHash>
#include <QStringList>

class CTblAutomobilContracts;

// The cheques of the register that were received for a contract.
namespace ContractCheques {

struct Row
{
    int id = 0; // key of the cheque
    ChequeState state = ChequeState::InHand;
    Cheque cheque;
    double amount = 0; // of the whole cheque
    double price = 0;  // what of it pays the price, outside of the plan; 0: nothing
    QString purpose;   // in words; empty on account
};

// In the order in which they were entered, void ones as well.
QList<Row> list(int contractID, int database = 0);
// What the matter page says of them: those that pay the price and are neither void nor given back.
QList<MatterCheques::Part> ofPrice(const QList<Row> &rows);

// Those received for instalments of the plan, by the key of the payment, with number and bank; neither void nor given back.
QHash<int, QStringList> ofInstalments(int contractID, int database = 0);

// What the buyer can pay by cheque: the price, then the open instalments of the plan, in their order. A rest of 0 is not known.
QList<OpenItem> purposes(const CTblAutomobilContracts &contract);

// Why no cheque can be entered for the contract, in words for the user; empty when one can. shownBuyer: key of the person whom the
// editor shows as the buyer.
QString entryRefusal(const CTblAutomobilContracts &stored, int shownBuyer);

}
