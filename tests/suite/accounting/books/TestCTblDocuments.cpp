// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QSet>
#include <QtTest>

#include <limits>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr int year = 1405;

const QDateTime day(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);

DocumentRow rowOf(double bed, double bes)
{
    return {Accounts::persons, 1, bed, bes, u"شرح"_s};
}

}

class TestCTblDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void numbersBeginWithOneInEveryFiscalYear();
    void headerHoldsWhatWasGiven();
    void numberOfARolledBackDocumentIsDrawnAgain();
    void twoConnectionsDrawDifferentNumbers();
    void secondDrawerWaitsForTheFirstToEnd();
    void closedDatabaseAddsAndEditsNothing();
    void withoutAFiscalYearNothingIsAdded();
    void editKeepsTheNumber();
    void editOfAMissingDocumentIsRefused();
    void emptyKeepsTheHeader();
    void deleteTakesHeaderAndRows();
    void deleteRespectsKindAndUser();
    void numberZeroTouchesNothing();
    void documentMustBalance_data();
    void documentMustBalance();
    void rowOnAnAccountOutsideTheChartIsRefused();
    void rowThatMayNotStandIsRefused_data();
    void rowThatMayNotStandIsRefused();
    void refusedDocumentLeavesNothingBehind();

private:
    QString count(const char *table) { return m_office.database.value(u"SELECT COUNT(*) FROM %1"_s.arg(QLatin1String(table))); }
    int addDocument(double bed, double bes);

    TestOffice m_office;
};

void TestCTblDocuments::init()
{
    GetDBSetting()->SetClosedDB(false);
    m_office.database.run(u"DELETE FROM Docs"_s);
    m_office.database.run(u"DELETE FROM Documents"_s);
}

int TestCTblDocuments::addDocument(double bed, double bes)
{
    const int num = CTblDocuments::AddDoc(Accounts::documentKindContract, day, u"سند"_s, year);
    CTblDocs::AddRecords(num, year, {rowOf(bed, 0)});
    CTblDocs::AddRecords(num, year, {rowOf(0, bes)});
    return num;
}

void TestCTblDocuments::numbersBeginWithOneInEveryFiscalYear()
{
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 1);
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 2);
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year + 1), 1);
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 3);
}

void TestCTblDocuments::headerHoldsWhatWasGiven()
{
    const int num = CTblDocuments::AddDoc(Accounts::documentKindContract, day, u"مبایعه نامه ش : 7"_s, year);
    CTblDocuments header;
    header.m_filter = KSql::formatted("iNum=%1", num);
    header.Open(true, true, true);
    QCOMPARE(header.m_iKind, 28);
    QCOMPARE(header.m_iFiscalYear, year);
    QCOMPARE(header.m_date, day);
    QCOMPARE(header.m_sDesc, u"مبایعه نامه ش : 7"_s);
    QCOMPARE(header.m_iUserID, m_office.admin);
    QCOMPARE(header.m_iStatus, 0);
}

void TestCTblDocuments::numberOfARolledBackDocumentIsDrawnAgain()
{
    {
        KTransaction transaction;
        QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 1);
    }
    QCOMPARE(count("Documents"), u"0"_s);
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 1);
}

void TestCTblDocuments::twoConnectionsDrawDifferentNumbers()
{
    constexpr int threads = 4;
    constexpr int documents = 25;
    std::mutex mutex;
    QList<int> drawn;
    QStringList failures;
    auto draw = [&] {
        for (int i = 0; i < documents; ++i) {
            try {
                int num = 0;
                {
                    KTransaction transaction;
                    num = CTblDocuments::AddDoc(28, day, QString(), year);
                    CTblDocs::AddRecords(num, year, {rowOf(1, 0)});
                    CTblDocs::AddRecords(num, year, {rowOf(0, 1)});
                    transaction.commit();
                }
                const std::lock_guard lock(mutex);
                drawn.append(num);
            } catch (const std::exception &error) {
                const std::lock_guard lock(mutex);
                failures.append(QString::fromUtf8(error.what()));
            }
        }
    };
    std::vector<std::thread> drawers;
    for (int i = 0; i < threads; ++i)
        drawers.emplace_back(draw);
    for (std::thread &drawer : drawers)
        drawer.join();
    QVERIFY2(failures.isEmpty(), qPrintable(failures.join(u'\n')));
    QCOMPARE(QSet<int>(drawn.cbegin(), drawn.cend()).size(), threads * documents);
    QCOMPARE(*std::max_element(drawn.cbegin(), drawn.cend()), threads * documents);
}

