// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupDue.h"

bool BackupDue::hasChanged() const
{
    return !last.isValid() || lastChange != changeNow;
}

bool BackupDue::isDue(const QDateTime &now) const
{
    const QDateTime when = next(now);
    return when.isValid() && when <= now && hasChanged();
}

bool BackupDue::isDueAtClosing() const
{
    return atClosing && hasChanged();
}

QDateTime BackupDue::next(const QDateTime &now) const
{
    if (everyHours <= 0)
        return {};
    // A clock that was set back must not put it off for long.
    if (!last.isValid() || last > now.addSecs(60))
        return now;
    return last.addSecs(everyHours * 3600LL);
}
