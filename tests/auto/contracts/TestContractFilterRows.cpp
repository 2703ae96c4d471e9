// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractFilter.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// What the clauses select of real rows.
class TestContractFilterRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rows_data();
    void rows();
    void typedTextIsTakenLiterally_data();
    void typedTextIsTakenLiterally();

private:
    QList<int> codes(KFilterValues values, int user = 0);

    TestDatabase m_database;
};

void TestContractFilterRows::initTestCase()
{
    prepareModuleTables(m_database);
    const auto add = [](qint32 code, const auto &fill) {
        CTblAutomobilContracts contract;
        contract.AddNew();
        contract.m_iCode = code;
        fill(contract);
        contract.Update(true);
    };
    using Contract = CTblAutomobilContracts;
    add(1, [](Contract &c) { c.m_iPersonFirstID = 10; c.m_iPersonSecondID = 20; c.m_dateContract = day(2026, 5, 1); });
    add(2, [](Contract &c) { c.m_iPersonFirstID = 11; c.m_iPersonSecondID = 20; c.m_dateContract = day(2026, 5, 2); });
    add(3, [](Contract &c) { c.m_iStatus = 1; c.m_dateContract = day(2026, 5, 3); });
    add(4, [](Contract &c) { c.m_bReturn = 1; c.m_dateContract = day(2026, 5, 2, 15); });
    add(5, [](Contract &c) { c.m_iArchiveUserID = 7; c.m_iContractType = 3; });
    add(6, [](Contract &c) { c.m_iArchiveUserID = 8; c.m_iContractType = 1; });
    add(7, [](Contract &c) { c.m_sDesc = u"پیش‌پرداخت 50% نقد"_s; c.m_dateExpiration = day(2026, 6, 1); });
    add(8, [](Contract &c) { c.m_sExplain = u"a_b 'c' d\\e"_s; c.m_dateExpiration = day(2026, 6, 3); });
    add(9, [](Contract &c) { c.m_sExplain = u"axb"_s; c.m_sDesc = u"500"_s; });
}

// Void contracts are among them unless the values leave them out.
QList<int> TestContractFilterRows::codes(KFilterValues values, int user)
{
    values.insert(u"inactive"_s, values.value(u"inactive"_s, true));
    CTblAutomobilContracts contracts;
    contracts.m_filter = KListFilter::condition(contractFilters(), values, user);
    contracts.m_sort = "iCode";
    contracts.Open(true, true, true);
    QList<int> result;
    for (; !contracts.IsEOF(); contracts.MoveNext())
        result.append(contracts.m_iCode);
    return result;
}

void TestContractFilterRows::rows_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<int>("user");
    const auto row = [](const char *name, const KFilterValues &values, const QList<int> &expected, int user = 0) {
        QTest::newRow(name) << values << expected << user;
    };
    row("everything", {}, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    row("default filters list what is not archived, not returned and not void",
        {{u"inactive"_s, false}, {u"returned"_s, 1}, {u"archive"_s, 1}}, {1, 2, 7, 8, 9}, 7);
    row("archived means by oneself", {{u"archive"_s, 2}}, {5}, 7);
    row("archived by others is every other user", {{u"archive"_s, 3}}, {6}, 7);
    row("archived by others, for a user who archived nothing", {{u"archive"_s, 3}}, {5, 6}, 9);
    row("returned", {{u"returned"_s, 2}}, {4});
    row("first party", {{u"seller"_s, 10}}, {1});
    row("second party", {{u"buyer"_s, 20}}, {1, 2});
    row("type rent", {{u"type"_s, 2}}, {6});
    row("type letter", {{u"type"_s, 4}}, {5});
    row("from-date is included", {{u"contractFrom"_s, day(2026, 5, 2)}}, {2, 3, 4});
    row("to-date takes all of its day and the next day's start", {{u"contractTo"_s, day(2026, 5, 2)}}, {1, 2, 3, 4});
    row("to-date of the day before", {{u"contractTo"_s, day(2026, 5, 1)}}, {1, 2});
    row("expiry between", {{u"expirationFrom"_s, day(2026, 6, 2)}, {u"expirationTo"_s, day(2026, 6, 2)}}, {8});
    row("description part", {{u"description"_s, u"نقد"_s}}, {7});
    row("contradiction", {{u"seller"_s, 10}, {u"type"_s, 4}}, {});
}

void TestContractFilterRows::rows()
{
    QFETCH(KFilterValues, values);
    QFETCH(QList<int>, expected);
    QFETCH(int, user);
    QCOMPARE(codes(values, user), expected);
}

void TestContractFilterRows::typedTextIsTakenLiterally_data()
{
    QTest::addColumn<bool>("inDescription");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("percent sign") << true << u"50%"_s << QList<int>{7};
    QTest::newRow("underscore") << false << u"a_b"_s << QList<int>{8};
    QTest::newRow("quote") << false << u"'c'"_s << QList<int>{8};
    QTest::newRow("backslash") << false << u"d\\e"_s << QList<int>{8};
    QTest::newRow("a statement") << false << u"' OR '1'='1"_s << QList<int>{};
}

void TestContractFilterRows::typedTextIsTakenLiterally()
{
    QFETCH(bool, inDescription);
    QFETCH(QString, typed);
    QFETCH(QList<int>, expected);
    QCOMPARE(codes({{inDescription ? u"description"_s : u"explanation"_s, typed}}), expected);
}

static const RegisteredTest<TestContractFilterRows, QApplication> registeredContractFilterRows;
#include "TestContractFilterRows.moc"
