// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestSuiteSchema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void freshDatabaseHoldsEveryTable_data();
    void freshDatabaseHoldsEveryTable();
    void freshDatabaseHoldsTheAccounts_data();
    void freshDatabaseHoldsTheAccounts();
    void everyAccountStandsUnderAGeneralOne();
    void balancesHaveTheirKeys();
    void runTwiceChangesNothing();
    void stepThatStoppedHalfwayIsRunAgain();
    void officeOfAnEarlierProgramKeepsItsRows();
    void instalmentSalesArePostedInNewOfficesAlone();
    void databaseOfANewerProgramIsRefused();
    void moduleVersionIsKeptAndNeverLowered();
    void missingVersionIsNoVersion_data();
    void missingVersionIsNoVersion();
    void fiscalYearIsAddedToContractsOnce();
    void moduleTablesAreFoundByTheirKeys_data();
    void moduleTablesAreFoundByTheirKeys();
    void tablesAreUtf8();

private:
    TestDatabase m_database;
};

void TestSuiteSchema::init()
{
    m_database.recreate();
}

void TestSuiteSchema::freshDatabaseHoldsEveryTable_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("columns");
    const auto row = [](const char *table, const char *columns) {
        QTest::newRow(table) << QString::fromLatin1(table) << QString::fromLatin1(columns);
    };
    row("Properties", "iID,sSection,sKey,sValue");
    row("Users", "iID,sUser,sPasswordHash,sName,iStatus,bAdmin");
    row("UserRights", "iID,iUserID,sForm,iRights");
    row("Persons", "iID,iCode,sName,sFamily,sName2,iSex,sFatherName,dateBirth,sBirthCity,sIdentityNum,sIdentityCity,"
                   "sNationalCode,sEconomicCode,sPostalCode,sAreaCode,sTel,sMobile,sAddress,iKind,bNatural,iTaxKind,"
                   "iTaxZone,iProvinceCode,iCityCode,dPercentDiscount,iStatus");
    row("Items", "iID,iType,sName,sTitle,iStatus");
    row("Departments", "iID,sName");
    row("HesabKol", "iID,iCode,sName,iStatus");
    row("HesabMoeen", "iID,iCode,sName,iStatus,iHesabKolCode");
    row("HesabTafsily", "iID,iCode,sName,iStatus,iHesabMoeenCode");
    row("Documents", "iID,iNum,iFiscalYear,iKind,date,sDesc,iUserID,iStatus,bSummed");
    row("AccountTotals", "iDay,iMonth,iHesabMoeenCode,iHesabTafsilyCode,iHesabKolCode,dBed,dBes,iRows");
    row("AccountTotalChanges", "iID,iDay,iMonth,iHesabMoeenCode,iHesabTafsilyCode,iHesabKolCode,dBed,dBes,iRows");
    row("Docs", "iID,iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,iPersonID,dBed,dBes,sDesc");
    row("Receipts", "iID,iPersonID,date,dAmount,sDesc,iDocNum,iFiscalYear,iUserID,iTable,iRecordID,iPaymentID,iStatus,"
                    "iVoidUserID,dateVoid,sVoidReason,iKind,iMethod,iAccount,iFor,iSide,sFor,iChequeID,iVoidDocNum,iVoidFiscalYear,dateCreate");
    row("Cheques", "iID,iKind,iState,sSayad,sNumber,sBank,sBranch,sBranchCode,dAmount,dateDue,sDrawer,iPersonID,iAccount,iEndorsedID,"
                   "iTable,iRecordID,sFor,sDesc,iUserID,dateCreate");
    row("ChequeChanges", "iID,iChequeID,iFromState,iToState,date,iAccount,iPersonID,sDesc,iDocNum,iFiscalYear,iUserID,iStatus,"
                         "iVoidUserID,dateVoid,sVoidReason,iVoidDocNum,iVoidFiscalYear");
    row("FollowUps", "iID,iTable,iRecordID,iPaymentID,date,sNote,datePromised,iUserID,iKind");
    row("UnitTokens", "sToken,dateCreate,bRefused");
    row("Bin", "iID,sTable,iRecordID,sTitle,iUserID,sComputer,date");
    row("BinRows", "iID,iBinID,sTable,iRecordID,oRow");
    row("Changes", "iID,sTable,iRecordID,iKind,iUserID,sComputer,date,sValues");
    row("Placeholders", "iID,sTable,iRecordID,sSession");
    row("FileDocs", "iID,iTable,iRecordID,iScope,iUserID,sName,oData,dateCreate");
    row("CustomFields", "iID,iTable,sName,iType");
    row("CustomFieldRecords", "iID,iFieldID,iTable,iRecordID,sValue");
    row("Services", "iID,iCode,sName");
    row("Factors", "iID,iType,iStatus,iPersonID,iDepartmentID,date,sDesc,dAmount,dDiscount,dTax,dImposition,iDocNum,"
                   "iFiscalYear,iUserID");
    row("FactorStuffs", "iID,iFactorNum,iType,iKind,iServiceID,sDesc,dCount,dPrice,dAmount,iDepartmentID");
    row("Alarms", "iID,iTable,iRecordID,iRecordID2,iUserID,date,sDesc,iStatus,bRepeat,dateTold");
}

