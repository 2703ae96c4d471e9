// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptPurpose.h"

// Receives an instalment, in one part or in several, and each part once, however many desks receive it at the same time.
namespace InstalmentReceiving {

// What is received for.
struct Target
{
    int contractID = 0;
    int contractNumber = 0; // CTblAutomobilContracts::number, for the text that stays with the receipt
    int paymentID = 0;
    int number = 0;      // in its plan
    double received = 0; // what the window knows to be received for it
};

// The unit that receives for it throws KAccountingError when the instalment is paid by then (who received it, when), when it is no
// longer in the plan, and when the contract is gone or void; and, once, when another desk has received a part of it since: whoever
// then still receives means another part.
ReceiptPurpose purpose(const Target &instalment);
// The same with the contract's number read.
ReceiptPurpose purpose(int contractID, int paymentID, int number, double received = 0);

}
