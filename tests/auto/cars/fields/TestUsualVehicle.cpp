// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/UsualVehicle.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

class TestUsualVehicle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void year_data();
    void year();
    void wheels_data();
    void wheels();
};

void TestUsualVehicle::year_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("usual");
    for (const int year : {0, 1300, 1350, 1405, 1406, 1920, 2026, 2027})
        QTest::addRow("%d", year) << year << true;
    for (const int year : {3, 45, 999, 1299, 1407, 1500, 1919, 2028, 3000, 9999})
        QTest::addRow("%d", year) << year << false;
}

void TestUsualVehicle::year()
{
    QFETCH(int, year);
    QTEST(UsualVehicle::isYear(year, ConvertToMiladi(1405, 8, 29)), "usual");
}

void TestUsualVehicle::wheels_data()
{
    QTest::addColumn<int>("wheels");
    QTest::addColumn<bool>("usual");
    for (const int wheels : {0, 2, 4, 12})
        QTest::addRow("%d", wheels) << wheels << true;
    for (const int wheels : {13, 45})
        QTest::addRow("%d", wheels) << wheels << false;
}

void TestUsualVehicle::wheels()
{
    QFETCH(int, wheels);
    QTEST(UsualVehicle::isWheelCount(wheels), "usual");
}

static const RegisteredTest<TestUsualVehicle> registeredUsualVehicle;
#include "TestUsualVehicle.moc"
