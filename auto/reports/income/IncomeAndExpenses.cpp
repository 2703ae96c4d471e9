// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/IncomeAndExpenses.h"

#include "suite/utility/values/TextStandard.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace IncomeAndExpenses;

QHash<int, QList<ChartAccount>> byParent(const QList<ChartAccount> &accounts)
{
    QHash<int, QList<ChartAccount>> children;
    for (const ChartAccount &account : accounts)
        children[account.parent].append(account);
    return children;
}

bool isBefore(const Account &a, const Account &b, Order order)
{
    switch (order) {
    case Order::Chart:
        break; // sorted by no value
    case Order::Name:
        return comparePersian(a.name, b.name) < 0;
    case Order::Amount:
        return std::abs(a.balance.net()) < std::abs(b.balance.net());
    case Order::Nature:
        return a.balance.nature() < b.balance.nature();
    }
    Q_UNREACHABLE();
}

}

void IncomeAndExpenses::add(Side &side, const Group &group)
{
    const auto addAccount = [&side](AccountLevel level, const ChartAccount &account, const QHash<int, AccountBalance> &balances) {
        const AccountBalance balance = balances.value(account.code);
        side.total += balance;
        if (!balance.isBalanced())
            side.accounts.append({level, account.code, account.name, balance});
    };
    const QHash<int, QList<ChartAccount>> subsidiaries = byParent(group.subsidiary);
    const QHash<int, QList<ChartAccount>> details = byParent(group.detail);
    for (const ChartAccount &general : group.general) {
        const QList<ChartAccount> below = subsidiaries.value(general.code);
        if (below.isEmpty())
            addAccount(AccountLevel::Kol, general, group.generalBalances);
        for (const ChartAccount &subsidiary : below) {
            const QList<ChartAccount> deepest = details.value(subsidiary.code);
            if (deepest.isEmpty())
                addAccount(AccountLevel::Moeen, subsidiary, group.subsidiaryBalances);
            for (const ChartAccount &detail : deepest)
                addAccount(AccountLevel::Tafsily, detail, group.detailBalances);
        }
    }
}

AccountBalance IncomeAndExpenses::difference(const Side &income, const Side &expenses)
{
    AccountBalance difference = income.total;
    difference += expenses.total;
    return difference;
}

void IncomeAndExpenses::sort(QList<Account> &accounts, Order order, bool descending)
{
    if (order == Order::Chart) {
        if (descending)
            std::reverse(accounts.begin(), accounts.end());
        return;
    }
    std::stable_sort(accounts.begin(), accounts.end(), [order, descending](const Account &a, const Account &b) {
        return descending ? isBefore(b, a, order) : isBefore(a, b, order);
    });
}
