// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CTblDocs.h"

#include "suite/accounting/books/AccountLedger.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestCTblDocs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void balanceOfEachLevel_data();
    void balanceOfEachLevel();
    void rangeHoldsItsLastDayWhole_data();
    void rangeHoldsItsLastDayWhole();
    void bulkGivesWhatTheSingleStatementsGive_data();
    void bulkGivesWhatTheSingleStatementsGive();
    void groupHoldsItsGeneralAccountsOnly();
    void voidDocumentsDoNotCount();
    void sheetRunsTheBalanceOnInTheOrderOfTheDates();
    void sheetBringsForwardWhatLiesBeforeIt();
    void sheetOfADetailAccountHoldsItsRowsOnly();

private:
    void post(const QDateTime &date, int account, int detail, double amount, bool debit);

    TestOffice m_office;
    int m_person = 0;
};

namespace {

constexpr int rent = 620101;
constexpr int rentOfMay = 620101001;
constexpr int rentOfJune = 620101002;

QDateTime at(int month, int day, int hour = 0)
{
    return QDateTime(QDate(2026, month, day), QTime(hour, 0), Qt::UTC);
}

}

// The other side is posted to the bank, so that every document is like those that offices write.
void TestCTblDocs::post(const QDateTime &date, int account, int detail, double amount, bool debit)
{
    constexpr int year = 1405;
    const int num = CTblDocuments::AddDoc(Accounts::documentKindManual, date, u"سند"_s, year);
    CTblDocs::AddRecords(num, year,
                         {{detail > 0 ? detail : account, account == Accounts::persons ? m_person : 0, debit ? amount : 0,
                           debit ? 0 : amount, u"شرح %1"_s.arg(num)},
                          {Accounts::bank, 0, debit ? 0 : amount, debit ? amount : 0, {}}});
}

void TestCTblDocs::initTestCase()
{
    m_person = m_office.addPerson(u"علی رضایی"_s);
    m_office.database.run(u"INSERT INTO HesabKol(iCode,sName) VALUES(6201,'هزینه‌های اداری')"_s);
    m_office.database.run(u"INSERT INTO HesabMoeen(iCode,sName,iHesabKolCode) VALUES(620101,'اجاره',6201)"_s);
    m_office.database.run(u"INSERT INTO HesabTafsily(iCode,sName,iHesabMoeenCode) VALUES"
                          "(620101001,'اردیبهشت',620101),(620101002,'خرداد',620101)"_s);
    post(at(5, 10), Accounts::commissionIncome, 0, 1000, false);
    post(at(5, 20, 17), Accounts::commissionIncome, 0, 500, false);
    post(at(6, 5), Accounts::serviceIncome, 0, 300, false);
    post(at(6, 6), Accounts::serviceIncome, 0, 40, true);
    post(at(5, 15), rent, rentOfMay, 200, true);
    post(at(6, 15), rent, rentOfJune, 250, true);
    post(at(6, 20), Accounts::persons, 0, 90, true);
    post(at(6, 21), Accounts::commissionIncome, 0, 7777, false);
    m_office.database.run(u"UPDATE Documents SET iStatus=1 WHERE DATE(date)='2026-06-21'"_s);
}

void TestCTblDocs::balanceOfEachLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("bed");
    QTest::addColumn<double>("bes");
    const int kol = static_cast<int>(AccountLevel::Kol);
    const int moeen = static_cast<int>(AccountLevel::Moeen);
    const int tafsily = static_cast<int>(AccountLevel::Tafsily);
    QTest::newRow("general") << kol << 4102 << 0.0 << 1500.0;
    QTest::newRow("general with both sides") << kol << 4101 << 40.0 << 300.0;
    QTest::newRow("general above details") << kol << 6201 << 450.0 << 0.0;
    QTest::newRow("subsidiary") << moeen << int(Accounts::commissionIncome) << 0.0 << 1500.0;
    QTest::newRow("subsidiary above details") << moeen << rent << 450.0 << 0.0;
    QTest::newRow("detail") << tafsily << rentOfJune << 250.0 << 0.0;
    QTest::newRow("account without rows") << moeen << int(Accounts::cash) << 0.0 << 0.0;
    QTest::newRow("account that does not exist") << kol << 9999 << 0.0 << 0.0;
}

namespace {

AccountBalance single(int level, int code, const QDateTime &from = {}, const QDateTime &to = {})
{
    switch (static_cast<AccountLevel>(level)) {
    case AccountLevel::Kol:
        return CTblDocs::GetBedBesHesabKol1(code, from, to);
    case AccountLevel::Moeen:
        return CTblDocs::GetBedBesHesabMoeen1(code, from, to);
    case AccountLevel::Tafsily:
        return CTblDocs::GetBedBes2(code, from, to);
    }
    Q_UNREACHABLE();
}

}

void TestCTblDocs::balanceOfEachLevel()
{
    QFETCH(int, level);
    QFETCH(int, code);
    const AccountBalance balance = single(level, code);
    QTEST(balance.bed, "bed");
    QTEST(balance.bes, "bes");
}

