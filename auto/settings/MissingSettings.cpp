// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/settings/MissingSettings.h"

#include "suite/accounting/office/OfficeSettings.h"

using namespace Qt::StringLiterals;

namespace {

bool hasTier(const CommissionTiers &tiers)
{
    for (std::size_t tier = 0; tier < tiers.ceilings.size(); ++tier) {
        const bool inUse = tier < 2 || tiers.thirdInUse;
        if (inUse && tiers.ceilings[tier] > 0 && tiers.percents[tier] > 0)
            return true;
    }
    return false;
}

}

MissingSettings MissingSettings::of(const OfficeSettings &settings)
{
    const ContractSettings found = ContractSettings::of(settings);
    const OfficeSettings::Key year = OfficeSettings::year;
    return {.tiers = !hasTier(found.tiers),
            .levies = found.taxPercent <= 0 && found.dutyPercent <= 0,
            .fiscalYear = settings.text(year.section.toString(), year.key.toString(), QString()).isEmpty()};
}

QString MissingSettings::inWords() const
{
    QStringList lines;
    if (tiers)
        lines << u"پله‌های کمیسیون: حق کمیسیون هر قرارداد باید دستی نوشته شود."_s;
    if (levies)
        lines << u"درصد مالیات و عوارض: برای هیچ طرفی مالیات و عوارضی حساب نمی‌شود."_s;
    if (fiscalYear)
        lines << u"سال مالی: سال جاری به کار می‌رود. در «تنظیمات» برنامه، برگه «سال مالی»، تعیین می‌شود."_s;
    return lines.join(u'\n');
}
