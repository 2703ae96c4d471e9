// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "suite/accounting/CTblMultiItems.h"
#include "tests/office/TestOffice.h"

#include <functional>

// Rows that the tests of demands and cars begin with.
namespace CarTestRecords {

inline void clear(TestOffice &office)
{
    office.clear();
    for (const char *table : {"AutomobilDemands", "AutomobilInformations", "CarBrands", "CarModels", "CarClasses", "Items", "Alarms"})
        office.database().run(QStringLiteral("DELETE FROM ") + QLatin1String(table));
}

inline int addBrand(const QString &name)
{
    CTblCarBrands brand;
    brand.AddNew();
    brand.m_sName = name;
    brand.Update(true);
    return static_cast<int>(brand.GetLastInsertedID());
}

inline int addDemand(const std::function<void(CTblAutomobilDemands &)> &set)
{
    CTblAutomobilDemands demand;
    demand.AddNew();
    demand.m_iCode = CTblAutomobilDemands::nextCode();
    demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
    set(demand);
    demand.Update(true);
    return static_cast<int>(demand.GetLastInsertedID());
}

inline int addCar(const std::function<void(CTblAutomobilInformations &)> &set)
{
    CTblAutomobilInformations car;
    car.AddNew();
    car.m_iCode = CTblAutomobilInformations::nextCode();
    set(car);
    car.Update(true);
    return static_cast<int>(car.GetLastInsertedID());
}

}
