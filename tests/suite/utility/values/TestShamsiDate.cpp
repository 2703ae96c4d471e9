// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <cmath>
#include <memory>
#include <unicode/calendar.h>
#include <unicode/gregocal.h>

using namespace Qt::StringLiterals;

// The new year's days come from the sky, not from the rule: the day whose mean noon at 52.5 degrees east follows the
// vernal equinox, by the usual series for its instant (good to a minute between the years 1000 and 3000).
namespace {

struct Term
{
    double amplitude, phase, rate;
};

constexpr Term terms[] = {
    {485, 324.96, 1934.136},
    {203, 337.23, 32964.467},
    {199, 342.08, 20.186},
    {182, 27.85, 445267.112},
    {156, 73.14, 45036.886},
    {136, 171.52, 22518.443},
    {77, 222.54, 65928.934},
    {74, 296.72, 3034.906},
    {70, 243.58, 9037.513},
    {58, 119.81, 33718.147},
    {52, 297.17, 150.678},
    {50, 21.02, 2281.226},
    {45, 247.54, 29929.562},
    {44, 325.15, 31555.956},
    {29, 60.93, 4443.417},
    {18, 155.12, 67555.328},
    {17, 288.79, 4562.452},
    {16, 198.04, 62894.029},
    {14, 199.76, 31436.921},
    {12, 95.39, 14577.848},
    {12, 287.11, 31931.756},
    {12, 320.81, 34777.259},
    {9, 227.73, 1222.114},
    {8, 15.45, 16859.074},
};

double cosOfDegrees(double degrees)
{
    return std::cos(degrees * M_PI / 180);
}

double equinoxJulianDate(int gregorianYear)
{
    const double y = (gregorianYear - 2000) / 1000.0;
    const double mean = 2451623.80984 + 365242.37404 * y + 0.05169 * y * y - 0.00411 * y * y * y
        - 0.00057 * y * y * y * y;
    const double t = (mean - 2451545.0) / 36525;
    const double w = 35999.373 * t - 2.47;
    const double lambda = 1 + 0.0334 * cosOfDegrees(w) + 0.0007 * cosOfDegrees(2 * w);
    double sum = 0;
    for (const Term &term : terms)
        sum += term.amplitude * cosOfDegrees(term.phase + term.rate * t);
    const double clockDriftSeconds = -20 + 32 * std::pow((gregorianYear - 1820) / 100.0, 2);
    return mean + 0.00001 * sum / lambda - clockDriftSeconds / 86400;
}

// A Julian date counts from noon; mean noon at 52.5 degrees east comes 3.5 hours before it.
QDate newYearBySky(int year)
{
    const double sinceTehranNoon = equinoxJulianDate(year + 621) + 3.5 / 24;
    return QDate::fromJulianDay(qint64(std::ceil(sinceTehranNoon)));
}

QDate newYearByIcu(int year)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(*icu::TimeZone::getGMT(), icu::Locale("fa_IR@calendar=persian"), status));
    calendar->clear();
    calendar->set(year, 0, 1, 12, 0);
    const double milliseconds = calendar->getTime(status);
    return U_SUCCESS(status) ? QDateTime::fromMSecsSinceEpoch(qint64(milliseconds), Qt::UTC).date() : QDate();
}

}

class TestShamsiDate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newYearsDay_data();
    void newYearsDay();
    void theYearOfTodayIsThatOfTheClock();
    void leapYears_data();
    void leapYears();
    void everyDayOfTheTableGoesBothWays();
    void yearsOutsideTheTableHaveNoDays();
    void knownDays_data();
    void knownDays();
    void noSuchDay_data();
    void noSuchDay();
    void parse_data();
    void parse();
    void parseRefuses_data();
    void parseRefuses();
    void addMonths_data();
    void addMonths();
    void namesOfMonthsAndDays();
};

void TestShamsiDate::newYearsDay_data()
{
    QTest::addColumn<int>("year");
    for (int year = firstShamsiYear; year <= lastShamsiYear; ++year)
        QTest::addRow("%d", year) << year;
}

void TestShamsiDate::newYearsDay()
{
    QFETCH(int, year);
    const QDate newYear = ConvertToMiladi(year, 1, 1);
    QCOMPARE(newYear, newYearBySky(year));
    QCOMPARE(newYear, newYearByIcu(year));
    QCOMPARE(GetShamsi(newYear), (ShamsiDate{year, 1, 1}));
}

