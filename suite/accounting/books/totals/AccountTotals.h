// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"
#include "suite/sql/KSql.h"

#include <QDateTime>
#include <QHash>

// What the rows of valid documents sum up to on accounts, without reading the rows: from sums that are kept by month and by day, the documents
// that are not in those yet, and what was taken out of them since. One statement reads all three, so that it sees them as of one moment.
//
// A new document is in no sum and writes none; TotalsFolding takes it in later. Whoever changes the rows, the date or the state of a stored
// document releases it before, in the same unit.
namespace AccountTotals {

// By the code of the account, of all or of those that the condition on iHesabKolCode, iHesabMoeenCode or iHesabTafsilyCode leaves; empty: all.
// Accounts without rows are left out, and so are rows that stand on no account of that level. A range holds its last day whole, and an
// invalid end is open. Takes new documents into the sums when many have come together, though not within a transaction.
TZACCOUNTINGDATA_EXPORT QHash<int, AccountBalance> read(AccountLevel level, const QDateTime &from, const QDateTime &to, const KSql &condition,
                                                        int database = 0);

// The statement behind it, for one that joins it: code, dBed, dBes and iRows, the number of rows, 0 where all have gone.
TZACCOUNTINGDATA_EXPORT KSql sums(AccountLevel level, const QDateTime &from, const QDateTime &to, const KSql &condition);

// A statement that reads what stands on accounts by day: iDate (as 20261123), iHesabKolCode, iHesabMoeenCode, iHesabTafsilyCode, dBed, dBes and
// iRows, the number of rows that these are the sum of; a day and account several times. Both ends are valid.
TZACCOUNTINGDATA_EXPORT KSql days(const QDate &from, const QDate &to);

// Takes the document out of the kept sums and locks its header until the transaction ends. One that is in none is only locked.
TZACCOUNTINGDATA_EXPORT void release(int num, int fiscalYear, int database = 0);

}
