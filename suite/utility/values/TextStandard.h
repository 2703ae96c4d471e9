// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>

#include "suite/utility/values/TzValuesExport.h"

// The one form that names and texts are kept in: Arabic yeh and kaf become Persian, Persian and Arabic digits become
// ASCII, kashida, direction marks and blanks at the ends are dropped, runs of blanks become one, and a zero-width non-joiner
// stays only between two letters.
TZVALUES_EXPORT QString ConvertToStandard(const QString &text);

// A key under which two spellings of one name meet: the standard form without blanks, zero-width non-joiners and vowel
// signs, with the forms of alef, heh and hamza folded and Latin letters in lower case. For comparing only, never
// stored.
TZVALUES_EXPORT QString searchKey(const QString &text);

// Below 0, 0 or above 0: in the order of the Persian alphabet, whatever the user's language.
TZVALUES_EXPORT int comparePersian(const QString &first, const QString &second);

// Persian and Arabic digits become ASCII; nothing else changes, the length included.
TZVALUES_EXPORT QString toAsciiDigits(const QString &text);
