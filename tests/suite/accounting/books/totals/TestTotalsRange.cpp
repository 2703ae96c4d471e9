// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/totals/TotalsRange.h"

#include "tests/support/RegisteredTest.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestTotalsRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rangeIsMadeOfMonthsAndDays_data();
    void rangeIsMadeOfMonthsAndDays();
    void everyDayIsInTheRangeOnceOrNot();
};

namespace {

// "202605-202607 202604:20-30", "everything", "" for a range without days.
QString shown(const TotalsRange &range)
{
    if (range.isEverything)
        return u"everything"_s;
    QStringList parts;
    if (range.hasMonths)
        parts.append(u"%1-%2"_s.arg(range.firstMonth).arg(range.lastMonth));
    for (const TotalsRange::Days &days : range.days)
        parts.append(u"%1:%2-%3"_s.arg(days.month).arg(days.first).arg(days.last));
    return parts.join(u' ');
}

int timesHeld(const TotalsRange &range, const QDate &day)
{
    const int month = day.year() * 100 + day.month();
    int times = range.isEverything || (range.hasMonths && month >= range.firstMonth && (range.lastMonth == 0 || month <= range.lastMonth));
    for (const TotalsRange::Days &days : range.days)
        times += days.month == month && day.day() >= days.first && day.day() <= days.last;
    return times;
}

}

void TestTotalsRange::rangeIsMadeOfMonthsAndDays_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QString>("expected");
    const auto day = [](int month, int number) { return QDate(2026, month, number); };
    QTest::newRow("both ends open") << QDate() << QDate() << u"everything"_s;
    QTest::newRow("a month") << day(5, 1) << day(5, 31) << u"202605-202605"_s;
    QTest::newRow("February") << day(2, 1) << day(2, 28) << u"202602-202602"_s;
    QTest::newRow("February of a leap year, but its last day") << QDate(2028, 2, 1) << QDate(2028, 2, 28) << u"202802:1-28"_s;
    QTest::newRow("days of one month") << day(5, 3) << day(5, 9) << u"202605:3-9"_s;
    QTest::newRow("the end of a month") << day(5, 3) << day(5, 31) << u"202605:3-31"_s;
    QTest::newRow("the beginning of a month") << day(5, 1) << day(5, 9) << u"202605:1-9"_s;
    QTest::newRow("across a boundary") << day(5, 20) << day(6, 5) << u"202605:20-31 202606:1-5"_s;
    QTest::newRow("months between two that are cut") << day(3, 21) << day(11, 23) << u"202604-202610 202603:21-31 202611:1-23"_s;
    QTest::newRow("a year") << day(1, 1) << day(12, 31) << u"202601-202612"_s;
    QTest::newRow("across the year") << QDate(2025, 12, 15) << day(1, 31) << u"202601-202601 202512:15-31"_s;
    QTest::newRow("until a day") << QDate() << day(3, 20) << u"0-202602 202603:1-20"_s;
    QTest::newRow("until the end of a month") << QDate() << day(3, 31) << u"0-202603"_s;
    QTest::newRow("from a day on") << day(3, 21) << QDate() << u"202604-0 202603:21-31"_s;
    QTest::newRow("from the first of a month on") << day(3, 1) << QDate() << u"202603-0"_s;
    QTest::newRow("from the end of the year on") << day(12, 31) << QDate() << u"202701-0 202612:31-31"_s;
    QTest::newRow("the wrong way round") << day(3, 21) << day(3, 20) << QString();
}

void TestTotalsRange::rangeIsMadeOfMonthsAndDays()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QTEST(shown(TotalsRange::of(from, to)), "expected");
}

// All ranges within fourteen weeks, which hold every kind of boundary, against the days themselves.
void TestTotalsRange::everyDayIsInTheRangeOnceOrNot()
{
    const QDate begin(2027, 12, 20);
    for (int from = -1; from < 98; ++from) {
        for (int to = -1; to < 98; ++to) {
            const QDate first = from < 0 ? QDate() : begin.addDays(from);
            const QDate last = to < 0 ? QDate() : begin.addDays(to);
            const TotalsRange range = TotalsRange::of(first, last);
            for (int day = 0; day < 98; ++day) {
                const int expected = (from < 0 || day >= from) && (to < 0 || day <= to);
                QVERIFY2(timesHeld(range, begin.addDays(day)) == expected, qPrintable(u"%1 to %2, %3"_s.arg(from).arg(to).arg(day)));
            }
        }
    }
}

static const RegisteredTest<TestTotalsRange> registeredTotalsRange;
#include "TestTotalsRange.moc"
