// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QList>

// What is to be received for instalments, and what was received for them.
namespace DueAmounts {

struct Amount
{
    double toReceive = 0; // in the decimals of the money unit; the last of a plan carries what rounding left over
    double received = 0;  // valid receipts less what was paid back
};

// By the key of the instalment: of all plans of these contracts, in two statements, and none where there are no contracts.
QHash<int, Amount> read(const QList<int> &contracts, int decimals, int database = 0);

}
