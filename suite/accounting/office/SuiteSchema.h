// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/office/OfficeKeys.h"

// The suite's own tables, created and upgraded by numbered steps. The number reached stands in Properties (section "Schema",
// key "Suite"), beside the version that the dealership module reached (key "TzAuto").
class TZACCOUNTINGDATA_EXPORT SuiteSchema
{
public:
    // Runs every step that the database has not had, in order, and stores each number as it is reached; a step that fails is run again
    // next time. Two programs at once do no harm, but one of them may fail: DatabaseUpgrade lets one go first. Throws CMySQLException, or KAccountingError when the database comes from a newer program.
    static void upgrade(int database = 0);
    // To be called after the module's own upgrade: adds what the suite needs in the module's tables, and the indexes of all. Does
    // nothing a second time.
    static void afterModuleUpgrade(int database = 0, const OfficeKeys::Progress &progress = {});
    static bool isClosingStepDue(int database = 0);

    // Number of the last step that this program knows.
    static int currentVersion();
    // Number of the last step that the database has had; 0 for an empty database.
    static int storedVersion(int database = 0);
    // False for an empty database, and for one that lost the number or its table.
    static bool isVersionStored(int database = 0);

    // The version that the module reached, 0 when it never ran.
    static double moduleVersion(int database = 0);
    static bool isModuleVersionStored(int database = 0);
    // Stores the version unless a higher one is stored already.
    static void raiseModuleVersion(double version, int database = 0);
};
