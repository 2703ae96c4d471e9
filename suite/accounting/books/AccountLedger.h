// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QDateTime>
#include <QList>

// The sheet of one account: its rows in the order of their documents' dates, with the balance after each.
namespace AccountLedger {

struct Row
{
    int id = 0;
    int docNum = 0;
    int fiscalYear = 0;
    QDateTime date; // of the document
    QString person; // shown name, empty for a row on no person
    QString desc;
    double bed = 0;
    double bes = 0;
    double balance = 0; // after this row, what was brought forward included; above 0 for debit
};

struct Sheet
{
    AccountBalance before; // of the rows before the range; nothing when the range is open there
    QList<Row> rows;
    AccountBalance sum; // of the rows
};

// The balance of an account of any level; see CTblDocs for the range.
TZACCOUNTINGDATA_EXPORT AccountBalance balance(AccountLevel level, int code, const QDateTime &from, const QDateTime &to,
                                           int database = 0);

// Rows of valid documents from a day to a day, both whole; an invalid end is open.
TZACCOUNTINGDATA_EXPORT Sheet read(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database = 0);

}
