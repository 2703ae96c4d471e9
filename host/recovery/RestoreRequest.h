// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"

#include <QString>

// What is to be done once the main window is closed: the database is exchanged while no window works on it.
struct RestoreRequest
{
    BackupFile file; // one that does not exist: nothing is to be done
    QString passphrase;
    bool lastMinute = false; // brought forward by the log of changes, as far as that leads
};
