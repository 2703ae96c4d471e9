// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/SuiteSchema.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QLoggingCategory>

#include <span>

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcSchema, "tz.schema")

// Every statement can be run again: a step that stopped half-way, or that two programs run at once, ends the same. An error
// that says that it is already so (a key that exists) is passed over.
struct Step
{
    int number;
    std::span<const char *const> statements;
};

// Holds the version itself, so it stands before every step.
constexpr const char *propertiesTable =
    "CREATE TABLE IF NOT EXISTS Properties (iID INT NOT NULL AUTO_INCREMENT"
    ", sSection VARCHAR(100) COLLATE utf8_bin NOT NULL, sKey VARCHAR(100) COLLATE utf8_bin NOT NULL"
    ", sValue VARCHAR(1000) DEFAULT NULL, UNIQUE KEY sectionKey (sSection,sKey)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8";

constexpr const char *users[] = {
    "CREATE TABLE IF NOT EXISTS Users (iID INT NOT NULL AUTO_INCREMENT, sUser VARCHAR(50) NOT NULL"
    ", sPasswordHash VARCHAR(255) DEFAULT NULL, sName VARCHAR(100) DEFAULT NULL, iStatus INT DEFAULT 0"
    ", bAdmin TINYINT DEFAULT 0, UNIQUE KEY user (sUser), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS UserRights (iID INT NOT NULL AUTO_INCREMENT, iUserID INT NOT NULL"
    ", sForm VARCHAR(100) COLLATE utf8_bin NOT NULL, iRights INT DEFAULT 0"
    ", UNIQUE KEY userForm (iUserID,sForm), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

constexpr const char *sharedRecords[] = {
    "CREATE TABLE IF NOT EXISTS Persons (iID INT NOT NULL AUTO_INCREMENT, iCode INT DEFAULT 0"
    ", sName VARCHAR(100) DEFAULT NULL, sFamily VARCHAR(100) DEFAULT NULL"
    ", sName2 VARCHAR(200) DEFAULT NULL, iSex INT DEFAULT 0, sFatherName VARCHAR(100) DEFAULT NULL"
    ", dateBirth DATETIME DEFAULT NULL, sBirthCity VARCHAR(50) DEFAULT NULL"
    ", sIdentityNum VARCHAR(20) DEFAULT NULL, sIdentityCity VARCHAR(50) DEFAULT NULL"
    ", sNationalCode VARCHAR(20) DEFAULT NULL, sEconomicCode VARCHAR(20) DEFAULT NULL"
    ", sPostalCode VARCHAR(20) DEFAULT NULL, sAreaCode VARCHAR(10) DEFAULT NULL"
    ", sTel VARCHAR(50) DEFAULT NULL, sMobile VARCHAR(50) DEFAULT NULL"
    ", sAddress VARCHAR(250) DEFAULT NULL, iKind INT DEFAULT 0, bNatural TINYINT DEFAULT 0"
    ", iTaxKind INT DEFAULT 0, iTaxZone INT DEFAULT 0, iProvinceCode INT DEFAULT 0"
    ", iCityCode INT DEFAULT 0, dPercentDiscount DOUBLE DEFAULT 0, iStatus INT DEFAULT 0"
    ", KEY code (iCode), KEY name2 (sName2), KEY family (sFamily), KEY nationalCode (sNationalCode)"
    ", KEY mobile (sMobile), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Items (iID INT NOT NULL AUTO_INCREMENT, iType INT DEFAULT 0"
    ", sName VARCHAR(250) DEFAULT NULL, sTitle VARCHAR(250) DEFAULT NULL, iStatus INT DEFAULT 0"
    ", KEY typeName (iType,sName), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Departments (iID INT NOT NULL AUTO_INCREMENT"
    ", sName VARCHAR(100) DEFAULT NULL, PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "INSERT IGNORE INTO Departments(iID,sName) VALUES(1,'دفتر مرکزی')",
};

// The accounts that the code posts to (Accounts.h) and the general accounts above them.
constexpr const char *chart[] = {
    "CREATE TABLE IF NOT EXISTS HesabKol (iID INT NOT NULL AUTO_INCREMENT, iCode INT NOT NULL"
    ", sName VARCHAR(100) DEFAULT NULL, iStatus INT DEFAULT 0, UNIQUE KEY code (iCode)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS HesabMoeen (iID INT NOT NULL AUTO_INCREMENT, iCode INT NOT NULL"
    ", sName VARCHAR(100) DEFAULT NULL, iStatus INT DEFAULT 0, iHesabKolCode INT DEFAULT 0"
    ", UNIQUE KEY code (iCode), KEY kol (iHesabKolCode), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS HesabTafsily (iID INT NOT NULL AUTO_INCREMENT, iCode INT NOT NULL"
    ", sName VARCHAR(100) DEFAULT NULL, iStatus INT DEFAULT 0, iHesabMoeenCode INT DEFAULT 0"
    ", UNIQUE KEY code (iCode), KEY moeen (iHesabMoeenCode)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "INSERT IGNORE INTO HesabKol(iCode,sName) VALUES(1101,'صندوق'),(1102,'بانک'),(1103,'اشخاص'),"
    "(2105,'مالیات و عوارض پرداختنی'),(4102,'سایر درآمدها'),(6105,'هزینه مالیات و عوارض')",
    "INSERT IGNORE INTO HesabMoeen(iCode,sName,iHesabKolCode) VALUES(110101,'صندوق',1101),(110201,'بانک',1102),"
    "(110301,'اشخاص',1103),(210501,'مالیات ارزش افزوده پرداختنی',2105),(210502,'عوارض پرداختنی',2105),"
    "(410202,'درآمد کمیسیون',4102),(610502,'هزینه مالیات ارزش افزوده',6105),(610503,'هزینه عوارض',6105)",
};

// The Properties row is what a drawer of a document number locks.
constexpr const char *books[] = {
    "CREATE TABLE IF NOT EXISTS Documents (iID INT NOT NULL AUTO_INCREMENT, iNum INT NOT NULL"
    ", iFiscalYear INT NOT NULL, iKind INT DEFAULT 0, date DATETIME DEFAULT NULL"
    ", sDesc VARCHAR(500) DEFAULT NULL, iUserID INT DEFAULT 0, iStatus INT DEFAULT 0"
    ", UNIQUE KEY yearNum (iFiscalYear,iNum), KEY num (iNum)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Docs (iID INT NOT NULL AUTO_INCREMENT, iDocNum INT DEFAULT 0"
    ", iFiscalYear INT DEFAULT 0, iHesabKolCode INT DEFAULT 0, iHesabMoeenCode INT DEFAULT 0"
    ", iHesabTafsilyCode INT DEFAULT 0, iPersonID INT DEFAULT 0, dBed DOUBLE DEFAULT 0"
    ", dBes DOUBLE DEFAULT 0, sDesc VARCHAR(500) DEFAULT NULL, KEY document (iDocNum,iFiscalYear)"
    ", KEY person (iPersonID), KEY moeen (iHesabMoeenCode), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Receipts (iID INT NOT NULL AUTO_INCREMENT, iPersonID INT DEFAULT 0"
    ", date DATETIME DEFAULT NULL, dAmount DOUBLE DEFAULT 0, sDesc VARCHAR(500) DEFAULT NULL"
    ", iDocNum INT DEFAULT 0, iFiscalYear INT DEFAULT 0, iUserID INT DEFAULT 0, KEY person (iPersonID)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "INSERT IGNORE INTO Properties(sSection,sKey,sValue) VALUES('Documents','Numbering','')",
};

constexpr const char *relatedRecords[] = {
    "CREATE TABLE IF NOT EXISTS FileDocs (iID INT NOT NULL AUTO_INCREMENT, iTable INT DEFAULT 0"
    ", iRecordID INT DEFAULT 0, iScope INT DEFAULT 0, iUserID INT DEFAULT 0"
    ", sName VARCHAR(255) DEFAULT NULL, oData LONGBLOB, dateCreate DATETIME DEFAULT NULL"
    ", KEY record (iTable,iRecordID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS CustomFields (iID INT NOT NULL AUTO_INCREMENT, iTable INT DEFAULT 0"
    ", sName VARCHAR(100) NOT NULL, iType INT DEFAULT 0, UNIQUE KEY tableName (iTable,sName)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS CustomFieldRecords (iID INT NOT NULL AUTO_INCREMENT"
    ", iFieldID INT NOT NULL, iTable INT DEFAULT 0, iRecordID INT NOT NULL"
    ", sValue VARCHAR(500) DEFAULT NULL, UNIQUE KEY fieldRecord (iFieldID,iRecordID)"
    ", KEY record (iTable,iRecordID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// How the office arranges its lists on paper.
constexpr const char *reportLayouts[] = {
    "CREATE TABLE IF NOT EXISTS ReportLayouts (iID INT NOT NULL AUTO_INCREMENT, sGroup VARCHAR(100) NOT NULL"
    ", sReport VARCHAR(100) NOT NULL, sName VARCHAR(100) NOT NULL, sLayout TEXT, bDefault TINYINT DEFAULT 0"
    ", UNIQUE KEY layoutName (sGroup,sReport,sName), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// What is read again and again is the count of a user's due reminders, so that has the first index.
constexpr const char *alarms[] = {
    "CREATE TABLE IF NOT EXISTS Alarms (iID INT NOT NULL AUTO_INCREMENT, iTable INT DEFAULT 0"
    ", iRecordID INT DEFAULT 0, iRecordID2 INT DEFAULT 0, iUserID INT DEFAULT 0, date DATETIME DEFAULT NULL"
    ", sDesc VARCHAR(500) DEFAULT NULL, iStatus INT DEFAULT 0, bRepeat TINYINT DEFAULT 0"
    ", dateTold DATETIME DEFAULT NULL, KEY userDue (iUserID,iStatus,date), KEY record (iTable,iRecordID)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// Invoices of services; the key of an invoice is its number.
constexpr const char *invoices[] = {
    "CREATE TABLE IF NOT EXISTS Services (iID INT NOT NULL AUTO_INCREMENT, iCode INT NOT NULL"
    ", sName VARCHAR(250) DEFAULT NULL, UNIQUE KEY code (iCode), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Factors (iID INT NOT NULL AUTO_INCREMENT, iType INT DEFAULT 7, iStatus INT DEFAULT 0"
    ", iPersonID INT DEFAULT 0, iDepartmentID INT DEFAULT 0, date DATETIME DEFAULT NULL"
    ", sDesc VARCHAR(500) DEFAULT NULL, dAmount DOUBLE DEFAULT 0, dDiscount DOUBLE DEFAULT 0, dTax DOUBLE DEFAULT 0"
    ", dImposition DOUBLE DEFAULT 0, iDocNum INT DEFAULT 0, iFiscalYear INT DEFAULT 0, iUserID INT DEFAULT 0"
    ", KEY date (date), KEY person (iPersonID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS FactorStuffs (iID INT NOT NULL AUTO_INCREMENT, iFactorNum INT DEFAULT 0"
    ", iType INT DEFAULT 0, iKind INT DEFAULT 0, iServiceID INT DEFAULT 0, sDesc VARCHAR(500) DEFAULT NULL"
    ", dCount DOUBLE DEFAULT 0, dPrice DOUBLE DEFAULT 0, dAmount DOUBLE DEFAULT 0, iDepartmentID INT DEFAULT 0"
    ", KEY factor (iFactorNum), KEY service (iServiceID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// What invoices are posted to.
constexpr const char *serviceAccounts[] = {
    "INSERT IGNORE INTO HesabKol(iCode,sName) VALUES(4101,'درآمد خدمات'),(6101,'هزینه خدمات')",
    "INSERT IGNORE INTO HesabMoeen(iCode,sName,iHesabKolCode) VALUES(410101,'درآمد خدمات',4101),"
    "(410102,'تخفیف فروش خدمات',4101),(610101,'هزینه خدمات',6101),(610102,'تخفیف خرید خدمات',6101)",
};

// Balances and account sheets go by general and detail accounts and by date too.
constexpr const char *balanceKeys[] = {
    "ALTER TABLE Docs ADD KEY kol (iHesabKolCode)",
    "ALTER TABLE Docs ADD KEY tafsily (iHesabTafsilyCode)",
    "ALTER TABLE Documents ADD KEY date (date)",
};

// How several programs work on one database without undoing each other's work: the token of each unit of work, by which its
// outcome is looked up; who changed which row; the rows that a window has added and not yet saved, with the session that did.
constexpr const char *severalDesks[] = {
    "CREATE TABLE IF NOT EXISTS UnitTokens (sToken VARCHAR(36) COLLATE utf8_bin NOT NULL, dateCreate DATETIME NOT NULL"
    ", bRefused TINYINT NOT NULL DEFAULT 0"
    ", KEY created (dateCreate), PRIMARY KEY (sToken)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Changes (iID INT NOT NULL AUTO_INCREMENT"
    ", sTable VARCHAR(100) COLLATE utf8_bin NOT NULL, iRecordID INT NOT NULL DEFAULT 0, iKind INT NOT NULL DEFAULT 0"
    ", iUserID INT NOT NULL DEFAULT 0, sComputer VARCHAR(100) DEFAULT NULL, date DATETIME NOT NULL"
    ", KEY record (sTable,iRecordID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Placeholders (iID INT NOT NULL AUTO_INCREMENT"
    ", sTable VARCHAR(100) COLLATE utf8_bin NOT NULL, iRecordID INT NOT NULL, sSession VARCHAR(36) COLLATE utf8_bin NOT NULL"
    ", UNIQUE KEY record (sTable,iRecordID), KEY session (sSession), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// What a receipt was taken for: a row of a table by its record kind (RecordKinds.h), 0 for money on account. A void receipt keeps
// its number and who made it void.
constexpr const char *receiptsFor[] = {
    "ALTER TABLE Receipts ADD COLUMN iTable INT DEFAULT 0, ADD COLUMN iRecordID INT DEFAULT 0, ADD COLUMN iPaymentID INT DEFAULT 0"
    ", ADD COLUMN iStatus INT DEFAULT 0, ADD COLUMN iVoidUserID INT DEFAULT 0, ADD COLUMN dateVoid DATETIME DEFAULT NULL"
    ", ADD COLUMN sVoidReason VARCHAR(250) DEFAULT NULL, ADD KEY record (iTable,iRecordID)",
};

// Payments beside receipts, with how and for what the money went; cheques, and each change of a cheque's state; what was said about
// a row that is due. The switch stands on in an office that begins only now: it changes the documents of contracts.
constexpr const char *treasury[] = {
    "ALTER TABLE Receipts ADD COLUMN iKind INT DEFAULT 0, ADD COLUMN iMethod INT DEFAULT 0, ADD COLUMN iAccount INT DEFAULT 0"
    ", ADD COLUMN iFor INT DEFAULT 0, ADD COLUMN iSide INT DEFAULT 0, ADD COLUMN sFor VARCHAR(200) DEFAULT NULL"
    ", ADD COLUMN iChequeID INT DEFAULT 0, ADD COLUMN iVoidDocNum INT DEFAULT 0, ADD COLUMN iVoidFiscalYear INT DEFAULT 0"
    ", ADD COLUMN dateCreate DATETIME DEFAULT NULL, ADD KEY cheque (iChequeID), ADD KEY date (date), ADD KEY document (iDocNum,iFiscalYear)",
    "UPDATE Receipts SET iFor=IF(iPaymentID>0,2,1) WHERE iTable=69 AND iFor=0",
    "CREATE TABLE IF NOT EXISTS Cheques (iID INT NOT NULL AUTO_INCREMENT, iKind INT DEFAULT 0, iState INT DEFAULT 0"
    ", sSayad VARCHAR(16) COLLATE utf8_bin NOT NULL DEFAULT '', sNumber VARCHAR(30) DEFAULT NULL, sBank VARCHAR(100) DEFAULT NULL"
    ", sBranch VARCHAR(100) DEFAULT NULL, sBranchCode VARCHAR(20) DEFAULT NULL, dAmount DOUBLE DEFAULT 0"
    ", dateDue DATETIME DEFAULT NULL, sDrawer VARCHAR(200) DEFAULT NULL, iPersonID INT DEFAULT 0, iAccount INT DEFAULT 0"
    ", iEndorsedID INT DEFAULT 0, iTable INT DEFAULT 0, iRecordID INT DEFAULT 0, sFor VARCHAR(200) DEFAULT NULL"
    ", sDesc VARCHAR(500) DEFAULT NULL, iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL"
    ", KEY sayad (sSayad), KEY due (iKind,iState,dateDue), KEY person (iPersonID), KEY record (iTable,iRecordID)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS ChequeChanges (iID INT NOT NULL AUTO_INCREMENT, iChequeID INT NOT NULL, iFromState INT DEFAULT 0"
    ", iToState INT DEFAULT 0, date DATETIME DEFAULT NULL, iAccount INT DEFAULT 0, iPersonID INT DEFAULT 0, sDesc VARCHAR(500) DEFAULT NULL"
    ", iDocNum INT DEFAULT 0, iFiscalYear INT DEFAULT 0, iUserID INT DEFAULT 0, iStatus INT DEFAULT 0, iVoidUserID INT DEFAULT 0"
    ", dateVoid DATETIME DEFAULT NULL, sVoidReason VARCHAR(250) DEFAULT NULL, iVoidDocNum INT DEFAULT 0, iVoidFiscalYear INT DEFAULT 0"
    ", KEY cheque (iChequeID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS FollowUps (iID INT NOT NULL AUTO_INCREMENT, iTable INT DEFAULT 0, iRecordID INT DEFAULT 0"
    ", iPaymentID INT DEFAULT 0, date DATETIME DEFAULT NULL, sNote VARCHAR(500) DEFAULT NULL, datePromised DATETIME DEFAULT NULL"
    ", iUserID INT DEFAULT 0, KEY record (iTable,iRecordID,iPaymentID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "INSERT IGNORE INTO HesabKol(iCode,sName) VALUES(1104,'اسناد دریافتنی'),(2102,'اسناد پرداختنی'),"
    "(2106,'واسط خرید و فروش'),(4103,'فروش خودرو')",
    "INSERT IGNORE INTO HesabMoeen(iCode,sName,iHesabKolCode) VALUES(110481,'چک‌های دریافتی نزد صندوق',1104),"
    "(110482,'چک‌های در جریان وصول',1104),(210281,'چک‌های پرداختی',2102),(210681,'واسط فروش اقساطی خودرو',2106),"
    "(410281,'درآمد بهره اقساط',4102),(410381,'فروش خودرو',4103)",
    "INSERT IGNORE INTO Properties(sSection,sKey,sValue) SELECT 'AutomobilContracts','bPostPlan',"
    "IF(EXISTS(SELECT 1 FROM Documents) OR EXISTS(SELECT 1 FROM Persons),'0','1')",
};

// What a change did to the columns of its row (KChangedValues); and the rows of deleted records, each with all of its columns, until
// they are taken back or their time is over.
constexpr const char *waysBack[] = {
    "ALTER TABLE Changes ADD COLUMN sValues MEDIUMTEXT CHARACTER SET utf8mb4 DEFAULT NULL, ADD KEY date (date), ADD KEY user (iUserID,date)",
    "CREATE TABLE IF NOT EXISTS Bin (iID INT NOT NULL AUTO_INCREMENT, sTable VARCHAR(100) COLLATE utf8_bin NOT NULL"
    ", iRecordID INT NOT NULL, sTitle VARCHAR(250) DEFAULT NULL, iUserID INT DEFAULT 0, sComputer VARCHAR(100) DEFAULT NULL"
    ", date DATETIME NOT NULL, KEY date (date), KEY record (sTable,iRecordID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS BinRows (iID INT NOT NULL AUTO_INCREMENT, iBinID INT NOT NULL"
    ", sTable VARCHAR(100) COLLATE utf8_bin NOT NULL, iRecordID INT NOT NULL, oRow LONGBLOB NOT NULL"
    ", KEY bin (iBinID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// What records are found by: one row for each key of a record, in the spelling in which it is looked for (SearchKeys); filters of lists
// under names; what a car's row has no room for: further pictures, small copies of them, the contract that was made from the car; calls
// and notes on any record beside those on what is due.
constexpr const char *findings[] = {
    "CREATE TABLE IF NOT EXISTS SearchKeys (iKind SMALLINT NOT NULL, sKey VARCHAR(64) COLLATE utf8_bin NOT NULL, iRecordID INT NOT NULL"
    ", KEY record (iKind,iRecordID), PRIMARY KEY (iKind,sKey,iRecordID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS SavedFilters (iID INT NOT NULL AUTO_INCREMENT, sList VARCHAR(100) COLLATE utf8_bin NOT NULL"
    ", sName VARCHAR(100) NOT NULL, iUserID INT NOT NULL DEFAULT 0, sFilter TEXT CHARACTER SET utf8mb4, dateCreate DATETIME DEFAULT NULL"
    ", UNIQUE KEY listName (sList,iUserID,sName), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Pictures (iID INT NOT NULL AUTO_INCREMENT, iTable INT NOT NULL DEFAULT 0, iRecordID INT NOT NULL DEFAULT 0"
    ", iOrder INT NOT NULL DEFAULT 0, sName VARCHAR(255) DEFAULT NULL, oPicture LONGBLOB, iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL"
    ", KEY record (iTable,iRecordID,iOrder), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS Thumbnails (iID INT NOT NULL AUTO_INCREMENT, iTable INT NOT NULL DEFAULT 0, iRecordID INT NOT NULL DEFAULT 0"
    ", iPictureID INT NOT NULL DEFAULT 0, oPicture MEDIUMBLOB, UNIQUE KEY picture (iTable,iRecordID,iPictureID)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS CarContracts (iID INT NOT NULL AUTO_INCREMENT, iCarID INT NOT NULL, iContractID INT NOT NULL"
    ", iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL, UNIQUE KEY contract (iContractID), KEY car (iCarID)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "ALTER TABLE FollowUps ADD COLUMN iKind INT DEFAULT 0, ADD KEY promised (datePromised)",
    "ALTER TABLE Persons ADD KEY birth (dateBirth)",
};

// What an office hands out: templates of documents that it chose, each with what was in use before; papers that were filed as they were
// printed, with what they said then; texts to send; cars that anybody may see; which column of a spreadsheet is which.
constexpr const char *papers[] = {
    "CREATE TABLE IF NOT EXISTS Templates (iID INT NOT NULL AUTO_INCREMENT, sKind VARCHAR(50) COLLATE utf8_bin NOT NULL, sName VARCHAR(255) DEFAULT NULL"
    ", oFile LONGBLOB, sHash CHAR(64) DEFAULT NULL, bInUse SMALLINT NOT NULL DEFAULT 0, sDesc VARCHAR(250) DEFAULT NULL, iUserID INT DEFAULT 0"
    ", dateCreate DATETIME DEFAULT NULL, KEY kind (sKind,bInUse), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS FiledPapers (iID INT NOT NULL AUTO_INCREMENT, iTable INT NOT NULL DEFAULT 0, iRecordID INT NOT NULL DEFAULT 0"
    ", iVersion INT NOT NULL DEFAULT 1, iFileDocID INT NOT NULL DEFAULT 0, sValuesHash CHAR(64) DEFAULT NULL, sValues MEDIUMTEXT CHARACTER SET utf8mb4, sFileHash CHAR(64) DEFAULT NULL"
    ", iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL, UNIQUE KEY record (iTable,iRecordID,iVersion), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS MessageTexts (iID INT NOT NULL AUTO_INCREMENT, sKind VARCHAR(50) COLLATE utf8_bin NOT NULL, sName VARCHAR(100) DEFAULT NULL"
    ", sText TEXT CHARACTER SET utf8mb4, iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL, KEY kind (sKind), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS PublicCars (iID INT NOT NULL AUTO_INCREMENT, iCarID INT NOT NULL, iUserID INT DEFAULT 0"
    ", dateCreate DATETIME DEFAULT NULL, UNIQUE KEY car (iCarID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS ImportMappings (iID INT NOT NULL AUTO_INCREMENT, sKind VARCHAR(50) COLLATE utf8_bin NOT NULL, sName VARCHAR(100) NOT NULL"
    ", sMapping TEXT CHARACTER SET utf8mb4, iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL, UNIQUE KEY kindName (sKind,sName)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS ImportedFiles (iID INT NOT NULL AUTO_INCREMENT, sKind VARCHAR(50) COLLATE utf8_bin NOT NULL, sHash VARCHAR(64) COLLATE utf8_bin NOT NULL"
    ", sFile VARCHAR(255) DEFAULT NULL, iRows INT DEFAULT 0, iUserID INT DEFAULT 0, dateCreate DATETIME DEFAULT NULL, KEY kindHash (sKind,sHash)"
    ", PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
};

// What documents sum up to on each account (AccountTotals): by month, iDay 0, and by day; a document without a date under month 0. Which documents
// are in it, the header says. What was in it and is to be changed is taken out by rows beside it, so that no desk waits for another's sum.
constexpr const char *accountTotals[] = {
    "CREATE TABLE IF NOT EXISTS AccountTotals (iDay INT NOT NULL, iMonth INT NOT NULL, iHesabMoeenCode INT NOT NULL, iHesabTafsilyCode INT NOT NULL"
    ", iHesabKolCode INT NOT NULL, dBed DECIMAL(50,10) NOT NULL DEFAULT 0, dBes DECIMAL(50,10) NOT NULL DEFAULT 0, iRows BIGINT NOT NULL DEFAULT 0"
    ", KEY moeen (iHesabMoeenCode,iDay,iMonth), KEY tafsily (iHesabTafsilyCode,iDay,iMonth), KEY kol (iHesabKolCode,iDay,iMonth)"
    ", PRIMARY KEY (iDay,iMonth,iHesabMoeenCode,iHesabTafsilyCode,iHesabKolCode)) ENGINE=InnoDB CHARSET=utf8",
    "CREATE TABLE IF NOT EXISTS AccountTotalChanges (iID INT NOT NULL AUTO_INCREMENT, iDay INT NOT NULL, iMonth INT NOT NULL, iHesabMoeenCode INT NOT NULL"
    ", iHesabTafsilyCode INT NOT NULL, iHesabKolCode INT NOT NULL, dBed DECIMAL(50,10) NOT NULL DEFAULT 0, dBes DECIMAL(50,10) NOT NULL DEFAULT 0"
    ", iRows BIGINT NOT NULL DEFAULT 0, PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "ALTER TABLE Documents ADD COLUMN bSummed TINYINT NOT NULL DEFAULT 0, ADD KEY summed (bSummed)",
};

// Which records a file brought, so that they go back as one; and what became of them.
constexpr const char *imports[] = {
    "CREATE TABLE IF NOT EXISTS ImportedRows (iID INT NOT NULL AUTO_INCREMENT, iFileID INT NOT NULL, iRecordID INT NOT NULL"
    ", UNIQUE KEY fileRecord (iFileID,iRecordID), PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8",
    "ALTER TABLE ImportedFiles ADD COLUMN iTakenBack INT DEFAULT 0, ADD COLUMN iReturnUserID INT DEFAULT 0"
    ", ADD COLUMN dateReturn DATETIME DEFAULT NULL",
};

constexpr Step steps[] = {
    {1, users},
    {2, sharedRecords},
    {3, chart},
    {4, books},
    {5, relatedRecords},
    {6, reportLayouts},
    {7, alarms},
    {8, invoices},
    {9, serviceAccounts},
    {10, balanceKeys},
    {11, severalDesks},
    {12, receiptsFor},
    {13, treasury},
    {14, waysBack},
    {15, findings},
    {16, papers},
    {17, accountTotals},
    {18, imports},
};

const QString schemaSection = u"Schema"_s;
const QString suiteKey = u"Suite"_s;
const QString moduleKey = u"TzAuto"_s;

bool isStored(const QString &key, int database)
{
    if (KTableSchema::of(u"Properties"_s, database).isEmpty())
        return false;
    bool isNumber = false;
    CTblProperties::DBReadSetting(schemaSection, key, QString(), database).toDouble(&isNumber);
    return isNumber;
}

// Of two programs that store what they reached, the later one may be the one that is behind.
void raiseTo(const QString &key, const QString &version, int database)
{
    KConnection::forThread(database).run(
        KSql::formatted("INSERT INTO Properties(sSection,sKey,sValue) VALUES(%1,%2,%3) ON DUPLICATE KEY UPDATE "
                        "sValue=IF(sValue REGEXP '^[0-9.]+$' AND sValue+0>=VALUES(sValue)+0,sValue,VALUES(sValue))",
                        KSql::quoted(schemaSection), KSql::quoted(key), KSql::quoted(version)));
}

bool lacksFiscalYear(int database)
{
    return !KTableSchema::of(u"AutomobilContracts"_s, database).column(u"iFiscalYear"_s);
}

}

int SuiteSchema::currentVersion()
{
    return std::end(steps)[-1].number;
}

int SuiteSchema::storedVersion(int database)
{
    KTableSchema::forgetAll();
    if (KTableSchema::of(u"Properties"_s, database).isEmpty())
        return 0;
    return CTblProperties::DBReadSettingInt(schemaSection, suiteKey, 0, database);
}

void SuiteSchema::upgrade(int database)
{
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery(propertiesTable, true, true);
    KLease::createTable(database);
    const int reached = storedVersion(database);
    if (reached > currentVersion())
        throw KAccountingError(
            u"این پایگاه داده با نسخه جدیدتری از برنامه ساخته شده است. لطفا برنامه را به روز نمایید."_s);
    for (const Step &step : steps) {
        if (step.number <= reached)
            continue;
        for (const char *statement : step.statements)
            temp.ExecuteQuery(statement, false, true);
        raiseTo(suiteKey, QString::number(step.number), database);
        qCInfo(lcSchema) << "suite schema step" << step.number << "done";
    }
    KTableSchema::forgetAll();
}

bool SuiteSchema::isVersionStored(int database)
{
    KTableSchema::forgetAll();
    return isStored(suiteKey, database);
}

bool SuiteSchema::isClosingStepDue(int database)
{
    KTableSchema::forgetAll();
    return lacksFiscalYear(database) || OfficeKeys::areLacking(database);
}

void SuiteSchema::afterModuleUpgrade(int database, const OfficeKeys::Progress &progress)
{
    // Asked first: an ALTER, even one that has nothing to do, waits for everybody reading the table.
    if (!isClosingStepDue(database))
        return;
    CTblTemp temp(database);
    temp.Open(true, false, true);
    if (lacksFiscalYear(database))
        temp.ExecuteQuery("ALTER TABLE AutomobilContracts ADD COLUMN iFiscalYear INT DEFAULT 0", false, true);
    OfficeKeys::add(progress, database);
    KTableSchema::forgetAll();
}

double SuiteSchema::moduleVersion(int database)
{
    return CTblProperties::DBReadSetting(schemaSection, moduleKey, 0.0, database);
}

bool SuiteSchema::isModuleVersionStored(int database)
{
    KTableSchema::forgetAll();
    return isStored(moduleKey, database);
}

void SuiteSchema::raiseModuleVersion(double version, int database)
{
    // 17 significant digits bring every double back as it was.
    raiseTo(moduleKey, QString::number(version, 'g', 17), database);
}
