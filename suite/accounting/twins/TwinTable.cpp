// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/twins/TwinTable.h"

#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

TwinTable::TwinTable(const QString &table, const QList<Column> &columns, int database)
    : m_columns(columns)
{
    KSql selected = "iID,iCode";
    for (const Column &column : columns)
        selected = selected + "," + KSql::name(column.name) + "," + KSql::name(column.with.isEmpty() ? column.name : column.with);
    CTblTemp query(database);
    query.Open(false, false, true);
    // The newest of several comes last and stays.
    query.ExecuteQuery(KSql::formatted("SELECT %1 FROM %2 WHERE %3 ORDER BY iID", selected, KSql::name(table), Placeholders::none(table)));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const Found found{query.GetLongFieldValue(0), query.GetLongFieldValue(1)};
        for (int i = 0; i < columns.size(); ++i) {
            const QString key = keyOf(columns.at(i), query.GetTextFieldValue(2 * i + 2), query.GetTextFieldValue(2 * i + 3));
            if (!key.isEmpty())
                m_found[columns.at(i).name].insert(key, found);
        }
    }
}

const TwinTable::Column &TwinTable::named(const QString &column) const
{
    const auto known = std::ranges::find_if(m_columns, [&](const Column &one) { return one.name == column; });
    Q_ASSERT(known != m_columns.cend());
    return *known;
}

QString TwinTable::keyOf(const Column &column, const QString &text, const QString &with)
{
    const QString key = Twins::keyOf(column.sort, text);
    if (column.with.isEmpty() || key.isEmpty())
        return key;
    const QString other = Twins::keyOf(Twins::Sort::Number, with);
    return other.isEmpty() ? QString() : key + u'/' + other;
}

std::optional<TwinTable::Found> TwinTable::find(const QString &column, const QString &text, const QString &with) const
{
    const QString key = keyOf(named(column), text, with);
    const auto ofColumn = m_found.constFind(column);
    if (key.isEmpty() || ofColumn == m_found.cend())
        return std::nullopt;
    const auto found = ofColumn->constFind(key);
    return found == ofColumn->cend() ? std::nullopt : std::optional(*found);
}

void TwinTable::add(const QString &column, const QString &text, const QString &with, int row)
{
    const QString key = keyOf(named(column), text, with);
    if (!key.isEmpty() && !m_found[column].contains(key))
        m_found[column].insert(key, {0, row});
}
