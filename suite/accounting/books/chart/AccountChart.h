// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QList>

#include <memory>

class KMySQL;

// The chart of accounts: reading and changing it.
namespace AccountChart {

struct Account
{
    int code = 0;
    QString name;
    int parent = 0; // code of the account above, 0 for a general one
    bool active = true;
};

// Where a level is kept: its table, and its column in the rows of documents.
TZACCOUNTINGDATA_EXPORT QString table(AccountLevel level);
TZACCOUNTINGDATA_EXPORT QString docsColumn(AccountLevel level);

// A record of the level's table.
TZACCOUNTINGDATA_EXPORT std::unique_ptr<KMySQL> records(AccountLevel level, int database = 0);
// In the order of the codes.
TZACCOUNTINGDATA_EXPORT QList<Account> read(AccountLevel level, int database = 0);
// That each level will be read (KReadAhead).
TZACCOUNTINGDATA_EXPORT void expectAll(int database = 0);
// Empty for a code that the chart does not have.
TZACCOUNTINGDATA_EXPORT QString nameOf(int code, int database = 0);
// What a document's row may stand on: active accounts at the deepest existing level, that is, detail accounts, and
// subsidiary ones without active detail accounts. In the order of the codes.
TZACCOUNTINGDATA_EXPORT QList<Account> postable(int database = 0);

// Each throws KAccountingError, with nothing changed, when the chart would not be right afterwards or the database is closed.
//
// Balances are taken at the deepest level, so no detail account is added below an account that the program posts to or
// that has rows of its own.
TZACCOUNTINGDATA_EXPORT void add(AccountLevel level, int code, const QString &name, int parent, int database = 0);
// An account that the program posts to stays active, and so does one above an active account. Below an inactive account none
// becomes active, and no detail account below one that has got rows of its own meanwhile.
TZACCOUNTINGDATA_EXPORT void setActive(int code, bool active, int database = 0);

// For a user who edits the name of an account (RowEdit over its record): the lock of the chart, and what settles the name: brings
// it into standard form and throws FieldRefused for an empty one or that of another account below the same one.
TZACCOUNTINGDATA_EXPORT QString lockName();
TZACCOUNTINGDATA_EXPORT void settleName(KMySQL &record);

}
