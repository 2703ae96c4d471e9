// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonBounds.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestSeasonBounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void days_data();
    void days();
    void winterOfEveryYearFrom1375To1420();
    void seasonsFollowEachOther();
    void noSuchSeason();
    void openingMonth_data();
    void openingMonth();
    void conditionHoldsAllOfTheLastDayAndNothingAfterIt();
    void conditionOfNoSeason();
};

void TestSeasonBounds::days_data()
{
    QTest::addColumn<int>("season");
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    const auto row = [](const char *name, int season, int year, const char *first, const char *last) {
        QTest::newRow(name) << season << year << QString::fromLatin1(first) << QString::fromLatin1(last);
    };
    row("spring", 0, 1405, "1405/01/01", "1405/03/31");
    row("summer ends on 6/31", 1, 1405, "1405/04/01", "1405/06/31");
    row("autumn ends on 9/30", 2, 1405, "1405/07/01", "1405/09/30");
    row("winter of an ordinary year ends on 12/29", 3, 1404, "1404/10/01", "1404/12/29");
    row("winter of a leap year ends on 12/30", 3, 1403, "1403/10/01", "1403/12/30");
    row("the next leap year is 1408", 3, 1408, "1408/10/01", "1408/12/30");
    row("1407 is none", 3, 1407, "1407/10/01", "1407/12/29");
}

void TestSeasonBounds::days()
{
    QFETCH(int, season);
    QFETCH(int, year);
    const Season::Bounds bounds = Season::bounds(season, year);
    QTEST(shamsiText(bounds.first), "first");
    QTEST(shamsiText(bounds.last), "last");
}

void TestSeasonBounds::winterOfEveryYearFrom1375To1420()
{
    const QList<int> leapYears{1375, 1379, 1383, 1387, 1391, 1395, 1399, 1403, 1408, 1412, 1416, 1420};
    for (int year = 1375; year <= 1420; ++year) {
        const QString wanted = u"%1/12/%2"_s.arg(year).arg(leapYears.contains(year) ? 30 : 29);
        QCOMPARE(shamsiText(Season::bounds(3, year).last), wanted);
    }
}

void TestSeasonBounds::seasonsFollowEachOther()
{
    QDate expected = ConvertToMiladi(1375, 1, 1);
    for (int year = 1375; year <= 1420; ++year) {
        for (int season = 0; season < Season::count; ++season) {
            const Season::Bounds bounds = Season::bounds(season, year);
            QCOMPARE(bounds.first, expected);
            expected = bounds.last.addDays(1);
        }
    }
    QCOMPARE(expected, ConvertToMiladi(1421, 1, 1));
}

void TestSeasonBounds::noSuchSeason()
{
    for (const int season : {-1, 4, 100}) {
        QVERIFY(!Season::bounds(season, 1405).first.isValid());
        QVERIFY(!Season::bounds(season, 1405).last.isValid());
    }
    QVERIFY(!Season::bounds(0, 0).first.isValid());
    QVERIFY(!Season::bounds(3, 65535).last.isValid());
}

void TestSeasonBounds::openingMonth_data()
{
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("season");
    for (int month = 1; month <= 5; ++month)
        QTest::addRow("month %d opens on spring", month) << month << 0;
    for (int month = 6; month <= 8; ++month)
        QTest::addRow("month %d opens on summer", month) << month << 1;
    for (int month = 9; month <= 11; ++month)
        QTest::addRow("month %d opens on autumn", month) << month << 2;
    QTest::newRow("month 12 opens on winter") << 12 << 3;
}

void TestSeasonBounds::openingMonth()
{
    QFETCH(int, month);
    QTEST(Season::ofMonth(month), "season");
}

void TestSeasonBounds::conditionHoldsAllOfTheLastDayAndNothingAfterIt()
{
    // 1405/03/31 is the 21st of June 2026.
    QCOMPARE(Season::condition("dateContract", Season::bounds(0, 1405)).text(),
             u"dateContract>='2026-03-21' AND dateContract<'2026-06-22'"_s);
}

void TestSeasonBounds::conditionOfNoSeason()
{
    QCOMPARE(Season::condition("f.date", Season::bounds(4, 1405)).text(), u"f.date>=NULL AND f.date<NULL"_s);
}

static const RegisteredTest<TestSeasonBounds> registeredSeasonBounds;
#include "TestSeasonBounds.moc"
