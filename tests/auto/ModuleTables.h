// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/schema/SchemaUpgrade.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "tests/support/TestDatabase.h"

// A fresh database with the tables of the suite and the module, as the host prepares it.
inline void prepareModuleTables(TestDatabase &database)
{
    database.recreate();
    SuiteSchema::upgrade();
    double reached = 0;
    SchemaUpgrade::run(0, 0, reached, true);
    SuiteSchema::afterModuleUpgrade();
}
