// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarStanding.h"
#include "tests/auto/cars/register/CarListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// Columns of the list of cars that are off at first, and how long a car has been standing.
class TestFurtherCarColumns : public CarListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    void aCarStandsFromItsIntroductionUntilItIsSold_data()
    {
        QTest::addColumn<QDate>("introduced");
        QTest::addColumn<bool>("sold");
        QTest::addColumn<int>("days"); // -1: none
        const QDate today(2026, 11, 22);
        QTest::newRow("today") << today << false << 0;
        QTest::newRow("a month") << today.addDays(-30) << false << 30;
        QTest::newRow("sold") << today.addDays(-30) << true << -1;
        QTest::newRow("without a date") << QDate() << false << -1;
        QTest::newRow("to come") << today.addDays(1) << false << -1;
    }

    void aCarStandsFromItsIntroductionUntilItIsSold()
    {
        QFETCH(QDate, introduced);
        QFETCH(bool, sold);
        QFETCH(int, days);
        QCOMPARE(CarStanding::days(introduced, sold, QDate(2026, 11, 22)).value_or(-1), days);
    }

    void theyShowWhatTheRegisterHas()
    {
        const QDate today = QDate::currentDate();
        addNamed(u"12 ب 345"_s, [&](Car &car) {
            car.m_sVIN = u"NAAM01CA5CK123456"_s;
            car.m_iFunction = 82000;
            car.m_dateIntroduction = QDateTime(today.addDays(-12), QTime(0, 0), Qt::UTC);
        });
        addNamed({}, [&](Car &car) { car.m_dateIntroduction = QDateTime(today.addDays(-40), QTime(0, 0), Qt::UTC); });
        Page page;
        const ObservedStatements statements({u"SELECT"_s});
        page.open();
        QVERIFY(statements.taken().filter(u"sVIN"_s).isEmpty() && statements.taken().filter(u"iFunction"_s).isEmpty());
        for (const QStringView column : {u"plate", u"vin", u"mileage", u"standing"}) {
            QVERIFY(!page.list()->isColumnShown(column));
            page.list()->setColumnShown(column, true);
            QVERIFY(page.list()->isColumnShown(column));
        }
        QCOMPARE(cells(page, u"vin"), (QStringList{u"NAAM01CA5CK123456"_s, {}}));
        QCOMPARE(cells(page, u"mileage"), (QStringList{u"82000"_s, {}}));
        QCOMPARE(cells(page, u"standing"), (QStringList{u"12"_s, u"40"_s}));
        for (const QStringView column : {u"vin", u"mileage", u"standing"}) {
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(column));
            QCOMPARE(page.list()->count(), 2);
        }
        // The longest first.
        QCOMPARE(cells(page, u"standing"), (QStringList{u"40"_s, u"12"_s}));
        page.list()->resetColumns();
        QVERIFY(!page.list()->isColumnShown(u"plate"));
    }
};

static const RegisteredTest<TestFurtherCarColumns, QApplication> registeredFurtherCarColumns;
#include "TestFurtherCarColumns.moc"
