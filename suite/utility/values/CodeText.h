// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/values/TzValuesExport.h"

#include <QString>

// How a code that mixes digits with Persian letters is made to read from left to right: left to itself, everything behind
// the first such letter would run the other way.
namespace CodeText {

inline constexpr QChar mark = QChar(0x200E);

// The code with a mark behind each run of letters that run from the right, and one in front, as a line goes by its first
// letter; between words of one run stands none. The caret, if given, goes from its place in the code to its place in what
// is shown.
TZVALUES_EXPORT QString shown(const QString &code, qsizetype *caret = nullptr);
// The code without marks.
TZVALUES_EXPORT QString plain(const QString &shown);

}
