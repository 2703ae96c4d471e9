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

using namespace Qt::StringLiterals;

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
        setSettingsFile(folder.filePath(u"settings.ini"_s));
        SuiteSchema::upgrade();
        CTblUsers::setHashCost(CTblUsers::leastCost());
        admin = CTblUsers::create(u"admin"_s, u"secret"_s, u"مدیر"_s, true);
        clerk = CTblUsers::create(u"clerk"_s, u"secret"_s, QString(), false);
        GetDBSetting()->Login(admin);
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
    }

    // Key of a new person with that shown name.
    int addPerson(const QString &name)
    {
        database.run(u"INSERT INTO Persons(sName2) VALUES('%1')"_s.arg(name));
        return database.value(u"SELECT MAX(iID) FROM Persons"_s).toInt();
    }
};