void TestSuiteSchema::freshDatabaseHoldsEveryTable()
{
    QFETCH(QString, table);
    QFETCH(QString, columns);
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY ORDINAL_POSITION) FROM "
                              "information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='%1'"_s
                                  .arg(table)),
             columns);
    QCOMPARE(SuiteSchema::storedVersion(), SuiteSchema::currentVersion());
}

void TestSuiteSchema::freshDatabaseHoldsTheAccounts_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("constant");
    const QString kol = u"HesabKol"_s;
    const QString moeen = u"HesabMoeen"_s;
    const auto row = [](const QString &table, int code, int constant, const QString &name) {
        QTest::addRow("%d", code) << table << code << name << constant;
    };
    row(kol, 1101, Accounts::cashKol, u"صندوق"_s);
    row(kol, 1102, Accounts::bankKol, u"بانک"_s);
    row(kol, 1103, Accounts::personsKol, u"اشخاص"_s);
    row(moeen, 110101, Accounts::cash, u"صندوق"_s);
    row(moeen, 110201, Accounts::bank, u"بانک"_s);
    row(moeen, 110301, Accounts::persons, u"اشخاص"_s);
    row(kol, 4101, Accounts::serviceIncomeKol, u"درآمد خدمات"_s);
    row(kol, 6101, Accounts::serviceExpenseKol, u"هزینه خدمات"_s);
    row(moeen, 410101, Accounts::serviceIncome, u"درآمد خدمات"_s);
    row(moeen, 410102, Accounts::saleDiscount, u"تخفیف فروش خدمات"_s);
    row(moeen, 610101, Accounts::serviceExpense, u"هزینه خدمات"_s);
    row(moeen, 610102, Accounts::purchaseDiscount, u"تخفیف خرید خدمات"_s);
    row(moeen, 410202, Accounts::commissionIncome, u"درآمد کمیسیون"_s);
    row(moeen, 610502, Accounts::taxExpense, u"هزینه مالیات ارزش افزوده"_s);
    row(moeen, 610503, Accounts::dutyExpense, u"هزینه عوارض"_s);
    row(moeen, 110481, Accounts::chequesInHand, u"چک‌های دریافتی نزد صندوق"_s);
    row(moeen, 110482, Accounts::chequesDeposited, u"چک‌های در جریان وصول"_s);
    row(moeen, 210281, Accounts::chequesPayable, u"چک‌های پرداختی"_s);
    row(moeen, 210681, Accounts::carSaleClearing, u"واسط فروش اقساطی خودرو"_s);
    row(moeen, 410281, Accounts::instalmentInterest, u"درآمد بهره اقساط"_s);
    row(moeen, 410381, Accounts::carSales, u"فروش خودرو"_s);
    row(moeen, 210501, Accounts::taxPayable, u"مالیات ارزش افزوده پرداختنی"_s);
    row(moeen, 210502, Accounts::dutyPayable, u"عوارض پرداختنی"_s);
}

