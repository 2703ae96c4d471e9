// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/reminders/CTblAlarm.h"

#include <functional>

// Reminders of a test, by minutes from the server's now.
namespace Alarms {

inline int add(int userID, int minutesFromNow, const QString &desc, const std::function<void(CTblAlarm &)> &more = {})
{
    CTblAlarm alarm;
    alarm.AddNew();
    alarm.m_iUserID = userID;
    alarm.m_date = GetDBSetting()->GetDBServerDate().addSecs(minutesFromNow * 60);
    alarm.m_sDesc = desc;
    if (more)
        more(alarm);
    alarm.Update(true);
    return static_cast<int>(alarm.GetLastInsertedID());
}

inline void repeats(CTblAlarm &alarm)
{
    alarm.m_bRepeat = 1;
}

}
