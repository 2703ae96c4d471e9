// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractPosting.h"

#include "auto/contracts/figures/InstalmentSale.h"
#include "auto/settings/ContractSettings.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/Money.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/BooksAgree.h"

#include <QCoreApplication>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestContractPosting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void documentOfANewContract();
    void documentOfANewContractNeedsNoDatabase_data();
    void documentOfANewContractNeedsNoDatabase();
    void documentBalances();
    void editingKeepsTheNumberAndReplacesTheRows();
    void editingKeepsTheFiscalYearOfTheDocument();
    void documentThatIsGoneIsAddedAnew();
    void contractWithoutItsOwnNumberIsNamedByItsCode();
    void contractWithoutFiguresGetsADocumentWithoutRows();
    void closedDatabaseGivesNoNumberAndStopsThePosting();
    void documentOnAnAccountThatIsGoneIsRefused();
    void rollbackLeavesNeitherRowNorDocument();

private:
    void fill(CTblAutomobilContracts &contract);
    QString value(const char *statement) { return m_database.value(QLatin1String(statement)); }

    TestDatabase m_database;
};

void TestContractPosting::init()
{
    prepareModuleTables(m_database);
    setDefaultMoneyDecimals(0);
    GetDBSetting()->SetFiscalYear(1405);
}

void TestContractPosting::fill(CTblAutomobilContracts &contract)
{
    contract.m_iCode = 3;
    contract.m_iNum = 12;
    contract.m_dateContract = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    contract.m_iPersonFirstID = 1;
    contract.m_sName1 = u"علی"_s;
    contract.m_iPersonSecondID = 2;
    contract.m_sName2 = u"رضا"_s;
    contract.m_dCommission = 1000;
    contract.m_dPercentTax = 9;
    contract.m_dTax = 90;
    contract.m_dPercentImposition2 = 1;
    contract.m_dImposition2 = 10;
    contract.m_dDiscountSecond = 50;
}

void TestContractPosting::documentOfANewContract()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    KTransaction transaction;
    QVERIFY(ContractPosting::post(contract));
    transaction.commit();
    QCOMPARE(contract.m_iDocNum, 1);
    QCOMPARE(contract.m_iFiscalYear, 1405);
    QCOMPARE(value("SELECT CONCAT_WS('|', iNum, iFiscalYear, iKind, DATE(date), sDesc) FROM Documents"),
             u"1|1405|28|2026-11-20|مبایعه نامه ش :12"_s);
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/', iHesabKolCode, iHesabMoeenCode, iPersonID, dBed, dBes) ORDER BY iID)"
                   " FROM Docs WHERE iDocNum=1 AND iFiscalYear=1405"),
             u"1103/110301/1/1000/0,4102/410202/0/0/1000,1103/110301/2/1000/0,4102/410202/0/0/1000,"
             "4102/410202/0/50/0,1103/110301/2/0/50,"
             "1103/110301/1/90/0,2105/210501/0/0/90,1103/110301/2/10/0,2105/210502/0/0/10"_s);
    QCOMPARE(value("SELECT sDesc FROM Docs ORDER BY iID LIMIT 1"), u" کمیسیون پرداختی علی"_s);
}

void TestContractPosting::documentOfANewContractNeedsNoDatabase_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("postPlan");
    QTest::addColumn<bool>("hasSale");
    QTest::newRow("a sale") << 0 << true << false;
    QTest::newRow("instalments that are posted") << InstalmentSale::contractType << true << true;
    QTest::newRow("instalments that are not") << InstalmentSale::contractType << false << false;
}

void TestContractPosting::documentOfANewContractNeedsNoDatabase()
{
    QFETCH(int, type);
    QFETCH(bool, postPlan);
    QFETCH(bool, hasSale);
    ContractSettings settings = ContractSettings::load();
    KSecurity::setUser(1, true);
    settings.postPlan = postPlan;
    settings.save();
    CTblAutomobilContracts contract;
    fill(contract);
    contract.m_iContractType = type;
    contract.m_dAmount = 70000;
    const DocumentContent read = ContractPosting::documentOf(contract);
    QVERIFY(std::ranges::any_of(read.rows, [](const DocumentRow &row) { return row.debit == 70000 || row.credit == 70000; }) == hasSale);
    const ObservedStatements statements({});
    const DocumentContent made = ContractPosting::documentOfNew(contract, settings);
    QVERIFY(statements.taken().isEmpty());
    QCOMPARE(made.date, read.date);
    QCOMPARE(made.description, read.description);
    QVERIFY(made.rows == read.rows);
}

