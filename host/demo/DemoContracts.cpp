// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoContracts.h"

#include "auto/words/WordLists.h"
#include "auto/contracts/document/ContractPosting.h"
#include "host/demo/DemoNames.h"
#include "host/demo/DemoTimes.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/Provinces.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

enum ContractType {
    Sale,
    Rent,
    Instalments,
    Letter
};

int contractType(DemoRandom &random)
{
    const int draw = random.below(100);
    return draw < 70 ? Sale : draw < 78 ? Rent
        : draw < 95                     ? Instalments
                                        : Letter;
}

QString provinceOf(const QString &city)
{
    for (const QString &province : Provinces::names()) {
        if (Provinces::cities(province).contains(city))
            return province;
    }
    return {};
}

}

DemoContracts::DemoContracts(const Office &office, const QList<DemoPersons::Person> &persons, DemoRandom &random, int database)
    : m_office(office)
    , m_persons(persons)
    , m_random(random)
    , m_contract(database)
    , m_document(database)
    , m_row(database)
    , m_contracts(m_contract, RecordBulkInsert::IntoEmptyTable)
    , m_documents(m_document, RecordBulkInsert::IntoEmptyTable)
    , m_rows(m_row, RecordBulkInsert::IntoEmptyTable)
{
}

void DemoContracts::write(int count)
{
    const qint64 days = m_office.firstDay.daysTo(m_office.lastDay);
    RecordBulkInsert::fillAhead({&m_documents, &m_rows, &m_contracts}, [this, count, days] {
        for (int code = 1; code <= count; ++code)
            makeContract(code, m_office.firstDay.addDays(days * code / count));
    });
}

void DemoContracts::makeContract(int code, const QDate &day)
{
    Party first;
    Party second;
    chooseParties(first, second);
    m_contract.m_iCode = code;
    m_contract.m_iContractType = contractType(m_random);
    m_contract.m_dateContract = midnight(day);
    m_contract.m_dateCreate = QDateTime(day, QTime(9, 0).addSecs(m_random.below(9 * 3600)), Qt::UTC);
    m_contract.m_iUserID = m_office.userID;
    setParties(first, second);
    setCar();
    setRegistry(day);
    setPayment();
    setTerms(day);
    setState(day);
    postDocument();
    m_contracts.add();
}

DemoContracts::Party DemoContracts::showroom() const
{
    const CompanyDetails &company = m_office.company;
    return {PartyKind::Showroom,
            {0, company.name(), company.mobile, company.telephone, company.address, company.nationalCode, 0}};
}

void DemoContracts::chooseParties(Party &first, Party &second)
{
    const auto anybody = [this] {
        return Party{PartyKind::Ordinary, m_persons.at(m_random.below(static_cast<int>(m_persons.size())))};
    };
    first = m_random.chance(8) ? showroom() : anybody();
    // No contract has the same name on both sides.
    do {
        second = anybody();
    } while (second.person.name == first.person.name);
    if (first.kind == PartyKind::Ordinary && m_random.chance(4)) {
        first.kind = PartyKind::Other;
        first.person.id = 0;
        first.person.discountPercent = 0;
    }
}

void DemoContracts::setParties(const Party &first, const Party &second)
{
    m_contract.m_iPersonContract1 = static_cast<qint32>(first.kind);
    m_contract.m_iPersonContract2 = static_cast<qint32>(second.kind);
    m_contract.m_iPersonFirstID = first.person.id;
    m_contract.m_iPersonSecondID = second.person.id;
    m_contract.m_sName1 = first.person.name;
    m_contract.m_sMobile1 = first.person.mobile;
    m_contract.m_sTel1 = first.person.telephone;
    m_contract.m_sAddress1 = first.person.address;
    m_contract.m_sNationalId1 = first.person.nationalCode;
    m_contract.m_sName2 = second.person.name;
    m_contract.m_sMobile2 = second.person.mobile;
    m_contract.m_sTel2 = second.person.telephone;
    m_contract.m_sAddress2 = second.person.address;
    m_contract.m_sNationalId2 = second.person.nationalCode;

    const DemoNames::Car car = m_random.oneOf(DemoNames::cars());
    const int age = m_random.below(6);
    const ShamsiDate day = GetShamsi(m_contract.m_dateContract.date());
    m_contract.m_sSystem = car.maker.toString();
    m_contract.m_sAutomobilName = car.name.toString();
    m_contract.m_sModel = QString::number(day.year - age);
    // A car loses a tenth of its price a year; a rent is a hundredth of it a month.
    const double price = car.millions * 1e7 * (100 - 9 * age) / 100 + m_random.below(40) * 1e7;
    setFigures(first, second, m_contract.m_iContractType == Rent ? price / 10 : price);
}

