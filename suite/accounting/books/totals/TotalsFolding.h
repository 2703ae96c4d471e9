// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

#include <functional>

// Takes documents into the kept sums of accounts (AccountTotals), some thousand in a unit of their own each: whoever is stopped in between goes
// on where it was. It waits for no clerk: a document that somebody is changing comes next time.
namespace TotalsFolding {

// Documents that are in no sum yet, counted up to that number.
TZACCOUNTINGDATA_EXPORT int behind(int atMost, int database = 0);

// progress: documents taken in until now. False stops. Throws CMySQLException.
using Progress = std::function<bool(int done)>;
TZACCOUNTINGDATA_EXPORT void fold(const Progress &progress = {}, int database = 0);

// The same beside a reading that found many: one that fails is told to the log alone, and within a transaction nothing is done.
TZACCOUNTINGDATA_EXPORT void foldBeside(int database = 0);

// Lets nobody else write kept sums until the transaction ends.
TZACCOUNTINGDATA_EXPORT void lock(int database = 0);
// Adds rows (month, day, general, subsidiary and detail account, debit, credit, number of rows) to the kept sums. Under the lock.
TZACCOUNTINGDATA_EXPORT void add(const QList<KSql> &rows, int database = 0);

}
