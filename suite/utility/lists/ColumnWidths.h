// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QVector>

#include "suite/utility/TzUtilityExport.h"

// How the columns of a list share its width.
namespace ColumnWidths {

// In pixels.
struct Column
{
    double wanted = 0; // 0: the column is not shown
    double least = 0;  // what it needs for its title and its figures
};

// The width of each column. Together they fill the room, each in proportion of what it wants, and none less than it needs. In a room
// that would leave them unreadable they take more, and the list scrolls.
TZUTILITY_EXPORT QVector<int> shared(const QVector<Column> &columns, int room);

}
