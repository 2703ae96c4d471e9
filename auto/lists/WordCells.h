// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/words/WordLists.h"
#include "suite/accounting/lists/KListColumn.h"

// For KListColumn::show: the word at the position that the column holds.
std::function<KListColumn::Cell(const QVariant &)> wordCells(WordLists::List list);
