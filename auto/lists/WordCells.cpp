// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/lists/WordCells.h"

std::function<KListColumn::Cell(const QVariant &)> wordCells(WordLists::List list)
{
    return [list](const QVariant &position) { return KListColumn::Cell{WordLists::textAt(list, position.toInt())}; };
}