void TestCTblDocs::rangeHoldsItsLastDayWhole_data()
{
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<QDateTime>("to");
    QTest::addColumn<double>("bes");
    QTest::newRow("both ends open") << QDateTime() << QDateTime() << 1500.0;
    QTest::newRow("from the day itself") << at(5, 20) << QDateTime() << 500.0;
    QTest::newRow("from the day after") << at(5, 21) << QDateTime() << 0.0;
    QTest::newRow("to the day, an afternoon document included") << QDateTime() << at(5, 20) << 1500.0;
    QTest::newRow("to the day before") << QDateTime() << at(5, 19) << 1000.0;
    QTest::newRow("the time of day of an end does not count") << at(5, 20, 23) << at(5, 20, 3) << 500.0;
    QTest::newRow("one day") << at(5, 10) << at(5, 10) << 1000.0;
    QTest::newRow("ends the wrong way round") << at(5, 20) << at(5, 10) << 0.0;
}

void TestCTblDocs::rangeHoldsItsLastDayWhole()
{
    QFETCH(QDateTime, from);
    QFETCH(QDateTime, to);
    QTEST(CTblDocs::GetBedBesHesabMoeen1(Accounts::commissionIncome, from, to).bes, "bes");
}

void TestCTblDocs::bulkGivesWhatTheSingleStatementsGive_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("group");
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<QDateTime>("to");
    QTest::addColumn<QList<int>>("codes");
    QTest::newRow("general, all") << 0 << 0 << QDateTime() << QDateTime() << QList<int>{1102, 1103, 4101, 4102, 6201};
    QTest::newRow("subsidiary, all") << 1 << 0 << QDateTime() << QDateTime()
                                     << QList<int>{110201, 110301, 410101, 410202, 620101};
    QTest::newRow("subsidiary, incomes") << 1 << 41 << QDateTime() << QDateTime() << QList<int>{410101, 410202};
    QTest::newRow("details") << 2 << 62 << QDateTime() << QDateTime() << QList<int>{rentOfMay, rentOfJune};
    QTest::newRow("incomes of June") << 0 << 41 << at(6, 1) << at(6, 30) << QList<int>{4101};
    QTest::newRow("an empty group") << 1 << 61 << QDateTime() << QDateTime() << QList<int>{};
}

void TestCTblDocs::bulkGivesWhatTheSingleStatementsGive()
{
    QFETCH(int, level);
    QFETCH(int, group);
    QFETCH(QDateTime, from);
    QFETCH(QDateTime, to);
    const QHash<int, AccountBalance> all = CTblDocs::balances(static_cast<AccountLevel>(level), from, to, group);
    QList<int> codes = all.keys();
    std::sort(codes.begin(), codes.end());
    QTEST(codes, "codes");
    for (const int code : codes) {
        const AccountBalance one = single(level, code, from, to);
        QCOMPARE(all.value(code).bed, one.bed);
        QCOMPARE(all.value(code).bes, one.bes);
        QVERIFY(one.bed + one.bes > 0);
    }
}

void TestCTblDocs::groupHoldsItsGeneralAccountsOnly()
{
    for (const int code : CTblDocs::balances(AccountLevel::Kol, {}, {}, 41).keys())
        QCOMPARE(code / 100, 41);
    QVERIFY(CTblDocs::balances(AccountLevel::Kol, {}, {}, 4).isEmpty());
}

void TestCTblDocs::voidDocumentsDoNotCount()
{
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::commissionIncome, at(6, 21), at(6, 21)).bes, 0.0);
    QVERIFY(CTblDocs::balances(AccountLevel::Moeen, at(6, 21), at(6, 21)).isEmpty());
    QVERIFY(AccountLedger::read(AccountLevel::Moeen, Accounts::commissionIncome, at(6, 21), at(6, 21)).rows.isEmpty());
}

void TestCTblDocs::sheetRunsTheBalanceOnInTheOrderOfTheDates()
{
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLevel::Moeen, Accounts::bank, {}, {});
    QStringList dates;
    QStringList balances;
    for (const AccountLedger::Row &row : sheet.rows) {
        dates.append(row.date.toString(u"MMdd"_s));
        balances.append(QString::number(row.balance));
    }
    QCOMPARE(dates.join(u' '), u"0510 0515 0520 0605 0606 0615 0620"_s);
    QCOMPARE(balances.join(u' '), u"1000 800 1300 1600 1560 1310 1220"_s);
    QCOMPARE(sheet.sum.net(), 1220.0);
    QVERIFY(sheet.before.isBalanced());
}

void TestCTblDocs::sheetBringsForwardWhatLiesBeforeIt()
{
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLevel::Kol, Accounts::bankKol, at(6, 6), at(6, 15));
    QCOMPARE(sheet.before.net(), 1600.0);
    QCOMPARE(sheet.rows.size(), 2);
    QCOMPARE(sheet.rows.at(0).balance, 1560.0);
    QCOMPARE(sheet.rows.at(1).balance, 1310.0);
    QCOMPARE(sheet.sum.net(), -290.0);
}

void TestCTblDocs::sheetOfADetailAccountHoldsItsRowsOnly()
{
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLevel::Tafsily, rentOfMay, {}, {});
    QCOMPARE(sheet.rows.size(), 1);
    QCOMPARE(sheet.rows.at(0).bed, 200.0);
    QVERIFY(sheet.rows.at(0).person.isEmpty());
    const AccountLedger::Sheet persons = AccountLedger::read(AccountLevel::Moeen, Accounts::persons, {}, {});
    QCOMPARE(persons.rows.at(0).person, u"علی رضایی"_s);
    QCOMPARE(persons.rows.at(0).fiscalYear, 1405);
}

static const RegisteredTest<TestCTblDocs, QCoreApplication> registeredCTblDocs;
#include "TestCTblDocs.moc"