void TestSuiteSchema::freshDatabaseHoldsTheAccounts()
{
    QFETCH(QString, table);
    QFETCH(int, code);
    QFETCH(QString, name);
    QTEST(code, "constant");
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(u"SELECT sName FROM %1 WHERE iCode=%2"_s.arg(table).arg(code)), name);
}

void TestSuiteSchema::everyAccountStandsUnderAGeneralOne()
{
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM HesabMoeen m JOIN HesabKol k ON k.iCode=m.iHesabKolCode "
                              "WHERE m.iCode DIV 100=k.iCode"_s),
             u"18"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM HesabMoeen"_s), u"18"_s);
}

void TestSuiteSchema::balancesHaveTheirKeys()
{
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(CONCAT(TABLE_NAME,'.',COLUMN_NAME) ORDER BY 1) FROM "
                              "information_schema.STATISTICS WHERE TABLE_SCHEMA=DATABASE() AND SEQ_IN_INDEX=1 AND "
                              "CONCAT(TABLE_NAME,'.',COLUMN_NAME) IN ('Docs.iHesabKolCode','Docs.iHesabMoeenCode',"
                              "'Docs.iHesabTafsilyCode','Documents.date')"_s),
             u"Docs.iHesabKolCode,Docs.iHesabMoeenCode,Docs.iHesabTafsilyCode,Documents.date"_s);
}

void TestSuiteSchema::runTwiceChangesNothing()
{
    const QString counts = u"SELECT CONCAT_WS('/',(SELECT COUNT(*) FROM HesabKol),(SELECT COUNT(*) FROM "
                           "HesabMoeen),(SELECT COUNT(*) FROM Departments),(SELECT COUNT(*) FROM Properties))"_s;
    SuiteSchema::upgrade();
    const QString before = m_database.value(counts);
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(counts), before);
}

void TestSuiteSchema::stepThatStoppedHalfwayIsRunAgain()
{
    SuiteSchema::upgrade();
    m_database.run(u"UPDATE HesabKol SET sName='صندوق مرکزی' WHERE iCode=1101"_s);
    m_database.run(u"DELETE FROM HesabMoeen WHERE iCode=610503"_s);
    m_database.run(u"DROP TABLE Receipts"_s);
    m_database.run(u"UPDATE Properties SET sValue='2' WHERE sSection='Schema' AND sKey='Suite'"_s);
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM HesabMoeen"_s), u"18"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    // What the office has changed since stays.
    QCOMPARE(m_database.value(u"SELECT sName FROM HesabKol WHERE iCode=1101"_s), u"صندوق مرکزی"_s);
    QCOMPARE(SuiteSchema::storedVersion(), SuiteSchema::currentVersion());
}

