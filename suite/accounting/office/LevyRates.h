// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

// The office's rates of value-added tax and duty, as the settings of the contracts keep them for everybody. Percent, 0 to 100.
struct TZACCOUNTINGDATA_EXPORT LevyRates
{
    double tax = 0;
    double duty = 0;

    // Rates that nobody has set are 0.
    static LevyRates load(int database = 0);
};
