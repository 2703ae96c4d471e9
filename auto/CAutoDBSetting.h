// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/TzAutoExport.h"

// The single interface between the host and the module: opens the module's main windows and keeps its tables at the current
// version. It holds no state. The operations are virtual so that a host that loaded the module at run time calls them
// through the object that GetAutoDBSetting returns, without linking the module.
//
// All operations belong to the user-interface thread.
class TZAUTO_EXPORT CAutoDBSetting
{
public:
    CAutoDBSetting();
    CAutoDBSetting(const CAutoDBSetting &) = delete;
    virtual ~CAutoDBSetting();
    // Does nothing and returns this object: there is no state to take over.
    CAutoDBSetting &operator=(const CAutoDBSetting &other);

    // 1 when the suite's current database is a closed one (nothing may be changed any more), else 0.
    virtual int IsAClosedDB();

    // Creates and upgrades the module's tables in the suite's database with that number.
    // storedVersion: schema version that the database had before, 0 for a fresh one. reachedVersion: on return the
    // version of the last step that completed, storedVersion if none ran; the host stores it, also after a failure.
    // alterFlag: passed to KMySQL::ExecuteQuery as its first flag for every ALTER TABLE; false lets a half-run step pass
    // over columns that are there already.
    // 1: all due steps ran; 0: a database error stopped the upgrade and has been shown.
    virtual int UpdateDB(int database, double storedVersion, double &reachedVersion, bool alterFlag);

    // Each call opens a new window; the three lists become tab pages of the host, the report is modal.
    virtual void ShowAutomobilInformationsDlg();
    virtual void ShowAutomobilContractDlg();
    virtual void ShowAutomobilDemandsDlg();
    virtual void ShowAutomobilReportSeasonsDlg();

    // Does nothing: archiving is done inside each list.
    virtual void Archives();

    // The overdue desk: the unpaid instalments of all contracts, as a tab page of the host. (Behind the others: a host may know these
    // operations by their positions.)
    virtual void ShowAutomobilPaymentsDlg();
};

// The module's single object; the same address on every call. Under C linkage, so that its name in the library is the
// same for every compiler.
extern "C" TZAUTO_EXPORT CAutoDBSetting *GetAutoDBSetting();