// As the program left it that knew neither reminders nor invoices: step 6, in use.
void TestSuiteSchema::officeOfAnEarlierProgramKeepsItsRows()
{
    SuiteSchema::upgrade();
    for (const char *statement :
         {"DROP TABLE Alarms", "DROP TABLE Services", "DROP TABLE Factors", "DROP TABLE FactorStuffs",
          "DELETE FROM HesabMoeen WHERE iCode IN (410101,410102,610101,610102)", "DELETE FROM HesabKol WHERE iCode IN (4101,6101)",
          "ALTER TABLE Docs DROP KEY kol, DROP KEY tafsily", "ALTER TABLE Documents DROP KEY date",
          "UPDATE Properties SET sValue='6' WHERE sSection='Schema' AND sKey='Suite'",
          "INSERT INTO Persons(iID,iCode,sName2) VALUES(3,1,'علی رضایی')",
          "INSERT INTO Documents(iID,iNum,iFiscalYear,iKind,date,sDesc) VALUES(5,1,1405,3,'2026-05-01','دریافت')",
          "INSERT INTO Docs(iID,iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) "
          "VALUES(8,1,1405,1101,110101,300.5,0),(9,1,1405,1103,110301,0,300.5)",
          "INSERT INTO ReportLayouts(iID,sGroup,sReport,sName,sLayout) VALUES(2,'Documents','List','اداره','{}')",
          // An account that the office has opened itself under a number that the program brings now keeps its name.
          "INSERT INTO HesabKol(iID,iCode,sName) VALUES(90,4101,'فروش کارت')",
          "INSERT INTO HesabMoeen(iID,iCode,sName,iHesabKolCode) VALUES(91,410101,'کارت',4101)"})
        m_database.run(QString::fromUtf8(statement));
    const QString rows = u"SELECT CONCAT_WS('|',(SELECT GROUP_CONCAT(CONCAT_WS('/',iID,iCode,sName2)) FROM Persons),(SELECT GROUP_CONCAT("
                         "CONCAT_WS('/',iID,iNum,iFiscalYear,iKind,date,sDesc,iStatus)) FROM Documents),(SELECT GROUP_CONCAT(CONCAT_WS('/',iID,"
                         "iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) ORDER BY iID) FROM Docs),(SELECT GROUP_CONCAT(CONCAT_WS("
                         "'/',iID,sName,sLayout)) FROM ReportLayouts),(SELECT GROUP_CONCAT(CONCAT_WS('/',iID,iCode,sName)) FROM HesabKol WHERE "
                         "iCode IN (1101,4101)),(SELECT GROUP_CONCAT(CONCAT_WS('/',iID,iCode,sName)) FROM HesabMoeen WHERE iCode=410101))"_s;
    const QString before = m_database.value(rows);
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(rows), before);
    QVERIFY(before.contains(u"90/4101/فروش کارت"_s));
    QCOMPARE(SuiteSchema::storedVersion(), SuiteSchema::currentVersion());
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM HesabMoeen"_s), u"18"_s);
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(TABLE_NAME ORDER BY 1) FROM information_schema.TABLES WHERE "
                              "TABLE_SCHEMA=DATABASE() AND TABLE_NAME IN ('Alarms','Services','Factors','FactorStuffs')"_s),
             u"Alarms,Factors,FactorStuffs,Services"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.STATISTICS WHERE TABLE_SCHEMA=DATABASE() AND "
                              "CONCAT(TABLE_NAME,'.',INDEX_NAME) IN ('Docs.kol','Docs.tafsily','Documents.date')"_s),
             u"3"_s);
}

// The documents of instalment sales change with the switch, so that it stands on only where nothing has been entered yet.
void TestSuiteSchema::instalmentSalesArePostedInNewOfficesAlone()
{
    const QString posts = u"SELECT sValue FROM Properties WHERE sSection='AutomobilContracts' AND sKey='bPostPlan'"_s;
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(posts), u"1"_s);
    m_database.run(u"DELETE FROM Properties WHERE sKey='bPostPlan'"_s);
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی رضایی')"_s);
    m_database.run(u"UPDATE Properties SET sValue='12' WHERE sSection='Schema' AND sKey='Suite'"_s);
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(posts), u"0"_s);
}

void TestSuiteSchema::databaseOfANewerProgramIsRefused()
{
    SuiteSchema::upgrade();
    const int newer = SuiteSchema::currentVersion() + 1;
    CTblProperties::DBWriteSettingInt(u"Schema"_s, u"Suite"_s, newer);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, SuiteSchema::upgrade());
    QCOMPARE(SuiteSchema::storedVersion(), newer);
}

void TestSuiteSchema::moduleVersionIsKeptAndNeverLowered()
{
    SuiteSchema::upgrade();
    QCOMPARE(SuiteSchema::moduleVersion(), 0.0);
    SuiteSchema::raiseModuleVersion(6.211);
    QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
    QCOMPARE(CTblProperties::DBReadSetting(u"Schema"_s, u"TzAuto"_s, 0.0), 6.211);
    // Of two programs the later one may be the one that is behind.
    SuiteSchema::raiseModuleVersion(4.22);
    QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
    SuiteSchema::raiseModuleVersion(10.5);
    QCOMPARE(SuiteSchema::moduleVersion(), 10.5);
}

