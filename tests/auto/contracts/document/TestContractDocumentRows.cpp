// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractDocumentRows.h"

#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

ContractForDocument taxedContract()
{
    ContractForDocument contract;
    contract.commission = 1000;
    contract.first = {11, u"علی"_s, PartyKind::Ordinary, 0, 9, 90, 1, 10};
    contract.second = {22, u"رضا"_s, PartyKind::Ordinary, 0, 4.5, 45, 0, 0};
    return contract;
}

// "account/person debit credit [description]" per row.
QStringList lines(const QList<DocumentRow> &rows)
{
    QStringList result;
    for (const DocumentRow &row : rows) {
        result.append(u"%1/%2 %3 %4 [%5]"_s
                          .arg(row.account)
                          .arg(row.personID)
                          .arg(row.debit)
                          .arg(row.credit)
                          .arg(row.description));
    }
    return result;
}

bool balances(const QList<DocumentRow> &rows)
{
    double debit = 0;
    double credit = 0;
    for (const DocumentRow &row : rows) {
        debit += row.debit;
        credit += row.credit;
    }
    return IsEquals(debit, credit);
}

}

class TestContractDocumentRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void description_data();
    void description();
    void commissionTaxAndDutyOfBothParties();
    void discountReversesCommission();
    void showroomBearsItsTaxAndDutyAsExpense();
    void partyTypedByHandPostsTaxButNoCommission();
    void chargedAmountIsWhatTheRowsSay_data();
    void chargedAmountIsWhatTheRowsSay();
    void zeroAmountsGiveNoRows();
    void percentageStandsWithoutTrailingZeros_data();
    void percentageStandsWithoutTrailingZeros();
    void amountsAreGrouped();
    void amountsHaveTheDecimalsOfTheUnit_data();
    void amountsHaveTheDecimalsOfTheUnit();
    void everyCombinationBalances_data();
    void everyCombinationBalances();
    void saleOfACar_data();
    void saleOfACar();
    void saleIsNoChargeOfTheCommission();
};

void TestContractDocumentRows::init()
{
    setDefaultMoneyDecimals(0);
}

void TestContractDocumentRows::description_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("sale") << 0 << u"مبایعه نامه ش :12"_s;
    QTest::newRow("rent") << 1 << u"قرارداد اجاره ش :12"_s;
    QTest::newRow("instalment sale") << 2 << u"فروش اقساطی ش :12"_s;
    QTest::newRow("letter") << 3 << u"نامه ش :12"_s;
    QTest::newRow("any other type has no name") << 4 << u" ش :12"_s;
}

void TestContractDocumentRows::description()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QCOMPARE(contractDocumentDescription(type, 12), text);
}

void TestContractDocumentRows::commissionTaxAndDutyOfBothParties()
{
    QCOMPARE(lines(contractDocumentRows(taxedContract())),
             QStringList({
                 u"110301/11 1000 0 [ کمیسیون پرداختی علی]"_s,
                 u"410202/0 0 1000 [ کمیسیون پرداختی علی]"_s,
                 u"110301/22 1000 0 [ کمیسیون پرداختی رضا]"_s,
                 u"410202/0 0 1000 [ کمیسیون پرداختی رضا]"_s,
                 u"110301/11 90 0 [9% مالیات ارزش افزوده علی]"_s,
                 u"210501/0 0 90 [9% مالیات ارزش افزوده 90از علی]"_s,
                 u"110301/22 45 0 [4.5% مالیات ارزش افزوده رضا]"_s,
                 u"210501/0 0 45 [4.5% مالیات ارزش افزوده 45از رضا]"_s,
                 u"110301/11 10 0 [1% عوارض علی]"_s,
                 u"210502/0 0 10 [1% عوارض 10از علی]"_s,
             }));
}

