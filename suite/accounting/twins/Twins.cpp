// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/twins/Twins.h"

#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString Twins::keyOf(Sort sort, const QString &text)
{
    switch (sort) {
    case Twins::Sort::Plate:
        return SearchText::wholePlate(text);
    case Twins::Sort::Telephone:
        return SearchText::wholeTelephone(text);
    case Twins::Sort::Number:
        break;
    }
    return SearchText::folded(text).left(SearchText::longestKey);
}

std::optional<Twin> Twins::of(int kind, qint32 key, int database)
{
    const SearchKind known = SearchKinds::of(kind);
    if (!known.hit)
        return std::nullopt;
    const QList<SearchRow> rows = SearchKinds::read(known.hitColumns, KSql::formatted("t.iID=%1", key), database);
    if (rows.isEmpty())
        return std::nullopt;
    return Twin{known.table, key, known.hit(rows.constFirst()).title};
}

std::optional<Twin> Twins::find(int kind, const QString &column, Sort sort, const QString &text, qint32 exceptID, int database)
{
    const QString key = keyOf(sort, text);
    QList<qint32> records = key.isEmpty() ? QList<qint32>() : SearchIndex::recordsWith(kind, key, database);
    records.removeAll(exceptID);
    if (records.isEmpty())
        return std::nullopt;
    // Another column of the record may be what has that key.
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT iID,%1 FROM %2 WHERE iID IN (%3) ORDER BY iID DESC", KSql::name(column), KSql::name(SearchKinds::of(kind).table),
                                       KSql::list(records)));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        if (keyOf(sort, query.GetTextFieldValue(1)) == key)
            return of(kind, query.GetLongFieldValue(0), database);
    }
    return std::nullopt;
}
