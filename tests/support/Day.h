// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

// A day of the ordinary calendar as a column holds it, at its start or that hour.
inline QDateTime day(int year, int month, int dayOfMonth, int hour = 0)
{
    return QDateTime(QDate(year, month, dayOfMonth), QTime(hour, 0), Qt::UTC);
}
