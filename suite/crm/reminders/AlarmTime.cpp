// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/AlarmTime.h"

#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 secondsOfAnHour = 3600;

QDateTime at(const QDate &day, const QTime &time)
{
    return QDateTime(day, QTime(time.hour(), time.minute()), Qt::UTC);
}

}

QString AlarmTime::text(const QDateTime &date)
{
    return date.isValid() ? u"%1 ساعت %2"_s.arg(shamsiText(date.date()), timeOfDay(date)) : QString();
}

QString AlarmTime::timeOfDay(const QDateTime &date)
{
    return date.isValid() ? date.time().toString(u"HH:mm"_s) : QString();
}

QDateTime AlarmTime::proposed(const QDateTime &now)
{
    return at(now.date().addDays(1), QTime(9, 0));
}

QDateTime AlarmTime::postponed(const QDateTime &date, const QDateTime &now, Delay delay)
{
    switch (delay) {
    case Delay::OneHour: {
        const QDateTime later = now.addSecs(secondsOfAnHour);
        return at(later.date(), later.time());
    }
    case Delay::Tomorrow:
        return at(now.date().addDays(1), date.time());
    case Delay::ThreeDays:
        return at(now.date().addDays(3), date.time());
    case Delay::OneWeek:
        return at(now.date().addDays(7), date.time());
    }
    Q_UNREACHABLE();
}
