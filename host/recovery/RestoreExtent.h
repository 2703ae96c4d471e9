// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/BinaryLogReplay.h"

// How far a restoring goes: to the moment of the backup or, by the log of changes, as far as that leads.
struct RestoreExtent
{
    bool lastMinute = false;
    BinaryLogReplay::Reach reach = {}; // of the log; not possible where none was kept

    // What the question about restoring says of it, in sentences; empty: nothing.
    QString words() const;
};
