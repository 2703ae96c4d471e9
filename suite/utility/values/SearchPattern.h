// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include "suite/utility/values/TzValuesExport.h"

// Typed text as a regular expression (as RLIKE and QRegularExpression read it) over every way of writing it: the forms of yeh,
// kaf, alef, heh and hamza, the three sets of digits, with or without blanks, joiners, kashida and vowel signs inside. Case is
// left to whoever matches.
namespace SearchPattern {

enum class Wildcards {
    None,
    Like // % is any text, _ any character
};

// Every other character stands for itself. Empty when the text is nothing but blanks and joiners.
TZVALUES_EXPORT QString ofText(const QString &text, Wildcards wildcards = Wildcards::None);
// The letters and digits of a word alone, with punctuation between them too. Empty when it has none.
TZVALUES_EXPORT QString ofWord(const QString &word);

// Whether there is one way to write the text only, as with Latin letters: it can then be looked for as it stands.
TZVALUES_EXPORT bool isWrittenOneWay(const QString &text);
// Whether a table of the office can hold the text: their character sets have the basic plane alone.
TZVALUES_EXPORT bool isStorable(const QString &text);

}
