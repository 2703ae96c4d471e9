// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// This program among those that work on a database. A session is known by a key of its own and lives as long as its program: what
// a program has begun and not finished is marked with the key, so that others can tell what is being worked on from what was
// left behind. Used on the user-interface thread.
namespace OfficeSession {

// The key of this program's session on the database, 36 characters. The session begins with the first call, and anew when others
// have come to take it for dead. Not within a transaction. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT QString key(int database = 0);
// The name of the lease by which others see this program's session; empty: it has none on that database.
TZACCOUNTINGDATA_EXPORT QString leaseOf(int database = 0);
// Whether the program of that session still runs.
TZACCOUNTINGDATA_EXPORT bool isAlive(const QString &key, int database = 0);
// Ends the sessions on all databases: at the end of the program, or when its user logs out.
TZACCOUNTINGDATA_EXPORT void end();

}
