// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptPurpose.h"

// Receives an instalment once, however many desks receive it at the same time.
namespace InstalmentReceiving {

// The instalment is marked as paid in the unit that saves its receipt. That unit throws KAccountingError when the instalment is
// paid by then (who received it, when), when it is no longer in the plan, and when the contract is gone. number: of the instalment in
// its plan, for messages.
ReceiptPurpose purpose(int contractID, int paymentID, int number);

}
