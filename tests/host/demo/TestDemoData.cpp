// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoData.h"

#include "auto/cars/demands/editor/DemandYears.h"
#include "auto/cars/matching/MatchingCars.h"
#include "auto/cars/register/editor/VehicleIdentification.h"
#include "auto/catalog/parameters/InputParameters.h"
#include "auto/contracts/document/ContractPosting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/NationalCode.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/accounting/attachments/CTblPictures.h"
#include "suite/image/PictureIntake.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestDemoData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sameEveryTimeForTheSameSize();
    void anotherSizeIsAnotherOffice();
    void sizesFollowTheContracts();
    void everyDocumentBalances();
    void numbersRunThroughEachFiscalYear();
    void documentsAreWhatTheEditorWouldPost();
    void figuresAreWhatTheEditorWouldCompute();
    void officeLooksAlive();
    void personsAreValid();
    void carsAreOfTheCatalogAndTheRegisterLooksAlive();
    void soldCarsAreWhatTheEditorWouldSave();
    void carsHavePicturesThatCanBeShown();
    void someCarsHaveSeveralPictures();
    void everyKindOfInputParameterHasValues();
    void demandsAreOfTheCatalogAndSomeHaveFittingCars();
    void invoicesOfTheSeasonAreWhatTheEditorWouldSave();
    void userCanLogIn();
    void editorContinuesTheCodes();
    void aDatabaseWithDataIsLeftAlone();
    void aFillingThatStoppedHalfWayGoesOn();
    void somethingWaitsForItsPeople();
    void itsDaysReachToToday_data();
    void itsDaysReachToToday();

private:
    void fill(int contracts);
    QString checksum();

    TestDatabase m_database;
};

void TestDemoData::initTestCase()
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    fill(300);
}

void TestDemoData::fill(int contracts)
{
    prepareModuleTables(m_database);
    DemoData::fill(contracts, ConvertToMiladi(1405, 8, 21));
}

QString TestDemoData::checksum()
{
    // What a lock writes is new each time.
    m_database.run(u"DELETE FROM Properties WHERE sSection='Codes'"_s);
    QString all;
    for (const char *table : {"Persons", "AutomobilContracts", "AutomobilPayments", "Documents", "Docs", "Properties", "UserRights", "CarBrands",
                              "CarModels", "CarClasses", "Items", "AutomobilTariffs", "AutomobilInformations", "AutomobilDemands", "Services",
                              "Factors", "FactorStuffs"})
        all += QString::fromLatin1(m_database.sumOf(QLatin1String(table))) + u' ';
    return all;
}

void TestDemoData::sameEveryTimeForTheSameSize()
{
    const QString first = checksum();
    fill(300);
    QCOMPARE(checksum(), first);
}

void TestDemoData::anotherSizeIsAnotherOffice()
{
    const QString first = checksum();
    fill(301);
    QVERIFY(checksum() != first);
    fill(300);
}

void TestDemoData::sizesFollowTheContracts()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"300"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Persons"_s), u"200"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Documents WHERE iKind=28"_s), u"300"_s);
    QCOMPARE(m_database.value(u"SELECT CONCAT(SUM(iType=7),'/',SUM(iType=8)) FROM Factors"_s), u"30/15"_s);
    QCOMPARE(m_database.value(u"SELECT DATEDIFF(MAX(dateContract),MIN(dateContract)) BETWEEN 700 AND 731 "
                              "FROM AutomobilContracts"_s),
             u"1"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"100"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"60"_s);
    fill(1);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"12"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"10"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Persons"_s), u"20"_s);
    fill(300);
}

void TestDemoData::everyDocumentBalances()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(DISTINCT d.iFiscalYear,d.iDocNum) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND "
                              "h.iFiscalYear=d.iFiscalYear WHERE h.iKind IN (%1,%2,%3)"_s.arg(Accounts::documentKindContract)
                                  .arg(Accounts::documentKindSale)
                                  .arg(Accounts::documentKindPurchase)),
             u"344"_s);
    CTblDocuments documents;
    for (documents.Open(true, true, true); !documents.IsEOF(); documents.MoveNext())
        CTblDocuments::RequireBalanced(documents.m_iNum, documents.m_iFiscalYear);
    QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), u"300/0/0"_s);
    for (const int kind : {Accounts::documentKindReceipt, Accounts::documentKindCheque}) {
        const QStringList agreed = m_database.value(booksAgree(kind)).split(u'/');
        QVERIFY2(agreed.constFirst().toInt() > 0, "the demo office has none of them");
        QCOMPARE(agreed.mid(1), (QStringList{u"0"_s, u"0"_s}));
    }
}

