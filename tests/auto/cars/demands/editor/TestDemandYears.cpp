// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/DemandYears.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

class TestDemandYears : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void years_data();
    void years();
};

void TestDemandYears::years_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("upTo");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("years 0 and 0 are accepted") << 0 << 0 << true;
    QTest::newRow("1399 and 0 are refused") << 1399 << 0 << false;
    QTest::newRow("0 and 1399 are refused") << 0 << 1399 << false;
    QTest::newRow("999 is refused as first") << 999 << 1400 << false;
    QTest::newRow("999 is refused as second") << 1400 << 999 << false;
    QTest::newRow("1000 is accepted") << 1000 << 1000 << true;
    QTest::newRow("3000 is accepted") << 1399 << 3000 << true;
    QTest::newRow("3000 is accepted as both") << 3000 << 3000 << true;
    QTest::newRow("3001 is refused") << 1399 << 3001 << false;
    QTest::newRow("3001 is refused as first") << 3001 << 3000 << false;
    QTest::newRow("a usual range") << 1390 << 1399 << true;
    QTest::newRow("the wrong way round") << 1399 << 1390 << true;
    QTest::newRow("below zero") << -1399 << 1399 << false;
}

void TestDemandYears::years()
{
    QFETCH(int, from);
    QFETCH(int, upTo);
    QTEST(areDemandYears(from, upTo), "accepted");
}

static const RegisteredTest<TestDemandYears> registeredDemandYears;
#include "TestDemandYears.moc"
