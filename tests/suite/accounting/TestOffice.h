// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/TestDatabase.h"

#include <QTemporaryDir>

// A fresh office: the suite's tables, an administrator who is logged in, a second user without rights, settings of its own,
// and messages answered in advance.
struct TestOffice
{
    TestDatabase database;
    QTemporaryDir folder;
    int admin = 0;
    int clerk = 0;

    TestOffice()
    {
        setSettingsFile(folder.filePath(QStringLiteral("settings.ini")));
        SuiteSchema::upgrade();
        CTblUsers::setHashCost(CTblUsers::leastCost());
        admin = CTblUsers::create(QStringLiteral("admin"), QStringLiteral("secret"), QStringLiteral("مدیر"), true);
        clerk = CTblUsers::create(QStringLiteral("clerk"), QStringLiteral("secret"), QString(), false);
        GetDBSetting()->Login(admin);
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
    }

    // Key of a new person with that shown name.
    int addPerson(const QString &name)
    {
        database.run(QStringLiteral("INSERT INTO Persons(sName2) VALUES('%1')").arg(name));
        return database.value(QStringLiteral("SELECT MAX(iID) FROM Persons")).toInt();
    }
};
