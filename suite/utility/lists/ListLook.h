// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class QFontMetrics;
class QHeaderView;
class QTableView;
class QTreeView;

// What every list, grid and tree looks like: the height of titles and rows, the font of titles, the row under the pointer.
// The program's style draws it.
namespace ListLook {

// In pixels.
TZUTILITY_EXPORT int rowHeight(const QFontMetrics &metrics);
// Once, when the view is made.
TZUTILITY_EXPORT void apply(QTreeView *view);
TZUTILITY_EXPORT void apply(QTableView *view);
// The column at the end of the rows; -1 when none is shown.
TZUTILITY_EXPORT int lastShown(const QHeaderView &header);
// What a column needs to show its title whole, in pixels; 0 for one that is not shown.
TZUTILITY_EXPORT int titleWidth(const QHeaderView &header, int section);

}
