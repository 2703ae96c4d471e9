// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/contracts/printing/PlanMergeFields.h"
#include "tests/support/RegisteredTest.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Values = QHash<QString, QVariant>;

const QString blank = u" "_s;

QDateTime moment(int year, int month, int day, int hour = 0, int minute = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute), Qt::UTC);
}

RecordValues record(const Values &values)
{
    return [values](QStringView column) { return values.value(column.toString()); };
}

// A contract that says something in every column that is printed, between the kinds given.
Values fullContract(int firstKind = 0, int secondKind = 0)
{
    Values values = {
        {u"iPersonContract1"_s, firstKind},
        {u"iPersonContract2"_s, secondKind},
        {u"iCode"_s, 1284567},
        {u"iNum"_s, 77000},
        {u"dAmount"_s, 12850000000.0},
        {u"dCommission"_s, 64250000.0},
        {u"dTax"_s, 5782500.0},
        {u"dImposition"_s, 642500.0},
        {u"dDiscountFirst"_s, 3000000.0},
        {u"dTax2"_s, 4000000.0},
        {u"dImposition2"_s, 500000.0},
        {u"dDiscountSecond"_s, 1000000.0},
        {u"dFixAmount"_s, 5000000.0},
        {u"dAgreeAmount"_s, 6000000.0},
        {u"dRemainingAmount"_s, 1850000.0},
        {u"dDamageAmount"_s, 700000.0},
        {u"dDelayAmount"_s, 1234.0},
        {u"dateContract"_s, moment(2026, 11, 20)},
        {u"dateDeal"_s, moment(2026, 12, 1, 10, 30)},
        {u"dateTradeUnit"_s, moment(2026, 11, 21, 17, 5)},
    };
    for (const char *column :
         {"sName1", "sAddress1", "sNationalId1", "sTel1", "sMobile1", "sName2", "sAddress2", "sNationalId2", "sTel2", "sMobile2",
          "sNumOfPlates", "sColor", "sAutomobilName", "sDesc", "sModel", "sByVirtueFirst", "sNumOfWheels", "sNumOfEngines",
          "sChassisNum", "sDescMatter", "sCheckCount", "sCheckNum", "sBankName", "sBranchName", "sBranchCode", "sRegistryNum",
          "sRightTahrir", "sAddressSample", "sPage", "sCover", "sTrackingCode", "sNoAdvice", "sDomainRegister", "sFromFirst",
          "sFromSecond", "sByVirtueSecond", "sDengue", "sSystem", "sBrigade", "sCapacity", "sFuel", "sNumOFAxles"})
        values.insert(QString::fromLatin1(column), u"contract "_s + QString::fromLatin1(column));
    return values;
}

Values fullPerson(const QString &who, int sex = 0, int kind = 0)
{
    Values values = {{u"iSex"_s, sex}, {u"iKind"_s, kind}, {u"dateBirth"_s, moment(1979, 7, 8)}};
    for (const char *column : {"sName", "sFamily", "sAddress", "sPostalCode", "sFatherName", "sIdentityNum", "sNationalCode",
                               "sBirthCity", "sTel", "sMobile", "sEconomicCode", "sIdentityCity"})
        values.insert(QString::fromLatin1(column), who + QLatin1Char(' ') + QString::fromLatin1(column));
    return values;
}

ContractMergeBatches batchesOf(const Values &contract, const RecordValues &first = record(fullPerson(u"first"_s)),
                               const RecordValues &second = record(fullPerson(u"second"_s, 1)), int decimals = 0)
{
    return contractMergeFields({record(contract), first, second, decimals});
}

QStringList names(const MergeBatch &batch)
{
    QStringList result;
    for (const MergeField &field : batch)
        result << field.name;
    return result;
}

QStringList values(const MergeBatch &batch)
{
    QStringList result;
    for (const MergeField &field : batch)
        result << field.value;
    return result;
}

QString valueOf(const MergeBatch &batch, const QString &name)
{
    for (const MergeField &field : batch)
        if (field.name == name)
            return field.value;
    return u"no such field"_s;
}

QStringList split(const char *texts)
{
    return QString::fromUtf8(texts).split(u", "_s);
}

