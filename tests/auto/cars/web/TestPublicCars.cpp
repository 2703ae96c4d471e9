// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/PublicCars.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/records/KChangedValues.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QString carForm = u"AutomobilInformations"_s;

}

// Which cars strangers may see: who says so, from which desk, and which of them they see.
class TestPublicCars : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void run(const QString &statement) { m_office->database().run(statement); }
    QString ticked() { return value(u"SELECT COALESCE(GROUP_CONCAT(iCarID ORDER BY iCarID),'') FROM PublicCars"_s); }
    int notes(int car) { return value(u"SELECT COUNT(*) FROM Changes WHERE sTable='AutomobilInformations' AND iRecordID=%1 AND sValues LIKE '%نمایش در وب%'"_s.arg(car)).toInt(); }
    int addCar(const QString &set = {})
    {
        const int key = m_office->addCar();
        if (!set.isEmpty())
            run(u"UPDATE AutomobilInformations SET %1 WHERE iID=%2"_s.arg(set).arg(key));
        return key;
    }

    static QString refusal(const std::function<void()> &work)
    {
        try {
            work();
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
        m_office->clear();
        run(u"DELETE FROM Changes"_s);
    }

    void ticksComeAndGoAndAreNotedOfTheCar()
    {
        const int a = addCar();
        const int b = addCar();
        QCOMPARE(PublicCars::set({a, b}, true), 2);
        QCOMPARE(PublicCars::among({a, b, 999999}), (QSet<qint32>{a, b}));
        QCOMPARE(value(u"SELECT iUserID FROM PublicCars WHERE iCarID=%1"_s.arg(a)).toInt(), m_office->adminID());
        QCOMPARE(PublicCars::set({a}, false), 1);
        QCOMPARE(ticked(), QString::number(b));
        QCOMPARE(notes(a), 2);
        QCOMPARE(notes(b), 1);
        const QList<KChangedValue> last = KChangedValues::fromJson(value(u"SELECT sValues FROM Changes ORDER BY iID DESC LIMIT 1"_s).toUtf8());
        QCOMPARE(last.size(), 1);
        QCOMPARE(last.constFirst().before.toString(), u"بلی"_s);
        QCOMPARE(last.constFirst().after.toString(), u"خیر"_s);
    }

    // The second time there is nothing to do, and nothing is noted.
    void pressedTwiceIsOnce()
    {
        const int a = addCar();
        QCOMPARE(PublicCars::set({a, a}, true), 1);
        QCOMPARE(PublicCars::set({a}, true), 0);
        QCOMPARE(ticked(), QString::number(a));
        QCOMPARE(notes(a), 1);
        QCOMPARE(PublicCars::set({a}, false), 1);
        QCOMPARE(PublicCars::set({a}, false), 0);
        QCOMPARE(notes(a), 2);
    }

    // Both mean the same: the row of whoever was first stands.
    void anotherDesksTickStays()
    {
        const int a = addCar();
        const int b = addCar();
        const OtherDesk other(*m_office, carForm);
        other.does([&] { PublicCars::set({a}, true); });
        QCOMPARE(PublicCars::set({a, b}, true), 1);
        QCOMPARE(value(u"SELECT u.sUser FROM PublicCars p JOIN Users u ON u.iID=p.iUserID WHERE p.iCarID=%1"_s.arg(a)), u"sima"_s);
        QCOMPARE(notes(a), 1);
    }

    void aCarThatIsGoneIsLeftOut()
    {
        const int a = addCar();
        const int b = addCar();
        run(u"DELETE FROM AutomobilInformations WHERE iID=%1"_s.arg(a));
        int gone = 0;
        QCOMPARE(PublicCars::set({a, b}, true, &gone), 1);
        QCOMPARE(gone, 1);
        QCOMPARE(ticked(), QString::number(b));
        QCOMPARE(notes(a), 0);
    }

    // Two programs that mark the same cars, in whatever order, both go through, and each car is ticked once.
    void twoDesksAtOnceTickEachCarOnce()
    {
        QList<qint32> cars;
        for (int i = 0; i < 12; ++i)
            cars.append(addCar());
        const QList<qint32> backwards(cars.crbegin(), cars.crend());
        std::atomic_int changed = 0;
        std::atomic_int failed = 0;
        const auto desk = [&](const QList<qint32> &marked) {
            try {
                changed += PublicCars::set(marked, true);
            } catch (...) {
                ++failed;
            }
            KConnection::closeThreadConnections();
        };
        std::thread first(desk, cars);
        std::thread second(desk, backwards);
        first.join();
        second.join();
        QCOMPARE(failed.load(), 0);
        QCOMPARE(changed.load(), 12);
        QCOMPARE(value(u"SELECT COUNT(*) FROM PublicCars"_s), u"12"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sValues LIKE '%نمایش در وب%'"_s), u"12"_s);
    }

    void onlyWhoMayChangeCarsTicksThem_data()
    {
        QTest::addColumn<bool>("shown");
        QTest::newRow("show") << true;
        QTest::newRow("show no more") << false;
    }
    void onlyWhoMayChangeCarsTicksThem()
    {
        QFETCH(bool, shown);
        const int a = addCar();
        if (!shown)
            PublicCars::set({a}, true);
        const QString before = ticked();
        m_office->logInAs(u"clerk"_s, carForm, KSecurity::allRights & ~KSecurity::Modify);
        QCOMPARE(refusal([&] { PublicCars::set({a}, shown); }), KSecurity::refusalText(carForm, KSecurity::Modify));
        QCOMPARE(ticked(), before);
    }

    void aClosedDatabaseTakesNone()
    {
        const int a = addCar();
        GetDBSetting()->SetClosedDB(true);
        const QString told = refusal([&] { PublicCars::set({a}, true); });
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!told.isEmpty());
        QCOMPARE(ticked(), QString());
    }

    void lineCutAtCommitTicksAllOrNone_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<QString>("left");
        QTest::newRow("before") << int(FaultProxy::Fault::CutBeforeCommit) << u"0 0"_s;
        QTest::newRow("after") << int(FaultProxy::Fault::CutAfterCommit) << u"2 2"_s;
    }
    void lineCutAtCommitTicksAllOrNone()
    {
        QFETCH(int, fault);
        QFETCH(QString, left);
        const QList<qint32> cars{addCar(), addCar()};
        FaultProxy proxy(m_office->database().settings());
        KConnection::configure(0, proxy.settings());
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
        proxy.failAtCommit(static_cast<FaultProxy::Fault>(fault));
        bool isTold = false;
        try {
            PublicCars::set(cars, true);
        } catch (const CMySQLException &) {
            isTold = true;
        }
        KConnection::configure(0, m_office->database().settings());
        QCOMPARE(isTold, fault == int(FaultProxy::Fault::CutBeforeCommit));
        QCOMPARE(value(u"SELECT CONCAT((SELECT COUNT(*) FROM PublicCars),' ',(SELECT COUNT(*) FROM Changes WHERE sValues LIKE '%نمایش در وب%'))"_s), left);
    }

    // What keeps a ticked car from strangers, and what does not.
    void soldArchivedAndInactiveCarsAreNotShown_data()
    {
        QTest::addColumn<QString>("set");
        QTest::addColumn<int>("shown");
        QTest::newRow("on offer") << u"bSold=0"_s << 1;
        QTest::newRow("sold") << u"bSold=1"_s << 0;
        QTest::newRow("archived") << u"iArchiveUserID=7"_s << 0;
        QTest::newRow("inactive") << u"iStatus=1"_s << 0;
    }
    void soldArchivedAndInactiveCarsAreNotShown()
    {
        QFETCH(QString, set);
        QFETCH(int, shown);
        addCar(); // not ticked
        const int car = addCar(set);
        PublicCars::set({car}, true);
        QCOMPARE(PublicCars::shownCount(), shown);
        // The tick outlasts all of it.
        QCOMPARE(ticked(), QString::number(car));
        run(u"UPDATE AutomobilInformations SET bSold=0,iArchiveUserID=0,iStatus=0"_s);
        QCOMPARE(PublicCars::shownCount(), 1);
    }

    void aDeletedCarTakesItsTickAlong()
    {
        const int a = addCar();
        PublicCars::set({a}, true);
        CTblAutomobilInformations car;
        QVERIFY(car.IsRecordExist(u"iID"_s, a));
        RowDeleting::run(car);
        QCOMPARE(ticked(), QString());
        QCOMPARE(PublicCars::shownCount(), 0);
    }
};

static const RegisteredTest<TestPublicCars, QApplication> registeredPublicCars;
#include "TestPublicCars.moc"
