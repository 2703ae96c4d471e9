// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/TzSheetsExport.h"

#include <QDate>
#include <QString>

// What the number of a cell stands for: a spreadsheet writes a day as a number of days, and only the cell's format says so.
namespace XlsxStyles {

// Of the formats that have numbers and no text.
TZSHEETS_EXPORT bool isDateFormat(int builtIn);
// Of a format's text: whether it shows a year, a month or a day. What is quoted, escaped or in brackets is no part of it.
TZSHEETS_EXPORT bool isDateFormat(const QString &code);
// The day of that number; from1904: the count that begins then. Invalid for a number that is none.
TZSHEETS_EXPORT QDate dateOf(double days, bool from1904);

}