// As the editor does when both sides are picked first and then the amount is typed.
void DemoContracts::setFigures(const Party &first, const Party &second, double amount)
{
    CommissionFields figures;
    const auto change = [&](CommissionField field) { afterChange(field, figures, m_office.settings.tiers); };
    for (CommissionParty *party : {&figures.first, &figures.second}) {
        party->taxPercent = m_office.settings.taxPercent;
        party->dutyPercent = m_office.settings.dutyPercent;
    }
    figures.first.kind = first.kind;
    change(CommissionField::FirstKind);
    figures.second.kind = second.kind;
    change(CommissionField::SecondKind);
    figures.first.discountPercent = first.person.discountPercent;
    change(CommissionField::FirstDiscountPercent);
    figures.second.discountPercent = second.person.discountPercent;
    change(CommissionField::SecondDiscountPercent);
    figures.amount = amount;
    change(CommissionField::Amount);

    m_contract.m_dAmount = figures.amount;
    m_contract.m_dCommission = figures.commission;
    m_contract.m_dCommissionEveryPerson = figures.perPartyTotal;
    m_contract.m_dPercentTax = figures.first.taxPercent;
    m_contract.m_dTax = figures.first.tax;
    m_contract.m_dPercentImpsition = figures.first.dutyPercent;
    m_contract.m_dImposition = figures.first.duty;
    m_contract.m_dPercentDiscount = figures.first.discountPercent;
    m_contract.m_dDiscountFirst = figures.first.discount;
    m_contract.m_dPayFirst = figures.first.pays;
    m_contract.m_dPercentTax2 = figures.second.taxPercent;
    m_contract.m_dTax2 = figures.second.tax;
    m_contract.m_dPercentImposition2 = figures.second.dutyPercent;
    m_contract.m_dImposition2 = figures.second.duty;
    m_contract.m_dPercentDiscount2 = figures.second.discountPercent;
    m_contract.m_dDiscountSecond = figures.second.discount;
    m_contract.m_dPaySecond = figures.second.pays;
}

void DemoContracts::setCar()
{
    const QString color = m_random.oneOf(DemoNames::colors()).toString();
    m_contract.m_sAutomobilType = u"سواری"_s;
    m_contract.m_sColor = color;
    m_contract.m_sFuel = WordLists::textAt(WordLists::fuelTypes(), 1);
    m_contract.m_sCapacity = u"5"_s;
    m_contract.m_sNumOFAxles = u"2"_s;
    m_contract.m_sNumOfWheels = u"4"_s;
    m_contract.m_sChassisNum = u"NAA%1"_s.arg(m_random.between(10000000, 99999999));
    m_contract.m_sNumOfEngines = u"1%1"_s.arg(m_random.between(1000000, 9999999));
    m_contract.m_sVIN = u"IR%1%2"_s.arg(m_random.between(1000000, 9999999)).arg(m_random.between(10000000, 99999999));
    m_contract.m_sNumOfPlates = u"%1 ب %2 ایران %3"_s
                                    .arg(QString::number(m_random.between(11, 99)), QString::number(m_random.between(111, 999)),
                                         QString::number(m_random.between(10, 99)));
    m_contract.m_sDeal = u"یک دستگاه %1 %2 مدل %3 رنگ %4"_s
                             .arg(m_contract.m_sSystem, m_contract.m_sAutomobilName, m_contract.m_sModel, color);
    m_contract.m_sExplain = u"%1 %2 %3، %4"_s
                                .arg(m_contract.m_sSystem, m_contract.m_sAutomobilName, color,
                                     m_random.oneOf(DemoNames::deliveries()).toString());
    m_contract.m_sTrackingCode = QString::number(m_random.between(100000000, 999999999));
    m_contract.m_sSerial = u"آ/%1"_s.arg(100000 + m_contract.m_iCode);
}

void DemoContracts::setRegistry(const QDate &day)
{
    m_contract.m_sCity = m_random.oneOf(DemoNames::cities()).name.toString();
    m_contract.m_sState = provinceOf(m_contract.m_sCity);
    m_contract.m_sDengue = u"شش دانگ"_s;
    m_contract.m_sBrigade = u"تیپ %1"_s.arg(m_random.between(1, 5));
    m_contract.m_sDocumentsDelivered = u"سند، کارت خودرو، بیمه نامه، زاپاس و جک"_s;
    m_contract.m_sRegistryNum = QString::number(m_random.between(1, 980));
    m_contract.m_sLicense = QString::number(m_random.between(10000, 99999));
    m_contract.m_dateDeal = QDateTime(day, QTime(9, 0).addSecs(m_random.below(9 * 3600)), Qt::UTC);
    m_contract.m_dateTradeUnit = m_contract.m_dateDeal;
    m_contract.m_dEveryHandDealAmount = m_contract.m_dCommission;
    // An instalment sale keeps its document until the last instalment is paid.
    const bool transferred = m_contract.m_iContractType != Instalments && m_contract.m_iContractType != Letter;
    m_contract.m_dateDocument = transferred ? midnight(day.addDays(m_random.between(3, 20))) : QDateTime();
    m_contract.m_dateOffice = m_contract.m_dateDocument;
}

