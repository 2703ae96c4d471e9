// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/values/TzValuesExport.h"

#include <QString>

// Shaping of a number while it is typed.

struct TypedNumber
{
    QString plain;    // as QString::toDouble reads it: an optional sign, digits, at most one point
    int caret = 0;    // how many characters of plain stand before the caret
    bool cut = false; // decimals beyond the allowed ones were left out
    double value() const { return plain.toDouble(); }
};

struct TypingRules
{
    int decimals = 0;
    bool isSigned = false;
};

// . / or ٫
TZVALUES_EXPORT bool isDecimalPoint(QChar c);

// What of a text can belong to a number: digits of any script, one decimal point (. / or ٫), a sign in front. Group
// separators, letters and blanks are dropped, and so are decimals beyond the allowed ones: what stands behind a point never
// becomes part of the whole. The point itself stays even where no decimal may follow. Two points or more with three digits
// behind each part groups.
TZVALUES_EXPORT TypedNumber readTyped(const QString &text, int caret, const TypingRules &rules);

// The text to show, grouped by three when asked; moves the caret to where it belongs in it.
TZVALUES_EXPORT QString groupTyped(TypedNumber &number, bool grouped);
