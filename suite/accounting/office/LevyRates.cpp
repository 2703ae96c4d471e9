// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/LevyRates.h"

#include "suite/accounting/office/OfficeSettings.h"

QString LevyRates::section()
{
    return QStringLiteral("AutomobilContracts");
}

LevyRates LevyRates::of(const OfficeSettings &settings)
{
    // Stored under this spelling in every database.
    return {settings.number(section(), QStringLiteral("dPrecentTax"), 0),
            settings.number(section(), QStringLiteral("dPercentImposition"), 0)};
}
