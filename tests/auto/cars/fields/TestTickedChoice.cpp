// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/TickedChoice.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

class TestTickedChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choice_data();
    void choice();
};

void TestTickedChoice::choice_data()
{
    QTest::addColumn<QList<int>>("ticked");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("chosen");
    QTest::newRow("nothing ticked is no value") << QList<int>{} << 7 << 0;
    QTest::newRow("one") << QList<int>{5} << 0 << 5;
    QTest::newRow("another than before") << QList<int>{5} << 7 << 5;
    QTest::newRow("the same as before") << QList<int>{7} << 7 << 7;
    QTest::newRow("ticked beside the one before") << QList<int>{7, 9} << 7 << 9;
    QTest::newRow("ticked in front of the one before") << QList<int>{5, 7} << 7 << 5;
    QTest::newRow("several at once: the first") << QList<int>{3, 5, 9} << 0 << 3;
    QTest::newRow("several beside the one before: the first of them") << QList<int>{3, 5, 9} << 3 << 5;
}

void TestTickedChoice::choice()
{
    QFETCH(QList<int>, ticked);
    QFETCH(int, before);
    QTEST(choiceOfTicked(ticked, before), "chosen");
}

static const RegisteredTest<TestTickedChoice> registeredTickedChoice;
#include "TestTickedChoice.moc"