void TestDemoData::numbersRunThroughEachFiscalYear()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM (SELECT iFiscalYear FROM Documents GROUP BY iFiscalYear "
                              "HAVING MIN(iNum)<>1 OR MAX(iNum)<>COUNT(*)) gaps"_s),
             u"0"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Documents a JOIN Documents b ON b.iFiscalYear=a.iFiscalYear "
                              "AND b.iNum=a.iNum+1 AND b.iKind=a.iKind WHERE b.date<a.date AND a.iKind=28"_s),
             u"0"_s);
    CTblDocuments documents;
    for (documents.Open(true, true, true); !documents.IsEOF(); documents.MoveNext())
        QCOMPARE(documents.m_iFiscalYear, GetShamsi(documents.m_date.date()).year);
}

// Posting a contract anew keeps its document's number and writes exactly the rows that were made.
void TestDemoData::documentsAreWhatTheEditorWouldPost()
{
    const QString rows = u"SELECT SHA1(GROUP_CONCAT(iHesabKolCode,'/',iHesabMoeenCode,'/',iPersonID,'/',dBed,'/',dBes,"
                         "'/',sDesc ORDER BY iID)) FROM Docs WHERE iDocNum=%1 AND iFiscalYear=%2"_s;
    const QString header = u"SELECT CONCAT(iKind,date,sDesc) FROM Documents WHERE iNum=%1 AND iFiscalYear=%2"_s;
    KTransaction transaction;
    for (int code = 1; code <= 300; code += 7) {
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iCode"_s, code));
        const int num = contract.m_iDocNum;
        const int year = contract.m_iFiscalYear;
        const QString before = m_database.value(rows.arg(num).arg(year)) + m_database.value(header.arg(num).arg(year));
        QVERIFY(ContractPosting::post(contract));
        QCOMPARE(contract.m_iDocNum, num);
        QCOMPARE(m_database.value(rows.arg(num).arg(year)) + m_database.value(header.arg(num).arg(year)), before);
    }
}

void TestDemoData::figuresAreWhatTheEditorWouldCompute()
{
    // Commission by tier, tax and duty by percentage, the total of the party that changed last.
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE ABS(dCommission-dAmount*IF(dAmount<=5e9,1,IF(dAmount<=20e9,0.75,0.5))"
                              "/100)>0.001 OR ABS(dTax-dCommission*6/100)>0.001 OR ABS(dImposition-dCommission*4/100)>0.001 "
                              "OR ABS(dTax2-dTax)>0.001 OR ABS(dImposition2-dImposition)>0.001 "
                              "OR ABS(dCommissionEveryPerson-dCommission-dTax2-dImposition2)>0.001"_s),
             u"0"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE "
                              "ABS(dPayFirst-IF(iPersonContract1=1,dTax+dImposition,dCommissionEveryPerson-dDiscountFirst))"
                              ">0.001 OR ABS(dPaySecond-(dCommissionEveryPerson-dDiscountSecond))>0.001"_s),
             u"0"_s);
}

