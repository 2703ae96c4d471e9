// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarFilter.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

Q_DECLARE_METATYPE(CarCriteria)

// The text of every clause; what the clauses select is tested on rows in TestCarFilterRows.
class TestCarFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clause_data();
    void clause();
    void clausesStandInTheirOrder();
};

void TestCarFilter::clause_data()
{
    QTest::addColumn<CarCriteria>("criteria");
    QTest::addColumn<QString>("clauses");
    // Between the status and the grouping, which every filter has.
    const auto row = [](const char *name, const CarCriteria &criteria, const char *clauses) {
        QTest::newRow(name) << criteria << QString::fromUtf8(clauses);
    };
    row("no search value at all is the status clause with 0 and the grouping, without a leading AND", {}, "");
    row("archive state: all", {.archiveState = 0, .currentUserID = 5}, "");
    row("archive state: not archived, without alias", {.archiveState = 1, .currentUserID = 5}, " AND iArchiveUserID=0");
    row("archive state: archived by oneself", {.archiveState = 2, .currentUserID = 5}, " AND ai.iArchiveUserID=5");
    row("archive state: archived by others", {.archiveState = 3, .currentUserID = 5},
        " AND ai.iArchiveUserID<>0 AND ai.iArchiveUserID<>5");
    row("car type", {.automobilType = 12}, " AND ai.iAutomobilType=12");
    row("colour", {.color = 7}, " AND ai.iColor=7");
    row("fuel is compared with the position", {.fuel = 3}, " AND ai.iFuel=3");
    row("fuel: none", {.fuel = 0}, "");
    row("introduction from", {.introductionFrom = day(2026, 11, 20, 13)}, " AND ai.dateIntroduction >= '2026-11-20'");
    row("introduction to, with one whole day more", {.introductionTo = day(2026, 11, 20)},
        " AND ai.dateIntroduction <= '2026-11-21'");
    row("introduction to, over the end of the year", {.introductionTo = day(2026, 12, 31)},
        " AND ai.dateIntroduction <= '2027-01-01'");
    row("documents lacking", {.documentsDeficitPart = QStringLiteral("سند")}, " AND ai.sDocumentsDeficit LIKE '%سند%'");
    row("parts lacking", {.partsDeficitPart = QStringLiteral("زاپاس")}, " AND ai.sFractionalParts LIKE '%زاپاس%'");
    row("amount from", {.amountFrom = 1.5}, " AND ai.dAmount >= 1.500000");
    row("amount to", {.amountTo = 12345678901.25}, " AND ai.dAmount <= 12345678901.250000");
    row("an amount range from 0 to 0 is no bound at all", {.amountFrom = 0, .amountTo = 0}, "");
    row("the from year is that year exactly", {.yearFrom = 1385}, " AND ai.iYear=1385");
    row("the to year bounds from above", {.yearTo = 1390}, " AND ai.iYear<=1390");
    row("both years", {.yearFrom = 1385, .yearTo = 1390}, " AND ai.iYear=1385 AND ai.iYear<=1390");
    row("buyer", {.buyerID = 4}, " AND ai.iPersonBuyerID=4");
    row("owner", {.ownerID = 3}, " AND ai.iPersonID=3");
    row("chassis number", {.chassisPart = QStringLiteral("NAS")}, " AND ai.sChassisNum LIKE '%NAS%'");
    row("texts go in as typed, without escaping", {.chassisPart = QStringLiteral("a'b%_%d%1\\")},
        " AND ai.sChassisNum LIKE '%a'b%_%d%1\\%'");
}

void TestCarFilter::clause()
{
    QFETCH(CarCriteria, criteria);
    QFETCH(QString, clauses);
    QCOMPARE(carFilter(criteria), QStringLiteral("ai.iStatus=0") + clauses + QStringLiteral(" GROUP BY ai.iID"));
    criteria.withInactive = true;
    QCOMPARE(carFilter(criteria), QStringLiteral("(ai.iStatus=1 OR ai.iStatus=0)") + clauses + QStringLiteral(" GROUP BY ai.iID"));
}

void TestCarFilter::clausesStandInTheirOrder()
{
    const CarCriteria everything{
        .withInactive = false,
        .archiveState = 3,
        .currentUserID = 9,
        .automobilType = 1,
        .color = 2,
        .fuel = 4,
        .introductionFrom = day(2026, 1, 1),
        .introductionTo = day(2026, 1, 2),
        .documentsDeficitPart = QStringLiteral("d"),
        .partsDeficitPart = QStringLiteral("p"),
        .amountFrom = 5,
        .amountTo = 6,
        .yearFrom = 1400,
        .yearTo = 1401,
        .buyerID = 7,
        .ownerID = 8,
        .chassisPart = QStringLiteral("c"),
    };
    QCOMPARE(carFilter(everything),
             QStringLiteral("ai.iStatus=0 AND ai.iArchiveUserID<>0 AND ai.iArchiveUserID<>9 AND ai.iAutomobilType=1 AND ai.iColor=2"
                            " AND ai.iFuel=4 AND ai.dateIntroduction >= '2026-01-01' AND ai.dateIntroduction <= '2026-01-03'"
                            " AND ai.sDocumentsDeficit LIKE '%d%' AND ai.sFractionalParts LIKE '%p%' AND ai.dAmount >= 5.000000"
                            " AND ai.dAmount <= 6.000000 AND ai.iYear=1400 AND ai.iYear<=1401 AND ai.iPersonBuyerID=7"
                            " AND ai.iPersonID=8 AND ai.sChassisNum LIKE '%c%' GROUP BY ai.iID"));
}

static const RegisteredTest<TestCarFilter> registered;
#include "TestCarFilter.moc"
