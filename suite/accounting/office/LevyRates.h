// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

class OfficeSettings;

// The office's rates of value-added tax and duty, as the settings of the contracts keep them for everybody. Percent, 0 to 100.
struct TZACCOUNTINGDATA_EXPORT LevyRates
{
    double tax = 0;
    double duty = 0;

    // Where they stand in Properties: among the settings of the contracts.
    static QString section();
    // Of settings that were read with that section. Rates that nobody has set are 0.
    static LevyRates of(const OfficeSettings &settings);
};