void TestShamsiDate::theYearOfTodayIsThatOfTheClock()
{
    // Midnight may pass between the two readings.
    const int before = GetShamsi(QDate::currentDate()).year;
    const int year = GetShamsiYearOfToday();
    const int after = GetShamsi(QDate::currentDate()).year;
    QVERIFY(year == before || year == after);
    QVERIFY(year >= 1405);
}

void TestShamsiDate::leapYears_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("leap");
    const QList<int> leapYears{1210, 1214, 1218, 1309, 1313, 1342, 1346, 1350, 1354, 1358, 1362,
                               1366, 1370, 1375, 1379, 1383, 1387, 1391, 1395, 1399, 1403, 1408,
                               1412, 1416, 1420, 1424, 1428, 1432, 1436, 1441, 1445, 1474, 1498};
    for (int year : leapYears)
        QTest::addRow("%d is leap", year) << year << true;
    for (int year : {1206, 1371, 1374, 1400, 1401, 1402, 1404, 1405, 1406, 1407, 1409, 1437, 1470})
        QTest::addRow("%d is not", year) << year << false;
}

void TestShamsiDate::leapYears()
{
    QFETCH(int, year);
    QFETCH(bool, leap);
    QCOMPARE(IsShamsiLeapYear(year), leap);
    QCOMPARE(shamsiDaysInMonth(year, 12), leap ? 30 : 29);
    QCOMPARE(ConvertToMiladi(year, 12, 30).isValid(), leap);
    // Astronomy agrees, except for the last year, whose end the table does not hold.
    if (year < lastShamsiYear)
        QCOMPARE(newYearBySky(year).daysTo(newYearBySky(year + 1)), leap ? 366 : 365);
}

void TestShamsiDate::everyDayOfTheTableGoesBothWays()
{
    QDate expected = newYearBySky(firstShamsiYear);
    for (int year = firstShamsiYear; year <= lastShamsiYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= shamsiDaysInMonth(year, month); ++day) {
                if (ConvertToMiladi(year, month, day) != expected
                    || GetShamsi(expected) != ShamsiDate{year, month, day})
                    QFAIL(qPrintable(u"%1/%2/%3"_s.arg(year).arg(month).arg(day)));
                expected = expected.addDays(1);
            }
        }
    }
    QCOMPARE(expected, newYearBySky(lastShamsiYear + 1));
}

void TestShamsiDate::yearsOutsideTheTableHaveNoDays()
{
    QVERIFY(!ConvertToMiladi(firstShamsiYear - 1, 12, 29).isValid());
    QVERIFY(!ConvertToMiladi(lastShamsiYear + 1, 1, 1).isValid());
    QVERIFY(!GetShamsi(ConvertToMiladi(firstShamsiYear, 1, 1).addDays(-1)).isValid());
    QVERIFY(!GetShamsi(ConvertToMiladi(lastShamsiYear, 12, 30).addDays(1)).isValid());
    QVERIFY(!GetShamsi(QDate()).isValid());
    QCOMPARE(shamsiText(QDate()), QString());
    QCOMPARE(shamsiText(QDate(1, 1, 1)), QString());
}

void TestShamsiDate::knownDays_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("dayOfWeek");
    QTest::newRow("today's example") << QDate(2026, 11, 20) << u"1405/08/29"_s << 6;
    QTest::newRow("last day of a leap year") << QDate(2025, 3, 20) << u"1403/12/30"_s << 5;
    QTest::newRow("first day after it") << QDate(2025, 3, 21) << u"1404/01/01"_s << 6;
    QTest::newRow("22 Bahman 1357") << QDate(1979, 2, 11) << u"1357/11/22"_s << 1;
    QTest::newRow("start of Unix time") << QDate(1970, 1, 1) << u"1348/10/11"_s << 5;
    QTest::newRow("29 February") << QDate(2024, 2, 29) << u"1402/12/10"_s << 5;
    QTest::newRow("last day of the first half") << QDate(2026, 9, 22) << u"1405/06/31"_s << 3;
    QTest::newRow("first day of the second half") << QDate(2026, 9, 23) << u"1405/07/01"_s << 4;
}

void TestShamsiDate::knownDays()
{
    QFETCH(QDate, date);
    QFETCH(QString, text);
    QFETCH(int, dayOfWeek);
    QCOMPARE(shamsiText(date), text);
    QCOMPARE(parseShamsi(text), date);
    QCOMPARE(shamsiDayOfWeek(date), dayOfWeek);
}

