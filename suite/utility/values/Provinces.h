// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "suite/utility/values/TzValuesExport.h"

// The provinces of Iran and their main cities, as lists to choose from. A place that is not among them may still be typed
// where they are offered.
namespace Provinces {

// In alphabetical order.
TZVALUES_EXPORT QStringList names();
// The province's capital first. A name is found however its letters were typed (Arabic or Persian yeh and kaf); empty for
// one that is no province.
TZVALUES_EXPORT QStringList cities(const QString &province);
// The province's number by the Statistical Centre of Iran, by which the tax authority goes: 0 (مرکزی) to 30; -1 for a name that is
// no province's.
TZVALUES_EXPORT int code(const QString &province);

// Numbers of counties are the province's by this, and the county's own.
inline constexpr int countiesOfAProvince = 100;

struct County
{
    int code = 0;
    QString cities; // the listed ones that lie in it, the largest first
};
// The counties of the listed cities, in the order of the cities; empty for a number that is no province's.
TZVALUES_EXPORT QList<County> counties(int provinceCode);

// Whether the city is listed under any province.
TZVALUES_EXPORT bool isCity(const QString &city);

}