void TestContractDocumentRows::discountReversesCommission()
{
    ContractForDocument contract;
    contract.first = {11, u"علی"_s, PartyKind::Ordinary, 30, 0, 0, 0, 0};
    contract.second = {22, u"رضا"_s, PartyKind::Ordinary, 40, 0, 0, 0, 0};
    QCOMPARE(lines(contractDocumentRows(contract)),
             QStringList({
                 u"410202/0 30 0 [ تخفیف به علی]"_s,
                 u"110301/11 0 30 [ تخفیف  علی]"_s,
                 u"410202/0 40 0 [ تخفیف به رضا]"_s,
                 u"110301/22 0 40 [ تخفیف رضا]"_s,
             }));
}

void TestContractDocumentRows::showroomBearsItsTaxAndDutyAsExpense()
{
    ContractForDocument contract = taxedContract();
    contract.commission = 0;
    contract.first.personID = 0;
    contract.first.name = u"نمایشگاه ما"_s;
    contract.first.kind = PartyKind::Showroom;
    contract.second = {};
    QCOMPARE(lines(contractDocumentRows(contract)),
             QStringList({
                 u"110301/0 90 0 [9% مالیات ارزش افزوده نمایشگاه ما]"_s,
                 u"210501/0 0 90 [9% مالیات ارزش افزوده 90از نمایشگاه ما]"_s,
                 u"610502/0 90 0 [9% مالیات ارزش افزوده 90از نمایشگاه ما]"_s,
                 u"110301/0 0 90 [9% مالیات ارزش افزوده نمایشگاه ما]"_s,
                 u"110301/0 10 0 [1% عوارض نمایشگاه ما]"_s,
                 u"210502/0 0 10 [1% عوارض 10از نمایشگاه ما]"_s,
                 u"610503/0 10 0 [1% عوارض 10از نمایشگاه ما]"_s,
                 u"110301/0 0 10 [1% عوارض نمایشگاه ما]"_s,
             }));
}

void TestContractDocumentRows::partyTypedByHandPostsTaxButNoCommission()
{
    ContractForDocument contract;
    contract.commission = 1000;
    contract.first = {0, u"رهگذر"_s, PartyKind::Other, 50, 9, 90, 0, 0};
    QCOMPARE(lines(contractDocumentRows(contract)),
             QStringList({
                 u"110301/0 90 0 [9% مالیات ارزش افزوده رهگذر]"_s,
                 u"210501/0 0 90 [9% مالیات ارزش افزوده 90از رهگذر]"_s,
             }));
}

void TestContractDocumentRows::chargedAmountIsWhatTheRowsSay_data()
{
    QTest::addColumn<int>("person");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("discount");
    QTest::addColumn<bool>("charges");
    QTest::addColumn<double>("charged");
    QTest::newRow("a person") << 11 << int(PartyKind::Ordinary) << 0. << true << 1100.;
    QTest::newRow("a person with a discount") << 11 << int(PartyKind::Ordinary) << 200. << true << 900.;
    QTest::newRow("the dealership itself") << 0 << int(PartyKind::Showroom) << 0. << true << 100.;
    QTest::newRow("typed by hand") << 0 << int(PartyKind::Other) << 0. << false << 0.;
    QTest::newRow("nobody chosen") << 0 << int(PartyKind::Ordinary) << 0. << false << 0.;
}

void TestContractDocumentRows::chargedAmountIsWhatTheRowsSay()
{
    QFETCH(int, person);
    QFETCH(int, kind);
    QFETCH(double, discount);
    QFETCH(bool, charges);
    const auto charged = amountCharged(1000, {person, u"علی"_s, static_cast<PartyKind>(kind), discount, 9, 90, 1, 10});
    QCOMPARE(charged.has_value(), charges);
    QTEST(charged.value_or(0), "charged");
}

void TestContractDocumentRows::zeroAmountsGiveNoRows()
{
    ContractForDocument contract;
    contract.first = {11, u"علی"_s, PartyKind::Ordinary, 0.00005, 9, 0, 9, 0};
    contract.second = {0, u"ما"_s, PartyKind::Showroom, 0, 9, 0, 9, 0.00005};
    QVERIFY(contractDocumentRows(contract).empty());
}