void TestDemoData::officeLooksAlive()
{
    for (const char *condition : {"iContractType=0", "iContractType=1", "iContractType=2", "iContractType=3", "bReturn=1",
                                  "iStatus=1", "iArchiveUserID>0", "iPersonContract1=1", "iPersonContract1=2", "dDiscountFirst>0"}) {
        const QString count = m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE "_s
                                               + QString::fromLatin1(condition));
        QVERIFY2(count.toInt() > 0 && count.toInt() < 300, condition);
    }
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE sName1=sName2 OR sName1='' OR sName2=''"_s),
             u"0"_s);
    // Every contract can be opened and saved as it is, and states its place, its payment and the terms of its type.
    for (const char *missing :
         {"sAutomobilName='' OR sModel NOT BETWEEN 1000 AND 3000 OR sColor='' OR sNumOfPlates=''", "sState='' OR sCity=''",
          "iContractType=0 AND ABS(dAgreeAmount+dRemainingAmount-dAmount)>1",
          "iContractType=1 AND (dAmountRent<=0 OR dateRentExpire<=dateRent OR sRentTime='')",
          "iContractType=2 AND (sNumOfInstallment='' OR dAgreeAmount NOT BETWEEN 1 AND dAmount OR dDelayAmount<=0)"}) {
        const QString count = m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE "_s
                                               + QString::fromLatin1(missing));
        QVERIFY2(count == u"0"_s, missing);
    }
    QCOMPARE(CompanyDetails::read().name(), u"نمایشگاه اتومبیل آریا"_s);
    QCOMPARE(NationalCode::checkCompany(CompanyDetails::read().nationalCode), NationalCode::State::Good);
    QCOMPARE(GetDBSetting()->FiscalYear(), 1405);
}

void TestDemoData::personsAreValid()
{
    QSet<QString> codes;
    int legal = 0;
    CTblPersons person;
    for (person.Open(true, true, true); !person.IsEOF(); person.MoveNext()) {
        codes.insert(person.m_sNationalCode);
        legal += person.isNatural() ? 0 : 1;
        QCOMPARE(person.isNatural() ? NationalCode::checkPerson(person.m_sNationalCode)
                                    : NationalCode::checkCompany(person.m_sNationalCode),
                 NationalCode::State::Good);
        QCOMPARE(person.m_sName2, CTblPersons::displayName(person.m_sName, person.m_sFamily));
        QCOMPARE(person.m_bNatural, person.isNatural() ? 1 : 0);
    }
    QCOMPARE(codes.size(), 200);
    QVERIFY(legal > 0);
}

void TestDemoData::carsAreOfTheCatalogAndTheRegisterLooksAlive()
{
    // What a car refers to is there, a class belongs to its model and the model to its brand.
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations ai JOIN CarClasses cc ON cc.iID=ai.iBrigade JOIN CarModels cm "
                              "ON cm.iID=ai.iModel AND cc.iBrandID=cm.iID JOIN CarBrands cb ON cb.iID=ai.iAutomobilType AND cm.iClassID=cb.iID "
                              "JOIN Persons p ON p.iID=ai.iPersonID JOIN Items color ON color.iID=ai.iColor AND color.iType=808 "
                              "JOIN Items sys ON sys.iID=ai.iSystem AND sys.iType=802 JOIN Items body ON body.iID=ai.iBodyStatus AND "
                              "body.iType=815 JOIN Items country ON country.iID=ai.iCountry AND country.iType=804"_s),
             u"100"_s);
    for (const char *condition : {"bSold=1", "bSold=0 AND iStatus=0 AND iArchiveUserID=0", "iArchiveUserID>0", "iStatus=1",
                                  "iUsageType=2", "iFuel=2", "sDocumentsDeficit<>''", "sFractionalParts<>''", "oPicture IS NULL",
                                  "dRemainingContract>0"}) {
        const int count = m_database
                              .value(u"SELECT COUNT(*) FROM AutomobilInformations WHERE "_s + QString::fromLatin1(condition))
                              .toInt();
        QVERIFY2(count > 0 && count < 100, condition);
    }
    CTblAutomobilInformations car;
    car.SetColumns({u"sVIN"_s});
    for (car.Open(true, true, true); !car.IsEOF(); car.MoveNext())
        QCOMPARE(VehicleIdentification::check(car.m_sVIN), VehicleIdentification::State::Good);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilTariffs WHERE dAmount>0 AND sTitle<>''"_s),
             u"6"_s);
}

