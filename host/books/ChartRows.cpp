// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/ChartRows.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/utility/values/TextStandard.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace ChartRows {

QList<Row> read(const QDateTime &from, const QDateTime &to, int database)
{
    const KReadAhead reading(database);
    AccountChart::expectAll(database);
    QList<Row> rows;
    for (const AccountLevel level : {AccountLevel::Kol, AccountLevel::Moeen, AccountLevel::Tafsily}) {
        const QHash<int, AccountBalance> balances = CTblDocs::balances(level, from, to, 0, database);
        for (const AccountChart::Account &account : AccountChart::read(level, database))
            rows.append({level, account.code, account.name, account.parent, account.active, balances.value(account.code)});
    }
    // A code begins with that of the account above it, so sorting as text puts it after that one.
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row &a, const Row &b) { return QString::number(a.code) < QString::number(b.code); });
    return rows;
}

QList<Row> filtered(const QList<Row> &rows, const QString &text, bool withInactive)
{
    const QString key = searchKey(text);
    QSet<int> wanted;
    // From the end: the accounts below one come before it.
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        const bool meant = key.isEmpty() || searchKey(row->name).contains(key) || QString::number(row->code).startsWith(key);
        if (!(meant && (row->active || withInactive)) && !wanted.contains(row->code))
            continue;
        wanted.insert(row->code);
        wanted.insert(row->parent);
    }
    QList<Row> found = rows;
    found.removeIf([&wanted](const Row &row) { return !wanted.contains(row.code); });
    return found;
}

}
