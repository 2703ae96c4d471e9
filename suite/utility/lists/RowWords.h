// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include "suite/utility/TzUtilityExport.h"

// Words that are searched for in the rows of a list while they are typed: blind to how they are written, to separators of figures and to
// the order of the words.
namespace RowWords {

// The words of a typed text; none where it holds no letter and no digit.
TZUTILITY_EXPORT QStringList of(const QString &text);
// What the words are searched in, of one text: a row's is the keys of its cells with cellEnd between them.
TZUTILITY_EXPORT QString key(const QString &text);
// So that no word is found across two cells.
inline constexpr QChar cellEnd = u'\n';
// Whether each of the words is in one of the cells.
TZUTILITY_EXPORT bool areIn(const QStringList &words, const QString &key);

}
