// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/words/StoredTexts.h"

#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"

namespace {

// More than anybody reads in a list of suggestions.
constexpr int most = 1000;

// What differs is found first, by a key where there is one; ordering the rows would read each of them.
KSql textsStatement(const char *table, const char *column)
{
    const KSql name = KSql::name(QLatin1String(column));
    return KSql::formatted("SELECT %1 FROM (SELECT DISTINCT %1 FROM %2 WHERE %1>'') texts ORDER BY %3 LIMIT %4", name,
                           KSql::name(QLatin1String(table)), KSql::alphabetical(name), most);
}

}

QStringList storedTexts(const char *table, const char *column)
{
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.ExecuteQuery(textsStatement(table, column));
    QStringList texts;
    for (bool found = statement.HasResultRow(); found; found = statement.MoveNextResult())
        texts.append(statement.GetTextFieldValue(0));
    return texts;
}

void expectStoredTexts(const char *table, const char *column)
{
    KReadAhead::expect(textsStatement(table, column));
}
