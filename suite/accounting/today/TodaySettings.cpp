// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/today/TodaySettings.h"

#include <algorithm>

namespace {

int days(const OfficeSettings &settings, const OfficeSettings::Key &key, int defaultDays)
{
    return std::clamp(settings.integer(key.section.toString(), key.key.toString(), defaultDays), 0, TodaySettings::mostDays);
}

}

int TodaySettings::unsettledDays(const OfficeSettings &settings)
{
    return days(settings, unsettled, defaultUnsettledDays);
}

int TodaySettings::standingDays(const OfficeSettings &settings)
{
    return days(settings, standing, defaultStandingDays);
}
