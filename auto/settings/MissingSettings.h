// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/settings/ContractSettings.h"

// What an office that begins has not set yet, and a contract would silently do without.
struct MissingSettings
{
    bool tiers = false;      // no tier gives a commission
    bool levies = false;     // neither tax nor duty on the commission
    bool fiscalYear = false; // none was stored: the current year counts

    // Of settings that were read with the section of ContractSettings.
    static MissingSettings of(const OfficeSettings &settings);

    bool isAny() const { return tiers || levies || fiscalYear; }
    // What the contract settings can mend.
    bool isOfContracts() const { return tiers || levies; }
    // One line for each.
    QString inWords() const;
};