void TestSuiteSchema::missingVersionIsNoVersion_data()
{
    QTest::addColumn<QString>("loss");
    QTest::newRow("row") << u"DELETE FROM Properties WHERE sSection='Schema'"_s;
    QTest::newRow("value") << u"UPDATE Properties SET sValue='' WHERE sSection='Schema'"_s;
    QTest::newRow("table") << u"DROP TABLE Properties"_s;
}

void TestSuiteSchema::missingVersionIsNoVersion()
{
    QFETCH(QString, loss);
    QVERIFY(!SuiteSchema::isVersionStored());
    SuiteSchema::upgrade();
    SuiteSchema::raiseModuleVersion(0);
    QVERIFY(SuiteSchema::isVersionStored());
    QVERIFY(SuiteSchema::isModuleVersionStored());
    m_database.run(loss);
    QVERIFY(!SuiteSchema::isVersionStored());
    QVERIFY(!SuiteSchema::isModuleVersionStored());
}

void TestSuiteSchema::fiscalYearIsAddedToContractsOnce()
{
    SuiteSchema::upgrade();
    m_database.run(u"CREATE TABLE AutomobilContracts (iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY)"_s);
    m_database.run(u"INSERT INTO AutomobilContracts VALUES(7)"_s);
    SuiteSchema::afterModuleUpgrade();
    QCOMPARE(m_database.value(u"SELECT iFiscalYear FROM AutomobilContracts WHERE iID=7"_s), u"0"_s);
    m_database.run(u"UPDATE AutomobilContracts SET iFiscalYear=1405"_s);
    SuiteSchema::afterModuleUpgrade();
    QCOMPARE(m_database.value(u"SELECT iFiscalYear FROM AutomobilContracts"_s), u"1405"_s);
}

void TestSuiteSchema::moduleTablesAreFoundByTheirKeys_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("columns");
    // Without it, who locks the plan of one contract waits for whoever holds that of another.
    QTest::newRow("a plan by its contract") << u"AutomobilPayments"_s << u"iAutomobilContractID"_s;
    QTest::newRow("contracts of some days") << u"AutomobilContracts"_s << u"dateContract"_s;
    QTest::newRow("cars on the lot") << u"AutomobilInformations"_s << u"bSold,iArchiveUserID"_s;
}

// Also in an office that an earlier program has upgraded.
void TestSuiteSchema::moduleTablesAreFoundByTheirKeys()
{
    QFETCH(QString, table);
    QFETCH(QString, columns);
    SuiteSchema::upgrade();
    m_database.run(u"CREATE TABLE AutomobilContracts (iID INT NOT NULL PRIMARY KEY, iFiscalYear INT DEFAULT 0, dateContract DATETIME)"_s);
    m_database.run(u"CREATE TABLE AutomobilPayments (iID INT NOT NULL PRIMARY KEY, iAutomobilContractID INT DEFAULT 0)"_s);
    m_database.run(u"CREATE TABLE AutomobilInformations (iID INT NOT NULL PRIMARY KEY, bSold INT DEFAULT 0, iArchiveUserID INT DEFAULT 0)"_s);
    const QString keys = u"SELECT COUNT(*) FROM (SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY SEQ_IN_INDEX) columns FROM information_schema.STATISTICS "
                         "WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='%1' GROUP BY INDEX_NAME) k WHERE k.columns='%2'"_s.arg(table, columns);
    QCOMPARE(m_database.value(keys), u"0"_s);
    QVERIFY(SuiteSchema::isClosingStepDue());
    SuiteSchema::afterModuleUpgrade();
    QCOMPARE(m_database.value(keys), u"1"_s);
    QVERIFY(!SuiteSchema::isClosingStepDue());
    SuiteSchema::afterModuleUpgrade();
    QCOMPARE(m_database.value(keys), u"1"_s);
}

void TestSuiteSchema::tablesAreUtf8()
{
    SuiteSchema::upgrade();
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE() "
                              "AND (ENGINE<>'InnoDB' OR TABLE_COLLATION NOT LIKE 'utf8mb3%')"_s),
             u"0"_s);
}

static const RegisteredTest<TestSuiteSchema, QCoreApplication> registeredSuiteSchema;
#include "TestSuiteSchema.moc"
