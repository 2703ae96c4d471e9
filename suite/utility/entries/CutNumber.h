// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QString>

class QStyleOptionViewItem;

// A number without room for all of its digits would read as another number, so it is not shown at all.
namespace CutNumber {

// Stands in its place.
TZUTILITY_EXPORT QString mark();
// Puts the mark in place of a cell's text that is wider than the cell. For a delegate's initStyleOption, after the text and the font
// are known.
TZUTILITY_EXPORT void markIfCut(QStyleOptionViewItem &cell);

}
