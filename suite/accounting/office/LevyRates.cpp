// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/LevyRates.h"

#include "suite/accounting/office/OfficeSettings.h"

using namespace Qt::StringLiterals;

QString LevyRates::section()
{
    return u"AutomobilContracts"_s;
}

LevyRates LevyRates::of(const OfficeSettings &settings)
{
    // Stored under this spelling in every database.
    return {settings.number(section(), u"dPrecentTax"_s, 0),
            settings.number(section(), u"dPercentImposition"_s, 0)};
}