void TestContractDocumentRows::percentageStandsWithoutTrailingZeros_data()
{
    QTest::addColumn<double>("percent");
    QTest::addColumn<QString>("start");
    QTest::newRow("whole") << 9.0 << u"9% عوارض "_s;
    QTest::newRow("ten") << 10.0 << u"10% عوارض "_s;
    QTest::newRow("half") << 4.5 << u"4.5% عوارض "_s;
    QTest::newRow("hundredths") << 0.25 << u"0.25% عوارض "_s;
    QTest::newRow("a duty typed in without a percentage") << 0.0 << u"0% عوارض "_s;
}

void TestContractDocumentRows::percentageStandsWithoutTrailingZeros()
{
    QFETCH(double, percent);
    QFETCH(QString, start);
    ContractForDocument contract;
    contract.first = {11, u"علی"_s, PartyKind::Ordinary, 0, 0, 0, percent, 7};
    const auto rows = contractDocumentRows(contract);
    QCOMPARE(rows.size(), qsizetype(2));
    QCOMPARE(rows[0].description, start + u"علی"_s);
    QCOMPARE(rows[1].description, start + u"7از علی"_s);
}

void TestContractDocumentRows::amountsAreGrouped()
{
    setDefaultMoneyDecimals(2);
    ContractForDocument contract;
    contract.first = {11, u"علی"_s, PartyKind::Ordinary, 0, 9, 1234567.5, 0, 0};
    QCOMPARE(contractDocumentRows(contract)[1].description,
             u"9% مالیات ارزش افزوده 1,234,567.50از علی"_s);
}

// What nobody can pay must not stay on anybody's account.
void TestContractDocumentRows::amountsHaveTheDecimalsOfTheUnit_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("commission");
    QTest::addColumn<double>("tax");
    QTest::addColumn<double>("charged");
    QTest::newRow("parts of the unit") << 0 << 2500000.0025 << 225000.000225 << 2725000.0;
    QTest::newRow("each row by itself") << 0 << 1000.4 << 90.4 << 1090.0;
    QTest::newRow("upwards") << 0 << 1000.5 << 90.5 << 1092.0;
    QTest::newRow("less than the unit") << 0 << 1000.0 << 0.4 << 1000.0;
    QTest::newRow("unit with decimals") << 2 << 1000.254 << 90.251 << 1090.50;
}

void TestContractDocumentRows::amountsHaveTheDecimalsOfTheUnit()
{
    QFETCH(int, decimals);
    QFETCH(double, commission);
    QFETCH(double, tax);
    QFETCH(double, charged);
    setDefaultMoneyDecimals(decimals);
    ContractForDocument contract;
    contract.commission = commission;
    contract.first = {11, u"علی"_s, PartyKind::Ordinary, 0, 9, tax, 0, 0};
    double sum = 0;
    for (const DocumentRow &row : contractDocumentRows(contract)) {
        for (const double amount : {row.debit, row.credit})
            QCOMPARE(amount, roundToDecimals(amount, decimals));
        sum += row.personID == 11 ? row.debit - row.credit : 0;
    }
    QCOMPARE(sum, charged);
    QCOMPARE(amountCharged(commission, contract.first), std::optional(charged));
}

void TestContractDocumentRows::everyCombinationBalances_data()
{
    QTest::addColumn<int>("firstPerson");
    QTest::addColumn<int>("firstKind");
    QTest::addColumn<int>("secondPerson");
    QTest::addColumn<int>("secondKind");
    for (int firstKind = -1; firstKind <= 2; ++firstKind) {
        for (int secondKind = -1; secondKind <= 2; ++secondKind) {
            for (int persons = 0; persons < 4; ++persons) {
                QTest::addRow("kinds %d and %d, persons %d", firstKind, secondKind, persons)
                    << (persons & 1) << firstKind << (persons & 2) << secondKind;
            }
        }
    }
}

