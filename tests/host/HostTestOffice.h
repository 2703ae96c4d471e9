// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/TestDatabase.h"

#include <QTemporaryDir>
#include <QWidget>

using namespace Qt::StringLiterals;

// An office for tests of the host's windows: the suite's tables, the administrator "admin" with the password "secret" at
// work, settings in a folder of the test's own, and no message box that waits for anybody.
class HostTestOffice
{
public:
    HostTestOffice()
    {
        CTblUsers::setHashCost(CTblUsers::leastCost());
        fresh();
    }
    ~HostTestOffice()
    {
        GetDBSetting()->Logout();
        silence(false);
    }

    // Everything as at the beginning.
    void fresh()
    {
        GetDBSetting()->Logout();
        database.recreate();
        SuiteSchema::upgrade();
        setSettingsFile(settings.filePath(u"settings%1.ini"_s.arg(++m_run)));
        admin = CTblUsers::create(u"admin"_s, u"secret"_s, u"مدیر"_s, true);
        GetDBSetting()->Login(admin);
        silence(false);
        silence(true);
    }

    // A user without any right, at work from now on.
    int loginClerk()
    {
        const int clerk = CTblUsers::create(u"clerk"_s, u"clerk1"_s, {}, false);
        GetDBSetting()->Login(clerk);
        return clerk;
    }

    TestDatabase database;
    QTemporaryDir settings;
    int admin = 0;

private:
    static void silence(bool on)
    {
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(on);
    }

    int m_run = 0;
};
