// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QDateTime>
#include <QString>

// When reminders fall due, and how the time is written. All times are the office's wall clock, held in Qt::UTC.
namespace AlarmTime {

enum class Delay {
    OneHour,
    Tomorrow,
    ThreeDays,
    OneWeek
};

// "1405/08/29 ساعت 10:30"; empty for no date.
TZCRMDATA_EXPORT QString text(const QDateTime &date);
// "10:30"; empty for no date.
TZCRMDATA_EXPORT QString timeOfDay(const QDateTime &date);

// What a new reminder is set to: the next day at nine, when an office has opened.
TZCRMDATA_EXPORT QDateTime proposed(const QDateTime &now);
// An hour counts from now, to the minute; days count from today and keep the reminder's own time of day.
TZCRMDATA_EXPORT QDateTime postponed(const QDateTime &date, const QDateTime &now, Delay delay);

}
