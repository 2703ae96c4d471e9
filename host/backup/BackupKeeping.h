// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QList>

// Which backups of a folder are kept.
namespace BackupKeeping {

struct Kept
{
    int daily = 7; // the last one of each of so many days that have one
    int weekly = 4;
    int monthly = 12; // of the Shamsi calendar
};

struct Backup
{
    QDateTime taken; // the office's wall clock
    bool verified = false;
    bool failed = false;       // its verification did
    bool isSafetyCopy = false; // taken before an upgrade or a restore
};

// The positions of those that go. Never the newest, the newest verified one, one of the last day, nor a safety copy of the last month. Failed ones
// stand in for nothing, and stay for a month where they are all there is of their day.
QList<int> outdated(const QList<Backup> &backups, const Kept &kept, const QDateTime &now);

}
