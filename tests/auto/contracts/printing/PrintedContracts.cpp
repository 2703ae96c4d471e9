// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/printing/PrintedContracts.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/crm/persons/CTblPersons.h"

namespace {

QDateTime moment(int year, int month, int day, int hour = 0, int minute = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute), Qt::UTC);
}

void describeParties(CTblAutomobilContracts &contract)
{
    contract.m_sByVirtueFirst = QStringLiteral("وکالت 55214");
    contract.m_sByVirtueSecond = QStringLiteral("معرفی 70");
    contract.m_sFromFirst = QStringLiteral("نرگس احمدی");
    contract.m_sFromSecond = QStringLiteral("شرکت باربری");
    contract.m_sAddressSample = QStringLiteral("تهران، بزرگراه رسالت");
    contract.m_sNoAdvice = QStringLiteral("3345");
    contract.m_sDomainRegister = QStringLiteral("مرکزی");
}

void describeVehicle(CTblAutomobilContracts &contract)
{
    contract.m_sAutomobilName = QStringLiteral("پژو پارس");
    contract.m_sSystem = QStringLiteral("ایران خودرو");
    contract.m_sBrigade = QStringLiteral("سال");
    contract.m_sModel = QStringLiteral("1403");
    contract.m_sColor = QStringLiteral("نقره‌ای");
    contract.m_sFuel = QStringLiteral("بنزین");
    contract.m_sCapacity = QStringLiteral("پنج نفر");
    contract.m_sDengue = QStringLiteral("شش");
    contract.m_sNumOFAxles = QStringLiteral("2");
    contract.m_sNumOfWheels = QStringLiteral("4");
    contract.m_sNumOfPlates = QStringLiteral("12 ب 345 ایران 67");
    contract.m_sNumOfEngines = QStringLiteral("164B0123456");
    contract.m_sChassisNum = QStringLiteral("NAAM01CA1JK123456");
    contract.m_sDescMatter = QStringLiteral("بیمه تا پایان سال");
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
    contract.m_sCheckCount = QStringLiteral("3");
    contract.m_sCheckNum = QStringLiteral("456123-125");
    contract.m_sBankName = QStringLiteral("ملت");
    contract.m_sBranchName = QStringLiteral("ونک");
    contract.m_sBranchCode = QStringLiteral("65432");
    contract.m_sRegistryNum = QStringLiteral("214");
    contract.m_sRightTahrir = QStringLiteral("با خریدار");
    contract.m_sPage = QStringLiteral("112");
    contract.m_sCover = QStringLiteral("7");
    contract.m_iNum = 77214;
    contract.m_sTrackingCode = QStringLiteral("98451237740012");
    contract.m_sDesc = QStringLiteral("دو کلید تحویل شد");
    contract.m_dateContract = moment(2026, 11, 20);
    contract.m_dateDeal = moment(2026, 12, 1, 10, 30);
    contract.m_dateTradeUnit = moment(2026, 11, 21, 17, 5);
}

}

int PrintedContracts::addSeller(TestOffice &office)
{
    return office.addPerson(QStringLiteral("محمد"), QStringLiteral("احمدی"), [](CTblPersons &person) {
        person.m_sFatherName = QStringLiteral("حسین");
        person.m_dateBirth = moment(1979, 7, 8);
        person.m_sBirthCity = QStringLiteral("کرمان");
        person.m_sIdentityNum = QStringLiteral("2478");
        person.m_sIdentityCity = QStringLiteral("رفسنجان");
        person.m_sNationalCode = QStringLiteral("0012345679");
        person.m_sEconomicCode = QStringLiteral("411378956123");
        person.m_sPostalCode = QStringLiteral("1969833451");
        person.m_sTel = QStringLiteral("021-88776655");
        person.m_sAddress = QStringLiteral("تهران، میدان ونک");
    });
}

int PrintedContracts::addBuyer(TestOffice &office)
{
    return office.addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"), [](CTblPersons &person) {
        person.m_iSex = CTblPersons::sexWoman;
        person.m_sFatherName = QStringLiteral("علی");
        person.m_dateBirth = moment(1992, 1, 22);
        person.m_sBirthCity = QStringLiteral("قزوین");
        person.m_sIdentityNum = QStringLiteral("9913");
        person.m_sIdentityCity = QStringLiteral("زنجان");
        person.m_sNationalCode = QStringLiteral("0323456781");
        person.m_sEconomicCode = QStringLiteral("511112223334");
        person.m_sPostalCode = QStringLiteral("3145678912");
        person.m_sMobile = QStringLiteral("09121234567");
        person.m_sAddress = QStringLiteral("کرج، گوهردشت");
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
