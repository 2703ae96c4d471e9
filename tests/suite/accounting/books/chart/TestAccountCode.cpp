// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/AccountCode.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestAccountCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void check_data();
    void check();
    void parents_data();
    void parents();
    void proposed_data();
    void proposed();
    void everyAccountThatTheProgramPostsToIsFixed();
    void natureOfABalance_data();
    void natureOfABalance();
};

void TestAccountCode::check_data()
{
    using AccountCode::Problem;
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("parent");
    QTest::addColumn<int>("problem");
    const auto row = [](const char *name, AccountLevel level, int code, int parent, Problem problem) {
        QTest::newRow(name) << static_cast<int>(level) << code << parent << static_cast<int>(problem);
    };
    row("general", AccountLevel::Kol, 6201, 0, Problem::None);
    row("general of three digits", AccountLevel::Kol, 620, 0, Problem::WrongLength);
    row("general of five digits", AccountLevel::Kol, 62011, 0, Problem::WrongLength);
    row("general zero", AccountLevel::Kol, 0, 0, Problem::WrongLength);
    row("negative", AccountLevel::Kol, -6201, 0, Problem::WrongLength);
    row("subsidiary", AccountLevel::Moeen, 620101, 6201, Problem::None);
    row("subsidiary of five digits", AccountLevel::Moeen, 62010, 6201, Problem::WrongLength);
    row("subsidiary under another", AccountLevel::Moeen, 620101, 6202, Problem::NotUnderParent);
    row("detail of seven digits", AccountLevel::Tafsily, 6201011, 620101, Problem::None);
    row("detail of nine digits", AccountLevel::Tafsily, 620101001, 620101, Problem::None);
    row("detail of six digits", AccountLevel::Tafsily, 620101, 620101, Problem::WrongLength);
    row("detail of ten digits", AccountLevel::Tafsily, 1101010001, 110101, Problem::WrongLength);
    row("detail under another", AccountLevel::Tafsily, 620102001, 620101, Problem::NotUnderParent);
}

void TestAccountCode::check()
{
    QFETCH(int, level);
    QFETCH(int, code);
    QFETCH(int, parent);
    QTEST(static_cast<int>(AccountCode::check(static_cast<AccountLevel>(level), code, parent)), "problem");
}

void TestAccountCode::parents_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("parent");
    QTest::newRow("general") << 4101 << static_cast<int>(AccountLevel::Kol) << 0;
    QTest::newRow("subsidiary") << 410102 << static_cast<int>(AccountLevel::Moeen) << 4101;
    QTest::newRow("short detail") << 4101021 << static_cast<int>(AccountLevel::Tafsily) << 410102;
    QTest::newRow("long detail") << 410102345 << static_cast<int>(AccountLevel::Tafsily) << 410102;
}

void TestAccountCode::parents()
{
    QFETCH(int, code);
    QTEST(static_cast<int>(AccountCode::levelOf(code)), "level");
    QTEST(AccountCode::parentOf(code), "parent");
}

void TestAccountCode::proposed_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("parent");
    QTest::addColumn<QList<int>>("taken");
    QTest::addColumn<int>("code");
    const int moeen = static_cast<int>(AccountLevel::Moeen);
    const int tafsily = static_cast<int>(AccountLevel::Tafsily);
    QTest::newRow("first") << moeen << 6201 << QList<int>{} << 620101;
    QTest::newRow("behind the highest") << moeen << 6201 << QList<int>{620101, 620105, 620103} << 620106;
    QTest::newRow("others do not count") << moeen << 6201 << QList<int>{620201, 610109} << 620101;
    QTest::newRow("none left") << moeen << 6201 << QList<int>{620199} << 0;
    QTest::newRow("first detail") << tafsily << 620101 << QList<int>{} << 620101001;
    QTest::newRow("next detail") << tafsily << 620101 << QList<int>{620101001, 6201017} << 620101002;
    QTest::newRow("general") << static_cast<int>(AccountLevel::Kol) << 0 << QList<int>{4101} << 0;
}

void TestAccountCode::proposed()
{
    QFETCH(int, level);
    QFETCH(int, parent);
    QFETCH(QList<int>, taken);
    QTEST(AccountCode::proposed(static_cast<AccountLevel>(level), parent, taken), "code");
}

void TestAccountCode::everyAccountThatTheProgramPostsToIsFixed()
{
    for (const int account : {Accounts::cash, Accounts::bank, Accounts::persons, Accounts::taxPayable, Accounts::dutyPayable,
                              Accounts::serviceIncome, Accounts::saleDiscount, Accounts::commissionIncome,
                              Accounts::serviceExpense, Accounts::purchaseDiscount, Accounts::taxExpense, Accounts::dutyExpense}) {
        QVERIFY(AccountCode::isFixed(account));
        QVERIFY(AccountCode::isFixed(Accounts::kolOf(account)));
    }
    QVERIFY(!AccountCode::isFixed(110202));
    QVERIFY(!AccountCode::isFixed(6201));
    QVERIFY(!AccountCode::isFixed(0));
    // A further bank account is the office's to rename or put aside, but receipts go to it.
    QVERIFY(AccountCode::isUndivided(110202));
    QVERIFY(AccountCode::isUndivided(Accounts::commissionIncome));
    QVERIFY(!AccountCode::isUndivided(620101));
}

void TestAccountCode::natureOfABalance_data()
{
    QTest::addColumn<double>("bed");
    QTest::addColumn<double>("bes");
    QTest::addColumn<QString>("nature");
    QTest::newRow("debit") << 200.0 << 100.0 << u"بد"_s;
    QTest::newRow("credit") << 100.0 << 200.0 << u"بس"_s;
    QTest::newRow("nothing") << 0.0 << 0.0 << u"-"_s;
    QTest::newRow("100 and 100.00005") << 100.0 << 100.00005 << u"-"_s;
}

void TestAccountCode::natureOfABalance()
{
    QFETCH(double, bed);
    QFETCH(double, bes);
    QTEST((AccountBalance{bed, bes}.nature()), "nature");
}

static const RegisteredTest<TestAccountCode, QCoreApplication> registeredAccountCode;
#include "TestAccountCode.moc"
