// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/MatchingDemands.h"

#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A demand that the car fits, until its names are known.
struct FittingDemand
{
    MatchingDemands::Demand demand;
    int person = 0;
};

// Those that the car may fit: a demand of another brand than its own it does not, which an index tells. DemandMatch judges the rest.
void askFor(CTblAutomobilDemands &demands, const OfferedCar &car)
{
    demands.SetColumns({u"iCode"_s, u"iPersonID"_s, u"iAutomobilType"_s,
                        u"iModelFrom"_s, u"iModelUpTo"_s, u"iColor"_s,
                        u"dAmountFrom"_s, u"dAmountUpTo"_s, u"dateReference"_s,
                        u"dateMaxTimeNeed"_s, u"sDescSpecial"_s});
    demands.m_filter = "iArchiveUserID=0 AND iStatus=0 AND " + Placeholders::none(demands.GetTableName())
        + KSql::formatted(" AND (iAutomobilType IN (0,%1) OR iAutomobilType IS NULL)", car.automobilType);
}

std::vector<FittingDemand> fittingDemands(CTblAutomobilDemands &demands, const OfferedCar &car)
{
    const QDate today = GetDBSetting()->GetDBServerDate().date();
    std::vector<FittingDemand> found;
    for (demands.Open(true, true, true); !demands.IsEOF(); demands.MoveNext()) {
        const DemandWishes wishes{demands.m_iAutomobilType, demands.m_iColor, demands.m_iModelFrom,
                                  demands.m_iModelUpTo, demands.m_dAmountFrom, demands.m_dAmountUpTo};
        const auto match = DemandMatch::of(wishes, car);
        if (!match)
            continue;
        found.push_back({{demands.m_iID, demands.m_iCode, *match, wishes, {}, {}, {}, {}, demands.m_dateReference, demands.m_dateMaxTimeNeed, isOver(demands.m_dateMaxTimeNeed, today), demands.m_sDescSpecial},
                         demands.m_iPersonID});
    }
    std::sort(found.begin(), found.end(), [](const FittingDemand &one, const FittingDemand &other) {
        if (one.demand.overdue != other.demand.overdue)
            return other.demand.overdue;
        return isBetterMatch(one.demand.match, one.demand.code, other.demand.match, other.demand.code);
    });
    return found;
}

struct Asker
{
    QString name;
    QString mobile;
};

KSql askersStatement(const QList<int> &persons)
{
    return KSql::formatted("SELECT iID,sName2,sMobile FROM Persons WHERE iID IN (%1)", KSql::list(persons));
}

QHash<int, Asker> askersOf(const QList<int> &persons, int database)
{
    QHash<int, Asker> askers;
    if (persons.isEmpty())
        return askers;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(askersStatement(persons));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        askers.insert(rows.GetLongFieldValue(0), {rows.GetTextFieldValue(1), rows.GetTextFieldValue(2)});
    return askers;
}

std::vector<MatchingDemands::Demand> namedDemands(std::vector<FittingDemand> found, int database)
{
    QList<int> persons;
    QList<int> types;
    QList<int> colors;
    for (const FittingDemand &entry : found) {
        persons.append(entry.person);
        types.append(entry.demand.wishes.automobilType);
        colors.append(entry.demand.wishes.color);
    }
    CTblAutomobilDemands record(database);
    if (!persons.isEmpty())
        KReadAhead::expect(askersStatement(persons), database);
    KLookup::expectNames(record, u"iAutomobilType", types);
    KLookup::expectNames(record, u"iColor", colors);
    const QHash<int, Asker> askers = askersOf(persons, database);
    const auto typeNames = KLookup::names(record, u"iAutomobilType", types);
    const auto colorNames = KLookup::names(record, u"iColor", colors);
    std::vector<MatchingDemands::Demand> demands;
    demands.reserve(found.size());
    for (FittingDemand &entry : found) {
        const auto asker = askers.constFind(entry.person);
        if (asker == askers.cend())
            continue;
        MatchingDemands::Demand &demand = entry.demand;
        demand.person = asker->name;
        demand.mobile = asker->mobile;
        demand.type = typeNames.value(demand.wishes.automobilType);
        demand.color = colorNames.value(demand.wishes.color);
        demands.push_back(std::move(demand));
    }
    return demands;
}

}

std::optional<MatchingDemands> MatchingDemands::of(int carID, int database)
{
    CTblAutomobilInformations car(database);
    car.SetColumns({u"iCode"_s, u"iAutomobilType"_s, u"iColor"_s,
                    u"dAmount"_s, u"iYear"_s, u"bSold"_s});
    if (!car.IsRecordExist(u"iID"_s, carID))
        return std::nullopt;
    return of({car.m_iAutomobilType, car.m_iColor, car.m_iYear, car.m_dAmount, car.m_bSold != 0}, car.m_iCode, database);
}

MatchingDemands MatchingDemands::of(const OfferedCar &offer, int carCode, int database)
{
    CTblAutomobilInformations car(database);
    MatchingDemands matching;
    matching.carCode = carCode;
    matching.offer = offer;
    const KReadAhead reading(database);
    CTblAutomobilDemands demands(database);
    askFor(demands, offer);
    CDBSetting::ExpectDBServerDate();
    demands.expectOpen();
    KLookup::expectNames(car, u"iAutomobilType", {offer.automobilType});
    KLookup::expectNames(car, u"iColor", {offer.color});
    matching.type = KLookup::name(car, u"iAutomobilType", offer.automobilType);
    matching.color = KLookup::name(car, u"iColor", offer.color);
    matching.demands = namedDemands(fittingDemands(demands, matching.offer), database);
    return matching;
}
