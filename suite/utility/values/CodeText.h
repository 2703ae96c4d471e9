// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/values/TzValuesExport.h"

#include <QString>

// How a code that mixes digits with Persian letters is made to read from left to right: left to itself, everything behind
// the first such letter would run the other way.
namespace CodeText {

inline constexpr QChar mark = QChar(0x200E);

// The code with a mark behind each right-to-left run of letters, and one in front, as a line takes its direction from its first
// letter; there is none between words of one run. The caret, if passed, moves from its place in the code to its place in what
// is shown.
TZVALUES_EXPORT QString shown(const QString &code, qsizetype *caret = nullptr);
// The code without marks.
TZVALUES_EXPORT QString plain(const QString &shown);

}
