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

QStringList PrintedContracts::values()
{
    return QString::fromUtf8(
               // The parties.
               "آقا|محمد|احمدی|حسین|1358/04/17|کرمان|2478|رفسنجان|0012345679|411378956123|1969833451|021-88776655|"
               "تهران، میدان ونک|خانم|سارا|کریمی|علی|1370/11/02|قزوین|9913|زنجان|0323456781|511112223334|3145678912|"
               "09121234567|کرج، گوهردشت|وکالت 55214|معرفی 70|نرگس احمدی|شرکت باربری|تهران، بزرگراه رسالت|3345|مرکزی|"
               // The vehicle.
               "پژو پارس|ایران خودرو|سال|1403|نقره‌ای|بنزین|پنج نفر|شش|2|4|12 ب 345 ایران 67|164B0123456|"
               "NAAM01CA1JK123456|بیمه تا پایان سال|"
               // Amounts and terms.
               "12,850,000,000|64,250,000|6,425,000|67,675,000|3,000,000|4,500,000|67,750,000|1,000,000|5,000,000,000|"
               "6,000,000,000|1,850,000,000|500,000,000|5,250,000|3|456123-125|ملت|ونک|65432|214|با خریدار|112|7|77214|"
               "98451237740012|دو کلید تحویل شد|1284567|1405/08/29|1405/09/10|10:30|1405/08/30|17:05")
        .split(QLatin1Char('|'));
}
