// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// How far an instalment is paid. Amounts in the money unit.
struct InstalmentState
{
    enum Kind {
        Unpaid,
        Partly,
        Paid
    };

    Kind kind = Unpaid;
    double rest = 0; // still to be received, never below 0

    // due: what is to be received for it (amountsToReceive); received: by the receipts that stand, less what was paid back.
    // markedPaid: what its row says, which counts where nothing was received by a receipt that names it.
    static InstalmentState of(double due, double received, bool markedPaid);
};
