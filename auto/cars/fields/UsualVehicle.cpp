// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/UsualVehicle.h"

#include "suite/utility/values/ShamsiDate.h"

bool UsualVehicle::isYear(int year, const QDate &today)
{
    constexpr int firstShamsi = 1300;
    constexpr int firstOrdinary = 1920;
    // A new model is sold before its year begins.
    return year == 0 || (year >= firstShamsi && year <= GetShamsi(today).year + 1)
        || (year >= firstOrdinary && year <= today.year() + 1);
}

bool UsualVehicle::isWheelCount(int wheels)
{
    constexpr int most = 12;
    return wheels <= most;
}
