// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/DueDays.h"

#include "tests/support/RegisteredTest.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class TestDueDays : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void range_data();
    void range();
    void overdue_data();
    void overdue();
    void everySpanIsOfferedUnderANameOfItsOwn();
};

void TestDueDays::range_data()
{
    QTest::addColumn<int>("span");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    const QDate sunday(2026, 11, 22);
    QTest::newRow("all") << int(DueDays::AllOpen) << sunday << QDate() << QDate();
    QTest::newRow("up to today") << int(DueDays::UpToToday) << sunday << QDate() << sunday;
    QTest::newRow("today") << int(DueDays::Today) << sunday << sunday << sunday;
    QTest::newRow("overdue") << int(DueDays::Overdue) << sunday << QDate() << QDate(2026, 11, 21);
    QTest::newRow("overdue, first of a month") << int(DueDays::Overdue) << QDate(2026, 3, 1) << QDate() << QDate(2026, 2, 28);
    QTest::newRow("week of a Sunday") << int(DueDays::ThisWeek) << sunday << QDate(2026, 11, 21) << QDate(2026, 11, 27);
    QTest::newRow("week of a Saturday") << int(DueDays::ThisWeek) << QDate(2026, 11, 21) << QDate(2026, 11, 21) << QDate(2026, 11, 27);
    QTest::newRow("week of a Friday") << int(DueDays::ThisWeek) << QDate(2026, 11, 27) << QDate(2026, 11, 21) << QDate(2026, 11, 27);
    QTest::newRow("week over the end of the Shamsi year") << int(DueDays::ThisWeek) << QDate(2026, 3, 20) << QDate(2026, 3, 14) << QDate(2026, 3, 20);
    QTest::newRow("unknown") << 77 << sunday << QDate() << QDate();
}

void TestDueDays::range()
{
    QFETCH(int, span);
    QFETCH(QDate, today);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QCOMPARE(DueDays::range(span, today), (DueDays::Range{from, to}));
}

void TestDueDays::overdue_data()
{
    QTest::addColumn<QDate>("due");
    QTest::addColumn<int>("days");
    QTest::newRow("tomorrow") << QDate(2026, 11, 23) << 0;
    QTest::newRow("today") << QDate(2026, 11, 22) << 0;
    QTest::newRow("yesterday") << QDate(2026, 11, 21) << 1;
    QTest::newRow("a year ago") << QDate(2025, 11, 22) << 365;
    QTest::newRow("no day") << QDate() << 0;
}

void TestDueDays::overdue()
{
    QFETCH(QDate, due);
    QFETCH(int, days);
    QCOMPARE(DueDays::overdue(due, QDate(2026, 11, 22)), days);
}

void TestDueDays::everySpanIsOfferedUnderANameOfItsOwn()
{
    QSet<QString> names;
    for (const int span : DueDays::spans)
        names.insert(DueDays::name(span));
    QCOMPARE(names.size(), 5);
    QVERIFY(!names.contains(QString()));
}

static const RegisteredTest<TestDueDays> registeredDueDays;
#include "TestDueDays.moc"
