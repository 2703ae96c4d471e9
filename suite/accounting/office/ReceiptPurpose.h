// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

// What an amount is received for. As constructed: on account, for nothing in particular.
struct ReceiptPurpose
{
    int recordKind = 0; // of RecordKinds.h; 0: no record
    int recordID = 0;
    int paymentID = 0; // the instalment of that record; 0: none

    // Run in the unit of work that saves the receipt: require before anything is written, received after the receipt. What they
    // throw ends the unit and nothing is received; KAccountingError is shown and the window stays. They may run again, and so start
    // from the database. Empty: nothing is required, or done.
    std::function<void()> require = {};
    std::function<void()> received = {};
};
