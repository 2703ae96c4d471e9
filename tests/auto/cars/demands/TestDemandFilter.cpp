// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandFilter.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

Q_DECLARE_METATYPE(DemandCriteria)

// The text of every clause; what the clauses select is tested on rows in TestDemandFilterRows.
class TestDemandFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clause_data();
    void clause();
    void clausesStandInTheirOrder();
};

void TestDemandFilter::clause_data()
{
    QTest::addColumn<DemandCriteria>("criteria");
    QTest::addColumn<QString>("filter");
    const auto row = [](const char *name, const DemandCriteria &criteria, const char *clause) {
        QTest::newRow(name) << criteria
                            << QStringLiteral("ad.iStatus=0") + QString::fromUtf8(clause) + QStringLiteral(" GROUP BY ad.iID");
    };
    row("nothing asked is the status clause alone", {}, "");
    row("archive filter: all", {.archiveState = 0, .currentUserID = 5}, "");
    row("archive filter: not archived, with the alias", {.archiveState = 1, .currentUserID = 5}, " AND ad.iArchiveUserID=0");
    row("archive filter: archived by oneself", {.archiveState = 2, .currentUserID = 5}, " AND ad.iArchiveUserID=5");
    row("archive filter: archived by others", {.archiveState = 3, .currentUserID = 5},
        " AND ad.iArchiveUserID<>0 AND ad.iArchiveUserID<>5");
    row("car type", {.automobilType = 12}, " AND ad.iAutomobilType=12");
    row("colour", {.color = 7}, " AND ad.iColor=7");
    row("reference date from", {.referenceFrom = day(2026, 11, 20, 13)}, " AND ad.dateReference >= '2026-11-20'");
    row("reference date to, widened by one day", {.referenceTo = day(2026, 11, 20)}, " AND ad.dateReference <= '2026-11-21'");
    row("reference date to, over the end of the year", {.referenceTo = day(2026, 12, 31)},
        " AND ad.dateReference <= '2027-01-01'");
    row("special description", {.specialDescriptionPart = QStringLiteral("فوری")}, " AND ad.sDescSpecial LIKE '%فوری%'");
    row("a typed placeholder stands as it is", {.specialDescriptionPart = QStringLiteral("5\\%%d%1")},
        " AND ad.sDescSpecial LIKE '%5\\%%d%1%'");
    row("who asks", {.personID = 31}, " AND ad.iPersonID=31");
    row("years from", {.yearFrom = 1385}, " AND ad.iModelFrom >= 1385");
    row("years to", {.yearTo = 1390}, " AND ad.iModelUpTo <= 1390");
    row("amount from", {.amountFrom = 1500000000}, " AND ad.dAmountFrom >= 1500000000.000000");
    row("amount to, six decimals", {.amountTo = 0.5}, " AND ad.dAmountUpTo <= 0.500000");
    QTest::newRow("with inactive ones") << DemandCriteria{.withInactive = true}
                                        << QStringLiteral("(ad.iStatus=1 OR ad.iStatus=0) GROUP BY ad.iID");
}

void TestDemandFilter::clause()
{
    QFETCH(DemandCriteria, criteria);
    QTEST(demandFilter(criteria), "filter");
}

void TestDemandFilter::clausesStandInTheirOrder()
{
    const DemandCriteria everything{
        .withInactive = true,
        .archiveState = 3,
        .currentUserID = 9,
        .automobilType = 1,
        .color = 2,
        .referenceFrom = day(2026, 1, 1),
        .referenceTo = day(2026, 1, 2),
        .specialDescriptionPart = QStringLiteral("x"),
        .personID = 3,
        .yearFrom = 1385,
        .yearTo = 1390,
        .amountFrom = 10,
        .amountTo = 20,
    };
    QCOMPARE(demandFilter(everything),
             QStringLiteral("(ad.iStatus=1 OR ad.iStatus=0) AND ad.iArchiveUserID<>0 AND ad.iArchiveUserID<>9"
                            " AND ad.iAutomobilType=1 AND ad.iColor=2 AND ad.dateReference >= '2026-01-01'"
                            " AND ad.dateReference <= '2026-01-03' AND ad.sDescSpecial LIKE '%x%' AND ad.iPersonID=3"
                            " AND ad.iModelFrom >= 1385 AND ad.iModelUpTo <= 1390 AND ad.dAmountFrom >= 10.000000"
                            " AND ad.dAmountUpTo <= 20.000000 GROUP BY ad.iID"));
}

static const RegisteredTest<TestDemandFilter> registered;
#include "TestDemandFilter.moc"
