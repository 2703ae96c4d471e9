// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/settings/ContractSettings.h"

#include "suite/db/KTransaction.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/utility/values/Money.h"

namespace {

const QString section = QStringLiteral("AutomobilContracts");
const QString dutyKey = QStringLiteral("dPercentImposition");
const QString taxKey = QStringLiteral("dPrecentTax"); // stored under this spelling in every database
const QString thirdInUseKey = QStringLiteral("bTransactionAmount");
const QString demandsKey = QStringLiteral("bDemands");
const QString daysKey = QStringLiteral("iDay");

struct TierKeys
{
    QString ceiling;
    QString percent;
};

const std::array<TierKeys, 3> tierKeys{{
    {QStringLiteral("dTransactionAmount"), QStringLiteral("dPercentCommission")},
    {QStringLiteral("dTransactionAmount2"), QStringLiteral("dPercentCommission2")},
    {QStringLiteral("dTransactionAmount3"), QStringLiteral("dPercentCommission3")},
}};

bool isAbove(double first, double second)
{
    return first > second && !IsEquals(first, second);
}

}

ContractSettings ContractSettings::load(int database)
{
    ContractSettings settings;
    settings.dutyPercent = CTblProperties::DBReadSetting(section, dutyKey, 0.0, database);
    settings.taxPercent = CTblProperties::DBReadSetting(section, taxKey, 0.0, database);
    for (std::size_t tier = 0; tier < tierKeys.size(); ++tier) {
        settings.tiers.ceilings[tier] = CTblProperties::DBReadSetting(section, tierKeys[tier].ceiling, 0.0, database);
        settings.tiers.percents[tier] = CTblProperties::DBReadSetting(section, tierKeys[tier].percent, 0.0, database);
    }
    settings.tiers.thirdInUse = CTblProperties::DBReadSettingInt(section, thirdInUseKey, 0, database) != 0;
    settings.archiveDemands = CTblProperties::DBReadSettingInt(section, demandsKey, 0, database) != 0;
    settings.demandDays = CTblProperties::DBReadSettingInt(section, daysKey, 0, database);
    return settings;
}

void ContractSettings::save(int database) const
{
    KTransaction transaction(database);
    CTblProperties::DBWriteSetting(section, dutyKey, dutyPercent, database);
    CTblProperties::DBWriteSetting(section, taxKey, taxPercent, database);
    for (std::size_t tier = 0; tier < tierKeys.size(); ++tier)
        CTblProperties::DBWriteSetting(section, tierKeys[tier].ceiling, tiers.ceilings[tier], database);
    for (std::size_t tier = 0; tier < tierKeys.size(); ++tier)
        CTblProperties::DBWriteSetting(section, tierKeys[tier].percent, tiers.percents[tier], database);
    CTblProperties::DBWriteSettingInt(section, daysKey, demandDays, database);
    CTblProperties::DBWriteSettingInt(section, thirdInUseKey, tiers.thirdInUse ? 1 : 0, database);
    CTblProperties::DBWriteSettingInt(section, demandsKey, archiveDemands ? 1 : 0, database);
    transaction.commit();
}

ContractSettings::Problem ContractSettings::check() const
{
    const auto &[first, second, third] = tiers.ceilings;
    const bool secondUnused = IsEquals(second, 0) && (IsEquals(third, 0) || !tiers.thirdInUse);
    if (!secondUnused && isAbove(first, second))
        return Problem::SecondTierBelowFirst;
    if (!IsEquals(third, 0) && (isAbove(second, third) || isAbove(first, third)))
        return Problem::ThirdTierBelowOthers;
    return Problem::None;
}
