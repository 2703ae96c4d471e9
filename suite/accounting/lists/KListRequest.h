// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

#include <QString>

// What a list is to show when something else opens it: a card of the start page, a hit of a search.
struct KListRequest
{
    // Set in its filters over what they ask at first; the others ask for all there is.
    KFilterValues filters = {};
    // A further condition on the rows that no filter of the list can ask, without " AND " before it, with the columns as the list's record
    // names them; empty: none. The user sees it by its words, and takes it away with them.
    KSql condition = {};
    QString conditionText = {}; // "قسط‌های معوق"
    // The record to select; 0: none.
    qint32 selected = 0;
};