void TestCTblDocuments::secondDrawerWaitsForTheFirstToEnd()
{
    std::atomic<int> second{0};
    std::thread drawer;
    {
        KTransaction transaction;
        QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 1);
        drawer = std::thread([&second] { second = CTblDocuments::AddDoc(28, day, QString(), year); });
        QTest::qWait(300);
        QCOMPARE(second.load(), 0);
        transaction.commit();
    }
    drawer.join();
    QCOMPARE(second.load(), 2);
}

void TestCTblDocuments::closedDatabaseAddsAndEditsNothing()
{
    const int num = CTblDocuments::AddDoc(28, day, u"پیش از بستن"_s, year);
    GetDBSetting()->SetClosedDB(true);
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), year), 0);
    QVERIFY(!CTblDocuments::EditDoc(num, year, day, u"پس از بستن"_s));
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(sDesc) FROM Documents"_s), u"پیش از بستن"_s);
}

void TestCTblDocuments::withoutAFiscalYearNothingIsAdded()
{
    QCOMPARE(CTblDocuments::AddDoc(28, day, QString(), 0), 0);
    QCOMPARE(count("Documents"), u"0"_s);
}

void TestCTblDocuments::editKeepsTheNumber()
{
    const int num = CTblDocuments::AddDoc(28, day, u"یک"_s, year);
    QVERIFY(CTblDocuments::EditDoc(num, year, day.addDays(1), u"دو"_s));
    QCOMPARE(m_office.database.value(u"SELECT CONCAT(iNum,' ',sDesc,' ',DATE(date)) FROM Documents"_s),
             u"1 دو 2026-11-21"_s);
}

void TestCTblDocuments::editOfAMissingDocumentIsRefused()
{
    const int num = CTblDocuments::AddDoc(28, day, QString(), year);
    QVERIFY(!CTblDocuments::EditDoc(num + 1, year, day, QString()));
    QVERIFY(!CTblDocuments::EditDoc(num, year + 1, day, QString()));
    QVERIFY(!CTblDocuments::EditDoc(0, year, day, QString()));
}

void TestCTblDocuments::emptyKeepsTheHeader()
{
    const int num = addDocument(5, 5);
    const int other = addDocument(7, 7);
    CTblDocuments::EmptyDoc(num, year);
    QCOMPARE(count("Documents"), u"2"_s);
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(DISTINCT iDocNum) FROM Docs"_s), QString::number(other));
}

void TestCTblDocuments::deleteTakesHeaderAndRows()
{
    const int num = addDocument(5, 5);
    addDocument(7, 7);
    CTblDocuments::DeleteDoc(num, year + 1, 0, 0, QString());
    QCOMPARE(count("Documents"), u"2"_s);
    CTblDocuments::DeleteDoc(num, year, 0, 0, QString());
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"2"_s);
}

void TestCTblDocuments::deleteRespectsKindAndUser()
{
    const int num = addDocument(5, 5);
    CTblDocuments::DeleteDoc(num, year, Accounts::documentKindReceipt, 0, QString());
    CTblDocuments::DeleteDoc(num, year, 0, m_office.clerk, QString());
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"2"_s);
    CTblDocuments::DeleteDoc(num, year, Accounts::documentKindContract, m_office.admin, u"test"_s);
    QCOMPARE(count("Documents"), u"0"_s);
}

void TestCTblDocuments::numberZeroTouchesNothing()
{
    addDocument(5, 5);
    m_office.database.run(u"INSERT INTO Docs(iDocNum,iFiscalYear) VALUES(0,%1)"_s.arg(year));
    CTblDocuments::EmptyDoc(0, year);
    CTblDocuments::DeleteDoc(0, year, 0, 0, QString());
    CTblDocuments::EmptyDoc(0, 0);
    CTblDocuments::DeleteDoc(0, 0, 0, 0, QString());
    CTblDocuments::RequireBalanced(0, year);
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"3"_s);
}

