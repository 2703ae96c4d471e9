// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandArchiving.h"

#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/db/connection/KTransaction.h"

int DemandArchiving::archiveOldOnes(int userID, int database)
{
    const ContractSettings settings = ContractSettings::load(database);
    if (!settings.archiveDemands || settings.demandDays <= 0)
        return 0;
    int archived = 0;
    // Demands may be saved elsewhere meanwhile.
    KTransaction::runReplayable(
        [&] { archived = CTblAutomobilDemands::archiveOlderThan(settings.demandDays, userID, database); }, database);
    return archived;
}
