// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/DueDays.h"

#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString DueDays::name(int span)
{
    switch (span) {
    case UpToToday: return u"سررسید شده"_s;
    case Today: return u"سررسید امروز"_s;
    case ThisWeek: return u"سررسید این هفته"_s;
    case Overdue: return u"معوق"_s;
    default: return u"همه پرداخت نشده‌ها"_s;
    }
}

DueDays::Range DueDays::range(int span, const QDate &today)
{
    switch (span) {
    case UpToToday: return {{}, today};
    case Today: return {today, today};
    case ThisWeek: {
        const QDate saturday = today.addDays(-shamsiDayOfWeek(today));
        return {saturday, saturday.addDays(6)};
    }
    case Overdue: return {{}, today.addDays(-1)};
    default: return {};
    }
}

int DueDays::overdue(const QDate &due, const QDate &today)
{
    return due.isValid() ? static_cast<int>(std::max<qint64>(due.daysTo(today), 0)) : 0;
}
