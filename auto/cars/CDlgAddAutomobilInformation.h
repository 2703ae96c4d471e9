// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/KDialog.h"

// The window in which one car of the register is written, changed or shown: a row of tabs over its pages. One save writes
// all pages into the car's row.
class CDlgAddAutomobilInformation final : public KDialog
{
    Q_OBJECT

public:
    // Opens a car that is already in the table; isNew only makes the pages start as those of a new car. True when the user
    // confirmed. False also when there is no such car. Throws when the database is closed.
    static bool EditCar(int carID, bool isNew, QWidget *parent);
    // Opens the car read-only. changed is set when the car was taken out of the archive on the way. A key below 1 does
    // nothing.
    static void ShowCar(int carID, bool &changed, QWidget *parent);
};