void TestDemoData::soldCarsAreWhatTheEditorWouldSave()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations WHERE IF(bSold=1,iPersonBuyerID IN (0,iPersonID) OR dateBuy<dateIntroduction "
                              "OR dSoldAmount<=0,iPersonBuyerID<>0 OR dSoldAmount<>0) OR ABS(dProfitAndLoss-(dSoldAmount-dPurchasePriceOfOwner"
                              "-dAutomobilExpenses-dAmountPresence-dRemainingPresence))>0.001 OR (iArchiveUserID>0 AND bSold=0)"_s),
             u"0"_s);
}

void TestDemoData::carsHavePicturesThatCanBeShown()
{
    CTblAutomobilInformations car;
    car.m_filter = "oPicture IS NOT NULL";
    car.SetColumns({u"oPicture"_s});
    int pictures = 0;
    for (car.Open(true, true, true); !car.IsEOF(); car.MoveNext(), ++pictures) {
        const QImage image = PictureIntake::decode(car.m_oPicture.data);
        QCOMPARE(image.size(), QSize(640, 420));
    }
    QVERIFY(pictures > 50);
}

void TestDemoData::someCarsHaveSeveralPictures()
{
    CTblPictures further;
    int pictures = 0;
    for (further.Open(true, true, true); !further.IsEOF(); further.MoveNext(), ++pictures)
        QVERIFY2(!PictureIntake::decode(further.m_oPicture.data).isNull(), qPrintable(further.m_sName));
    QVERIFY(pictures > 10);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Pictures p LEFT JOIN AutomobilInformations c ON c.iID=p.iRecordID WHERE c.oPicture IS NULL OR p.iTable<>68"_s), u"0"_s);
}

void TestDemoData::everyKindOfInputParameterHasValues()
{
    for (int option = 0; option < InputParameters::optionCount; ++option) {
        const QString count = m_database.value(u"SELECT COUNT(*) FROM Items WHERE "_s + InputParameters::valuesFilter(option).text());
        QVERIFY2(count.toInt() >= 2, qPrintable(InputParameters::caption(option)));
    }
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM (SELECT 1 FROM Items GROUP BY iType,sName HAVING COUNT(*)>1) twice"_s),
             u"0"_s);
}

void TestDemoData::demandsAreOfTheCatalogAndSomeHaveFittingCars()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands ad JOIN Persons p ON p.iID=ad.iPersonID LEFT JOIN CarBrands cb ON "
                              "cb.iID=ad.iAutomobilType LEFT JOIN Items color ON color.iID=ad.iColor AND color.iType=808 LEFT JOIN Items f ON "
                              "f.iID=ad.iFacilities AND f.iType=811 WHERE (ad.iAutomobilType=0 OR cb.iID>0) AND (ad.iColor=0 OR color.iID>0) "
                              "AND (ad.iFacilities=0 OR f.iID>0) AND ad.dAmountFrom<=ad.dAmountUpTo"_s),
             u"60"_s);
    int withCars = 0;
    CTblAutomobilDemands demand;
    for (demand.Open(true, true, true); !demand.IsEOF(); demand.MoveNext()) {
        QVERIFY(areDemandYears(demand.m_iModelFrom, demand.m_iModelUpTo));
        withCars += MatchingCars::of(demand.m_iID)->cars.empty() ? 0 : 1;
    }
    QVERIFY2(withCars > 15 && withCars < 60, qPrintable(QString::number(withCars)));
}

