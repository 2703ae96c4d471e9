// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

// What an amount is received or paid for. As constructed: on account, for nothing in particular.
struct ReceiptPurpose
{
    // Receipts.iFor: what of the record it is for. The numbers are stored, so they never move.
    enum For : int {
        OnAccount = 0,
        Commission = 1, // of a contract, with its tax and duty
        Instalment = 2, // of a contract's plan
        Price = 3,      // of the car that a contract sells, outside of its plan
        Invoice = 4
    };

    int recordKind = 0; // of RecordKinds.h; 0: no record
    int recordID = 0;
    int paymentID = 0; // the instalment of that record; 0: none
    int what = OnAccount;
    int side = 0; // of a contract, 1 or 2; 0 where there are no sides
    // In words, as lists and printed receipts say it, as "کمیسیون قرارداد 12، خریدار"; it stays with the receipt. Empty on account.
    QString text = {};

    // Run in the unit of work that saves the receipt, once the record is locked and before anything is written. What it throws ends the
    // unit and nothing is received; KAccountingError is shown and the window stays. It may run again, and so starts from the
    // database. Empty: nothing is required.
    std::function<void()> require = {};
};
