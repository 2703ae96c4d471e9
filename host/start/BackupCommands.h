// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class DataFolder;
struct HostOptions;

// What the command line asks to do with backups, without any window: for a timer, and for an office whose login does not appear.
namespace BackupCommands {

enum Exit {
    Done = 0,
    Failed = 1,
    WrongOptions = 2,
    Different = 3, // the backup is not what its manifest says
    InUse = 4,     // another program has the folder, or works on the database
    WrongPassphrase = 5,
    Partly = 6 // restored, but not to the last minute
};

// Does what the options name. The result is one line on the standard output (of --list-backups, one for each backup), progress and
// errors go to the standard error.
int run(const HostOptions &options, const DataFolder &folder, bool persian);

}