void TestContractDocumentRows::everyCombinationBalances()
{
    QFETCH(int, firstPerson);
    QFETCH(int, firstKind);
    QFETCH(int, secondPerson);
    QFETCH(int, secondKind);
    ContractForDocument contract;
    contract.commission = 333.33;
    contract.first = {firstPerson, u"a"_s, static_cast<PartyKind>(firstKind), 12.5, 9, 30.3, 1, 3.3};
    contract.second = {secondPerson, u"b"_s, static_cast<PartyKind>(secondKind), 0.1, 9, 29.99, 1, 3.7};
    const auto rows = contractDocumentRows(contract);
    QVERIFY(!rows.empty());
    QVERIFY(rows.size() % 2 == 0);
    QVERIFY(balances(rows));
    for (qsizetype i = 0; i < rows.size(); i += 2)
        QVERIFY(rows[i].debit > 0 && rows[i].credit == 0 && rows[i + 1].credit == rows[i].debit && rows[i + 1].debit == 0);
}

// What the price and the interest add, without the descriptions.
void TestContractDocumentRows::saleOfACar_data()
{
    QTest::addColumn<int>("seller"); // 0 without a kind of person of the list
    QTest::addColumn<int>("sellerKind");
    QTest::addColumn<int>("buyer");
    QTest::addColumn<double>("price");
    QTest::addColumn<double>("interest");
    QTest::addColumn<QStringList>("rows");
    const auto row = [](const char *name, int seller, PartyKind kind, int buyer, double price, double interest, const QStringList &rows) {
        QTest::newRow(name) << seller << int(kind) << buyer << price << interest << rows;
    };
    const QStringList price{u"110301/22 2000 0"_s, u"210681/0 0 2000"_s};
    const QStringList interest{u"110301/22 144 0"_s, u"410281/0 0 144"_s};
    row("between two persons", 11, PartyKind::Ordinary, 22, 2000, 144,
        price + QStringList{u"210681/0 2000 0"_s, u"110301/11 0 2000"_s} + interest);
    row("without interest", 11, PartyKind::Ordinary, 22, 2000, 0, price + QStringList{u"210681/0 2000 0"_s, u"110301/11 0 2000"_s});
    row("of the showroom's own car", 0, PartyKind::Showroom, 22, 2000, 144,
        price + QStringList{u"210681/0 2000 0"_s, u"410381/0 0 2000"_s} + interest);
    row("by a seller typed by hand", 0, PartyKind::Other, 22, 2000, 0, price);
    row("to a buyer typed by hand", 11, PartyKind::Ordinary, 0, 2000, 144, {});
    row("not in the books", 11, PartyKind::Ordinary, 22, 0, 0, {});
}

void TestContractDocumentRows::saleOfACar()
{
    QFETCH(int, seller);
    QFETCH(int, sellerKind);
    QFETCH(int, buyer);
    QFETCH(double, price);
    QFETCH(double, interest);
    QFETCH(QStringList, rows);
    ContractForDocument contract = taxedContract();
    contract.first.personID = seller;
    contract.first.kind = PartyKind(sellerKind);
    contract.second.personID = buyer;
    const qsizetype without = contractDocumentRows(contract).size();
    contract.sale = {price, interest};
    const QList<DocumentRow> all = contractDocumentRows(contract);
    QVERIFY(balances(all));
    QStringList added;
    for (const QString &line : lines(all.sliced(without)))
        added.append(line.section(u" ["_s, 0, 0));
    QCOMPARE(added, rows);
}

void TestContractDocumentRows::saleIsNoChargeOfTheCommission()
{
    ContractForDocument contract = taxedContract();
    contract.sale = {2000, 144};
    QCOMPARE(amountCharged(contract.commission, contract.second), 1045.0);
}

static const RegisteredTest<TestContractDocumentRows> registeredContractDocumentRows;
#include "TestContractDocumentRows.moc"
