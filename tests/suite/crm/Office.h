// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/TestDatabase.h"

#include <QTemporaryDir>

#include <functional>

using namespace Qt::StringLiterals;

// An office of a test's own: the suite's tables, settings in a folder that goes away, an administrator at work.
class Office
{
public:
    Office()
    {
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
        SuiteSchema::upgrade();
        CTblUsers::setHashCost(CTblUsers::leastCost());
        m_admin = CTblUsers::create(u"admin"_s, u"secret"_s, u"مدیر"_s, true);
        m_clerk = CTblUsers::create(u"clerk"_s, u"secret"_s, u"کارمند"_s, false);
        loginAdmin();
    }

    void loginAdmin() { GetDBSetting()->Login(m_admin); }
    void loginClerk() { GetDBSetting()->Login(m_clerk); }
    int clerk() const { return m_clerk; }

    void reset()
    {
        db.run(u"DELETE FROM Persons"_s);
        GetDBSetting()->SetClosedDB(false);
        loginAdmin();
        g_pDlgWarning->answerAll(false);
        g_pDlgYesNo->answerAll(false);
        g_pDlgWarning->answerAll(true);
        g_pDlgYesNo->answerAll(true);
    }

    static int addPerson(const QString &name, const QString &family, const std::function<void(CTblPersons &)> &fill = {})
    {
        CTblPersons person;
        person.Open(true, false, true);
        person.AddNew();
        person.m_iCode = CTblPersons::nextCode();
        person.m_sName = name;
        person.m_sFamily = family;
        if (fill)
            fill(person);
        person.Update(true);
        return static_cast<int>(person.GetLastInsertedID());
    }

    TestDatabase db;

private:
    QTemporaryDir m_folder;
    int m_admin = 0;
    int m_clerk = 0;
};
