// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/values/TzValuesExport.h"

#include <QString>
#include <QStringList>

// What kind of plate a text is about. The stored text alone says it: a plate of the common form by its form, any other by the word that
// it begins with.
namespace PlateKind {

enum Kind {
    Common,     // 12 ب 345 ایران 67; also a field that is still empty
    FreeZone,   // of a free trade zone
    Temporary,  // of a passage
    Motorcycle, // of a motorcycle
    Old,        // of the form before: a town, digits, a letter
    Free,       // any other text
    Count
};

// As a user chooses them, in their order.
TZVALUES_EXPORT QStringList names();
TZVALUES_EXPORT Kind of(const QString &text);
// The text as one of that kind: the word of another kind is taken off, its own put in front. Common and Free have none.
TZVALUES_EXPORT QString as(Kind kind, const QString &text);

}
