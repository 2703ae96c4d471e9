// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/MatchingCars.h"

#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
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

std::vector<FittingCar> fittingCars(const DemandWishes &wishes, int database)
{
    CTblAutomobilInformations cars(database);
    cars.SetColumns({u"iCode"_s, u"iPersonID"_s, u"iAutomobilType"_s,
                     u"iBrigade"_s, u"iModel"_s, u"iColor"_s,
                     u"sNumOfPlates"_s, u"dAmount"_s, u"iYear"_s, u"bSold"_s});
    cars.m_filter = "iArchiveUserID=0 AND iStatus=0 AND " + Placeholders::none(cars.GetTableName());
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

// One statement for the names behind one column of all the cars.
template <class Key>
QHash<int, QString> namesOf(const std::vector<FittingCar> &found, CTblAutomobilInformations &record, QStringView column, const Key &key)
{
    QList<int> keys;
    keys.reserve(static_cast<qsizetype>(found.size()));
    for (const FittingCar &entry : found)
        keys.append(key(entry));
    return KLookup::names(record, column, keys);
}

std::vector<MatchingCars::Car> namedCars(std::vector<FittingCar> found, int database)
{
    CTblAutomobilInformations record(database);
    const auto types = namesOf(found, record, u"iAutomobilType", [](const FittingCar &f) { return f.car.offer.automobilType; });
    const auto models = namesOf(found, record, u"iModel", [](const FittingCar &f) { return f.model; });
    const auto classes = namesOf(found, record, u"iBrigade", [](const FittingCar &f) { return f.carClass; });
    const auto colors = namesOf(found, record, u"iColor", [](const FittingCar &f) { return f.car.offer.color; });
    const auto owners = namesOf(found, record, u"iPersonID", [](const FittingCar &f) { return f.owner; });
    std::vector<MatchingCars::Car> cars;
    cars.reserve(found.size());
    for (FittingCar &entry : found) {
        MatchingCars::Car &car = entry.car;
        car.type = types.value(car.offer.automobilType);
        car.model = models.value(entry.model);
        car.carClass = classes.value(entry.carClass);
        car.color = colors.value(car.offer.color);
        car.owner = owners.value(entry.owner);
        cars.push_back(std::move(car));
    }
    return cars;
}

}

std::optional<MatchingCars> MatchingCars::of(int demandID, int database)
{
    CTblAutomobilDemands demand(database);
    if (!demand.IsRecordExist(u"iID"_s, demandID))
        return std::nullopt;
    MatchingCars matching;
    matching.demandCode = demand.m_iCode;
    matching.wishes = {demand.m_iAutomobilType, demand.m_iColor, demand.m_iModelFrom,
                       demand.m_iModelUpTo, demand.m_dAmountFrom, demand.m_dAmountUpTo};
    matching.latestDate = demand.m_dateMaxTimeNeed;
    matching.overdue = isOver(demand.m_dateMaxTimeNeed, GetDBSetting()->GetDBServerDate().date());
    matching.person = KLookup::name(demand, u"iPersonID");
    matching.type = KLookup::name(demand, u"iAutomobilType");
    matching.color = KLookup::name(demand, u"iColor");
    matching.cars = namedCars(fittingCars(matching.wishes, database), database);
    return matching;
}
