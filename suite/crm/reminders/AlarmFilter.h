// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QString>

struct AlarmFilter
{
    int userID = 0;
    QString text; // as KEdit::queryText gives it; empty: any
    bool withDone = false;
};

// The run of clauses for a list of reminders, each beginning with " AND ".
TZCRMDATA_EXPORT QString alarmFilter(const AlarmFilter &filter);
