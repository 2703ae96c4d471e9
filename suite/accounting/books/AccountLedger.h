// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QDateTime>
#include <QList>

// The sheet of one account, or of one person: the rows in the order of their documents' dates, with the balance after each.
namespace AccountLedger {

// Whose rows.
struct Scope
{
    AccountLevel level = AccountLevel::Kol; // of the account
    int code = 0;
    int personID = 0; // above 0: the rows on that person instead, whatever their account

    static Scope account(AccountLevel level, int code) { return {level, code, 0}; }
    static Scope person(int personID) { return {AccountLevel::Kol, 0, personID}; }
    bool isPerson() const { return personID > 0; }
};

struct Row
{
    int id = 0;
    int docNum = 0;
    int fiscalYear = 0;
    QDateTime date; // of the document
    QString person; // shown name: of the row, else of the receipt behind it; empty for none
    QString desc;
    double bed = 0;
    double bes = 0;
    double balance = 0;  // after this row, what was brought forward included; above 0 for debit
    QString documentFor; // what the document says of itself: the contract, the invoice
    int receiptID = 0;   // of the receipt or payment that the document is of; 0: of none
    QString receiptFor;  // what that is for; empty: on account
    int method = 0;      // ReceiptMethods::Method

    // What the row is for, in words: that of a receipt with how it was paid, else what the document is about.
    TZACCOUNTINGDATA_EXPORT QString purpose() const;
};

struct Sheet
{
    AccountBalance before; // of the rows before the range; nothing when the range is open there
    QList<Row> rows;
    AccountBalance sum; // of the rows

    // What stands at the end; above 0 for debit.
    double closing() const { return before.net() + sum.net(); }
};

// The balance of an account of any level; see CTblDocs for the range.
TZACCOUNTINGDATA_EXPORT AccountBalance balance(AccountLevel level, int code, const QDateTime &from, const QDateTime &to,
                                               int database = 0);

// Rows of valid documents from a day to a day, both whole; an invalid end is open. Three statements, whatever the number of rows.
TZACCOUNTINGDATA_EXPORT Sheet read(const Scope &scope, const QDateTime &from, const QDateTime &to, int database = 0);
TZACCOUNTINGDATA_EXPORT Sheet read(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database = 0);

// How a statement names its person; the name is empty when nobody has the key.
struct Person
{
    QString name;
    int code = 0;
    QString nationalCode;
};
TZACCOUNTINGDATA_EXPORT Person person(int personID, int database = 0);

}
