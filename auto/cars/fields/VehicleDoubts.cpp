// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/VehicleDoubts.h"

#include "auto/cars/fields/ParameterNumber.h"
#include "auto/cars/fields/UsualVehicle.h"
#include "suite/utility/entries/KEdit.h"

using namespace Qt::StringLiterals;

QList<KForm::Problem> vehicleDoubts(KEdit *year, KEdit *wheels)
{
    const int builtIn = parameterNumber(year->text()).value_or(0);
    const int wheelCount = parameterNumber(wheels->text()).value_or(0);
    QList<KForm::Problem> doubts;
    if (!UsualVehicle::isYear(builtIn, QDate::currentDate()))
        doubts.append({year, u"سال تولید %1 معمول نیست."_s.arg(builtIn)});
    if (!UsualVehicle::isWheelCount(wheelCount))
        doubts.append({wheels, u"تعداد چرخ %1 معمول نیست."_s.arg(wheelCount)});
    return doubts;
}
