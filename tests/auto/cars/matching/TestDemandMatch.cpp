// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/DemandMatch.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

Q_DECLARE_METATYPE(DemandWishes)
Q_DECLARE_METATYPE(OfferedCar)

namespace {

constexpr int excluded = -1;
constexpr int peugeot = 3;
constexpr int saipa = 4;
constexpr int white = 40;
constexpr int black = 41;

// What all parts of a car are, when a row does not say otherwise.
const OfferedCar car{peugeot, white, 1398, 1000};

}

class TestDemandMatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void percent_data();
    void percent();
    void wishesAreCounted();
    void betterMatch_data();
    void betterMatch();
};

void TestDemandMatch::percent_data()
{
    QTest::addColumn<DemandWishes>("wishes");
    QTest::addColumn<OfferedCar>("offer");
    QTest::addColumn<int>("percent");
    const auto row = [](const char *name, const DemandWishes &wishes, const OfferedCar &offer, int percent) {
        QTest::newRow(name) << wishes << offer << percent;
    };
    row("all that is asked for is met", {peugeot, white, 1395, 1400, 900, 1100}, car, 100);
    row("a demand that states nothing fits every car, by nothing", {}, car, 0);

    row("type alone", {.automobilType = peugeot}, car, 100);
    row("another type is excluded", {.automobilType = saipa}, car, excluded);
    row("a car without a type is excluded where one is asked for", {.automobilType = peugeot}, {0, white, 1398, 1000}, excluded);
    row("another type is excluded however well the rest fits", {saipa, white, 1395, 1400, 900, 1100}, car, excluded);

    row("colour alone", {.color = white}, car, 100);
    row("another colour does not exclude", {.color = black}, car, 0);
    row("colour not known of the car", {.color = white}, {peugeot, 0, 1398, 1000}, 0);
    row("another colour costs its weight", {peugeot, black, 1395, 1400, 900, 1100}, car, 90);

    row("year at the lower end", {.yearFrom = 1398, .yearUpTo = 1400}, car, 100);
    row("year at the upper end", {.yearFrom = 1390, .yearUpTo = 1398}, car, 100);
    row("one year too old: two thirds", {.yearFrom = 1399, .yearUpTo = 1400}, car, 66);
    row("two years too old: one third", {.yearFrom = 1400, .yearUpTo = 1402}, car, 33);
    row("three years too old is excluded", {.yearFrom = 1401, .yearUpTo = 1402}, car, excluded);
    row("one year too new", {.yearFrom = 1390, .yearUpTo = 1397}, car, 66);
    row("three years too new is excluded", {.yearFrom = 1390, .yearUpTo = 1395}, car, excluded);
    row("only from", {.yearFrom = 1390}, car, 100);
    row("only up to", {.yearUpTo = 1399}, car, 100);
    row("years the wrong way round", {.yearFrom = 1400, .yearUpTo = 1395}, car, 100);
    row("year not known of the car", {.yearFrom = 1395, .yearUpTo = 1400}, {peugeot, white, 0, 1000}, 0);
    row("one year off among all the wishes", {peugeot, white, 1399, 1400, 900, 1100}, car, 93);
    row("an ordinary year of the car", {.yearFrom = 1396, .yearUpTo = 1398}, {peugeot, white, 2018, 1000}, 100);
    row("ordinary years of the demand", {.yearFrom = 2018, .yearUpTo = 2020}, car, 100);
    row("ordinary years on both sides", {.yearFrom = 2019, .yearUpTo = 2020}, {peugeot, white, 2018, 1000}, 66);

    row("price at the lower bound", {.amountFrom = 1000, .amountUpTo = 1200}, car, 100);
    row("price at the upper bound", {.amountFrom = 500, .amountUpTo = 1000}, car, 100);
    row("a twentieth above the bound: half", {.amountFrom = 500, .amountUpTo = 1000}, {peugeot, white, 1398, 1050}, 50);
    row("a tenth above the bound still fits, by nothing", {.amountUpTo = 1000}, {peugeot, white, 1398, 1100}, 0);
    row("more than a tenth above is excluded", {.amountUpTo = 1000}, {peugeot, white, 1398, 1101}, excluded);
    row("a twentieth below the bound: half", {.amountFrom = 1000, .amountUpTo = 2000}, {peugeot, white, 1398, 950}, 50);
    row("more than a tenth below is excluded", {.amountFrom = 1000, .amountUpTo = 2000}, {peugeot, white, 1398, 899}, excluded);
    row("only up to: every cheaper car fits", {.amountUpTo = 1000}, {peugeot, white, 1398, 1}, 100);
    row("only from: every dearer car fits", {.amountFrom = 1000}, {peugeot, white, 1398, 5e10}, 100);
    row("seven hundredths above: no rounding fault takes one off", {.amountUpTo = 1000}, {peugeot, white, 1398, 1070}, 30);
    row("price not known of the car", {.amountFrom = 900, .amountUpTo = 1100}, {peugeot, white, 1398, 0}, 0);
    row("amounts the wrong way round", {.amountFrom = 1100, .amountUpTo = 900}, car, 100);
    row("hardly above the bound is not all that is asked for", {.amountUpTo = 999.9}, car, 99);
    row("amounts of an office", {.amountFrom = 4e9, .amountUpTo = 5e9}, {peugeot, white, 1398, 5.5e9}, 0);

    row("weights of type and price", {peugeot, 0, 0, 0, 500, 1000}, {peugeot, white, 1398, 1050}, 78);
    row("weights of years and colour", {0, black, 1395, 1400}, car, 66);
    row("nothing but the type is known of the car", {peugeot, white, 1395, 1400, 900, 1100}, {peugeot}, 40);
}

void TestDemandMatch::percent()
{
    QFETCH(DemandWishes, wishes);
    QFETCH(OfferedCar, offer);
    const auto match = DemandMatch::of(wishes, offer);
    QTEST(match ? match->percent : excluded, "percent");
}

void TestDemandMatch::wishesAreCounted()
{
    QCOMPARE(DemandMatch::of({}, car)->wishes, 0);
    QCOMPARE(DemandMatch::of({.yearFrom = 1390}, car)->wishes, 1);
    QCOMPARE(DemandMatch::of({peugeot, white, 1395, 1400, 900, 1100}, car)->wishes, 4);
}

void TestDemandMatch::betterMatch_data()
{
    QTest::addColumn<QList<int>>("one"); // percent, wishes, code
    QTest::addColumn<QList<int>>("other");
    QTest::addColumn<bool>("better");
    QTest::newRow("more percent") << QList<int>{90, 1, 9} << QList<int>{89, 4, 1} << true;
    QTest::newRow("less percent") << QList<int>{89, 4, 1} << QList<int>{90, 1, 9} << false;
    QTest::newRow("as many percent of more wishes") << QList<int>{90, 3, 9} << QList<int>{90, 2, 1} << true;
    QTest::newRow("tie: the lower code") << QList<int>{90, 3, 1} << QList<int>{90, 3, 9} << true;
    QTest::newRow("tie: the higher code") << QList<int>{90, 3, 9} << QList<int>{90, 3, 1} << false;
    QTest::newRow("itself") << QList<int>{90, 3, 9} << QList<int>{90, 3, 9} << false;
}

void TestDemandMatch::betterMatch()
{
    QFETCH(QList<int>, one);
    QFETCH(QList<int>, other);
    QTEST(isBetterMatch({one.at(0), one.at(1)}, one.at(2), {other.at(0), other.at(1)}, other.at(2)), "better");
}

static const RegisteredTest<TestDemandMatch> registeredDemandMatch;
#include "TestDemandMatch.moc"
