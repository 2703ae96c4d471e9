// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/InputParameters.h"

#include "auto/words/WordLists.h"
#include "suite/accounting/office/CTblItems.h"

#include <array>

namespace InputParameters {

namespace {

// By option.
constexpr std::array<int, optionCount> itemTypes = {
    CTblItems::typeCylinderCount,     // CylinderCount
    CTblItems::typeSource,            // Source
    CTblItems::typeBodyStatus,        // BodyStatus
    CTblItems::typeAccessory,         // Accessory
    CTblItems::typeDeliveredDocument, // DeliveredDocument
    CTblItems::typeFeature,           // Feature
    CTblItems::typeEngineVolume,      // EngineVolume
    CTblItems::typeColor,             // Color
    CTblItems::typeWheelCount,        // WheelCount
    CTblItems::typeClause,            // Clause
    CTblItems::typeClearanceCustoms,  // ClearanceCustoms
    CTblItems::typeCapacity,          // Capacity
    CTblItems::typeSystem,            // System
};

}

int itemType(int option)
{
    return isOption(option) ? itemTypes[static_cast<size_t>(option)] : 0;
}

QString caption(int option)
{
    return WordLists::textAt(WordLists::inputParameterTypes(), option);
}

KSql valuesFilter(int option)
{
    return KSql::formatted(" iType=%1 ", itemType(option));
}

}
