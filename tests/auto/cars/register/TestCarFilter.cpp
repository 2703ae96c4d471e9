// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarFilter.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

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
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("clauses");
    QTest::addColumn<int>("user");
    // Between the status and the grouping, which every filter has.
    const auto row = [](const char *name, const KFilterValues &values, const char *clauses, int user = 0) {
        QTest::newRow(name) << values << QString::fromUtf8(clauses) << user;
    };
    row("no search value at all is the status clause with 0 and the grouping, without a leading AND", {}, "");
    row("archive state: all", {{u"archive"_s, 0}}, "", 5);
    row("archive state: not archived, without alias", {{u"archive"_s, 1}}, " AND iArchiveUserID=0", 5);
    row("archive state: archived by oneself", {{u"archive"_s, 2}}, " AND ai.iArchiveUserID=5", 5);
    row("archive state: archived by others", {{u"archive"_s, 3}},
        " AND ai.iArchiveUserID<>0 AND ai.iArchiveUserID<>5", 5);
    row("car type", {{u"type"_s, 12}}, " AND ai.iAutomobilType=12");
    row("colour", {{u"color"_s, 7}}, " AND ai.iColor=7");
    row("fuel is compared with the position", {{u"fuel"_s, 3}}, " AND ai.iFuel=3");
    row("fuel: none", {{u"fuel"_s, 0}}, "");
    row("introduction from", {{u"introductionFrom"_s, day(2026, 11, 20, 13)}}, " AND ai.dateIntroduction >= '2026-11-20'");
    row("introduction to, with one whole day more", {{u"introductionTo"_s, day(2026, 11, 20)}},
        " AND ai.dateIntroduction <= '2026-11-21'");
    row("introduction to, over the end of the year", {{u"introductionTo"_s, day(2026, 12, 31)}},
        " AND ai.dateIntroduction <= '2027-01-01'");
    row("documents lacking", {{u"documentsDeficit"_s, u"deed"_s}}, " AND ai.sDocumentsDeficit LIKE '%deed%'");
    row("parts lacking", {{u"partsDeficit"_s, u"tyre"_s}}, " AND ai.sFractionalParts LIKE '%tyre%'");
    row("amount from", {{u"amountFrom"_s, 1.5}}, " AND ai.dAmount >= 1.500000");
    row("amount to", {{u"amountTo"_s, 12345678901.25}}, " AND ai.dAmount <= 12345678901.250000");
    row("an amount range from 0 to 0 is no bound at all", {{u"amountFrom"_s, 0}, {u"amountTo"_s, 0}}, "");
    row("the from year is that year exactly", {{u"yearFrom"_s, 1385}}, " AND ai.iYear=1385");
    row("the to year bounds from above", {{u"yearTo"_s, 1390}}, " AND ai.iYear<=1390");
    row("both years", {{u"yearFrom"_s, 1385}, {u"yearTo"_s, 1390}}, " AND ai.iYear=1385 AND ai.iYear<=1390");
    row("buyer", {{u"buyer"_s, 4}}, " AND ai.iPersonBuyerID=4");
    row("owner", {{u"owner"_s, 3}}, " AND ai.iPersonID=3");
    row("chassis number", {{u"chassis"_s, u"NAS"_s}}, " AND ai.sChassisNum LIKE '%NAS%'");
    row("plate, by the keys of the search", {{u"plate"_s, u"AB"_s}},
        " AND ai.iID IN (SELECT k.iRecordID FROM SearchKeys k WHERE k.iKind=3 AND ((k.sKey>='ab' AND k.sKey<'ab\uFFFD'))) AND ai.sNumOfPlates LIKE '%AB%'");
    row("% and _ are typed as wildcards, and nothing else leaves the literal", {{u"chassis"_s, u"a'b%_%d\\"_s}},
        R"( AND ai.sChassisNum LIKE '%a\'b%_%d\\\\%')");
}

void TestCarFilter::clause()
{
    QFETCH(KFilterValues, values);
    QFETCH(QString, clauses);
    QFETCH(int, user);
    QCOMPARE(KListFilter::condition(carFilters(), values, user).text(), u"ai.iStatus=0"_s + clauses + u" GROUP BY ai.iID"_s);
    values.insert(u"inactive"_s, true);
    QCOMPARE(KListFilter::condition(carFilters(), values, user).text(),
             u"(ai.iStatus=1 OR ai.iStatus=0)"_s + clauses + u" GROUP BY ai.iID"_s);
}

void TestCarFilter::clausesStandInTheirOrder()
{
    const KFilterValues everything{
        {u"inactive"_s, false},
        {u"archive"_s, 3},
        {u"type"_s, 1},
        {u"color"_s, 2},
        {u"fuel"_s, 4},
        {u"introductionFrom"_s, day(2026, 1, 1)},
        {u"introductionTo"_s, day(2026, 1, 2)},
        {u"documentsDeficit"_s, u"d"_s},
        {u"partsDeficit"_s, u"p"_s},
        {u"amountFrom"_s, 5},
        {u"amountTo"_s, 6},
        {u"yearFrom"_s, 1400},
        {u"yearTo"_s, 1401},
        {u"buyer"_s, 7},
        {u"owner"_s, 8},
        {u"chassis"_s, u"c"_s},
    };
    QCOMPARE(KListFilter::condition(carFilters(), everything, 9).text(),
             u"ai.iStatus=0 AND ai.iArchiveUserID<>0 AND ai.iArchiveUserID<>9 AND ai.iAutomobilType=1 AND ai.iColor=2"
             " AND ai.iFuel=4 AND ai.dateIntroduction >= '2026-01-01' AND ai.dateIntroduction <= '2026-01-03'"
             " AND ai.sDocumentsDeficit LIKE '%d%' AND ai.sFractionalParts LIKE '%p%' AND ai.dAmount >= 5.000000"
             " AND ai.dAmount <= 6.000000 AND ai.iYear=1400 AND ai.iYear<=1401 AND ai.iPersonBuyerID=7"
             " AND ai.iPersonID=8 AND ai.sChassisNum LIKE '%c%' GROUP BY ai.iID"_s);
}

static const RegisteredTest<TestCarFilter> registeredCarFilter;
#include "TestCarFilter.moc"
