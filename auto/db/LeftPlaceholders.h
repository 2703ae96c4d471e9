// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Removes what programs that have died left behind.
namespace LeftPlaceholders {

// Deletes each contract, car and demand that was begun with "جديد" in a program that has died since, with its document, files,
// custom fields, instalments and reminders; how many. One that is open, or that somebody is saving at this moment, stays. Nobody
// has asked for it, so an error goes to the log and what is left is tried again the next time. Nothing in a closed database.
int remove(int database = 0);

}
