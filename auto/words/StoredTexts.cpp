// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/words/StoredTexts.h"

#include "suite/db/CTblTemp.h"

namespace {

// More than anybody reads in a list of suggestions.
constexpr int most = 1000;

}

QStringList storedTexts(const char *table, const char *column)
{
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery("SELECT DISTINCT %s FROM %s WHERE %s<>'' ORDER BY %s LIMIT %d", column, table, column,
                                    column, most);
    QStringList texts;
    for (bool found = statement.HasResultRow(); found; found = statement.MoveNextResult())
        texts.append(statement.GetTextFieldValue(0));
    return texts;
}
