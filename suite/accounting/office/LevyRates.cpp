// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/LevyRates.h"

#include "suite/accounting/office/CTblProperties.h"

LevyRates LevyRates::load(int database)
{
    const QString section = QStringLiteral("AutomobilContracts");
    // Stored under this spelling in every database.
    return {CTblProperties::DBReadSetting(section, QStringLiteral("dPrecentTax"), 0.0, database),
            CTblProperties::DBReadSetting(section, QStringLiteral("dPercentImposition"), 0.0, database)};
}
