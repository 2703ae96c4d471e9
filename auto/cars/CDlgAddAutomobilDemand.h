// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/KDialog.h"

// The window in which one customer's demand is written, changed or shown: a row of tabs over its pages. One save writes the
// demand's row.
class CDlgAddAutomobilDemand final : public KDialog
{
    Q_OBJECT

public:
    // Adds a demand with the next code and opens it. The new demand's key, or 0 when the user cancelled: the demand is
    // deleted again then, with what was attached to it on the way. Throws when the database is closed.
    static int NewDemand(QWidget *parent);
    // Opens a demand that is already in the table. True when the user confirmed. False also when there is no such demand.
    // Throws when the database is closed.
    static bool EditDemand(int demandID, QWidget *parent);
    // Opens the demand read-only. changed is set when the demand was taken out of the archive on the way. A key below 1 does
    // nothing.
    static void ShowDemand(int demandID, bool &changed, QWidget *parent);
};
