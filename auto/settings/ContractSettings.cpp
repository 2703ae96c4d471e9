// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/settings/ContractSettings.h"

#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

const QString dutyKey = u"dPercentImposition"_s;
const QString taxKey = u"dPrecentTax"_s; // stored under this spelling in every database
const QString thirdInUseKey = u"bTransactionAmount"_s;
const QString demandsKey = u"bDemands"_s;
const QString daysKey = u"iDay"_s;
const QString levySeparateKey = u"bLevySeparate"_s;
const QString postPlanKey = u"bPostPlan"_s;
const QString lateFeeKey = u"dLateFeePercent"_s;
const QString lateGraceKey = u"iLateFeeGrace"_s;

struct TierKeys
{
    QString ceiling;
    QString percent;
};

const std::array<TierKeys, 3> tierKeys{{
    {u"dTransactionAmount"_s, u"dPercentCommission"_s},
    {u"dTransactionAmount2"_s, u"dPercentCommission2"_s},
    {u"dTransactionAmount3"_s, u"dPercentCommission3"_s},
}};

bool isAbove(double first, double second)
{
    return first > second && !IsEquals(first, second);
}

}

QString ContractSettings::section()
{
    return u"AutomobilContracts"_s;
}

ContractSettings ContractSettings::of(const OfficeSettings &settings)
{
    const auto number = [&settings](const QString &key) { return settings.number(section(), key, 0); };
    const auto integer = [&settings](const QString &key) { return settings.integer(section(), key, 0); };
    ContractSettings found;
    found.dutyPercent = number(dutyKey);
    found.taxPercent = number(taxKey);
    for (std::size_t tier = 0; tier < tierKeys.size(); ++tier) {
        found.tiers.ceilings[tier] = number(tierKeys[tier].ceiling);
        found.tiers.percents[tier] = number(tierKeys[tier].percent);
    }
    found.tiers.thirdInUse = integer(thirdInUseKey) != 0;
    found.archiveDemands = integer(demandsKey) != 0;
    found.demandDays = integer(daysKey);
    found.levySeparate = integer(levySeparateKey) != 0;
    found.postPlan = integer(postPlanKey) != 0;
    found.lateFeePercent = number(lateFeeKey);
    found.lateFeeGrace = integer(lateGraceKey);
    return found;
}

ContractSettings ContractSettings::load(int database)
{
    return of(OfficeSettings::read({section()}, database));
}

QList<ContractSettings::Part> ContractSettings::parts() const
{
    QList<Part> parts;
    const auto add = [&parts](const QString &key, const QString &caption, double value) {
        // 17 significant digits bring every double back as it was.
        parts.append({key, caption, QString::number(value, 'g', 17)});
    };
    add(dutyKey, u"عوارض"_s, dutyPercent);
    add(taxKey, u"ماليات"_s, taxPercent);
    for (std::size_t tier = 0; tier < tierKeys.size(); ++tier)
        add(tierKeys[tier].ceiling, u"مبلغ پله %1"_s.arg(tier + 1), tiers.ceilings[tier]);
    for (std::size_t tier = 0; tier < tierKeys.size(); ++tier)
        add(tierKeys[tier].percent, u"درصد پله %1"_s.arg(tier + 1), tiers.percents[tier]);
    add(daysKey, u"روزهای بایگانی تقاضا"_s, demandDays);
    add(thirdInUseKey, u"پله سوم"_s, tiers.thirdInUse ? 1 : 0);
    add(demandsKey, u"بایگانی تقاضاها"_s, archiveDemands ? 1 : 0);
    add(levySeparateKey, u"ماليات و عوارض جدا از پرداختي دريافت شود"_s, levySeparate ? 1 : 0);
    add(postPlanKey, u"ثبت فروش اقساطی در دفاتر"_s, postPlan ? 1 : 0);
    add(lateFeeKey, u"درصد جریمه دیرکرد"_s, lateFeePercent);
    add(lateGraceKey, u"روزهای مهلت جریمه دیرکرد"_s, lateFeeGrace);
    return parts;
}

QList<QStringList> ContractSettings::keysTogether()
{
    QStringList tiers{thirdInUseKey};
    for (const TierKeys &tier : tierKeys)
        tiers.append({tier.ceiling, tier.percent});
    return {tiers, {demandsKey, daysKey}, {lateFeeKey, lateGraceKey}};
}

void ContractSettings::requireRight()
{
    const QString contracts = u"AutomobilContracts"_s;
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(contracts, KSecurity::Modify))
        throw KAccountingError(KSecurity::refusalText(contracts, KSecurity::Modify));
}

void ContractSettings::save(int database) const
{
    requireRight();
    KTransaction transaction(database);
    for (const Part &part : parts())
        CTblProperties::DBWriteSetting(section(), part.key, part.text, database);
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
