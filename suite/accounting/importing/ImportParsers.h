// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/importing/ImportField.h"

// How a cell is read, by what it should hold. Digits may be of any script, letters of any keyboard.
namespace ImportParsers {

// In standard form.
TZACCOUNTINGDATA_EXPORT ImportParser text();
// A number from least to most, also one that the sheet shows with decimals of nothing.
TZACCOUNTINGDATA_EXPORT ImportParser whole(qint64 least, qint64 most);
// From nothing to the largest amount there is; with groups or without.
TZACCOUNTINGDATA_EXPORT ImportParser money();
TZACCOUNTINGDATA_EXPORT ImportParser percent();
// A day of either calendar, as a date-time of its beginning: what the sheet knows to be one, 1405/08/29, 29/8/1405, 14050829, 29 آبان 1405,
// 2026-11-20, 20/11/2026, with a time behind it that does not count.
TZACCOUNTINGDATA_EXPORT ImportParser date();
// Yes or no, in words or figures; 1 or 0.
TZACCOUNTINGDATA_EXPORT ImportParser flag();
// One of these words stands for its number. The first of a number is the one that a message names.
struct Word
{
    QString text;
    int number = 0;
};
TZACCOUNTINGDATA_EXPORT ImportParser word(const QList<Word> &words);
// Digits alone, in front of which a spreadsheet has dropped noughts: as many as are missing to that length are put back.
TZACCOUNTINGDATA_EXPORT ImportParser digits(int length, int mostMissing);

// What an empty cell of the program's own lists looks like counts as empty.
TZACCOUNTINGDATA_EXPORT bool isNothing(const SheetCell &cell);
TZACCOUNTINGDATA_EXPORT QDate dateIn(const QString &text);

}
