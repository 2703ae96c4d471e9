// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLayoutItem>

#include <algorithm>

// What an item of a layout needs at that width. Inside the library only.
inline int itemHeight(QLayoutItem *item, int width)
{
    // The least height of such an item is that of another width.
    if (item->hasHeightForWidth())
        return item->heightForWidth(width);
    return std::max(item->sizeHint().height(), item->minimumSize().height());
}
