// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include "suite/utility/values/TzValuesExport.h"

// A day of the Iranian solar calendar. All zero means no date.
struct ShamsiDate
{
    int year = 0;
    int month = 0; // 1 (Farvardin) to 12 (Esfand)
    int day = 0;

    bool isValid() const { return year != 0; }
    friend bool operator==(const ShamsiDate &, const ShamsiDate &) = default;
};

// The years that the official table covers. Inside them the 33-year rule used here matches the official calendar; nothing
// outside them is a date for this program, so that a year typed wrongly is refused rather than stored.
inline constexpr int firstShamsiYear = 1206;
inline constexpr int lastShamsiYear = 1498;

// No date for an invalid day or one outside the years above.
TZVALUES_EXPORT ShamsiDate GetShamsi(const QDate &date);

// The year of this computer's date.
TZVALUES_EXPORT int GetShamsiYearOfToday();

// Invalid when the calendar has no such day (30 Esfand of an ordinary year, month 13).
TZVALUES_EXPORT QDate ConvertToMiladi(int year, int month, int day);

TZVALUES_EXPORT bool IsShamsiLeapYear(int year);

// 0 when the year or the month does not exist.
TZVALUES_EXPORT int shamsiDaysInMonth(int year, int month);

// The last day of Esfand; invalid when the year does not exist.
TZVALUES_EXPORT QDate shamsiYearEnd(int year);

// The same day of the month that many months later or earlier, or that month's last day when it is shorter.
// Invalid when that leaves the calendar's years.
TZVALUES_EXPORT QDate addShamsiMonths(const QDate &date, int months);

// "1405/08/29" in ASCII digits; empty for no date.
TZVALUES_EXPORT QString shamsiText(const QDate &date);

// Reads 1405/08/29, 1405/8/29, 14050829, also with - or . between the parts, in Persian, Arabic or ASCII digits, with
// blanks around. Anything else, or a day that does not exist, returns an invalid date.
TZVALUES_EXPORT QDate parseShamsi(QStringView text);

// Month 1 to 12; empty otherwise.
TZVALUES_EXPORT QString shamsiMonthName(int month);

// 0 (Saturday) to 6 (Friday), the order of an Iranian week; -1 for no date.
TZVALUES_EXPORT int shamsiDayOfWeek(const QDate &date);

// Day 0 (Saturday) to 6 (Friday); empty otherwise.
TZVALUES_EXPORT QString shamsiDayName(int dayOfWeek);
