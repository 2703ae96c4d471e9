// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/OfficeSettings.h"

#include <QStringList>

// When backups are taken by themselves and how many are kept. The whole office shares this; see BackupsHere for what each computer
// decides for itself.
struct BackupSettings
{
    static constexpr OfficeSettings::Key hoursKey{u"Backup", u"iHours"};
    static constexpr OfficeSettings::Key atClosingKey{u"Backup", u"bAtClosing"};
    static constexpr OfficeSettings::Key dailyKey{u"Backup", u"iDaily"};
    static constexpr OfficeSettings::Key weeklyKey{u"Backup", u"iWeekly"};
    static constexpr OfficeSettings::Key monthlyKey{u"Backup", u"iMonthly"};
    // Of the bin, where deleted records wait.
    static constexpr OfficeSettings::Key binDaysKey{u"Bin", u"BinDays"};

    static constexpr int mostHours = 168;
    static constexpr int mostKept = 999;
    static constexpr int mostBinDays = 3650;

    int hours = 1;         // between two while the program runs; 0: none then
    bool atClosing = true; // when something changed since the last one
    int daily = 7;         // days, weeks and months of which one is kept
    int weekly = 4;
    int monthly = 12;
    int binDays = 90; // that a deleted record stays in the bin

    // The sections of Properties that they stand in.
    static QStringList sections();
    // read holds those sections. What is missing or no such number is as above.
    static BackupSettings of(const OfficeSettings &read);
    // Throws CMySQLException.
    static BackupSettings read();
};
