// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/MatchingCars.h"

#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KLookup.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A car that fits, until its names are known.
struct FittingCar
{
    MatchingCars::Car car;
    int model = 0;
    int carClass = 0;
    int owner = 0;
};

// Those that may fit: of another brand than the one asked for none does, which an index tells. DemandMatch judges the rest.
void askFor(CTblAutomobilInformations &cars, const DemandWishes &wishes)
{
    cars.SetColumns({u"iCode"_s, u"iPersonID"_s, u"iAutomobilType"_s,
                     u"iBrigade"_s, u"iModel"_s, u"iColor"_s,
                     u"sNumOfPlates"_s, u"dAmount"_s, u"iYear"_s, u"bSold"_s});
    cars.m_filter = "iArchiveUserID=0 AND iStatus=0 AND " + Placeholders::none(cars.GetTableName());
    if (wishes.automobilType != 0)
        cars.m_filter = cars.m_filter + KSql::formatted(" AND iAutomobilType=%1", wishes.automobilType);
}

std::vector<FittingCar> fittingCars(CTblAutomobilInformations &cars, const DemandWishes &wishes)
{
    std::vector<FittingCar> found;
    for (cars.Open(true, true, true); !cars.IsEOF(); cars.MoveNext()) {
        const OfferedCar offer{cars.m_iAutomobilType, cars.m_iColor, cars.m_iYear, cars.m_dAmount, cars.m_bSold != 0};
        const auto match = DemandMatch::of(wishes, offer);
        if (!match)
            continue;
        found.push_back({{cars.m_iID, cars.m_iCode, *match, offer, {}, {}, {}, {}, cars.m_sNumOfPlates, {}},
                         cars.m_iModel,
                         cars.m_iBrigade,
                         cars.m_iPersonID});
    }
    std::sort(found.begin(), found.end(), [](const FittingCar &one, const FittingCar &other) {
        if (one.car.offer.sold != other.car.offer.sold)
            return other.car.offer.sold;
        return isBetterMatch(one.car.match, one.car.code, other.car.match, other.car.code);
    });
    return found;
}

// Where one column of a car stands in what was found.
using KeyOf = int (*)(const FittingCar &);

struct NamedColumn
{
    QStringView column;
    KeyOf key;
    QString MatchingCars::Car::*name;
};

constexpr NamedColumn namedColumns[] = {
    {u"iAutomobilType", [](const FittingCar &f) { return f.car.offer.automobilType; }, &MatchingCars::Car::type},
    {u"iModel", [](const FittingCar &f) { return f.model; }, &MatchingCars::Car::model},
    {u"iBrigade", [](const FittingCar &f) { return f.carClass; }, &MatchingCars::Car::carClass},
    {u"iColor", [](const FittingCar &f) { return f.car.offer.color; }, &MatchingCars::Car::color},
    {u"iPersonID", [](const FittingCar &f) { return f.owner; }, &MatchingCars::Car::owner},
};

QList<int> keysOf(const std::vector<FittingCar> &found, KeyOf key)
{
    QList<int> keys;
    keys.reserve(static_cast<qsizetype>(found.size()));
    for (const FittingCar &entry : found)
        keys.append(key(entry));
    return keys;
}

// One statement for the names behind one column of all the cars, and one packet for all columns.
std::vector<MatchingCars::Car> namedCars(std::vector<FittingCar> found, CTblAutomobilInformations &record)
{
    for (const NamedColumn &named : namedColumns)
        KLookup::expectNames(record, named.column, keysOf(found, named.key));
    for (const NamedColumn &named : namedColumns) {
        const QHash<int, QString> names = KLookup::names(record, named.column, keysOf(found, named.key));
        for (FittingCar &entry : found)
            entry.car.*named.name = names.value(named.key(entry));
    }
    std::vector<MatchingCars::Car> cars;
    cars.reserve(found.size());
    for (FittingCar &entry : found)
        cars.push_back(std::move(entry.car));
    return cars;
}

}

std::optional<MatchingCars> MatchingCars::of(int demandID, int database)
{
    const KReadAhead reading(database);
    CDBSetting::ExpectDBServerDate();
    CTblAutomobilDemands demand(database);
    if (!demand.IsRecordExist(u"iID"_s, demandID))
        return std::nullopt;
    MatchingCars matching;
    matching.demandCode = demand.m_iCode;
    matching.wishes = {demand.m_iAutomobilType, demand.m_iColor, demand.m_iModelFrom,
                       demand.m_iModelUpTo, demand.m_dAmountFrom, demand.m_dAmountUpTo};
    matching.latestDate = demand.m_dateMaxTimeNeed;
    matching.overdue = isOver(demand.m_dateMaxTimeNeed, GetDBSetting()->GetDBServerDate().date());
    CTblAutomobilInformations cars(database);
    askFor(cars, matching.wishes);
    cars.expectOpen();
    for (const QStringView column : {u"iPersonID", u"iAutomobilType", u"iColor"})
        KLookup::expectNames(demand, column, {demand.value(column).toInt()});
    matching.person = KLookup::name(demand, u"iPersonID");
    matching.type = KLookup::name(demand, u"iAutomobilType");
    matching.color = KLookup::name(demand, u"iColor");
    matching.cars = namedCars(fittingCars(cars, matching.wishes), cars);
    return matching;
}
