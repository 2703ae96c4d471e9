// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractMergeFields.h"

#include "auto/contracts/figures/Commission.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

enum class Format {
    Text,  // the first column that holds one
    Money, // the sum of the columns, less the deducted one
    Date,
    Time,
    Code,
    Title // columns: sex, kind of person
};

struct Row
{
    QStringView name;
    Format format = Format::Text;
    std::vector<QStringView> columns;       // of the contract; empty: the contract has none
    std::vector<QStringView> personColumns; // used instead for an ordinary party, from its person's record
    QStringView deducted = {};
};

const std::vector<Row> &firstPartyRows()
{
    using enum Format;
    static const std::vector<Row> rows = {
        {u"Mr", Title, {}, {u"iSex", u"iKind"}},
        {u"Name", Text, {u"sName1"}, {u"sName"}},
        {u"Family", Text, {}, {u"sFamily"}},
        {u"Address", Text, {u"sAddress1"}, {u"sAddress"}},
        {u"PC", Text, {}, {u"sPostalCode"}},
        {u"Father", Text, {}, {u"sFatherName"}},
        {u"IdentityCode", Text, {}, {u"sIdentityNum"}},
        {u"NC", Text, {u"sNationalId1"}, {u"sNationalCode"}},
        {u"BirthCity", Text, {}, {u"sBirthCity"}},
        {u"dateBirth", Date, {}, {u"dateBirth"}},
        {u"Tel", Text, {u"sTel1", u"sMobile1"}, {u"sTel", u"sMobile"}},
        {u"EC", Text, {}, {u"sEconomicCode"}},
        {u"IdentityCodeCity", Text, {}, {u"sIdentityCity"}},
        {u"dateContract", Date, {u"dateContract"}, {}},
        {u"NumOfPlates", Text, {u"sNumOfPlates"}, {}},
        {u"Color", Text, {u"sColor"}, {}},
        {u"AutomobilName", Text, {u"sAutomobilName"}, {}},
        {u"Amount", Money, {u"dAmount"}, {}},
        {u"Commission1", Money, {u"dCommission"}, {}},
        {u"sumTax1", Money, {u"dTax", u"dImposition"}, {}},
        {u"Pay1", Money, {u"dCommission", u"dTax", u"dImposition"}, {}, u"dDiscountFirst"},
        {u"DiscountFirst", Money, {u"dDiscountFirst"}, {}},
        {u"iCode", Code, {u"iCode"}, {}},
        {u"sDesc", Text, {u"sDesc"}, {}},
        {u"Model", Text, {u"sModel"}, {}},
    };
    return rows;
}

// The names do not follow those of the first party; the templates in the offices use them as they are.
const std::vector<Row> &secondPartyRows()
{
    using enum Format;
    static const std::vector<Row> rows = {
        {u"MrPerson2", Title, {}, {u"iSex", u"iKind"}},
        {u"NamePerson2", Text, {u"sName2"}, {u"sName"}},
        {u"Family2", Text, {}, {u"sFamily"}},
        {u"Address2", Text, {u"sAddress2"}, {u"sAddress"}},
        {u"FatherName2", Text, {}, {u"sFatherName"}},
        {u"IdentityCode2", Text, {}, {u"sIdentityNum"}},
        {u"N", Text, {u"sNationalId2"}, {u"sNationalCode"}},
        {u"BirthCity2", Text, {}, {u"sBirthCity"}},
        {u"dateBirth2", Date, {}, {u"dateBirth"}},
        {u"Tel2", Text, {u"sTel2", u"sMobile2"}, {u"sTel", u"sMobile"}},
        {u"IdentityCodeCity2", Text, {}, {u"sIdentityCity"}},
        {u"E", Text, {}, {u"sEconomicCode"}},
        {u"p", Text, {}, {u"sPostalCode"}},
        {u"dateContract", Date, {u"dateContract"}, {}},
        {u"NumOfPlates", Text, {u"sNumOfPlates"}, {}},
        {u"Color", Text, {u"sColor"}, {}},
        {u"AutomobilName", Text, {u"sAutomobilName"}, {}},
        {u"Amount", Money, {u"dAmount"}, {}},
        {u"Commission1", Money, {u"dCommission"}, {}},
        {u"sumTax2", Money, {u"dTax2", u"dImposition2"}, {}},
        {u"Pay2", Money, {u"dCommission", u"dTax2", u"dImposition2"}, {}, u"dDiscountSecond"},
        {u"DiscountSecond", Money, {u"dDiscountSecond"}, {}},
        {u"iCode", Code, {u"iCode"}, {}},
        {u"sDesc", Text, {u"sDesc"}, {}},
        {u"Model", Text, {u"sModel"}, {}},
    };
    return rows;
}

