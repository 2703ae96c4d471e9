// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

// A day as the date columns hold it: without a time, in the UTC that the records read and write.
inline QDateTime midnight(const QDate &day)
{
    return QDateTime(day, QTime(0, 0), Qt::UTC);
}
