// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QHash>
#include <QList>
#include <QString>

// Rule: the accounts of the comprehensive report, from a chart of accounts and the balances of its three levels.
namespace IncomeAndExpenses {

// An account of the chart; parent is the code of the account above it, 0 for a general one.
struct ChartAccount
{
    int code = 0;
    QString name;
    int parent = 0;
};

// The active accounts of one group, each level in the order of its rows, and their balances by code.
struct Group
{
    QList<ChartAccount> general;
    QList<ChartAccount> subsidiary;
    QList<ChartAccount> detail;
    QHash<int, AccountBalance> generalBalances;
    QHash<int, AccountBalance> subsidiaryBalances;
    QHash<int, AccountBalance> detailBalances;
};

struct Account
{
    AccountLevel level = AccountLevel::Kol;
    int code = 0;
    QString name;
    AccountBalance balance;

    friend bool operator==(const Account &a, const Account &b) { return a.level == b.level && a.code == b.code; }
};

struct Side
{
    QList<Account> accounts; // without the balanced ones
    AccountBalance total;    // of every account, the balanced ones too
};

// Adds a group to a side. Balances are taken at the deepest level that is there: every detail account, a subsidiary account
// without detail accounts by itself, a general account without subsidiary ones by itself.
void add(Side &side, const Group &group);

// Income less expenses: above 0 in credit when more was earned than spent. Kept as debit and credit of both sides.
AccountBalance difference(const Side &income, const Side &expenses);

// What the list sorts by; ties keep the order in which the accounts were added.
enum class Order {
    Chart, // as added: group by group, the accounts below each account behind it, not by the bare number of its code
    Name,
    Amount, // without its sign
    Nature
};
void sort(QList<Account> &accounts, Order order, bool descending);

}
