// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarCards.h"

#include "auto/cars/matching/DemandMatch.h"
#include "auto/cars/register/gallery/CarStanding.h"
#include "auto/cars/web/PublicCondition.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostPairs = 3000; // of a car and a demand that are looked at for one screen
constexpr int leastOfACar = 60;

void countDemands(QHash<qint32, CarCard> &cards, const QDate &today, int database)
{
    // A part for each car, so that one that many ask for takes no room of another.
    const int mostOfACar = std::max(leastOfACar, mostPairs / int(cards.size()));
    const KSql saved = Placeholders::none(u"AutomobilDemands"_s, u"ad.iID"_s);
    QList<KSql> parts;
    for (auto card = cards.cbegin(); card != cards.cend(); ++card) {
        if (!card->sold && !card->archived)
            parts.append(KSql::formatted("(SELECT c.iID,c.iAutomobilType,c.iColor,c.iYear,c.dAmount,ad.iAutomobilType,ad.iColor,ad.iModelFrom,ad.iModelUpTo,ad.dAmountFrom,ad.dAmountUpTo,ad.dateMaxTimeNeed"
                                         " FROM AutomobilInformations c JOIN AutomobilDemands ad ON ad.iArchiveUserID=0 AND ad.iStatus=0 AND ad.iAutomobilType IN (0,c.iAutomobilType) AND %1 WHERE c.iID=%2 LIMIT %3)",
                                         saved, card.key(), mostOfACar + 1));
    }
    if (parts.isEmpty())
        return;
    QHash<qint32, int> looked;
    CTblTemp query(database);
    for (query.ExecuteQuery(KSql::joined(parts, " UNION ALL ")); query.HasResultRow(); query.MoveNextResult()) {
        CarCard &card = cards[query.GetLongFieldValue(0)];
        if (++looked[query.GetLongFieldValue(0)] > mostOfACar) {
            card.moreDemands = true;
            continue;
        }
        const OfferedCar offer{query.GetLongFieldValue(1), query.GetLongFieldValue(2), query.GetLongFieldValue(3), query.GetDoubleFieldValue(4), false};
        const DemandWishes wishes{query.GetLongFieldValue(5), query.GetLongFieldValue(6), query.GetLongFieldValue(7), query.GetLongFieldValue(8),
                                  query.GetDoubleFieldValue(9), query.GetDoubleFieldValue(10)};
        const std::optional<DemandMatch> match = DemandMatch::of(wishes, offer);
        if (match && match->wishes > 0 && !isOver(query.GetDateFieldValue(11), today))
            ++card.demands;
    }
}

}

std::optional<int> CarCard::days(const QDate &today) const
{
    return CarStanding::days(introduced, sold, today);
}

std::optional<int> CarCard::daysToSale() const
{
    if (!sold || !soldOn.isValid())
        return std::nullopt;
    return CarStanding::days(introduced, false, soldOn);
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
    query.ExecuteQuery(KSql::formatted("SELECT ai.iID,ai.iFunction,ai.bSold,ai.iArchiveUserID,COALESCE(ai.dateIntroduction,ai.dateCreate),t.oPicture,IF(ai.bSold<>0,ai.dateBuy,NULL),%2 FROM "
                                       "AutomobilInformations ai LEFT JOIN Thumbnails t ON t.iTable=%1 AND t.iRecordID=ai.iID AND t.iPictureID=0 WHERE ai.iID IN (",
                                       CTblAutomobilInformations::recordKind, PublicCondition::ticked())
                       + KSql::list(keys) + ")");
    for (; query.HasResultRow(); query.MoveNextResult())
        cards.insert(query.GetLongFieldValue(0), {.mileage = query.GetLongFieldValue(1), .sold = query.GetLongFieldValue(2) != 0, .archived = query.GetLongFieldValue(3) != 0, .introduced = query.GetDateFieldValue(4).date(), .thumbnail = query.GetBinaryFieldValue(5), .soldOn = query.GetDateFieldValue(6).date(), .onWeb = query.GetLongFieldValue(7) != 0});
    if (withDemands && !cards.isEmpty())
        countDemands(cards, today, database);
    return cards;
}
