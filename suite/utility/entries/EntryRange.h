// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QString>

#include <optional>

class KDateEdit;
class QWidget;

// Why the range of two lines is refused, in words for the user: it ends before it begins. Empty where it may be, also while an
// end is open (no date, one that is not ticked, or 0). Both are lines for a date or both for a number.
TZUTILITY_EXPORT QString rangeError(const QWidget *from, const QWidget *to);

struct RangeProblem
{
    QWidget *line = nullptr; // the one to go to
    QString message;         // for the user
};

// What keeps a range of days from being searched: a line that holds no date, or a range that ends before it begins.
TZUTILITY_EXPORT std::optional<RangeProblem> problemOfDays(KDateEdit *from, KDateEdit *to);
