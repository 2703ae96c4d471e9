// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

#include <memory>
#include <thread>

using namespace Qt::StringLiterals;

class TestOfficeClosing : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static QString refusal()
    {
        try {
            OfficeClosing::requireOpen();
        } catch (const KAccountingError &error) {
            return error.userMessage();
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        GetDBSetting()->SetClosedDB(false);
        m_office->database.run(u"DELETE FROM Changes"_s);
    }

    void openDatabaseIsNotRefused() { QCOMPARE(refusal(), QString()); }

    void closedDatabaseIsRefused()
    {
        GetDBSetting()->SetClosedDB(true);
        QCOMPARE(refusal(), OfficeSettings::closedMessage());
    }

    void refusalNamesWhoClosedIt()
    {
        GetDBSetting()->SetClosedDB(true);
        KChangeLog::note(u"Properties:Database"_s, 0, KChange::Kind::Changed);
        QVERIFY2(refusal().startsWith(u"کاربر «admin» در "_s), qPrintable(refusal()));
    }

    // A unit that has been told that the database is open ends before anybody closes it.
    void nobodyClosesItUnderAUnitOfWork()
    {
        KTransaction unit;
        OfficeClosing::requireOpen();
        bool closed = false;
        std::thread other([&closed] {
            try {
                CTblTemp statement;
                statement.ExecuteQuery("SET innodb_lock_wait_timeout=1", true, true);
                GetDBSetting()->SetClosedDB(true);
                closed = true;
            } catch (const CMySQLException &) {
            }
        });
        other.join();
        QVERIFY(!closed);
        unit.commit();
        QCOMPARE(refusal(), QString());
    }
};

static const RegisteredTest<TestOfficeClosing, KApplication> registeredOfficeClosing;

#include "TestOfficeClosing.moc"
