// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"

#include <QString>

// The kinds of short named values that cars and contracts choose from. Each is one item type of the suite's Items; the one
// table that pairs them is in InputParameters.cpp.
namespace InputParameters {

// Positions in WordLists::inputParameterTypes, which has the captions.
enum Option {
    CylinderCount,
    Source,
    BodyStatus,
    Accessory,
    DeliveredDocument,
    Feature,
    EngineVolume,
    Color,
    WheelCount,
    Clause,
    ClearanceCustoms,
    Capacity,
    System
};
constexpr int optionCount = System + 1;

constexpr bool isOption(int option)
{
    return option >= 0 && option < optionCount;
}

// The item type (CTblItems::type...) of an option; 0, which no item has, for any other number.
int itemType(int option);
// Empty for a number that is no option.
QString caption(int option);

// Condition for CTblItems::m_filter: the values of the option.
KSql valuesFilter(int option);

}
