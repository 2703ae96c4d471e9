// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/CarContracts.h"

#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QList<CarContracts::Entry> CarContracts::ofCar(int carID, int database)
{
    QList<Entry> entries;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT c.iID,c.iCode,c.iContractType,c.dateContract,c.sName1,c.sName2,c.dAmount,c.iStatus,c.iArchiveUserID "
                                       "FROM CarContracts l JOIN AutomobilContracts c ON c.iID=l.iContractID WHERE l.iCarID=%1 AND %2 ORDER BY c.iID DESC",
                                       carID, Placeholders::none(u"AutomobilContracts"_s, u"c.iID"_s)));
    for (; query.HasResultRow(); query.MoveNextResult())
        entries.append({query.GetLongFieldValue(0), query.GetLongFieldValue(1), query.GetLongFieldValue(2), query.GetDateFieldValue(3),
                        query.GetTextFieldValue(4), query.GetTextFieldValue(5), query.GetDoubleFieldValue(6), query.GetLongFieldValue(7) == 0,
                        query.GetLongFieldValue(8) != 0});
    return entries;
}

std::optional<CarContracts::Entry> CarContracts::openOf(int carID, int exceptContract, int database)
{
    const QList<Entry> entries = ofCar(carID, database);
    const auto open = std::ranges::find_if(entries, [=](const Entry &entry) { return entry.isOpen() && entry.contractID != exceptContract; });
    return open == entries.end() ? std::nullopt : std::optional(*open);
}

QString CarContracts::words(const Entry &entry)
{
    return u"قرارداد %1 در %2، %3 با %4"_s.arg(QString::number(entry.code), shamsiText(entry.date.date()), entry.seller, entry.buyer);
}
