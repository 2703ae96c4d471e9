// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/search/SearchKinds.h"

// Records of many kinds that what was typed may mean. Looks at a bounded number of keys, however many there are, so that it takes no longer
// in a large office than in a small one.
namespace SearchFinding {

struct Group
{
    int kind = 0;
    QString table;
    QString title;
    // All that were found, best first: a whole key, the beginning of a name or number, its end, a word of an explanation; of equal ones the
    // newest first.
    QList<qint32> records;
    bool more = false;     // there may be others, which were not looked at
    QList<SearchHit> hits; // the first ones
};

// Of these kinds, in their order; those without a hit are left out. hits: how many of each are shown. Nothing for a text without a letter
// or digit. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT QList<Group> find(const QString &typed, const QList<int> &kinds, int hits, int database = 0);
// The kinds that the current user may read.
TZACCOUNTINGDATA_EXPORT QList<int> readable();

}
