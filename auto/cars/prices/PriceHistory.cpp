// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/PriceHistory.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangedValues.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

QList<PriceHistory::Entry> PriceHistory::of(int carID, int database)
{
    QList<Entry> entries;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT c.date,COALESCE(NULLIF(u.sName,''),u.sUser),c.sValues FROM Changes c LEFT JOIN Users u ON u.iID=c.iUserID "
                                       "WHERE c.sTable='AutomobilInformations' AND c.iRecordID=%1 AND c.sValues LIKE '%%\"dAmount\"%%' ORDER BY c.iID",
                                       carID));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        for (const KChangedValue &value : KChangedValues::fromJson(query.GetTextFieldValue(2).toUtf8())) {
            const double price = value.after.toDouble();
            const double before = value.before.toDouble();
            if (value.column == "dAmount"_L1 && !IsEquals(price, before))
                entries.append({query.GetDateFieldValue(0), query.GetTextFieldValue(1), price, before});
        }
    }
    return entries;
}
