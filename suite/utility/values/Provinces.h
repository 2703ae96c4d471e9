// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

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
// Whether the city is listed under any province.
TZVALUES_EXPORT bool isCity(const QString &city);

}
