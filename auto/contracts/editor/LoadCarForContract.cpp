// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/LoadCarForContract.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "suite/db/records/KLookup.h"
#include "suite/crm/persons/CTblPersons.h"

using namespace Qt::StringLiterals;

std::optional<CarForContract> loadCarForContract(int carID, int database)
{
    CTblAutomobilInformations car(database);
    car.SetColumns({u"iPersonID"_s, u"iAutomobilType"_s, u"iModel"_s, u"iBrigade"_s, u"iSystem"_s,
                    u"iColor"_s, u"sNumOfEngines"_s, u"sChassisNum"_s, u"sVIN"_s, u"sNumOfPlates"_s,
                    u"sDocumentsDelivered"_s, u"sDesc"_s, u"iYear"_s, u"iNumOFAxles"_s, u"iNumOfWheels"_s,
                    u"iUsageType"_s, u"iFuel"_s, u"dAmount"_s});
    if (!car.IsRecordExist(u"iID"_s, carID))
        return std::nullopt;
    CarForContract result;
    result.brand = KLookup::name(car, u"iAutomobilType");
    result.model = KLookup::name(car, u"iModel");
    result.carClass = KLookup::name(car, u"iBrigade");
    result.system = KLookup::name(car, u"iSystem");
    result.color = KLookup::name(car, u"iColor");
    result.engineNumber = car.m_sNumOfEngines;
    result.chassisNumber = car.m_sChassisNum;
    result.vin = car.m_sVIN;
    result.plate = car.m_sNumOfPlates;
    result.documentsDelivered = car.m_sDocumentsDelivered;
    result.description = car.m_sDesc;
    result.year = car.m_iYear;
    result.axles = car.m_iNumOFAxles;
    result.wheels = car.m_iNumOfWheels;
    result.usageType = car.m_iUsageType;
    result.fuel = car.m_iFuel;
    result.price = car.m_dAmount;
    CTblPersons owner(database);
    if (owner.IsRecordExist(u"iID"_s, car.m_iPersonID))
        result.ownerID = car.m_iPersonID;
    return result;
}
