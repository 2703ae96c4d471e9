// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QDateTime>
#include <QList>
#include <QString>

// The chart of accounts with the balance of each account, for showing it.
namespace ChartRows {

struct Row
{
    AccountLevel level = AccountLevel::Kol;
    int code = 0;
    QString name;
    int parent = 0; // 0 for a general account
    bool active = true;
    AccountBalance balance;
};

// Every account, each after the one above it, ordered by code. Balances of the range of dates, whole days; an invalid end is
// open. One statement for the accounts and one for the balances of each level.
QList<Row> read(const QDateTime &from, const QDateTime &to, int database = 0);

// Those whose name contains the text or whose code begins with it, with the accounts above them; an empty text takes all.
// Inactive accounts only on request.
QList<Row> filtered(const QList<Row> &rows, const QString &text, bool withInactive);

}
