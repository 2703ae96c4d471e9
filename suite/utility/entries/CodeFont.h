// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>

#include "suite/utility/TzUtilityExport.h"

// The font of codes of Latin letters: a VIN, an engine number. The program's font draws ASCII digits in Persian shape, which beside
// Latin letters nobody can compare with the car's papers; a second cut of it draws them in Latin shape.
namespace CodeFont {

// Whether a text holds Latin letters and digits and no letter that runs from the right: "X22", not "پژو 206" nor "12345".
TZUTILITY_EXPORT bool isLatinCode(const QString &text);

// A stretch of a text, from 0.
struct Stretch
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const Stretch &, const Stretch &) = default;
};
// The words of a sentence that are such codes, in order.
TZUTILITY_EXPORT QList<Stretch> codesIn(const QString &text);

// The families that draw such a text in the look of the base: the second cut, and where that is not there the base itself.
TZUTILITY_EXPORT QStringList families(const QFont &base);

// The font for a text: the base with those families for such a text, otherwise the base.
TZUTILITY_EXPORT QFont of(const QFont &base, const QString &text);

}
