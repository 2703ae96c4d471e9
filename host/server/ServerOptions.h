// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnectionSettings.h"
#include "host/server/ServerPrograms.h"

#include <functional>

using namespace Qt::StringLiterals;

// Options with which the server of a data folder is started.
struct ServerOptions
{
    ServerPrograms programs = ServerPrograms::installed();
    int startLimitMilliseconds = 30000;
    int bufferPoolMiB = 64;
    int redoLogMiB = 96;
    // Free space that the folder's disk must have. With less a server may start but crash at its first larger write.
    int freeMiBForNewDatabase = 300;
    int freeMiBToStart = 32;
    // A moment ago the program made the folder, or made sure that it can write there: the first start need not do so again.
    bool folderWasMade = false;
    // Every change is kept in a log also where the folder's settings do not ask for it, see BinaryLog.
    bool keepBinaryLog = false;
    bool lowPriority = false; // gives way to everything else on the computer
    // Takes a backup of the database of these settings before another version of the server changes the files; calls pulse now and then.
    // What it throws stops the upgrade. Without it a folder that another version has used is not opened.
    std::function<void(const KConnectionSettings &settings, const std::function<void()> &pulse)> takeBackup = {};
    // For tests, and for what can be loaded again: nothing is forced to the disk, a power failure may lose everything.
    bool unsafeButFast = false;

    // Name of the database and of the account in client.cnf.
    static QString databaseName() { return u"tzauto"_s; }
};
