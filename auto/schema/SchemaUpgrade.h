// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Brings the module's tables to the current schema version, step by step.
namespace SchemaUpgrade {

// Version of the last step.
inline constexpr double currentVersion = 6.211;

// Runs every step above storedVersion in ascending order. reachedVersion follows each step that completed and starts at
// storedVersion. What a step did before it failed stays done; run again, a step drops and recreates its tables, and its
// ALTER TABLE is run with alterFlag as KMySQL::ExecuteQuery's first flag. With alterFlag false, as for a step that was broken off, a
// table that holds rows is kept instead of made again. Throws CMySQLException.
void run(int database, double storedVersion, double &reachedVersion, bool alterFlag);

}
