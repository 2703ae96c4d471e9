// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractMergeFields.h"
#include "tests/support/RegisteredTest.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>
#include <QTest>

namespace {

using Values = QHash<QString, QVariant>;

const QString blank = QStringLiteral(" ");

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
        {QStringLiteral("iPersonContract1"), firstKind},
        {QStringLiteral("iPersonContract2"), secondKind},
        {QStringLiteral("iCode"), 1284567},
        {QStringLiteral("iNum"), 77000},
        {QStringLiteral("dAmount"), 12850000000.0},
        {QStringLiteral("dCommission"), 64250000.0},
        {QStringLiteral("dTax"), 5782500.0},
        {QStringLiteral("dImposition"), 642500.0},
        {QStringLiteral("dDiscountFirst"), 3000000.0},
        {QStringLiteral("dTax2"), 4000000.0},
        {QStringLiteral("dImposition2"), 500000.0},
        {QStringLiteral("dDiscountSecond"), 1000000.0},
        {QStringLiteral("dFixAmount"), 5000000.0},
        {QStringLiteral("dAgreeAmount"), 6000000.0},
        {QStringLiteral("dRemainingAmount"), 1850000.0},
        {QStringLiteral("dDamageAmount"), 700000.0},
        {QStringLiteral("dDelayAmount"), 1234.0},
        {QStringLiteral("dateContract"), moment(2026, 11, 20)},
        {QStringLiteral("dateDeal"), moment(2026, 12, 1, 10, 30)},
        {QStringLiteral("dateTradeUnit"), moment(2026, 11, 21, 17, 5)},
    };
    for (const char *column :
         {"sName1", "sAddress1", "sNationalId1", "sTel1", "sMobile1", "sName2", "sAddress2", "sNationalId2", "sTel2", "sMobile2",
          "sNumOfPlates", "sColor", "sAutomobilName", "sDesc", "sModel", "sByVirtueFirst", "sNumOfWheels", "sNumOfEngines",
          "sChassisNum", "sDescMatter", "sCheckCount", "sCheckNum", "sBankName", "sBranchName", "sBranchCode", "sRegistryNum",
          "sRightTahrir", "sAddressSample", "sPage", "sCover", "sTrackingCode", "sNoAdvice", "sDomainRegister", "sFromFirst",
          "sFromSecond", "sByVirtueSecond", "sDengue", "sSystem", "sBrigade", "sCapacity", "sFuel", "sNumOFAxles"})
        values.insert(QString::fromLatin1(column), QStringLiteral("contract ") + QString::fromLatin1(column));
    return values;
}

Values fullPerson(const QString &who, int sex = 0, int kind = 0)
{
    Values values = {{QStringLiteral("iSex"), sex}, {QStringLiteral("iKind"), kind}, {QStringLiteral("dateBirth"), moment(1979, 7, 8)}};
    for (const char *column : {"sName", "sFamily", "sAddress", "sPostalCode", "sFatherName", "sIdentityNum", "sNationalCode",
                               "sBirthCity", "sTel", "sMobile", "sEconomicCode", "sIdentityCity"})
        values.insert(QString::fromLatin1(column), who + QLatin1Char(' ') + QString::fromLatin1(column));
    return values;
}

ContractMergeBatches batchesOf(const Values &contract, const RecordValues &first = record(fullPerson(QStringLiteral("first"))),
                               const RecordValues &second = record(fullPerson(QStringLiteral("second"), 1)), int decimals = 0)
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
    return QStringLiteral("no such field");
}

