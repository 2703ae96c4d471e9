// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandFilter.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

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
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<int>("user");
    const auto row = [](const char *name, const KFilterValues &values, const char *clause, int user = 0) {
        QTest::newRow(name) << values << u"ad.iStatus=0"_s + QString::fromUtf8(clause) + u" GROUP BY ad.iID"_s << user;
    };
    row("nothing asked is the status clause alone", {}, "");
    row("archive filter: all", {{u"archive"_s, 0}}, "", 5);
    row("archive filter: not archived, with the alias", {{u"archive"_s, 1}}, " AND ad.iArchiveUserID=0", 5);
    row("archive filter: archived by oneself", {{u"archive"_s, 2}}, " AND ad.iArchiveUserID=5", 5);
    row("archive filter: archived by others", {{u"archive"_s, 3}},
        " AND ad.iArchiveUserID<>0 AND ad.iArchiveUserID<>5", 5);
    row("car type", {{u"type"_s, 12}}, " AND ad.iAutomobilType=12");
    row("colour", {{u"color"_s, 7}}, " AND ad.iColor=7");
    row("reference date from", {{u"referenceFrom"_s, day(2026, 11, 20, 13)}}, " AND ad.dateReference >= '2026-11-20'");
    row("reference date to, widened by one day", {{u"referenceTo"_s, day(2026, 11, 20)}}, " AND ad.dateReference <= '2026-11-21'");
    row("reference date to, over the end of the year", {{u"referenceTo"_s, day(2026, 12, 31)}},
        " AND ad.dateReference <= '2027-01-01'");
    row("special description", {{u"specialDescription"_s, u"soon"_s}}, " AND ad.sDescSpecial LIKE '%soon%'");
    row("every character stands for itself", {{u"specialDescription"_s, u"x%d%s"_s}}, R"( AND ad.sDescSpecial LIKE '%x\\%d\\%s%')");
    row("who asks", {{u"person"_s, 31}}, " AND ad.iPersonID=31");
    row("years from", {{u"yearFrom"_s, 1385}}, " AND ad.iModelFrom >= 1385");
    row("years to", {{u"yearTo"_s, 1390}}, " AND ad.iModelUpTo <= 1390");
    row("amount from", {{u"amountFrom"_s, 1500000000}}, " AND ad.dAmountFrom >= 1500000000.000000");
    row("amount to, six decimals", {{u"amountTo"_s, 0.5}}, " AND ad.dAmountUpTo <= 0.500000");
    QTest::newRow("with inactive ones") << KFilterValues{{u"inactive"_s, true}}
                                        << u"(ad.iStatus=1 OR ad.iStatus=0) GROUP BY ad.iID"_s << 0;
}

void TestDemandFilter::clause()
{
    QFETCH(KFilterValues, values);
    QFETCH(int, user);
    QTEST(KListFilter::condition(demandFilters(), values, user).text(), "filter");
}

void TestDemandFilter::clausesStandInTheirOrder()
{
    const KFilterValues everything{
        {u"inactive"_s, true},
        {u"archive"_s, 3},
        {u"type"_s, 1},
        {u"color"_s, 2},
        {u"referenceFrom"_s, day(2026, 1, 1)},
        {u"referenceTo"_s, day(2026, 1, 2)},
        {u"specialDescription"_s, u"x"_s},
        {u"person"_s, 3},
        {u"yearFrom"_s, 1385},
        {u"yearTo"_s, 1390},
        {u"amountFrom"_s, 10},
        {u"amountTo"_s, 20},
    };
    QCOMPARE(KListFilter::condition(demandFilters(), everything, 9).text(),
             u"(ad.iStatus=1 OR ad.iStatus=0) AND ad.iArchiveUserID<>0 AND ad.iArchiveUserID<>9"
             " AND ad.iAutomobilType=1 AND ad.iColor=2 AND ad.dateReference >= '2026-01-01'"
             " AND ad.dateReference <= '2026-01-03' AND ad.sDescSpecial LIKE '%x%' AND ad.iPersonID=3"
             " AND ad.iModelFrom >= 1385 AND ad.iModelUpTo <= 1390 AND ad.dAmountFrom >= 10.000000"
             " AND ad.dAmountUpTo <= 20.000000 GROUP BY ad.iID"_s);
}

static const RegisteredTest<TestDemandFilter> registeredDemandFilter;
#include "TestDemandFilter.moc"