void TestDemoData::invoicesOfTheSeasonAreWhatTheEditorWouldSave()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Factors f WHERE ABS(dAmount-(SELECT SUM(dCount*dPrice) FROM "
                              "FactorStuffs s WHERE s.iFactorNum=f.iID AND s.iType=f.iType))>0.001 OR "
                              "ABS(dTax-(dAmount-dDiscount)*6/100)>0.5 OR ABS(dImposition-(dAmount-dDiscount)*4/100)>0.5"_s),
             u"0"_s);
    // What each valid one asks for stands on the person's account.
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Factors f JOIN Docs d ON d.iDocNum=f.iDocNum AND d.iFiscalYear=f.iFiscalYear AND "
                              "d.iHesabMoeenCode=110301 AND d.iPersonID=f.iPersonID AND ABS(d.dBed+d.dBes-(f.dAmount-f.dDiscount+f.dTax+"
                              "f.dImposition))<0.001 WHERE f.iStatus=0"_s),
             u"44"_s);
    const QString summer = u"SELECT COUNT(*) FROM Factors WHERE iType=%1 AND iStatus=0 AND date<'%2'"_s;
    const QString autumn = ConvertToMiladi(1405, 7, 1).toString(Qt::ISODate);
    QVERIFY(m_database.value(summer.arg(7).arg(autumn)).toInt() >= 10);
    QVERIFY(m_database.value(summer.arg(8).arg(autumn)).toInt() >= 5);
    QCOMPARE(m_database.value(u"SELECT CONCAT(SUM(iStatus),'/',(SELECT COUNT(DISTINCT iFactorNum) FROM FactorStuffs "
                              "WHERE iKind IN (3,4)),'/',COUNT(DISTINCT iUserID)) FROM Factors"_s),
             u"1/1/1"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Services"_s), u"9"_s);
}

void TestDemoData::userCanLogIn()
{
    const std::optional<int> user = CTblUsers::verify(u"demo"_s, u"demo"_s);
    QVERIFY(user);
    QVERIFY(GetDBSetting()->Login(*user));
    QVERIFY(GetDBSetting()->IsAdmin());
    GetDBSetting()->Logout();
}

void TestDemoData::editorContinuesTheCodes()
{
    QCOMPARE(CTblAutomobilContracts::nextCode(), 301);
    QCOMPARE(CTblPersons::nextCode(), 201);
    QCOMPARE(CTblAutomobilInformations::nextCode(), 101);
}

void TestDemoData::aDatabaseWithDataIsLeftAlone()
{
    const QString before = checksum();
    QVERIFY_THROWS_EXCEPTION(KAccountingError, DemoData::fill(10));
    QCOMPARE(checksum(), before);
}

void TestDemoData::aFillingThatStoppedHalfWayGoesOn()
{
    prepareModuleTables(m_database);
    m_database.run(u"CREATE TRIGGER half BEFORE INSERT ON Receipts FOR EACH ROW SIGNAL SQLSTATE '45000'"_s);
    QVERIFY_THROWS_EXCEPTION(CMySQLException, DemoData::fill(40));
    m_database.run(u"DROP TRIGGER half"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"40"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    // However many are asked for by then.
    DemoData::fill(60);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"40"_s);
    QVERIFY(m_database.value(u"SELECT COUNT(*) FROM Receipts"_s).toInt() > 0);
    QVERIFY(m_database.value(u"SELECT COUNT(*) FROM Alarms"_s).toInt() > 0);
    QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), u"40/0/0"_s);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, DemoData::fill(40));
}

// Each list and card of the first page has rows, and the people have the rights of their roles.
void TestDemoData::somethingWaitsForItsPeople()
{
    fill(300);
    const QString day = u"'"_s + ConvertToMiladi(1405, 8, 21).toString(Qt::ISODate) + u'\'';
    const std::pair<const char *, const char *> wanted[] = {
        {"SELECT COUNT(*) FROM Users", "4"},
        {"SELECT COUNT(*)>0 FROM AutomobilContracts WHERE iUserID<>1", "1"},
        {"SELECT COUNT(*) FROM Alarms WHERE DATE(date)=%1", "3"},
        {"SELECT COUNT(*) FROM Alarms WHERE date>%1+INTERVAL 1 DAY", "3"},
        {"SELECT GROUP_CONCAT(DATEDIFF(datePromised,%1) ORDER BY datePromised) FROM FollowUps f JOIN AutomobilPayments p ON p.iID=f.iPaymentID "
         "AND p.iAutomobilContractID=f.iRecordID AND p.iStatus=0 AND p.date<%1 WHERE f.iKind=0",
         "-1,0,3"},
        {"SELECT COUNT(*) FROM AutomobilInformations WHERE bSold=0 AND DATEDIFF(dateInsurance,%1) IN (-4,5,14) AND sInsuranceStatus LIKE '%تا 14%'", "3"},
        {"SELECT COUNT(*)>=8 FROM CustomFieldRecords WHERE sValue<>''", "1"},
        {"SELECT COUNT(*) FROM FileDocs WHERE LENGTH(oData)>50", "8"},
    };
    for (const auto &[statement, answer] : wanted)
        QCOMPARE(m_database.value(QString::fromUtf8(statement).replace(u"%1"_s, day)), QLatin1String(answer));
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Persons WHERE dateBirth IS NOT NULL AND iID>198"_s), u"2"_s);
    const int yesterdays = m_database.value(u"SELECT MAX(iID) FROM AutomobilInformations WHERE bSold=0 AND iStatus=0 AND iArchiveUserID=0"_s).toInt();
    int asked = 0;
    CTblAutomobilDemands demand;
    for (demand.Open(true, true, true); !demand.IsEOF(); demand.MoveNext()) {
        const auto found = MatchingCars::of(demand.m_iID);
        QVERIFY(found);
        for (const auto &match : found->cars)
            asked += match.id == yesterdays ? 1 : 0;
    }
    QVERIFY2(asked >= 2, qPrintable(QString::number(asked)));
    const std::optional<int> cashier = CTblUsers::verify(u"sandogh"_s, u"sandogh"_s);
    QVERIFY(cashier);
    GetDBSetting()->Login(*cashier);
    QVERIFY(KSecurity::IsGranted(u"Receipts"_s, KSecurity::Write));
    QVERIFY(!KSecurity::IsGranted(u"Users"_s, KSecurity::Access));
    GetDBSetting()->Logout();
}

