// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchKinds.h"

#include "suite/accounting/search/SearchText.h"
#include "suite/db/records/CTblTemp.h"

#include <map>
#include <mutex>

namespace {

std::mutex kindsGuard;

std::map<int, SearchKind> &kinds()
{
    static std::map<int, SearchKind> entered;
    return entered;
}

}

void SearchKinds::enter(SearchKind kind)
{
    const std::lock_guard lock(kindsGuard);
    const int number = kind.number;
    kinds().insert_or_assign(number, std::move(kind));
}

void SearchKinds::remove(int number)
{
    const std::lock_guard lock(kindsGuard);
    kinds().erase(number);
}

QList<SearchKind> SearchKinds::all()
{
    const std::lock_guard lock(kindsGuard);
    QList<SearchKind> list;
    for (const auto &[number, kind] : kinds())
        list.append(kind);
    return list;
}

SearchKind SearchKinds::of(int number)
{
    const std::lock_guard lock(kindsGuard);
    const auto found = kinds().find(number);
    return found == kinds().end() ? SearchKind() : found->second;
}

QSet<QString> SearchKinds::keysOf(const SearchKind &kind, const SearchRow &row)
{
    QSet<QString> keys;
    for (const QString &key : kind.keys(row))
        keys.insert(key);
    for (const qsizetype column : kind.persons) {
        if (const int person = row.value(column).toInt(); person > 0)
            keys.insert(SearchText::ofReference(person));
    }
    keys.remove(QString());
    return keys;
}

QList<SearchRow> SearchKinds::read(const SearchColumns &columns, const KSql &condition, int database)
{
    QList<KSql> names;
    for (const QString &name : columns.names)
        names.append(KSql::name(name));
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT %1 FROM %2 WHERE %3", KSql::joined(names, ","), columns.from, condition));
    QList<SearchRow> rows;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        SearchRow row;
        for (int column = 0; column < columns.names.size(); ++column)
            row.append(query.GetTextFieldValue(column));
        rows.append(row);
    }
    return rows;
}
