// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/printing/PrintedContracts.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/crm/persons/CTblPersons.h"

using namespace Qt::StringLiterals;

namespace {

QDateTime moment(int year, int month, int day, int hour = 0, int minute = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute), Qt::UTC);
}

void describeParties(CTblAutomobilContracts &contract)
{
    contract.m_sByVirtueFirst = u"وکالت 55214"_s;
    contract.m_sByVirtueSecond = u"معرفی 70"_s;
    contract.m_sFromFirst = u"نرگس احمدی"_s;
    contract.m_sFromSecond = u"شرکت باربری"_s;
    contract.m_sAddressSample = u"تهران، بزرگراه رسالت"_s;
    contract.m_sNoAdvice = u"3345"_s;
    contract.m_sDomainRegister = u"مرکزی"_s;
}

void describeVehicle(CTblAutomobilContracts &contract)
{
    contract.m_sAutomobilName = u"پژو پارس"_s;
    contract.m_sSystem = u"ایران خودرو"_s;
    contract.m_sBrigade = u"سال"_s;
    contract.m_sModel = u"1403"_s;
    contract.m_sColor = u"نقره‌ای"_s;
    contract.m_sFuel = u"بنزین"_s;
    contract.m_sCapacity = u"پنج نفر"_s;
    contract.m_sDengue = u"شش"_s;
    contract.m_sNumOFAxles = u"2"_s;
    contract.m_sNumOfWheels = u"4"_s;
    contract.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
    contract.m_sNumOfEngines = u"164B0123456"_s;
    contract.m_sChassisNum = u"NAAM01CA1JK123456"_s;
    contract.m_sVIN = u"IRFC04VN1HK998877"_s;
    contract.m_sAutomobilType = u"سدان"_s;
    contract.m_sDocumentsDelivered = u"کارت و برگ سبز"_s;
    contract.m_sDescMatter = u"بیمه تا پایان سال"_s;
}

void describeTerms(CTblAutomobilContracts &contract)
{
    contract.m_dAmount = 12850000000;
    contract.m_dCommission = 64250000;
    contract.m_dTax = 5782500;
    contract.m_dImposition = 642500;
    contract.m_dDiscountFirst = 3000000;
    contract.m_dTax2 = 4000000;
    contract.m_dImposition2 = 500000;
    contract.m_dDiscountSecond = 1000000;
    contract.m_dFixAmount = 5000000000;
    contract.m_dAgreeAmount = 6000000000;
    contract.m_dRemainingAmount = 1850000000;
    contract.m_dDamageAmount = 500000000;
    contract.m_dDelayAmount = 5250000;
    contract.m_sCheckCount = u"3"_s;
    contract.m_sCheckNum = u"456123-125"_s;
    contract.m_sBankName = u"ملت"_s;
    contract.m_sBranchName = u"ونک"_s;
    contract.m_sBranchCode = u"65432"_s;
    contract.m_sRegistryNum = u"214"_s;
    contract.m_sRightTahrir = u"با خریدار"_s;
    contract.m_sPage = u"112"_s;
    contract.m_sCover = u"7"_s;
    contract.m_iNum = 77214;
    contract.m_sTrackingCode = u"98451237740012"_s;
    contract.m_sDesc = u"دو کلید تحویل شد"_s;
    contract.m_dateContract = moment(2026, 11, 20);
    contract.m_dateDeal = moment(2026, 12, 1, 10, 30);
    contract.m_dateTradeUnit = moment(2026, 11, 21, 17, 5);
    contract.m_dAmountRent = 910000000;
    contract.m_sRentTime = u"یک سال شمسی"_s;
    contract.m_dateRent = moment(2026, 12, 5);
    contract.m_dateRentExpire = moment(2027, 12, 4);
    contract.m_sUsanceNum = u"9981 تا 9984"_s;
    contract.m_sDescCheck = u"چک صیادی"_s;
    contract.m_sDescRemainingAmount = u"در دفترخانه"_s;
    contract.m_dateDocument = moment(2026, 12, 20);
    contract.m_dateOffice = moment(2026, 12, 22);
    contract.m_sDeal = u"انتقال امتیاز غرفه"_s;
    contract.m_sExplain = u"به شرح گفتگو"_s;
    contract.m_sCommitmentFirstHand = u"تحویل بیمه‌نامه"_s;
    contract.m_sCommitmentsSecondHand = u"پرداخت عوارض"_s;
    contract.m_sNote1 = u"آینه نو است"_s;
    contract.m_dateExpiration = moment(2027, 1, 20);
}

}

int PrintedContracts::addSeller(TestOffice &office)
{
    return office.addPerson(u"محمد"_s, u"احمدی"_s, [](CTblPersons &person) {
        person.m_sFatherName = u"حسین"_s;
        person.m_dateBirth = moment(1979, 7, 8);
        person.m_sBirthCity = u"کرمان"_s;
        person.m_sIdentityNum = u"2478"_s;
        person.m_sIdentityCity = u"رفسنجان"_s;
        person.m_sNationalCode = u"0012345679"_s;
        person.m_sEconomicCode = u"411378956123"_s;
        person.m_sPostalCode = u"1969833451"_s;
        person.m_sTel = u"021-88776655"_s;
        person.m_sAddress = u"تهران، میدان ونک"_s;
    });
}

