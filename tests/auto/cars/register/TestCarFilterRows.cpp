// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarFilter.h"
#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/subjects/AutoSearch.h"
#include "suite/accounting/office/CTblItems.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Day.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;

// Keys that a car may name. The join matches an item by the key of the type as well as by that of the colour.
constexpr int typeAndItem = 801;
constexpr int otherType = 802;
constexpr int red = 901;
constexpr int deletedKey = 999;

}

// What the clauses select of real rows.
class TestCarFilterRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rows_data();
    void rows();
    void whatNamesTheRepeatingJoinKeepsIt_data();
    void whatNamesTheRepeatingJoinKeepsIt();
    void carWhoseTypeAndColorBothNameItemsIsListedOnce();
    void carWhoseModelOrClassWasDeletedIsListedWithEmptyNames();
    void typedQuoteIsLookedFor();
    void everySortKeyOfTheListIsTakenByTheJoin_data();
    void everySortKeyOfTheListIsTakenByTheJoin();

private:
    static QList<int> codes(const KFilterValues &values, const QString &sort = u"ai.iCode"_s, int user = 0, bool isListed = false);

    TestDatabase m_database;
};

void TestCarFilterRows::initTestCase()
{
    prepareModuleTables(m_database);
    AutoSearch::enter();
    m_database.run(u"INSERT INTO Items (iID,iType,sName,sTitle) VALUES (%1,808,'a','z'),(%2,808,'b','y'),(903,808,'c','x')"_s
                       .arg(typeAndItem)
                       .arg(red));
    m_database.run(u"INSERT INTO CarModels (iID,sName,iClassID) VALUES (31,'پراید 111',%1)"_s.arg(typeAndItem));
    m_database.run(u"INSERT INTO CarClasses (iID,sName,iBrandID) VALUES (41,'SE',31)"_s);
    const auto add = [](qint32 code, const auto &fill) {
        Car car;
        car.AddNew();
        car.m_iCode = code;
        fill(car);
        car.Update(true);
    };
    add(1, [](Car &c) { c.m_iAutomobilType = typeAndItem; c.m_iColor = red; c.m_iModel = 31; c.m_iBrigade = 41; c.m_iYear = 1385; c.m_dAmount = 100; c.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
    add(2, [](Car &c) { c.m_iAutomobilType = otherType; c.m_iColor = 903; c.m_iYear = 1386; c.m_dAmount = 200.5; c.m_iFuel = 3; c.m_sNumOfPlates = u"۱۲ب۳۴۶-۶۸"_s; });
    add(3, [](Car &c) { c.m_iModel = deletedKey; c.m_iBrigade = deletedKey; c.m_iYear = 1390; c.m_dAmount = 300; c.m_iFuel = 4; c.m_sVIN = u"345678"_s; c.m_sNumOfPlates = u"98 ل 111 ایران 10"_s; });
    add(4, [](Car &c) { c.m_iStatus = 1; c.m_iYear = 1385; c.m_iColor = red; });
    add(5, [](Car &c) { c.m_iArchiveUserID = 7; c.m_iPersonID = 21; c.m_dateIntroduction = day(2026, 5, 1); c.m_sNumOfPlates = u"ایران 67 - 411 د 12"_s; });
    add(6, [](Car &c) { c.m_iArchiveUserID = 8; c.m_iPersonBuyerID = 21; c.m_dateIntroduction = day(2026, 5, 2, 15); c.m_sNumOfPlates = u"گذر موقت 98765"_s; });
    add(7, [](Car &c) { c.m_sDocumentsDeficit = u"برگ سبز، بیمه"_s; c.m_dateIntroduction = day(2026, 5, 3); });
    add(8, [](Car &c) { c.m_sFractionalParts = u"زاپاس"_s; c.m_dateIntroduction = day(2026, 5, 3, 1); });
    add(9, [](Car &c) { c.m_sChassisNum = u"NAS411100"_s; c.m_iYear = 1395; });
}

QList<int> TestCarFilterRows::codes(const KFilterValues &values, const QString &sort, int user, bool isListed)
{
    CTblAutomobilInformationJoins cars;
    cars.SetListing(isListed);
    cars.m_filter = KListFilter::condition(carFilters(), values, user);
    cars.m_sort = KSql::order(sort);
    cars.Open(true, true, true);
    QList<int> result;
    for (; !cars.IsEOF(); cars.MoveNext())
        result.append(cars.m_iCode);
    return result;
}

void TestCarFilterRows::rows_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<int>("user");
    const auto row = [](const char *name, const KFilterValues &values, const QList<int> &expected, int user = 0) {
        QTest::newRow(name) << values << expected << user;
    };
    row("nothing asked lists what is active", {}, {1, 2, 3, 5, 6, 7, 8, 9});
    row("with inactive ones", {{u"inactive"_s, true}}, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    row("not archived", {{u"archive"_s, 1}}, {1, 2, 3, 7, 8, 9}, 7);
    row("archived by oneself", {{u"archive"_s, 2}}, {5}, 7);
    row("archived by others", {{u"archive"_s, 3}}, {6}, 7);
    row("car type", {{u"type"_s, typeAndItem}}, {1});
    row("car type that no item names", {{u"type"_s, otherType}}, {2});
    row("colour", {{u"color"_s, red}}, {1});
    row("colour, inactive ones too", {{u"inactive"_s, true}, {u"color"_s, red}}, {1, 4});
    row("fuel 3", {{u"fuel"_s, 3}}, {2});
    row("fuel 4", {{u"fuel"_s, 4}}, {3});
    row("introduced from", {{u"introductionFrom"_s, day(2026, 5, 2)}}, {6, 7, 8});
    row("introduced to: all of the day is in, and the next day's first moment", {{u"introductionTo"_s, day(2026, 5, 2)}}, {5, 6, 7});
    row("documents lacking", {{u"documentsDeficit"_s, u"بیمه"_s}}, {7});
    row("parts lacking", {{u"partsDeficit"_s, u"زاپاس"_s}}, {8});
    row("amount from", {{u"amountFrom"_s, 200.5}}, {2, 3});
    row("amount to also takes cars without a price", {{u"amountTo"_s, 100}}, {1, 5, 6, 7, 8, 9});
    row("amount between", {{u"amountFrom"_s, 101}, {u"amountTo"_s, 299}}, {2});
    row("an amount range from 0 to 0 lists every amount", {{u"amountFrom"_s, 0}, {u"amountTo"_s, 0}}, {1, 2, 3, 5, 6, 7, 8, 9});
    row("year from 1385 and to 1390 lists exactly the cars of year 1385", {{u"yearFrom"_s, 1385}, {u"yearTo"_s, 1390}}, {1});
    row("year from 1395 and to 1390 lists none", {{u"yearFrom"_s, 1395}, {u"yearTo"_s, 1390}}, {});
    row("year from alone is that year", {{u"yearFrom"_s, 1386}}, {2});
    row("year to bounds from above", {{u"yearTo"_s, 1386}}, {1, 2, 5, 6, 7, 8});
    row("buyer", {{u"buyer"_s, 21}}, {6});
    row("owner", {{u"owner"_s, 21}}, {5});
    row("chassis number", {{u"chassis"_s, u"s4111"_s}}, {9});
    row("plate as it is stored", {{u"plate"_s, u"12 ب 345 ایران 67"_s}}, {1});
    row("plate in other digits and without blanks", {{u"plate"_s, u"۱۲ب۳۴۵۶۷"_s}}, {1});
    row("plate from its other end", {{u"plate"_s, u"ایران 67 345 ب 12"_s}}, {1});
    row("beginning of plates in all spellings", {{u"plate"_s, u" 12 ب 34"_s}}, {1, 2});
    row("plate in an older spelling by that of today", {{u"plate"_s, u"12 ب 346 ایران 68"_s}}, {2});
    row("first two digits", {{u"plate"_s, u"12"_s}}, {1, 2, 5});
    row("three digits, and not a VIN that begins so", {{u"plate"_s, u"345"_s}}, {1});
    row("three digits with the region, as one number", {{u"plate"_s, u"34567"_s}}, {1});
    row("three digits with the region", {{u"plate"_s, u"411 ایران 67"_s}}, {5});
    row("region", {{u"plate"_s, u"ایران ۶۷"_s}}, {1, 5});
    row("letter", {{u"plate"_s, u"ل"_s}}, {3});
    row("plate of another form", {{u"plate"_s, u"گذرموقت"_s}}, {6});
    row("its number", {{u"plate"_s, u"98765"_s}}, {6});
    row("plate with a wildcard", {{u"plate"_s, u"12%68"_s}}, {2});
    row("plate of nobody", {{u"plate"_s, u"12 ب 999"_s}}, {});
    row("blanks ask for no plate", {{u"plate"_s, u"  "_s}}, {1, 2, 3, 5, 6, 7, 8, 9});
    row("contradiction", {{u"color"_s, red}, {u"fuel"_s, 3}}, {});
}

void TestCarFilterRows::rows()
{
    QFETCH(KFilterValues, values);
    QFETCH(QList<int>, expected);
    QFETCH(int, user);
    QCOMPARE(codes(values, u"ai.iCode"_s, user), expected);
    // A list reads the same rows without the join that only repeats them.
    const ObservedStatements selects({u"SELECT"_s});
    QCOMPARE(codes(values, u"ai.iCode"_s, user, true), expected);
    QVERIFY(!selects.taken().constLast().contains(u"Items"_s));
}

void TestCarFilterRows::whatNamesTheRepeatingJoinKeepsIt_data()
{
    QTest::addColumn<QString>("sort");
    QTest::addColumn<KSql>("further");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("order by its column") << u"sTitle"_s << KSql() << true;
    QTest::newRow("order by its column with the alias") << u"it.sTitle"_s << KSql() << true;
    QTest::newRow("filter by its column") << u"ai.iCode"_s << KSql(" AND it.sName='a'") << true;
    QTest::newRow("filter by a text that only looks so") << u"ai.iCode"_s << KSql(" AND ai.sDesc<>'it.is' ") << true;
    QTest::newRow("names of other tables") << u"cm.sName"_s << KSql(" AND ai.iAutomobilType>0 AND (cc.sName IS NULL OR cc.sName<>'x')") << false;
}

void TestCarFilterRows::whatNamesTheRepeatingJoinKeepsIt()
{
    QFETCH(QString, sort);
    QFETCH(KSql, further);
    QFETCH(bool, isKept);
    const auto read = [&](bool isListed) {
        CTblAutomobilInformationJoins cars;
        cars.SetListing(isListed);
        cars.m_filter = "ai.iStatus=0" + further + " GROUP BY ai.iID";
        cars.m_sort = KSql::order(sort);
        cars.Open(true, true, true);
        QStringList rows;
        for (; !cars.IsEOF(); cars.MoveNext())
            rows << u"%1 %2 %3"_s.arg(cars.m_iCode).arg(cars.m_sModelName, cars.m_sClassName);
        rows.sort();
        return rows << QString::number(cars.CountMatching());
    };
    const QStringList stated = read(false);
    const ObservedStatements selects({u"SELECT"_s});
    QCOMPARE(read(true), stated);
    QCOMPARE(selects.taken().filter(u"Items"_s).size(), isKept ? selects.taken().size() : 0);
}

void TestCarFilterRows::carWhoseTypeAndColorBothNameItemsIsListedOnce()
{
    CTblAutomobilInformationJoins cars;
    const KSql filter = KListFilter::condition(carFilters(), {{u"type"_s, typeAndItem}}, 0);
    cars.m_filter = filter;
    cars.Open(true, true, true);
    QCOMPARE(cars.GetRecordsCount(), 1);
    // The grouping is what does it.
    cars.m_filter = KSql::formatted("ai.iStatus=0 AND ai.iAutomobilType=%1", int(typeAndItem));
    cars.Open(true, true, true);
    QCOMPARE(cars.GetRecordsCount(), 2);
}

void TestCarFilterRows::carWhoseModelOrClassWasDeletedIsListedWithEmptyNames()
{
    CTblAutomobilInformationJoins cars;
    cars.m_filter = KListFilter::condition(carFilters(), {}, 0);
    cars.m_sort = "ai.iCode";
    cars.Open(true, true, true);
    QCOMPARE(cars.m_iCode, 1);
    QCOMPARE(cars.m_sModelName, u"پراید 111"_s);
    QCOMPARE(cars.m_sClassName, u"SE"_s);
    cars.MoveNext();
    cars.MoveNext();
    QCOMPARE(cars.m_iCode, 3);
    QCOMPARE(cars.m_sModelName, QString());
    QCOMPARE(cars.m_sClassName, QString());
}

void TestCarFilterRows::typedQuoteIsLookedFor()
{
    QVERIFY(codes({{u"chassis"_s, u"a'b"_s}}).isEmpty());
    QVERIFY(codes({{u"chassis"_s, u"'; DELETE FROM AutomobilInformations; -- "_s}}).isEmpty());
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"9"_s);
    // A sign of the pattern is one here.
    QCOMPARE(codes({{u"chassis"_s, u"4_11"_s}}), QList<int>{9});
}

void TestCarFilterRows::everySortKeyOfTheListIsTakenByTheJoin_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"ai.iCode", "iPersonBuyerID", "bSold", "iPersonID", "iAutomobilType", "iModel", "iBrigade", "sNumOfPlates",
                            "iYear", "dateIntroduction", "iUsageType", "iColor", "iFuel", "dAmount", "sDocumentsDeficit",
                            "sFractionalParts", "iArchiveUserID"})
        QTest::newRow(key) << QString::fromLatin1(key);
    // The title of an item: a column of the join, though none of the list.
    QTest::newRow("sTitle, the order of an empty setting") << u"sTitle"_s;
}

void TestCarFilterRows::everySortKeyOfTheListIsTakenByTheJoin()
{
    QFETCH(QString, key);
    QCOMPARE(codes({}, key).size(), 8);
    QCOMPARE(codes({}, key + u" DESC"_s).size(), 8);
}

static const RegisteredTest<TestCarFilterRows, QCoreApplication> registeredCarFilterRows;
#include "TestCarFilterRows.moc"
