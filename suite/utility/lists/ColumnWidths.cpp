// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/ColumnWidths.h"

#include <cmath>

namespace {

// A column of texts is unreadable in less of what it wants.
constexpr double narrowest = 0.6;

}

QVector<int> ColumnWidths::shared(const QVector<Column> &columns, int room)
{
    double wanted = 0;
    for (const Column &column : columns)
        wanted += column.wanted;
    double left = qMax(double(room), wanted * narrowest);
    QVector<int> widths(columns.size(), 0);
    QVector<int> open;
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].wanted > 0)
            open.append(i);
    }
    // Each column that needs more than its share takes it from the others, whose shares shrink by that: until none does.
    for (bool changed = true; changed;) {
        changed = false;
        double share = wanted > 0 ? qMax(0.0, left / wanted) : 0;
        for (int i = 0; i < open.size(); ++i) {
            const Column &column = columns[open[i]];
            if (column.wanted * share >= column.least)
                continue;
            widths[open[i]] = static_cast<int>(std::ceil(column.least));
            left -= widths[open[i]];
            wanted -= column.wanted;
            open.removeAt(i--);
            changed = true;
        }
    }
    for (const int i : open)
        widths[i] = static_cast<int>(columns[i].wanted * left / wanted);
    return widths;
}