void TestShamsiDate::noSuchDay_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::newRow("30 Esfand of an ordinary year") << 1404 << 12 << 30;
    QTest::newRow("31 Mehr") << 1405 << 7 << 31;
    QTest::newRow("32 Farvardin") << 1405 << 1 << 32;
    QTest::newRow("month 13") << 1405 << 13 << 1;
    QTest::newRow("month 0") << 1405 << 0 << 1;
    QTest::newRow("day 0") << 1405 << 1 << 0;
    QTest::newRow("negative day") << 1405 << 1 << -1;
    QTest::newRow("year 0") << 0 << 1 << 1;
    QTest::newRow("a Gregorian year") << 2026 << 11 << 20;
}

void TestShamsiDate::noSuchDay()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QVERIFY(!ConvertToMiladi(year, month, day).isValid());
}

void TestShamsiDate::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("slashes") << u"1405/08/29"_s;
    QTest::newRow("no leading zero") << u"1405/8/29"_s;
    QTest::newRow("eight digits") << u"14050829"_s;
    QTest::newRow("dashes") << u"1405-08-29"_s;
    QTest::newRow("dots") << u"1405.8.29"_s;
    QTest::newRow("Persian digits") << u"۱۴۰۵/۰۸/۲۹"_s;
    QTest::newRow("Persian digits without separators") << u"۱۴۰۵۰۸۲۹"_s;
    QTest::newRow("Arabic digits") << u"١٤٠٥/٨/٢٩"_s;
    QTest::newRow("mixed digits") << u"۱۴05/٠٨/29"_s;
    QTest::newRow("blanks around") << u"  1405/08/29\t"_s;
    QTest::newRow("direction mark in front") << u"\u200E1405/08/29"_s;
}

void TestShamsiDate::parse()
{
    QFETCH(QString, text);
    QCOMPARE(parseShamsi(text), QDate(2026, 11, 20));
}

void TestShamsiDate::parseRefuses_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", " ", "1405", "1405/08", "140508",
                             "1405/8/", "/8/29", "1405/08/29/1", "1405/08-29", "05/08/29",
                             "1404/12/30", "1405/13/01", "1405/00/10", "1405/008/29", "1405 08 29",
                             "1405/8/٢٩x", "abc", "2026/11/20", "140508291", "-1405/08/29",
                             "1405//29"})
        QTest::newRow(*text ? text : "empty") << QString::fromUtf8(text);
}

void TestShamsiDate::parseRefuses()
{
    QFETCH(QString, text);
    QVERIFY(!parseShamsi(text).isValid());
}

void TestShamsiDate::addMonths_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("months");
    QTest::addColumn<QString>("to");
    QTest::newRow("into a shorter month") << u"1405/06/31"_s << 1 << u"1405/07/30"_s;
    QTest::newRow("into Esfand of an ordinary year")
        << u"1405/11/30"_s << 1 << u"1405/12/29"_s;
    QTest::newRow("into Esfand of a leap year") << u"1408/11/30"_s << 1 << u"1408/12/30"_s;
    QTest::newRow("over the year's end") << u"1405/12/01"_s << 1 << u"1406/01/01"_s;
    QTest::newRow("back over the year's start") << u"1405/01/31"_s << -1 << u"1404/12/29"_s;
    QTest::newRow("a year on from leap Esfand") << u"1403/12/30"_s << 12 << u"1404/12/29"_s;
    QTest::newRow("before the first year") << u"1206/01/01"_s << -1 << QString();
    QTest::newRow("after the last year") << u"1498/12/30"_s << 1 << QString();
}

void TestShamsiDate::addMonths()
{
    QFETCH(QString, from);
    QFETCH(int, months);
    QFETCH(QString, to);
    QCOMPARE(shamsiText(addShamsiMonths(parseShamsi(from), months)), to);
}

void TestShamsiDate::namesOfMonthsAndDays()
{
    QCOMPARE(shamsiMonthName(1), u"فروردین"_s);
    QCOMPARE(shamsiMonthName(8), u"آبان"_s);
    QCOMPARE(shamsiMonthName(12), u"اسفند"_s);
    QCOMPARE(shamsiMonthName(0), QString());
    QCOMPARE(shamsiMonthName(13), QString());
    QCOMPARE(shamsiDayName(shamsiDayOfWeek(QDate(2026, 11, 20))), u"جمعه"_s);
    QCOMPARE(shamsiDayName(shamsiDayOfWeek(QDate(2026, 11, 21))), u"شنبه"_s);
    QCOMPARE(shamsiDayName(-1), QString());
    QCOMPARE(shamsiDayName(7), QString());
    QCOMPARE(shamsiDayOfWeek(QDate()), -1);
}

static const RegisteredTest<TestShamsiDate, QCoreApplication> registeredShamsiDate;
#include "TestShamsiDate.moc"
