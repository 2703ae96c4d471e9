// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Receipts from before they said themselves what they are for.
namespace ReceiptLinking {

// Links, once for the office's database, the older receipts of contracts with what they are for, where text, person, amount and
// document leave no doubt (OlderReceipts); the others stay on account. Says in words what the linked ones are for, and takes the mark
// of being paid off instalments whose receipts do not come up to them. All of it or nothing; a run that was cut off is made again.
// Throws CMySQLException.
void run();

}
