// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KFilterControl.h"

using namespace Qt::StringLiterals;

// Where a list differs from most. What stands here is how most lists are.
struct KListTraits
{
    QString layoutSetting = {};  // settings section of the columns' widths and order; empty: the list's section + "\\List"
    QString emptySort = {};      // order while the stored one is an empty text; empty: defaultSort()
    bool hasRowLimit = true;     // false: every row is fetched and no limit is kept
    int lowestRowLimit = 1;      // 0: that many means without a limit
    bool hasSearchButton = true; // false: the filter's own controls refill the list
    int searchColumn = 0;        // column of the filter's last line from which row limit and search stand; 0: on a line below
    QString filterTitle = u"فيلتر جستجو"_s;
    bool deletesInSelectMode = false;
    bool hasPlaceholders = false;                      // true: the table gets rows of editors that are open, which no list shows
    bool hasOwnTotals = false;                         // true: the list shows the sums of all its rows itself
    bool readsWholeRecords = false;                    // true: every column of the record is fetched, not only those that the table reads
    KFilterControl::Maker makePerson = {};             // the field of a person filter; a list that has one sets it
    QString emptyIcon = u":/icons/table.svg"_s;        // beside what the list says while it has no rows
    QString emptyText = u"هنوز ردیفی ثبت نشده است."_s; // what it says while its table has none
};