const QStringList firstNames = split(
    "Mr, Name, Family, Address, PC, Father, IdentityCode, NC, BirthCity, dateBirth, Tel, EC, IdentityCodeCity, dateContract, "
    "NumOfPlates, Color, AutomobilName, Amount, Commission1, sumTax1, Pay1, DiscountFirst, iCode, sDesc, Model");
const QStringList secondNames = split(
    "MrPerson2, NamePerson2, Family2, Address2, FatherName2, IdentityCode2, N, BirthCity2, dateBirth2, Tel2, "
    "IdentityCodeCity2, E, p, dateContract, NumOfPlates, Color, AutomobilName, Amount, Commission1, sumTax2, Pay2, "
    "DiscountSecond, iCode, sDesc, Model");
const QStringList matterNames = split(
    "ByVirtueFirst, NumOfWheels, NumOfEngines, ChassisNum, DescMatter, FixAmount, AgreeAmount, CheckCount, CheckNum, "
    "BankName, BranchName, BranchCode, RemainingAmount, dateTradeUnit, RegistryNum, RightTahrir, DamageAmount, dateDeal, "
    "timeDeal, DelayAmount, timeTradeUnit, AddressSample, Page, Cover, Num, Tracking, NoAdvice, DomainRegister, FromFirst, "
    "FromSecond, ByVirtueSecond, Dengue, System, Brigade, Capacity, Fuel, NumOFAxles");

}

class TestContractMergeFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreToTheLetterAndInOrder()
    {
        const auto batches = batchesOf(fullContract());
        QCOMPARE(names(batches[0]), firstNames);
        QCOMPARE(names(batches[1]), secondNames);
        QCOMPARE(names(batches[2]), matterNames);
        QCOMPARE(batches[0].size(), 25);
        QCOMPARE(batches[1].size(), 25);
        QCOMPARE(batches[2].size(), 37);
    }

    void ordinaryFirstPartyComesFromThePersonRecord()
    {
        const QStringList expected = {
            u"آقا"_s, u"first sName"_s, u"first sFamily"_s, u"first sAddress"_s,
            u"first sPostalCode"_s, u"first sFatherName"_s, u"first sIdentityNum"_s,
            u"first sNationalCode"_s, u"first sBirthCity"_s, u"1358/04/17"_s,
            u"first sTel"_s, u"first sEconomicCode"_s, u"first sIdentityCity"_s,
            u"1405/08/29"_s, u"contract sNumOfPlates"_s, u"contract sColor"_s,
            u"contract sAutomobilName"_s, u"12,850,000,000"_s, u"64,250,000"_s,
            u"6,425,000"_s, u"67,675,000"_s, u"3,000,000"_s, u"1284567"_s,
            u"contract sDesc"_s, u"contract sModel"_s};
        QCOMPARE(values(batchesOf(fullContract())[0]), expected);
    }

    void ordinarySecondPartyComesFromThePersonRecord()
    {
        const QStringList expected = {
            u"خانم"_s, u"second sName"_s, u"second sFamily"_s, u"second sAddress"_s,
            u"second sFatherName"_s, u"second sIdentityNum"_s, u"second sNationalCode"_s,
            u"second sBirthCity"_s, u"1358/04/17"_s, u"second sTel"_s,
            u"second sIdentityCity"_s, u"second sEconomicCode"_s, u"second sPostalCode"_s,
            u"1405/08/29"_s, u"contract sNumOfPlates"_s, u"contract sColor"_s,
            u"contract sAutomobilName"_s, u"12,850,000,000"_s, u"64,250,000"_s,
            u"4,500,000"_s, u"67,750,000"_s, u"1,000,000"_s, u"1284567"_s,
            u"contract sDesc"_s, u"contract sModel"_s};
        QCOMPARE(values(batchesOf(fullContract())[1]), expected);
    }

    void matterTakesTheColumnOfTheSameStem()
    {
        const QHash<QString, QString> others = {
            {u"FixAmount"_s, u"5,000,000"_s}, {u"AgreeAmount"_s, u"6,000,000"_s}, {u"RemainingAmount"_s, u"1,850,000"_s}, {u"DamageAmount"_s, u"700,000"_s}, {u"DelayAmount"_s, u"1,234"_s}, {u"dateTradeUnit"_s, u"1405/08/30"_s}, {u"dateDeal"_s, u"1405/09/10"_s}, {u"timeDeal"_s, u"10:30"_s}, {u"timeTradeUnit"_s, u"17:05"_s}, {u"Num"_s, u"77000"_s}, {u"Tracking"_s, u"contract sTrackingCode"_s}};
        const auto batches = batchesOf(fullContract());
        for (const MergeField &field : batches[2])
            QCOMPARE(field.value, others.value(field.name, u"contract s"_s + field.name));
    }

    // Edge case: a party of kind 1 or 2 prints " " in the fields that the contract has no party column for.
    void partyOfKind1Or2PrintsABlankWhereTheContractHasNoColumn_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("the dealership itself") << 1;
        QTest::newRow("typed in by hand") << 2;
        QTest::newRow("a kind that nobody knows") << 9;
    }

    void partyOfKind1Or2PrintsABlankWhereTheContractHasNoColumn()
    {
        QFETCH(int, kind);
        const auto batches = batchesOf(fullContract(kind, kind));
        const QStringList first = {blank, u"contract sName1"_s, blank, u"contract sAddress1"_s, blank, blank, blank,
                                   u"contract sNationalId1"_s, blank, blank, u"contract sTel1"_s, blank, blank};
        const QStringList second = {blank, u"contract sName2"_s, blank, u"contract sAddress2"_s, blank, blank,
                                    u"contract sNationalId2"_s, blank, blank, u"contract sTel2"_s, blank, blank, blank};
        QCOMPARE(values(batches[0]).mid(0, 13), first);
        QCOMPARE(values(batches[1]).mid(0, 13), second);
        QCOMPARE(valueOf(batches[0], u"Pay1"_s), u"67,675,000"_s);
        QCOMPARE(valueOf(batches[1], u"Pay2"_s), u"67,750,000"_s);
    }

    // Edge case: a person (kind 0) that no longer exists leaves that party's batch unfilled; the others are still filled.
    void missingPersonSkipsThatBatchAlone_data()
    {
        QTest::addColumn<bool>("hasFirst");
        QTest::addColumn<bool>("hasSecond");
        QTest::newRow("first") << false << true;
        QTest::newRow("second") << true << false;
        QTest::newRow("both") << false << false;
    }

    void missingPersonSkipsThatBatchAlone()
    {
        QFETCH(bool, hasFirst);
        QFETCH(bool, hasSecond);
        const RecordValues person = record(fullPerson(u"p"_s));
        const auto batches = batchesOf(fullContract(), hasFirst ? person : RecordValues(), hasSecond ? person : RecordValues());
        QCOMPARE(batches[0].size(), hasFirst ? 25 : 0);
        QCOMPARE(batches[1].size(), hasSecond ? 25 : 0);
        QCOMPARE(batches[2].size(), 37);
    }

    void missingPersonMattersOnlyToAnOrdinaryParty()
    {
        const auto batches = batchesOf(fullContract(2, 1), {}, {});
        QCOMPARE(batches[0].size(), 25);
        QCOMPARE(batches[1].size(), 25);
    }

    void everyUnknownValueIsASingleBlank_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("ordinary") << 0;
        QTest::newRow("the dealership itself") << 1;
        QTest::newRow("typed in by hand") << 2;
    }

    void everyUnknownValueIsASingleBlank()
    {
        QFETCH(int, kind);
        const Values contract = {{u"iPersonContract1"_s, kind}, {u"iPersonContract2"_s, kind}};
        const RecordValues nobody = record({{u"iKind"_s, 2}});
        const auto batches = batchesOf(contract, nobody, nobody);
        const QStringList amounts = split("Amount, Commission1, sumTax1, Pay1, DiscountFirst, sumTax2, Pay2, DiscountSecond, FixAmount, "
                                          "AgreeAmount, RemainingAmount, DamageAmount, DelayAmount");
        int checked = 0;
        for (const MergeBatch &batch : batches) {
            for (const MergeField &field : batch) {
                QVERIFY2(field.value == (amounts.contains(field.name) ? u"0"_s : blank), qPrintable(field.name));
                ++checked;
            }
        }
        QCOMPARE(checked, 87);
    }

    void titleFollowsTheSexAndACompanyHasNone_data()
    {
        QTest::addColumn<int>("sex");
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("title");
        QTest::newRow("man") << 0 << 0 << u"آقا"_s;
        QTest::newRow("woman") << 1 << 0 << u"خانم"_s;
        QTest::newRow("foreign man") << 0 << 1 << u"آقا"_s;
        QTest::newRow("foreign woman") << 1 << 1 << u"خانم"_s;
        QTest::newRow("company") << 0 << 2 << blank;
        QTest::newRow("other legal person") << 1 << 3 << blank;
    }

    void titleFollowsTheSexAndACompanyHasNone()
    {
        QFETCH(int, sex);
        QFETCH(int, kind);
        QFETCH(QString, title);
        const RecordValues person = record(fullPerson(u"p"_s, sex, kind));
        const auto batches = batchesOf(fullContract(), person, person);
        QCOMPARE(valueOf(batches[0], u"Mr"_s), title);
        QCOMPARE(valueOf(batches[1], u"MrPerson2"_s), title);
    }

    void mobileStandsInForAMissingTelephone()
    {
        Values person = fullPerson(u"p"_s);
        person[u"sTel"_s] = QString();
        QCOMPARE(valueOf(batchesOf(fullContract(), record(person))[0], u"Tel"_s), u"p sMobile"_s);
        Values contract = fullContract(2, 2);
        contract[u"sTel2"_s] = QString();
        QCOMPARE(valueOf(batchesOf(contract)[1], u"Tel2"_s), u"contract sMobile2"_s);
    }

    // Edge case: "Pay1" and "Pay2" differ only by the two parties' tax, duty and discount; the commission is the same in both.
    void pay1AndPay2DifferOnlyByTaxDutyAndDiscount_data()
    {
        QTest::addColumn<double>("tax2");
        QTest::addColumn<double>("duty2");
        QTest::addColumn<double>("discount2");
        QTest::addColumn<QString>("sumTax2");
        QTest::addColumn<QString>("pay2");
        QTest::newRow("as the first") << 9.0 << 1.0 << 4.0 << u"10"_s << u"106"_s;
        QTest::newRow("tax") << 19.0 << 1.0 << 4.0 << u"20"_s << u"116"_s;
        QTest::newRow("duty") << 9.0 << 2.0 << 4.0 << u"11"_s << u"107"_s;
        QTest::newRow("discount") << 9.0 << 1.0 << 0.0 << u"10"_s << u"110"_s;
        QTest::newRow("discount above everything") << 0.0 << 0.0 << 150.0 << u"0"_s << u"-50"_s;
    }

    void pay1AndPay2DifferOnlyByTaxDutyAndDiscount()
    {
        QFETCH(double, tax2);
        QFETCH(double, duty2);
        QFETCH(double, discount2);
        QFETCH(QString, sumTax2);
        QFETCH(QString, pay2);
        Values contract = fullContract();
        contract.insert({{u"dCommission"_s, 100.0}, {u"dTax"_s, 9.0}, {u"dImposition"_s, 1.0}, {u"dDiscountFirst"_s, 4.0}, {u"dTax2"_s, tax2}, {u"dImposition2"_s, duty2}, {u"dDiscountSecond"_s, discount2}});
        const auto batches = batchesOf(contract);
        QCOMPARE(valueOf(batches[0], u"Commission1"_s), u"100"_s);
        QCOMPARE(valueOf(batches[1], u"Commission1"_s), u"100"_s);
        QCOMPARE(valueOf(batches[0], u"sumTax1"_s), u"10"_s);
        QCOMPARE(valueOf(batches[0], u"Pay1"_s), u"106"_s);
        QCOMPARE(valueOf(batches[1], u"sumTax2"_s), sumTax2);
        QCOMPARE(valueOf(batches[1], u"Pay2"_s), pay2);
    }

    void moneyHasTheDecimalsOfTheMoneyUnit()
    {
        Values contract = fullContract();
        contract[u"dAmount"_s] = 1234567.5;
        const auto batches = batchesOf(contract, record(fullPerson(u"f"_s)), record(fullPerson(u"s"_s)), 2);
        QCOMPARE(valueOf(batches[0], u"Amount"_s), u"1,234,567.50"_s);
        QCOMPARE(valueOf(batches[0], u"Pay1"_s), u"67,675,000.00"_s);
        QCOMPARE(valueOf(batches[2], u"DelayAmount"_s), u"1,234.00"_s);
    }

    void timeOfMidnightIsATimeNotGiven()
    {
        Values contract = fullContract();
        contract[u"dateDeal"_s] = moment(2026, 12, 1);
        const auto batches = batchesOf(contract);
        QCOMPARE(valueOf(batches[2], u"dateDeal"_s), u"1405/09/10"_s);
        QCOMPARE(valueOf(batches[2], u"timeDeal"_s), blank);
    }

    // The fields beside the stated ones.
    void furtherFields_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("value");
        QTest::newRow("letterhead") << u"Dealership"_s << u"نمایشگاه آریا"_s;
        QTest::newRow("address of the office") << u"DealershipAddress"_s << u"office address"_s;
        QTest::newRow("telephone of the office") << u"DealershipTel"_s << u"office telephone"_s;
        QTest::newRow("money unit") << u"MoneyUnit"_s << u"ریال"_s;
        QTest::newRow("VIN") << u"VIN"_s << u"IRFC04"_s;
        QTest::newRow("plate in its form") << u"Plate"_s << u"\u202A12 ب\u200E 345 | ایران\u200E 67\u202C"_s;
        QTest::newRow("a part of the plate") << u"PlateThree"_s << u"345"_s;
        QTest::newRow("letter of the plate") << u"PlateLetter"_s << u"ب"_s;
        QTest::newRow("amount in words") << u"AmountWords"_s << u"دوازده میلیارد و هشتصد و پنجاه میلیون ریال"_s;
        QTest::newRow("commission in words") << u"CommissionWords"_s << u"شصت و چهار میلیون و دویست و پنجاه هزار ریال"_s;
        QTest::newRow("what the first party pays, in words") << u"Pay1Words"_s << u"شصت و هفت میلیون و ششصد و هفتاد و پنج هزار ریال"_s;
        QTest::newRow("what the second party pays, in words") << u"Pay2Words"_s << u"شصت و هفت میلیون و هفتصد و پنجاه هزار ریال"_s;
        QTest::newRow("amount of the rent") << u"AmountRent"_s << u"910,000"_s;
        QTest::newRow("period of the rent") << u"RentTime"_s << u"شش ماه"_s;
        QTest::newRow("end of the rent") << u"dateRentExpire"_s << u"1405/09/10"_s;
        QTest::newRow("note") << u"Note10"_s << u"ten"_s;
        QTest::newRow("not stated") << u"License"_s << blank;
    }

    void furtherFields()
    {
        Values contract = fullContract();
        contract.insert({{u"iContractType"_s, 1}, {u"sVIN"_s, u"IRFC04"_s}, {u"sNumOfPlates"_s, u"12 ب 345 ایران 67"_s}, {u"dAmountRent"_s, 910000.0}, {u"sRentTime"_s, u"شش ماه"_s}, {u"dateRentExpire"_s, moment(2026, 12, 1)}, {u"sNote10"_s, u"ten"_s}});
        const RecordValues office = [](QStringView key) { return QVariant(u"office "_s + key.toString()); };
        const MergeBatch batch = furtherMergeFields({record(contract), {}, {}, 0, u"ریال"_s, u"نمایشگاه آریا"_s, office});
        QFETCH(QString, name);
        QTEST(valueOf(batch, name), "value");
    }

    void plateOfAnotherFormStaysAsItIs()
    {
        Values contract = fullContract();
        contract[u"sNumOfPlates"_s] = u"گذر موقت 123"_s;
        const MergeBatch batch = furtherMergeFields({record(contract), {}, {}});
        QCOMPARE(valueOf(batch, u"Plate"_s), u"گذر موقت 123"_s);
        QCOMPARE(valueOf(batch, u"PlateLetter"_s), blank);
    }

    // What a template with marks leaves out.
    void fieldSaysSomethingUnlessItIsEmptyZeroOrHidden_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("column");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("says");
        QTest::newRow("amount") << 0 << u"dAmount"_s << QVariant(5.0) << u"Amount"_s << true;
        QTest::newRow("amount of nothing") << 0 << u"dAmount"_s << QVariant(0.0) << u"Amount"_s << false;
        QTest::newRow("amount that rounds to nothing") << 0 << u"dAmount"_s << QVariant(0.4) << u"Amount"_s << false;
        QTest::newRow("amount of nothing in words") << 0 << u"dAmount"_s << QVariant(0.0) << u"AmountWords"_s << false;
        QTest::newRow("text") << 0 << u"sColor"_s << QVariant(u"آبی"_s) << u"Color"_s << true;
        QTest::newRow("blank text") << 0 << u"sColor"_s << QVariant(u"  "_s) << u"Color"_s << false;
        QTest::newRow("delay of an instalment sale") << 2 << u"dDelayAmount"_s << QVariant(5.0) << u"DelayAmount"_s << true;
        QTest::newRow("delay of a sale") << 0 << u"dDelayAmount"_s << QVariant(5.0) << u"DelayAmount"_s << false;
        QTest::newRow("delay of a sale in words") << 0 << u"dDelayAmount"_s << QVariant(5.0) << u"DelayAmountWords"_s << false;
        QTest::newRow("cash payment, which no type shows") << 2 << u"dFixAmount"_s << QVariant(5.0) << u"FixAmount"_s << false;
        QTest::newRow("rest of an instalment sale") << 2 << u"dRemainingAmount"_s << QVariant(5.0) << u"RemainingAmount"_s << false;
        QTest::newRow("vehicle of a letter") << 3 << u"sAutomobilName"_s << QVariant(u"پژو"_s) << u"AutomobilName"_s << false;
        QTest::newRow("description of a letter") << 3 << u"sDesc"_s << QVariant(u"متن"_s) << u"sDesc"_s << true;
        QTest::newRow("what is deducted counts") << 0 << u"dDiscountFirst"_s << QVariant(70675000.0) << u"Pay1"_s << false;
    }

    void fieldSaysSomethingUnlessItIsEmptyZeroOrHidden()
    {
        QFETCH(int, type);
        QFETCH(QString, column);
        QFETCH(QVariant, stored);
        QFETCH(QString, name);
        Values contract = fullContract(2, 2);
        contract[u"iContractType"_s] = type;
        contract[column] = stored;
        const ContractForPrinting source{record(contract), {}, {}};
        QList<bool> found;
        for (const MergeBatch &batch : contractMergeFields(source))
            for (const MergeField &field : batch)
                if (field.name == name)
                    found.append(field.says);
        for (const MergeField &field : furtherMergeFields(source))
            if (field.name == name)
                found.append(field.says);
        QVERIFY(!found.isEmpty());
        QFETCH(bool, says);
        QCOMPARE(found, QList<bool>(found.size(), says));
    }

    void planIsARowForEachInstalmentAndASum()
    {
        const QList<InstalmentForPrinting> plan = {{1, QDate(2026, 12, 1), 1000, u"first"_s, u"456 ملت"_s}, {2, QDate(2027, 1, 1), 1500, QString()}};
        const DocumentParts::Table table = planTable(plan, 0, u"ریال"_s);
        QCOMPARE(table.columns, split("PlanNum, PlanDate, PlanAmount, PlanWords, PlanDesc, PlanCheque"));
        QCOMPARE(table.rows, (QList<QStringList>{{u"1"_s, u"1405/09/10"_s, u"1,000"_s, u"یک هزار ریال"_s, u"first"_s, u"456 ملت"_s}, {u"2"_s, u"1405/10/11"_s, u"1,500"_s, u"یک هزار و پانصد ریال"_s, QString(), QString()}}));
        const MergeBatch sums = planMergeFields(plan, 0, u"ریال"_s);
        QCOMPARE(valueOf(sums, u"PlanCount"_s), u"2"_s);
        QCOMPARE(valueOf(sums, u"PlanTotal"_s), u"2,500"_s);
        QCOMPARE(valueOf(sums, u"PlanTotalWords"_s), u"دو هزار و پانصد ریال"_s);
        QCOMPARE(valueOf(sums, u"PlanLastDate"_s), u"1405/10/11"_s);
        for (const MergeField &field : planMergeFields({}, 0, u"ریال"_s))
            QVERIFY2(!field.says && field.value == blank, qPrintable(field.name));
    }
};

static const RegisteredTest<TestContractMergeFields> registeredContractMergeFields;
#include "TestContractMergeFields.moc"