void TestContractPosting::documentBalances()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    contract.m_iPersonContract1 = 1;
    contract.m_iPersonFirstID = 0;
    QVERIFY(ContractPosting::post(contract));
    QVERIFY(IsEquals(value("SELECT SUM(dBed) FROM Docs").toDouble(), value("SELECT SUM(dBes) FROM Docs").toDouble()));
    QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
    QCOMPARE(value("SELECT SUM(dBed) FROM Docs WHERE iHesabMoeenCode=610502"), u"90"_s);
    QCOMPARE(value("SELECT SUM(dBed)-SUM(dBes) FROM Docs WHERE iHesabMoeenCode=110301 AND iPersonID=0"), u"0"_s);
}

void TestContractPosting::editingKeepsTheNumberAndReplacesTheRows()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    QVERIFY(ContractPosting::post(contract));
    const QString key = value("SELECT iID FROM Documents");
    contract.m_iContractType = 1;
    contract.m_dCommission = 2000;
    contract.m_dTax = 0;
    contract.m_dDiscountSecond = 0;
    contract.m_dImposition2 = 0;
    contract.m_dateContract = contract.m_dateContract.addDays(1);
    QVERIFY(ContractPosting::post(contract));
    QCOMPARE(contract.m_iDocNum, 1);
    QCOMPARE(value("SELECT CONCAT_WS('|', iID, iNum, iKind, DATE(date), sDesc) FROM Documents"),
             key + u"|1|28|2026-11-21|قرارداد اجاره ش :12"_s);
    QCOMPARE(value("SELECT CONCAT(COUNT(*), '/', SUM(dBed)) FROM Docs"), u"4/4000"_s);
}

void TestContractPosting::editingKeepsTheFiscalYearOfTheDocument()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    QVERIFY(ContractPosting::post(contract));
    GetDBSetting()->SetFiscalYear(1406);
    QVERIFY(ContractPosting::post(contract));
    QCOMPARE(contract.m_iFiscalYear, 1405);
    QCOMPARE(value("SELECT GROUP_CONCAT(iFiscalYear) FROM Documents"), u"1405"_s);
}

void TestContractPosting::documentThatIsGoneIsAddedAnew()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    contract.m_iDocNum = 77;
    contract.m_iFiscalYear = 1404;
    QVERIFY(ContractPosting::post(contract));
    QCOMPARE(contract.m_iDocNum, 1);
    QCOMPARE(contract.m_iFiscalYear, 1405);
}

void TestContractPosting::contractWithoutItsOwnNumberIsNamedByItsCode()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    contract.m_iNum = 0;
    QVERIFY(ContractPosting::post(contract));
    QCOMPARE(value("SELECT sDesc FROM Documents"), u"مبایعه نامه ش :3"_s);
}

void TestContractPosting::contractWithoutFiguresGetsADocumentWithoutRows()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    contract.m_iCode = 1;
    QVERIFY(ContractPosting::post(contract));
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"1"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
}

void TestContractPosting::closedDatabaseGivesNoNumberAndStopsThePosting()
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    fill(contract);
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!ContractPosting::post(contract));
    QCOMPARE(contract.m_iDocNum, 0);
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"0"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
}

void TestContractPosting::documentOnAnAccountThatIsGoneIsRefused()
{
    m_database.run(u"DELETE FROM HesabMoeen WHERE iCode=%1"_s.arg(int(Accounts::commissionIncome)));
    {
        const KTransaction transaction;
        CTblAutomobilContracts contract;
        contract.AddNew();
        fill(contract);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, (void)ContractPosting::post(contract));
    }
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"0"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
}

void TestContractPosting::rollbackLeavesNeitherRowNorDocument()
{
    {
        const KTransaction transaction;
        CTblAutomobilContracts contract;
        contract.AddNew();
        fill(contract);
        QVERIFY(ContractPosting::post(contract));
        contract.Update(true);
    }
    QCOMPARE(value("SELECT COUNT(*) FROM AutomobilContracts"), u"0"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"0"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
}

static const RegisteredTest<TestContractPosting, QCoreApplication> registeredContractPosting;
#include "TestContractPosting.moc"
