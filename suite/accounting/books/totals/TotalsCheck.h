// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/books/chart/AccountBalance.h"

#include <QList>
#include <QString>

// Holds the kept sums of accounts (AccountTotals) against the rows of the documents that they were made of. Reads all rows.
namespace TotalsCheck {

struct TZACCOUNTINGDATA_EXPORT Difference
{
    int month = 0; // as 202611; 0 for documents without a date
    int day = 0;   // of the month; 0 for the sum of a month
    int general = 0;
    int subsidiary = 0;
    int detail = 0;
    AccountBalance kept;
    AccountBalance rows;
    qint64 keptRows = 0; // how many rows the kept sum counts
    qint64 rowCount = 0;

    // A line of English for the console: "account 110301, 2026-11-20: kept 100 debit ...".
    QString line() const;
};

// By day, month and account; nothing where all agree. As of one moment, whatever other desks write meanwhile. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT QList<Difference> find(int database = 0);
// Brings the kept sums to what the rows say, while others work, and returns what was different. Whole or not at all.
TZACCOUNTINGDATA_EXPORT QList<Difference> mend(int database = 0);

}
