// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

// When a backup is to be taken by itself.
struct BackupDue
{
    int everyHours = 1; // 0: never while the program runs
    bool atClosing = true;

    QDateTime last = {};   // the newest backup that did not fail, office's wall clock; invalid: there is none
    qint64 lastChange = 0; // that it holds
    qint64 changeNow = 0;  // the newest of the database

    // Something was changed since; also when the log of changes is shorter than it was, as after a restore.
    bool hasChanged() const;
    bool isDue(const QDateTime &now) const;
    bool isDueAtClosing() const;
    // When to look again; invalid: never.
    QDateTime next(const QDateTime &now) const;
};
