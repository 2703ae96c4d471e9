// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/AlarmFilter.h"

QString alarmFilter(const AlarmFilter &filter)
{
    QString clauses = QStringLiteral(" AND iUserID=%1").arg(filter.userID);
    if (!filter.withDone)
        clauses += QStringLiteral(" AND iStatus=0");
    if (!filter.text.isEmpty())
        clauses += QStringLiteral(" AND sDesc LIKE '%") + filter.text + QStringLiteral("%'");
    return clauses;
}
