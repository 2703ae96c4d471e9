// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QList>

// Rules of the account numbers: a general account has four digits, a subsidiary one six and begins with its general account,
// a detail account seven to nine and begins with its subsidiary one.
namespace AccountCode {

enum class Problem {
    None,
    WrongLength,
    NotUnderParent
};

// The level of a code; a code of another length counts as the nearest level below.
TZACCOUNTINGDATA_EXPORT AccountLevel levelOf(int code);
// Of the account above; 0 for a general account.
TZACCOUNTINGDATA_EXPORT int parentOf(int code);
// Whether a new account of the level may have the code under that parent (0 for a general account).
TZACCOUNTINGDATA_EXPORT Problem check(AccountLevel level, int code, int parent);
// A code to propose for the next account under the parent: one after the highest of those taken. 0 when none is left, and for a
// general account, whose group the office chooses.
TZACCOUNTINGDATA_EXPORT int proposed(AccountLevel level, int parent, const QList<int> &taken);
// Whether the program itself writes documents on the account or on one below it.
TZACCOUNTINGDATA_EXPORT bool isFixed(int code);
// Whether the program writes rows on the subsidiary account itself, so that none may be opened below it: the fixed ones, and
// every cash box and bank account, which receipts go to.
TZACCOUNTINGDATA_EXPORT bool isUndivided(int moeen);

}