void TestDemoData::itsDaysReachToToday_data()
{
    QTest::addColumn<QDate>("today");
    QTest::newRow("the year's first day") << ConvertToMiladi(1405, 1, 1);
    QTest::newRow("spring") << ConvertToMiladi(1405, 2, 10);
    QTest::newRow("a leap year's last day") << ConvertToMiladi(1403, 12, 30);
    QTest::newRow("the computer's") << QDate::currentDate();
}

// Whenever it is made, the office has what a day's work shows, and its books agree.
void TestDemoData::itsDaysReachToToday()
{
    QFETCH(QDate, today);
    prepareModuleTables(m_database);
    DemoData::fill(300, today);
    const QString day = u'\'' + today.toString(Qt::ISODate) + u'\'';
    QCOMPARE(GetDBSetting()->FiscalYear(), GetShamsi(today).year);
    QCOMPARE(m_database.value(u"SELECT DATEDIFF(%1,MAX(dateContract)) FROM AutomobilContracts"_s.arg(day)), u"1"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Documents WHERE date>%1"_s.arg(day)), u"0"_s);
    for (const QString &rows : {u"Receipts WHERE iStatus=0 AND date>%1-INTERVAL 40 DAY"_s, u"Receipts WHERE iStatus=1"_s, u"Receipts WHERE iStatus=2"_s, u"Cheques WHERE iState=0"_s,
                                u"Cheques WHERE iState=2"_s, u"Cheques WHERE iState=3"_s, u"AutomobilPayments WHERE iStatus=1"_s,
                                u"AutomobilPayments WHERE iStatus=0 AND date<%1"_s, u"Factors WHERE iType=7 AND date>%1-INTERVAL 30 DAY"_s}) {
        const QString statement = u"SELECT COUNT(*) FROM "_s + (rows.contains(u'%') ? rows.arg(day) : rows);
        QVERIFY2(m_database.value(statement).toInt() > 0, qPrintable(rows));
    }
    for (const int kind : {Accounts::documentKindContract, Accounts::documentKindReceipt, Accounts::documentKindCheque}) {
        const QStringList agreed = m_database.value(booksAgree(kind)).split(u'/');
        QVERIFY(agreed.constFirst().toInt() > 0);
        QCOMPARE(agreed.mid(1), (QStringList{u"0"_s, u"0"_s}));
    }
    CTblDocuments documents;
    for (documents.Open(true, true, true); !documents.IsEOF(); documents.MoveNext())
        QCOMPARE(documents.m_iFiscalYear, GetShamsi(documents.m_date.date()).year);
}

static const RegisteredTest<TestDemoData, QCoreApplication> registeredDemoData;
#include "TestDemoData.moc"