// For a sale, a third to two thirds by cheque; the rest is due with the document or, for an instalment sale, in instalments.
void DemoContracts::setPayment()
{
    const bool paid = m_contract.m_iContractType == Sale || m_contract.m_iContractType == Instalments;
    const int cheques = paid ? m_random.between(1, 3) : 0;
    const double byCheque = paid ? qRound64(m_contract.m_dAmount * m_random.between(33, 66) / 100 / 1e6) * 1e6 : 0;
    const bool rest = m_contract.m_iContractType == Sale;
    m_contract.m_sCheckCount = paid ? QString::number(cheques) : QString();
    m_contract.m_dAgreeAmount = byCheque;
    m_contract.m_sCheckNum = paid ? QString::number(m_random.between(100000, 999999)) : QString();
    m_contract.m_sBankName = paid ? u"ملت"_s : QString();
    m_contract.m_sBranchName = paid ? u"میدان آزادی"_s : QString();
    m_contract.m_sBranchCode = paid ? QString::number(m_random.between(1000, 9999)) : QString();
    m_contract.m_dRemainingAmount = rest ? m_contract.m_dAmount - byCheque : 0;
    m_contract.m_sDescRemainingAmount = rest ? u"هنگام تنظیم سند در دفترخانه"_s : QString();
    m_contract.m_dDamageAmount = paid ? qRound64(m_contract.m_dAmount / 100 / 1e6) * 1e6 : 0;
}

void DemoContracts::setTerms(const QDate &day)
{
    const bool rent = m_contract.m_iContractType == Rent;
    const bool instalments = m_contract.m_iContractType == Instalments;
    const bool lasts = rent || instalments;
    m_contract.m_sRentTime = lasts ? u"یک سال"_s : QString();
    m_contract.m_dateRent = lasts ? midnight(day) : QDateTime();
    m_contract.m_dateRentExpire = lasts ? midnight(addShamsiMonths(day, 12)) : QDateTime();
    m_contract.m_dAmountRent = rent ? m_contract.m_dAmount / 12 : 0;
    m_contract.m_sNumOfMonths = rent ? u"12"_s : QString();
    m_contract.m_sDescCheck = rent ? u"یک فقره سفته بابت حسن انجام تعهدات"_s : QString();
    m_contract.m_sNumOfInstallment = instalments ? u"12"_s : QString();
    m_contract.m_sUsanceNum = instalments ? u"1 تا 12"_s : QString();
    m_contract.m_dDelayAmount = instalments ? qRound64(m_contract.m_dAmount / 1000 / 1e4) * 1e4 : 0;
}

void DemoContracts::setState(const QDate &day)
{
    const bool lasts = m_contract.m_iContractType == Rent || m_contract.m_iContractType == Instalments;
    m_contract.m_dateExpiration = lasts ? midnight(addShamsiMonths(day, 12)) : QDateTime();
    m_contract.m_iStatus = m_random.chance(2) ? 1 : 0;
    m_contract.m_bReturn = m_random.chance(4) ? 1 : 0;
    const bool old = day.daysTo(m_office.lastDay) > 365;
    const bool archived = old && m_random.chance(60);
    m_contract.m_iArchiveUserID = archived ? m_office.userID : 0;
    m_contract.m_dateArchive = archived ? midnight(day.addDays(200 + m_random.below(160))) : QDateTime();
    m_contract.m_sDesc = m_contract.m_bReturn ? u"با توافق دو طرف برگشت داده شد."_s : QString();
}

void DemoContracts::postDocument()
{
    const int year = GetShamsi(m_contract.m_dateContract.date()).year;
    const int number = ++m_lastNumbers[year];
    m_contract.m_iFiscalYear = year;
    m_contract.m_iDocNum = number;

    const DocumentContent content = ContractPosting::documentOfNew(m_contract, m_office.settings);
    m_document.m_iNum = number;
    m_document.m_iFiscalYear = year;
    m_document.m_iKind = Accounts::documentKindContract;
    m_document.m_date = content.date;
    m_document.m_sDesc = content.description;
    m_document.m_iUserID = m_office.userID;
    m_documents.add();
    for (const DocumentRow &row : content.rows) {
        m_row.setRow(number, year, row);
        m_rows.add();
    }
}
