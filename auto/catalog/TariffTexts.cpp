// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/TariffTexts.h"

#include "auto/db/CTblTemp.h"

namespace TariffTexts {

namespace {

// More than anybody reads in a list of offers.
constexpr int most = 1000;

QStringList distinct(const char *column)
{
    CTblTemp temp;
    temp.Open(false, false, true);
    temp.FormatAndExecuteQuery("SELECT DISTINCT %s FROM AutomobilTariffs WHERE %s<>'' ORDER BY %s LIMIT %d", column, column,
                               column, most);
    QStringList texts;
    for (bool found = temp.HasResultRow(); found; found = temp.MoveNextResult())
        texts.append(temp.GetTextFieldValue(0));
    return texts;
}

}

QStringList titles()
{
    return distinct("sTitle");
}

QStringList descriptions()
{
    return distinct("sDesc");
}

}
