// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

// What waits for the people of the demo office this morning, and who they are: users of several roles, reminders, promised payments,
// birthdays, ending insurances, demands that yesterday's cars fit, custom fields and files.
namespace DemoToday {

// Once everything else is there. The users' passwords are their names. Belongs inside a transaction.
void write(int managerID, const QDate &today, int database);

}