void TestCTblDocuments::documentMustBalance_data()
{
    QTest::addColumn<double>("bed");
    QTest::addColumn<double>("bes");
    QTest::addColumn<bool>("balances");
    QTest::newRow("equal") << 1500.0 << 1500.0 << true;
    QTest::newRow("both nothing") << 0.0 << 0.0 << true;
    QTest::newRow("less than 0.0001 apart") << 1500.00005 << 1500.0 << true;
    QTest::newRow("0.0002 apart") << 1500.0002 << 1500.0 << false;
    QTest::newRow("more debit") << 1501.0 << 1500.0 << false;
    QTest::newRow("more credit") << 1500.0 << 1501.0 << false;
    QTest::newRow("debit alone") << 1.0 << 0.0 << false;
}

void TestCTblDocuments::documentMustBalance()
{
    QFETCH(double, bed);
    QFETCH(double, bes);
    QFETCH(bool, balances);
    const int num = addDocument(bed, bes);
    addDocument(3, 9);
    bool refused = false;
    try {
        CTblDocuments::RequireBalanced(num, year);
    } catch (const KAccountingError &error) {
        refused = true;
        QVERIFY(error.userMessage().contains(QString::number(num)));
    }
    QCOMPARE(refused, !balances);
}

void TestCTblDocuments::rowOnAnAccountOutsideTheChartIsRefused()
{
    const int num = addDocument(5, 5);
    CTblDocuments::RequireBalanced(num, year);
    for (const bool debit : {true, false}) {
        DocumentRow row = rowOf(debit ? 1 : 0, debit ? 0 : 1);
        row.account = 999901;
        CTblDocs::AddRecords(num, year, {row});
    }
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblDocuments::RequireBalanced(num, year));
}

void TestCTblDocuments::rowThatMayNotStandIsRefused_data()
{
    QTest::addColumn<int>("num");
    QTest::addColumn<int>("account");
    QTest::addColumn<double>("bed");
    QTest::addColumn<double>("bes");
    QTest::newRow("no document") << 0 << Accounts::persons << 1.0 << 0.0;
    QTest::newRow("negative debit") << 1 << Accounts::persons << -1.0 << 0.0;
    QTest::newRow("negative credit") << 1 << Accounts::persons << 0.0 << -1.0;
    QTest::newRow("both sides") << 1 << Accounts::persons << 1.0 << 1.0;
    QTest::newRow("no number") << 1 << Accounts::persons << std::numeric_limits<double>::quiet_NaN() << 0.0;
    QTest::newRow("infinite") << 1 << Accounts::persons << 0.0 << std::numeric_limits<double>::infinity();
    QTest::newRow("account that is no subsidiary one") << 1 << Accounts::personsKol << 1.0 << 0.0;
    QTest::newRow("no account") << 1 << 0 << 1.0 << 0.0;
}

void TestCTblDocuments::rowThatMayNotStandIsRefused()
{
    QFETCH(int, num);
    QFETCH(int, account);
    QFETCH(double, bed);
    QFETCH(double, bes);
    DocumentRow row = rowOf(bed, bes);
    row.account = account;
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblDocs::AddRecords(num, year, {row}));
    QCOMPARE(count("Docs"), u"0"_s);
}

void TestCTblDocuments::refusedDocumentLeavesNothingBehind()
{
    auto post = [this] {
        KTransaction transaction;
        CTblDocuments::RequireBalanced(addDocument(10, 9), year);
        transaction.commit();
    };
    QVERIFY_THROWS_EXCEPTION(KAccountingError, post());
    QCOMPARE(count("Documents"), u"0"_s);
    QCOMPARE(count("Docs"), u"0"_s);
}

static const RegisteredTest<TestCTblDocuments, QCoreApplication> registeredCTblDocuments;
#include "TestCTblDocuments.moc"
