// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandFilter.h"
#include "auto/db/CTblAutomobilDemandJoins.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Day.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

// What the clauses select of real rows.
class TestDemandFilterRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rows_data();
    void rows();
    void demandOfADeletedPersonIsNotListed();
    void typedTextIsTakenLiterally_data();
    void typedTextIsTakenLiterally();
    void rowLimitOfZeroSetsNone();

private:
    QList<int> codes(const KSql &filter, int limit = 0, bool isListed = false);
    int addPerson();
    int addItem(int type);

    TestDatabase m_database;
    int m_person = 0;
    int m_other = 0;
};

int TestDemandFilterRows::addPerson()
{
    CTblPersons person;
    person.AddNew();
    person.m_sName2 = u"a"_s;
    person.Update(true);
    return static_cast<int>(person.GetLastInsertedID());
}

int TestDemandFilterRows::addItem(int type)
{
    CTblItems item;
    item.AddNew();
    item.m_iType = type;
    item.m_sName = u"a"_s;
    item.Update(true);
    return static_cast<int>(item.GetLastInsertedID());
}

void TestDemandFilterRows::initTestCase()
{
    prepareModuleTables(m_database);
    m_person = addPerson();
    m_other = addPerson();
    using Demand = CTblAutomobilDemands;
    const auto add = [this](qint32 code, const auto &fill) {
        Demand demand;
        demand.AddNew();
        demand.m_iCode = code;
        demand.m_iPersonID = m_person;
        fill(demand);
        demand.Update(true);
    };
    add(1, [](Demand &d) { d.m_iModelFrom = 1386; d.m_iModelUpTo = 1389; d.m_dateReference = day(2026, 5, 1); });
    add(2, [](Demand &d) { d.m_iModelFrom = 1384; d.m_iModelUpTo = 1389; d.m_dateReference = day(2026, 5, 2, 15); });
    add(3, [](Demand &d) { d.m_iStatus = 1; d.m_dateReference = day(2026, 5, 3); });
    add(4, [](Demand &d) { d.m_iArchiveUserID = 7; d.m_dateReference = day(2026, 5, 4); });
    add(5, [](Demand &d) { d.m_iArchiveUserID = 8; });
    // A type and a colour that each match a row of Items.
    const int type = addItem(1);
    const int color = addItem(CTblItems::typeColor);
    add(6, [&](Demand &d) { d.m_iAutomobilType = type; d.m_iColor = color; });
    add(7, [this](Demand &d) { d.m_iPersonID = m_other; d.m_dAmountFrom = 500; d.m_dAmountUpTo = 900; });
    add(8, [](Demand &d) { d.m_sDescSpecial = u"تخفیف 50% 'نقد'"_s; });
    add(9, [](Demand &d) { d.m_sDescSpecial = u"a_b 500"_s; });
    add(10, [](Demand &d) { d.m_iPersonID = 999999; });
}

QList<int> TestDemandFilterRows::codes(const KSql &filter, int limit, bool isListed)
{
    CTblAutomobilDemandJoins demands;
    demands.m_filter = filter;
    demands.m_sort = "ad.iCode";
    demands.SetLimit(limit);
    demands.SetListing(isListed);
    QList<int> result;
    for (demands.Open(true, true, true); !demands.IsEOF(); demands.MoveNext())
        result.append(demands.m_iCode);
    return result;
}

void TestDemandFilterRows::rows_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<int>("user");
    const auto row = [](const char *name, const KFilterValues &values, const QList<int> &expected, int user = 0) {
        QTest::newRow(name) << values << expected << user;
    };
    row("active ones; type and colour both set are listed once", {}, {1, 2, 4, 5, 6, 7, 8, 9});
    row("with inactive ones", {{u"inactive"_s, true}}, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    row("not archived", {{u"archive"_s, 1}}, {1, 2, 6, 7, 8, 9}, 7);
    row("archived means by oneself", {{u"archive"_s, 2}}, {4}, 7);
    row("archived by others", {{u"archive"_s, 3}}, {5}, 7);
    row("years 1385 to 1390 find the demand for 1386 to 1389 and not the one for 1384 to 1389",
        {{u"yearFrom"_s, 1385}, {u"yearTo"_s, 1390}}, {1});
    row("years up to only: a demand without years has 0", {{u"yearTo"_s, 1388}}, {4, 5, 6, 7, 8, 9});
    row("amounts bound the demand's own range", {{u"amountFrom"_s, 400}, {u"amountTo"_s, 1000}}, {7});
    row("a narrower range of amounts", {{u"amountFrom"_s, 600}, {u"amountTo"_s, 1000}}, {});
    row("reference date from", {{u"referenceFrom"_s, day(2026, 5, 2)}}, {2, 4});
    row("reference date to takes all of its day", {{u"referenceTo"_s, day(2026, 5, 2)}}, {1, 2});
    row("who asks", {{u"person"_s, 2}}, {7});
    row("special description", {{u"specialDescription"_s, u"نقد"_s}}, {8});
    row("another type", {{u"type"_s, 999}}, {});
}

void TestDemandFilterRows::rows()
{
    QFETCH(KFilterValues, values);
    QFETCH(int, user);
    QTEST(codes(KListFilter::condition(demandFilters(), values, user)), "expected");
    // A list reads the same rows without the join that only repeats them.
    const ObservedStatements selects({u"SELECT"_s});
    QTEST(codes(KListFilter::condition(demandFilters(), values, user), 0, true), "expected");
    QVERIFY(!selects.taken().constLast().contains(u"Items"_s));
}

void TestDemandFilterRows::demandOfADeletedPersonIsNotListed()
{
    QVERIFY(!codes(KListFilter::condition(demandFilters(), {{u"inactive"_s, true}}, 0)).contains(10));
    m_database.run(u"UPDATE AutomobilDemands SET iPersonID=%1 WHERE iCode=10"_s.arg(m_person));
    QVERIFY(codes(KListFilter::condition(demandFilters(), {}, 0)).contains(10));
    m_database.run(u"UPDATE AutomobilDemands SET iPersonID=999999 WHERE iCode=10"_s);
}

void TestDemandFilterRows::typedTextIsTakenLiterally_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("percent sign") << u"50%"_s << QList<int>{8};
    QTest::newRow("underscore") << u"a_b"_s << QList<int>{9};
    QTest::newRow("quote") << u"'نقد'"_s << QList<int>{8};
    QTest::newRow("a statement") << u"' OR '1'='1"_s << QList<int>{};
}

void TestDemandFilterRows::typedTextIsTakenLiterally()
{
    QFETCH(QString, typed);
    QTEST(codes(KListFilter::condition(demandFilters(), {{u"specialDescription"_s, typed}}, 0)), "expected");
}

void TestDemandFilterRows::rowLimitOfZeroSetsNone()
{
    QCOMPARE(codes(KListFilter::condition(demandFilters(), {}, 0), 3).size(), 3);
    QCOMPARE(codes(KListFilter::condition(demandFilters(), {}, 0), 0).size(), 8);
}

static const RegisteredTest<TestDemandFilterRows, QApplication> registeredDemandFilterRows;
#include "TestDemandFilterRows.moc"
