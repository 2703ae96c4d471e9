// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/office/OfficeSettings.h"

// From when on the first page tells of what waits, for the whole office.
namespace TodaySettings {

inline constexpr OfficeSettings::Key unsettled{u"Today", u"iUnsettledDays"};
inline constexpr OfficeSettings::Key standing{u"Today", u"iStandingDays"};
inline constexpr int defaultUnsettledDays = 7;
inline constexpr int defaultStandingDays = 45;
inline constexpr int mostDays = 999;

inline QString section()
{
    return unsettled.section.toString();
}

// Of settings that were read along with the section.
TZACCOUNTINGDATA_EXPORT int unsettledDays(const OfficeSettings &settings);
TZACCOUNTINGDATA_EXPORT int standingDays(const OfficeSettings &settings);

}
