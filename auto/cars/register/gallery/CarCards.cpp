// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarCards.h"

#include "auto/cars/matching/DemandMatch.h"
#include "auto/cars/register/gallery/CarStanding.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int mostPairs = 3000; // of a car and a demand that are looked at for one screen

void countDemands(QHash<qint32, CarCard> &cards, const QDate &today, int database)
{
    CTblTemp query(database);
    query.ExecuteQuery("SELECT c.iID,c.iAutomobilType,c.iColor,c.iYear,c.dAmount,ad.iAutomobilType,ad.iColor,ad.iModelFrom,ad.iModelUpTo,ad.dAmountFrom,"
                       "ad.dAmountUpTo,ad.dateMaxTimeNeed FROM AutomobilInformations c JOIN AutomobilDemands ad ON ad.iArchiveUserID=0 AND ad.iStatus=0 AND "
                       "ad.iAutomobilType IN (0,c.iAutomobilType) AND "
                       + Placeholders::none(u"AutomobilDemands"_s, u"ad.iID"_s) + " WHERE c.bSold=0 AND c.iArchiveUserID=0 AND c.iID IN ("
                       + KSql::list(cards.keys()) + KSql::formatted(") LIMIT %1", mostPairs));
    if (query.GetRecordsCount() >= mostPairs)
        return;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const OfferedCar offer{query.GetLongFieldValue(1), query.GetLongFieldValue(2), query.GetLongFieldValue(3), query.GetDoubleFieldValue(4), false};
        const DemandWishes wishes{query.GetLongFieldValue(5), query.GetLongFieldValue(6), query.GetLongFieldValue(7), query.GetLongFieldValue(8),
                                  query.GetDoubleFieldValue(9), query.GetDoubleFieldValue(10)};
        const std::optional<DemandMatch> match = DemandMatch::of(wishes, offer);
        if (match && match->wishes > 0 && !isOver(query.GetDateFieldValue(11), today))
            ++cards[query.GetLongFieldValue(0)].demands;
    }
}

}

std::optional<int> CarCard::days(const QDate &today) const
{
    return CarStanding::days(introduced, sold, today);
}

CarCard::State CarCard::state(int longest, const QDate &today) const
{
    if (archived)
        return State::Archived;
    if (sold)
        return State::Sold;
    const int standing = days(today).value_or(0);
    if (standing >= 2 * longest)
        return State::StandingLong;
    if (standing >= longest)
        return State::Standing;
    return demands > 0 ? State::Wanted : State::Available;
}

QHash<qint32, CarCard> CarCards::read(const QList<qint32> &keys, bool withDemands, const QDate &today, int database)
{
    QHash<qint32, CarCard> cards;
    if (keys.isEmpty())
        return cards;
    CTblTemp query(database);
    query.ExecuteQuery(KSql::formatted("SELECT ai.iID,ai.iFunction,ai.bSold,ai.iArchiveUserID,COALESCE(ai.dateIntroduction,ai.dateCreate),t.oPicture FROM "
                                       "AutomobilInformations ai LEFT JOIN Thumbnails t ON t.iTable=%1 AND t.iRecordID=ai.iID AND t.iPictureID=0 WHERE ai.iID IN (",
                                       CTblAutomobilInformations::recordKind)
                       + KSql::list(keys) + ")");
    for (; query.HasResultRow(); query.MoveNextResult())
        cards.insert(query.GetLongFieldValue(0), {.mileage = query.GetLongFieldValue(1), .sold = query.GetLongFieldValue(2) != 0, .archived = query.GetLongFieldValue(3) != 0, .introduced = query.GetDateFieldValue(4).date(), .thumbnail = query.GetBinaryFieldValue(5)});
    if (withDemands && !cards.isEmpty())
        countDemands(cards, today, database);
    return cards;
}
