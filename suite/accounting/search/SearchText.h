// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QList>
#include <QString>
#include <QStringList>

// How texts become keys of the search, and what somebody types becomes beginnings of keys. Both go by searchKey(): blind to yeh and kaf,
// forms of alef, digits of all scripts, blanks, zero-width non-joiners, vowel signs and Latin case; and to everything but letters and digits.
//
// A key's first character tells what it is, where it is not a name or number that is looked for from its beginning.
namespace SearchText {

inline constexpr int longestKey = 64;    // as SearchKeys.sKey holds
inline constexpr QChar backwards{u'<'};  // a number from its end: "the last digits"
inline constexpr QChar explaining{u'~'}; // a word of an explanation
inline constexpr QChar referring{u'@'};  // the person whom the record names, by key

// Letters and digits alone; empty for a text without any.
TZACCOUNTINGDATA_EXPORT QString folded(const QString &text);
// Each word folded; a zero-width non-joiner parts no words.
TZACCOUNTINGDATA_EXPORT QStringList words(const QString &text);

// The keys of a text of that sort; none of an empty one.
// A name: from each of its words on, round to the one before, so that two of its words are found in any order.
TZACCOUNTINGDATA_EXPORT QStringList ofName(const QString &name);
// A number that is known whole, such as a contract's.
TZACCOUNTINGDATA_EXPORT QStringList ofNumber(qint64 number);
TZACCOUNTINGDATA_EXPORT QStringList ofCode(const QString &code);
// A number of which people know the last digits: VIN, chassis, cheque.
TZACCOUNTINGDATA_EXPORT QStringList ofLongNumber(const QString &number);
// With and without the codes of country and trunk.
TZACCOUNTINGDATA_EXPORT QStringList ofTelephone(const QString &number);
TZACCOUNTINGDATA_EXPORT QStringList ofPlate(const QString &plate);
// Words of three letters and more, each once, the first ones of a long text.
TZACCOUNTINGDATA_EXPORT QStringList ofExplanation(const QString &text, int atMost = 30);
TZACCOUNTINGDATA_EXPORT QString ofReference(qint32 person);
// The whole key of a plate, number or telephone as it is looked for to find another record with the same one; empty for nothing.
TZACCOUNTINGDATA_EXPORT QString wholePlate(const QString &plate);
TZACCOUNTINGDATA_EXPORT QString wholeTelephone(const QString &number);

// A stretch of a text, from 0.
struct Mark
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const Mark &, const Mark &) = default;
};
// Where the text shows what was typed, word by word; for marking, in order, apart from each other.
TZACCOUNTINGDATA_EXPORT QList<Mark> marks(const QString &text, const QString &typed);

}