QStringList split(const char *texts)
{
    return QString::fromUtf8(texts).split(QStringLiteral(", "));
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
            QStringLiteral("آقا"), QStringLiteral("first sName"), QStringLiteral("first sFamily"), QStringLiteral("first sAddress"),
            QStringLiteral("first sPostalCode"), QStringLiteral("first sFatherName"), QStringLiteral("first sIdentityNum"),
            QStringLiteral("first sNationalCode"), QStringLiteral("first sBirthCity"), QStringLiteral("1358/04/17"),
            QStringLiteral("first sTel"), QStringLiteral("first sEconomicCode"), QStringLiteral("first sIdentityCity"),
            QStringLiteral("1405/08/29"), QStringLiteral("contract sNumOfPlates"), QStringLiteral("contract sColor"),
            QStringLiteral("contract sAutomobilName"), QStringLiteral("12,850,000,000"), QStringLiteral("64,250,000"),
            QStringLiteral("6,425,000"), QStringLiteral("67,675,000"), QStringLiteral("3,000,000"), QStringLiteral("1284567"),
            QStringLiteral("contract sDesc"), QStringLiteral("contract sModel")};
        QCOMPARE(values(batchesOf(fullContract())[0]), expected);
    }

    void ordinarySecondPartyComesFromThePersonRecord()
    {
        const QStringList expected = {
            QStringLiteral("خانم"), QStringLiteral("second sName"), QStringLiteral("second sFamily"), QStringLiteral("second sAddress"),
            QStringLiteral("second sFatherName"), QStringLiteral("second sIdentityNum"), QStringLiteral("second sNationalCode"),
            QStringLiteral("second sBirthCity"), QStringLiteral("1358/04/17"), QStringLiteral("second sTel"),
            QStringLiteral("second sIdentityCity"), QStringLiteral("second sEconomicCode"), QStringLiteral("second sPostalCode"),
            QStringLiteral("1405/08/29"), QStringLiteral("contract sNumOfPlates"), QStringLiteral("contract sColor"),
            QStringLiteral("contract sAutomobilName"), QStringLiteral("12,850,000,000"), QStringLiteral("64,250,000"),
            QStringLiteral("4,500,000"), QStringLiteral("67,750,000"), QStringLiteral("1,000,000"), QStringLiteral("1284567"),
            QStringLiteral("contract sDesc"), QStringLiteral("contract sModel")};
        QCOMPARE(values(batchesOf(fullContract())[1]), expected);
    }

    void matterTakesTheColumnOfTheSameStem()
    {
        const QHash<QString, QString> others = {
            {QStringLiteral("FixAmount"), QStringLiteral("5,000,000")}, {QStringLiteral("AgreeAmount"), QStringLiteral("6,000,000")}, {QStringLiteral("RemainingAmount"), QStringLiteral("1,850,000")}, {QStringLiteral("DamageAmount"), QStringLiteral("700,000")}, {QStringLiteral("DelayAmount"), QStringLiteral("1,234")}, {QStringLiteral("dateTradeUnit"), QStringLiteral("1405/08/30")}, {QStringLiteral("dateDeal"), QStringLiteral("1405/09/10")}, {QStringLiteral("timeDeal"), QStringLiteral("10:30")}, {QStringLiteral("timeTradeUnit"), QStringLiteral("17:05")}, {QStringLiteral("Num"), QStringLiteral("77000")}, {QStringLiteral("Tracking"), QStringLiteral("contract sTrackingCode")}};
        const auto batches = batchesOf(fullContract());
        for (const MergeField &field : batches[2])
            QCOMPARE(field.value, others.value(field.name, QStringLiteral("contract s") + field.name));
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
        const QStringList first = {blank, QStringLiteral("contract sName1"), blank, QStringLiteral("contract sAddress1"), blank, blank, blank,
                                   QStringLiteral("contract sNationalId1"), blank, blank, QStringLiteral("contract sTel1"), blank, blank};
        const QStringList second = {blank, QStringLiteral("contract sName2"), blank, QStringLiteral("contract sAddress2"), blank, blank,
                                    QStringLiteral("contract sNationalId2"), blank, blank, QStringLiteral("contract sTel2"), blank, blank, blank};
        QCOMPARE(values(batches[0]).mid(0, 13), first);
        QCOMPARE(values(batches[1]).mid(0, 13), second);
        QCOMPARE(valueOf(batches[0], QStringLiteral("Pay1")), QStringLiteral("67,675,000"));
        QCOMPARE(valueOf(batches[1], QStringLiteral("Pay2")), QStringLiteral("67,750,000"));
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
        const RecordValues person = record(fullPerson(QStringLiteral("p")));
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
        const Values contract = {{QStringLiteral("iPersonContract1"), kind}, {QStringLiteral("iPersonContract2"), kind}};
        const RecordValues nobody = record({{QStringLiteral("iKind"), 2}});
        const auto batches = batchesOf(contract, nobody, nobody);
        const QStringList amounts = split("Amount, Commission1, sumTax1, Pay1, DiscountFirst, sumTax2, Pay2, DiscountSecond, FixAmount, "
                                          "AgreeAmount, RemainingAmount, DamageAmount, DelayAmount");
        int checked = 0;
        for (const MergeBatch &batch : batches) {
            for (const MergeField &field : batch) {
                QVERIFY2(field.value == (amounts.contains(field.name) ? QStringLiteral("0") : blank), qPrintable(field.name));
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
        QTest::newRow("man") << 0 << 0 << QStringLiteral("آقا");
        QTest::newRow("woman") << 1 << 0 << QStringLiteral("خانم");
        QTest::newRow("foreign man") << 0 << 1 << QStringLiteral("آقا");
        QTest::newRow("foreign woman") << 1 << 1 << QStringLiteral("خانم");
        QTest::newRow("company") << 0 << 2 << blank;
        QTest::newRow("other legal person") << 1 << 3 << blank;
    }

    void titleFollowsTheSexAndACompanyHasNone()
    {
        QFETCH(int, sex);
        QFETCH(int, kind);
        QFETCH(QString, title);
        const RecordValues person = record(fullPerson(QStringLiteral("p"), sex, kind));
        const auto batches = batchesOf(fullContract(), person, person);
        QCOMPARE(valueOf(batches[0], QStringLiteral("Mr")), title);
        QCOMPARE(valueOf(batches[1], QStringLiteral("MrPerson2")), title);
    }

    void mobileStandsInForAMissingTelephone()
    {
        Values person = fullPerson(QStringLiteral("p"));
        person[QStringLiteral("sTel")] = QString();
        QCOMPARE(valueOf(batchesOf(fullContract(), record(person))[0], QStringLiteral("Tel")), QStringLiteral("p sMobile"));
        Values contract = fullContract(2, 2);
        contract[QStringLiteral("sTel2")] = QString();
        QCOMPARE(valueOf(batchesOf(contract)[1], QStringLiteral("Tel2")), QStringLiteral("contract sMobile2"));
    }

    // Edge case: "Pay1" and "Pay2" differ only by the two parties' tax, duty and discount; the commission is the same in both.
    void pay1AndPay2DifferOnlyByTaxDutyAndDiscount_data()
    {
        QTest::addColumn<double>("tax2");
        QTest::addColumn<double>("duty2");
        QTest::addColumn<double>("discount2");
        QTest::addColumn<QString>("sumTax2");
        QTest::addColumn<QString>("pay2");
        QTest::newRow("as the first") << 9.0 << 1.0 << 4.0 << QStringLiteral("10") << QStringLiteral("106");
        QTest::newRow("tax") << 19.0 << 1.0 << 4.0 << QStringLiteral("20") << QStringLiteral("116");
        QTest::newRow("duty") << 9.0 << 2.0 << 4.0 << QStringLiteral("11") << QStringLiteral("107");
        QTest::newRow("discount") << 9.0 << 1.0 << 0.0 << QStringLiteral("10") << QStringLiteral("110");
        QTest::newRow("discount above everything") << 0.0 << 0.0 << 150.0 << QStringLiteral("0") << QStringLiteral("-50");
    }

    void pay1AndPay2DifferOnlyByTaxDutyAndDiscount()
    {
        QFETCH(double, tax2);
        QFETCH(double, duty2);
        QFETCH(double, discount2);
        QFETCH(QString, sumTax2);
        QFETCH(QString, pay2);
        Values contract = fullContract();
        contract.insert({{QStringLiteral("dCommission"), 100.0}, {QStringLiteral("dTax"), 9.0}, {QStringLiteral("dImposition"), 1.0}, {QStringLiteral("dDiscountFirst"), 4.0}, {QStringLiteral("dTax2"), tax2}, {QStringLiteral("dImposition2"), duty2}, {QStringLiteral("dDiscountSecond"), discount2}});
        const auto batches = batchesOf(contract);
        QCOMPARE(valueOf(batches[0], QStringLiteral("Commission1")), QStringLiteral("100"));
        QCOMPARE(valueOf(batches[1], QStringLiteral("Commission1")), QStringLiteral("100"));
        QCOMPARE(valueOf(batches[0], QStringLiteral("sumTax1")), QStringLiteral("10"));
        QCOMPARE(valueOf(batches[0], QStringLiteral("Pay1")), QStringLiteral("106"));
        QCOMPARE(valueOf(batches[1], QStringLiteral("sumTax2")), sumTax2);
        QCOMPARE(valueOf(batches[1], QStringLiteral("Pay2")), pay2);
    }

    void moneyHasTheDecimalsOfTheMoneyUnit()
    {
        Values contract = fullContract();
        contract[QStringLiteral("dAmount")] = 1234567.5;
        const auto batches = batchesOf(contract, record(fullPerson(QStringLiteral("f"))), record(fullPerson(QStringLiteral("s"))), 2);
        QCOMPARE(valueOf(batches[0], QStringLiteral("Amount")), QStringLiteral("1,234,567.50"));
        QCOMPARE(valueOf(batches[0], QStringLiteral("Pay1")), QStringLiteral("67,675,000.00"));
        QCOMPARE(valueOf(batches[2], QStringLiteral("DelayAmount")), QStringLiteral("1,234.00"));
    }

    void timeOfMidnightIsATimeNotGiven()
    {
        Values contract = fullContract();
        contract[QStringLiteral("dateDeal")] = moment(2026, 12, 1);
        const auto batches = batchesOf(contract);
        QCOMPARE(valueOf(batches[2], QStringLiteral("dateDeal")), QStringLiteral("1405/09/10"));
        QCOMPARE(valueOf(batches[2], QStringLiteral("timeDeal")), blank);
    }
};

static const RegisteredTest<TestContractMergeFields> registered;
#include "TestContractMergeFields.moc"
