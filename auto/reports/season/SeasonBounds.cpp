// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonBounds.h"

#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

namespace {

constexpr int monthsOfSeason = 3;

KSql startOf(const QDate &day)
{
    return DateToSQL(day.isValid() ? QDateTime(day, QTime(0, 0), Qt::UTC) : QDateTime());
}

}

Season::Bounds Season::bounds(int season, int shamsiYear)
{
    if (season < 0 || season >= count)
        return {};
    const int firstMonth = season * monthsOfSeason + 1;
    const int lastMonth = firstMonth + monthsOfSeason - 1;
    return {ConvertToMiladi(shamsiYear, firstMonth, 1),
            ConvertToMiladi(shamsiYear, lastMonth, shamsiDaysInMonth(shamsiYear, lastMonth))};
}

int Season::ofMonth(int shamsiMonth)
{
    return std::max(0, shamsiMonth / monthsOfSeason - 1);
}

KSql Season::condition(const KSql &column, const Bounds &bounds)
{
    const QDate dayAfter = bounds.last.isValid() ? bounds.last.addDays(1) : QDate();
    return KSql::formatted("%1>=%2 AND %1<%3", column, startOf(bounds.first), startOf(dayAfter));
}
