// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>

#include "suite/utility/values/TzValuesExport.h"

// Amounts are doubles in the office's money unit.

// The largest amount that is entered: what a double holds whole numbers up to, and a little less.
inline constexpr double largestMoney = 999999999999999.0;

// Equal to within less than 0.0001.
TZVALUES_EXPORT bool IsEquals(double first, double second);

// Decimals that the office's money unit is shown with, 0 (at start) to 4. Values outside are brought to the nearest
// bound.
TZVALUES_EXPORT int defaultMoneyDecimals();
TZVALUES_EXPORT void setDefaultMoneyDecimals(int decimals);

// To that many decimals, 0 to 4; halves round away from zero, also those that a product of two numbers just misses.
TZVALUES_EXPORT double roundToDecimals(double value, int decimals);

// "-1,250,000" or "1,250.50": grouped by three, ASCII digits, always that many decimals, rounded half away from zero.
// Empty for a value that is no number.
TZVALUES_EXPORT QString DToMoney(double amount, int decimals = defaultMoneyDecimals());

// Reads an amount as people type it: Persian, Arabic or ASCII digits; groups parted by , ، ٬ ' or blanks; decimals
// after . / or ٫; a sign in front. False, with *amount untouched, for an empty text and for anything else.
[[nodiscard]] TZVALUES_EXPORT bool parseMoney(QStringView text, double *amount);

TZVALUES_EXPORT QString LToStr(qint64 value);
TZVALUES_EXPORT QString IToStr(int value);

// The shortest plain form with at most four decimals: "9", "4.5", "-0.25"; never with an exponent.
TZVALUES_EXPORT QString DToStr(double value);

// The amount in Persian words, rounded to the decimals of the office's money unit; empty for a value that is no number
// or too large to be exact.
TZVALUES_EXPORT QString amountInWords(double amount);