int PrintedContracts::addBuyer(TestOffice &office)
{
    return office.addPerson(u"سارا"_s, u"کریمی"_s, [](CTblPersons &person) {
        person.m_iSex = CTblPersons::sexWoman;
        person.m_sFatherName = u"علی"_s;
        person.m_dateBirth = moment(1992, 1, 22);
        person.m_sBirthCity = u"قزوین"_s;
        person.m_sIdentityNum = u"9913"_s;
        person.m_sIdentityCity = u"زنجان"_s;
        person.m_sNationalCode = u"0323456781"_s;
        person.m_sEconomicCode = u"511112223334"_s;
        person.m_sPostalCode = u"3145678912"_s;
        person.m_sMobile = u"09121234567"_s;
        person.m_sAddress = u"کرج، گوهردشت"_s;
    });
}

int PrintedContracts::add(TestOffice &office, int contractType, const std::function<void(CTblAutomobilContracts &)> &more)
{
    const int seller = addSeller(office);
    const int buyer = addBuyer(office);
    return office.addContract([&](CTblAutomobilContracts &contract) {
        contract.m_iContractType = contractType;
        contract.m_iCode = 1284567;
        contract.m_iPersonFirstID = seller;
        contract.m_iPersonSecondID = buyer;
        describeParties(contract);
        describeVehicle(contract);
        describeTerms(contract);
        if (more)
            more(contract);
    });
}

void PrintedContracts::addPlan(TestOffice &office, int contract)
{
    for (int number = 1; number <= 3; ++number)
        office.database().run(u"INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,dAmount,dExtra,iMonths,iStatus,date) "
                              "SELECT (SELECT MIN(iID) FROM Departments),iID,iPersonSecondID,%2,%3,0,1,0,'2027-0%2-21' FROM AutomobilContracts WHERE iID=%1"_s
                                  .arg(contract)
                                  .arg(number)
                                  .arg(610000000 + number));
}

QStringList PrintedContracts::values(int contractType)
{
    // The parties, the amount, the commission and what else is entered on the first page.
    QString values = u"آقا|محمد|احمدی|حسین|1358/04/17|کرمان|2478|رفسنجان|0012345679|411378956123|1969833451|021-88776655|"
                     "تهران، میدان ونک|خانم|سارا|کریمی|علی|1370/11/02|قزوین|9913|زنجان|0323456781|511112223334|3145678912|"
                     "09121234567|کرج، گوهردشت|وکالت 55214|معرفی 70|نرگس احمدی|شرکت باربری|3345|مرکزی|112|7|77214|"
                     "98451237740012|دو کلید تحویل شد|1284567|1405/08/29|12,850,000,000|دوازده میلیارد و هشتصد و پنجاه میلیون ریال|"
                     "64,250,000|6,425,000|67,675,000|3,000,000|4,500,000|67,750,000|1,000,000|"
                     "شصت و هفت میلیون و ششصد و هفتاد و پنج هزار ریال|تحویل بیمه‌نامه|پرداخت عوارض|آینه نو است"_s;
    if (contractType == 3)
        values += u"|انتقال امتیاز غرفه|به شرح گفتگو|1405/10/30"_s;
    if (contractType <= 2)
        values += u"|تهران، بزرگراه رسالت|پژو پارس|ایران خودرو|سال|1403|نقره‌ای|بنزین|پنج نفر|شش|2|4|164B0123456|NAAM01CA1JK123456|"
                  "بیمه تا پایان سال|IRFC04VN1HK998877|سدان|کارت و برگ سبز|\u202A12 ب\u200E 345 | ایران\u200E 67\u202C|"
                  "6,000,000,000|500,000,000|پانصد میلیون ریال|3|456123-125|ملت|ونک|65432|214|با خریدار|1405/09/10|10:30|1405/08/30|17:05"_s
                      .replace(u"345 | ایران"_s, u"345 ¦ ایران"_s);
    if (contractType <= 1)
        values += u"|1,850,000,000|یک میلیارد و هشتصد و پنجاه میلیون ریال|در دفترخانه|چک صیادی|1405/09/29|1405/10/01"_s;
    if (contractType == 1)
        values += u"|910,000,000|نهصد و ده میلیون ریال"_s;
    if (contractType == 1 || contractType == 2)
        values += u"|یک سال شمسی|1405/09/14|1406/09/13"_s;
    if (contractType == 2)
        values += u"|5,250,000|پنج میلیون و دویست و پنجاه هزار ریال|9981 تا 9984"_s;
    QStringList list = values.split(u'|');
    for (QString &value : list)
        value.replace(u'¦', u'|');
    return list;
}

QStringList PrintedContracts::hiddenValues(int contractType)
{
    // The cash payment is shown by no type.
    QString values = u"5,000,000,000|پنج میلیارد"_s;
    if (contractType != 2)
        values += u"|5,250,000|پنج میلیون و دویست|9981"_s;
    if (contractType == 2)
        values += u"|1,850,000,000|در دفترخانه|چک صیادی|1405/10/01"_s;
    if (contractType != 1)
        values += u"|910,000,000"_s;
    if (contractType == 0)
        values += u"|یک سال شمسی|1406/09/13"_s;
    if (contractType == 3)
        values += u"|پژو پارس|NAAM01CA1JK123456|500,000,000|6,000,000,000"_s;
    return values.split(u'|');
}
