// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/AlarmFilter.h"

using namespace Qt::StringLiterals;

QString alarmFilter(const AlarmFilter &filter)
{
    QString clauses = u" AND iUserID=%1"_s.arg(filter.userID);
    if (!filter.withDone)
        clauses += u" AND iStatus=0"_s;
    if (!filter.text.isEmpty())
        clauses += u" AND sDesc LIKE '%"_s + filter.text + u"%'"_s;
    return clauses;
}
