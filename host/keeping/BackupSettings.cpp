// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupSettings.h"

using namespace Qt::StringLiterals;

namespace {

int numberOf(const OfficeSettings &read, const OfficeSettings::Key &key, int otherwise, int least, int most)
{
    const int stored = read.integer(key.section.toString(), key.key.toString(), otherwise);
    return stored < least || stored > most ? otherwise : stored;
}

}

QStringList BackupSettings::sections()
{
    return {hoursKey.section.toString(), binDaysKey.section.toString()};
}

BackupSettings BackupSettings::of(const OfficeSettings &read)
{
    BackupSettings settings;
    settings.hours = numberOf(read, hoursKey, settings.hours, 0, mostHours);
    settings.atClosing = numberOf(read, atClosingKey, 1, 0, 1) != 0;
    settings.daily = numberOf(read, dailyKey, settings.daily, 1, mostKept);
    settings.weekly = numberOf(read, weeklyKey, settings.weekly, 0, mostKept);
    settings.monthly = numberOf(read, monthlyKey, settings.monthly, 0, mostKept);
    settings.binDays = numberOf(read, binDaysKey, settings.binDays, 1, mostBinDays);
    return settings;
}

BackupSettings BackupSettings::read()
{
    return of(OfficeSettings::read(sections()));
}