const std::vector<Row> &matterRows()
{
    using enum Format;
    static const std::vector<Row> rows = {
        {u"ByVirtueFirst", Text, {u"sByVirtueFirst"}, {}},
        {u"NumOfWheels", Text, {u"sNumOfWheels"}, {}},
        {u"NumOfEngines", Text, {u"sNumOfEngines"}, {}},
        {u"ChassisNum", Text, {u"sChassisNum"}, {}},
        {u"DescMatter", Text, {u"sDescMatter"}, {}},
        {u"FixAmount", Money, {u"dFixAmount"}, {}},
        {u"AgreeAmount", Money, {u"dAgreeAmount"}, {}},
        {u"CheckCount", Text, {u"sCheckCount"}, {}},
        {u"CheckNum", Text, {u"sCheckNum"}, {}},
        {u"BankName", Text, {u"sBankName"}, {}},
        {u"BranchName", Text, {u"sBranchName"}, {}},
        {u"BranchCode", Text, {u"sBranchCode"}, {}},
        {u"RemainingAmount", Money, {u"dRemainingAmount"}, {}},
        {u"dateTradeUnit", Date, {u"dateTradeUnit"}, {}},
        {u"RegistryNum", Text, {u"sRegistryNum"}, {}},
        {u"RightTahrir", Text, {u"sRightTahrir"}, {}},
        {u"DamageAmount", Money, {u"dDamageAmount"}, {}},
        {u"dateDeal", Date, {u"dateDeal"}, {}},
        {u"timeDeal", Time, {u"dateDeal"}, {}},
        {u"DelayAmount", Money, {u"dDelayAmount"}, {}},
        {u"timeTradeUnit", Time, {u"dateTradeUnit"}, {}},
        {u"AddressSample", Text, {u"sAddressSample"}, {}},
        {u"Page", Text, {u"sPage"}, {}},
        {u"Cover", Text, {u"sCover"}, {}},
        {u"Num", Code, {u"iNum"}, {}},
        {u"Tracking", Text, {u"sTrackingCode"}, {}},
        {u"NoAdvice", Text, {u"sNoAdvice"}, {}},
        {u"DomainRegister", Text, {u"sDomainRegister"}, {}},
        {u"FromFirst", Text, {u"sFromFirst"}, {}},
        {u"FromSecond", Text, {u"sFromSecond"}, {}},
        {u"ByVirtueSecond", Text, {u"sByVirtueSecond"}, {}},
        {u"Dengue", Text, {u"sDengue"}, {}},
        {u"System", Text, {u"sSystem"}, {}},
        {u"Brigade", Text, {u"sBrigade"}, {}},
        {u"Capacity", Text, {u"sCapacity"}, {}},
        {u"Fuel", Text, {u"sFuel"}, {}},
        {u"NumOFAxles", Text, {u"sNumOFAxles"}, {}},
    };
    return rows;
}

QString firstText(const std::vector<QStringView> &columns, const RecordValues &record)
{
    for (const QStringView column : columns)
        if (QString text = record(column).toString(); !text.isEmpty())
            return text;
    return {};
}

QString titleText(const std::vector<QStringView> &columns, const RecordValues &person)
{
    constexpr int man = 0;
    constexpr int highestNaturalKind = 1;
    if (person(columns.at(1)).toInt() > highestNaturalKind)
        return {};
    return person(columns.at(0)).toInt() == man ? u"آقا"_s : u"خانم"_s;
}

QString timeText(const QDateTime &moment)
{
    const QTime time = moment.time();
    return time == QTime(0, 0) ? QString() : time.toString(u"HH:mm");
}

QString text(const Row &row, const std::vector<QStringView> &columns, const RecordValues &record, int moneyDecimals)
{
    if (columns.empty())
        return {};
    const auto value = [&] { return record(columns.front()); };
    switch (row.format) {
    case Format::Text:
        return firstText(columns, record);
    case Format::Money: {
        double amount = row.deducted.isEmpty() ? 0 : -record(row.deducted).toDouble();
        for (const QStringView column : columns)
            amount += record(column).toDouble();
        return DToMoney(amount, moneyDecimals);
    }
    case Format::Date:
        return shamsiText(value().toDateTime().date());
    case Format::Time:
        return timeText(value().toDateTime());
    case Format::Code:
        return value().toInt() == 0 ? QString() : LToStr(value().toInt());
    case Format::Title:
        return titleText(columns, record);
    }
    return {};
}

MergeBatch filled(const std::vector<Row> &rows, const RecordValues &contract, const RecordValues &person, int moneyDecimals)
{
    MergeBatch batch;
    batch.reserve(static_cast<qsizetype>(rows.size()));
    for (const Row &row : rows) {
        const bool askPerson = person && !row.personColumns.empty();
        const QString value = askPerson ? text(row, row.personColumns, person, moneyDecimals)
                                        : text(row, row.columns, contract, moneyDecimals);
        batch.append({row.name.toString(), value.isEmpty() ? u" "_s : value});
    }
    return batch;
}

MergeBatch partyBatch(const std::vector<Row> &rows, QStringView kindColumn, const RecordValues &person,
                      const ContractForPrinting &source)
{
    const bool ordinary = source.contract(kindColumn).toInt() == static_cast<int>(PartyKind::Ordinary);
    if (ordinary && !person)
        return {};
    return filled(rows, source.contract, ordinary ? person : RecordValues(), source.moneyDecimals);
}

}

ContractMergeBatches contractMergeFields(const ContractForPrinting &source)
{
    return {partyBatch(firstPartyRows(), u"iPersonContract1", source.firstPerson, source),
            partyBatch(secondPartyRows(), u"iPersonContract2", source.secondPerson, source),
            filled(matterRows(), source.contract, {}, source.moneyDecimals)};
}

MergeField dealershipField(const QString &companyName)
{
    const QString blankLine = u"نمایشگاه اتومبیل ........................"_s;
    return {u"Dealership"_s, companyName.isEmpty() ? blankLine : companyName};
}
