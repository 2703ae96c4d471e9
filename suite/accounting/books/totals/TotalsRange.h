// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QDate>
#include <QList>

// Which kept sums make up a range of days: the months that lie within it whole, and single days of those that it cuts. The months are those
// of the server's calendar; with at most sixty days beside them it does not matter by which calendar a user asks.
struct TZACCOUNTINGDATA_EXPORT TotalsRange
{
    struct Days
    {
        int month = 0; // year and month, as 202611
        int first = 0; // days of that month
        int last = 0;

        friend bool operator==(const Days &, const Days &) = default;
    };

    // An invalid end is open. The range holds its last day whole.
    static TotalsRange of(const QDate &from, const QDate &to);

    bool isEverything = false; // also what has no date
    bool isEmpty = false;      // the ends stand the wrong way round
    int firstMonth = 0;        // of the whole months; 0 for the earliest there is
    int lastMonth = 0;         // 0 for the latest there is
    bool hasMonths = false;
    QList<Days> days;
};
