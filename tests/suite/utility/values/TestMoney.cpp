// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

class TestMoney : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setDefaultMoneyDecimals(0); }
    void equal_data();
    void equal();
    void shown_data();
    void shown();
    void shownInTheOfficesDecimals();
    void parsed_data();
    void parsed();
    void notParsed_data();
    void notParsed();
    void shownAmountsAreReadBack_data();
    void shownAmountsAreReadBack();
    void plainNumbers_data();
    void plainNumbers();
    void inWords_data();
    void inWords();
    void inWordsWithDecimals();
    void nothingInWords_data();
    void nothingInWords();
};

void TestMoney::equal_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<bool>("equal");
    QTest::newRow("same") << 5.0 << 5.0 << true;
    QTest::newRow("just under the limit") << 1.0 << 1.00009 << true;
    QTest::newRow("at the limit") << 0.0 << 0.0001 << false;
    QTest::newRow("over the limit") << 1.0 << 1.0002 << false;
    QTest::newRow("the other way round") << 1.0002 << 1.0 << false;
    QTest::newRow("opposite signs") << -0.00004 << 0.00004 << true;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0.0 << false;
}

void TestMoney::equal()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QTEST(IsEquals(first, second), "equal");
}

void TestMoney::shown_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    const auto row = [](double amount, int decimals, const char *text) {
        QTest::addRow("%.6f with %d decimals", amount, decimals) << amount << decimals << QString::fromLatin1(text);
    };
    row(0, 0, "0");
    row(7, 0, "7");
    row(999, 0, "999");
    row(1000, 0, "1,000");
    row(12345, 0, "12,345");
    row(123456, 0, "123,456");
    row(1234567, 0, "1,234,567");
    row(850000000000.0, 0, "850,000,000,000");
    row(-1, 0, "-1");
    row(-999, 0, "-999");
    row(-1000, 0, "-1,000");
    row(-123456, 0, "-123,456");
    row(1234.5, 2, "1,234.50");
    row(1234.5, 0, "1,235");
    row(-1234.5, 0, "-1,235");
    row(0.5, 0, "1");
    row(2.5, 0, "3");
    row(1.005, 2, "1.01");
    row(999.999, 2, "1,000.00");
    row(-0.2, 0, "0");
    row(-0.004, 2, "0.00");
    row(1e15, 0, "1,000,000,000,000,000");
    row(45035996273704.97, 2, "45,035,996,273,704.97");
    row(4503599627370497.0, 0, "4,503,599,627,370,497");
    row(1e18, 2, "1,000,000,000,000,000,000.00");
    row(1.5, -3, "2");
    row(1.23456, 9, "1.2346");
}

void TestMoney::shown()
{
    QFETCH(double, amount);
    QFETCH(int, decimals);
    QTEST(DToMoney(amount, decimals), "text");
}

void TestMoney::shownInTheOfficesDecimals()
{
    QCOMPARE(DToMoney(1250.5), u"1,251"_s);
    setDefaultMoneyDecimals(2);
    QCOMPARE(DToMoney(1250.5), u"1,250.50"_s);
    setDefaultMoneyDecimals(99);
    QCOMPARE(defaultMoneyDecimals(), 4);
    setDefaultMoneyDecimals(-1);
    QCOMPARE(defaultMoneyDecimals(), 0);
    QCOMPARE(DToMoney(std::numeric_limits<double>::quiet_NaN()), QString());
    QCOMPARE(DToMoney(std::numeric_limits<double>::infinity()), QString());
}

void TestMoney::parsed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("amount");
    const auto row = [](const char *text, double amount) { QTest::newRow(text) << QString::fromUtf8(text) << amount; };
    row("0", 0);
    row("1250000", 1250000);
    row("1,250,000", 1250000);
    row("۱۲۵۰۰۰۰", 1250000);
    row("۱٬۲۵۰٬۰۰۰", 1250000);
    row("۱،۲۵۰،۰۰۰", 1250000);
    row("١٢٥٠٠٠٠", 1250000);
    row("1 250 000", 1250000);
    row("1'250'000", 1250000);
    row(" 42 ", 42);
    row("12.5", 12.5);
    row("12/5", 12.5);
    row("۱۲٫۵", 12.5);
    row(".5", 0.5);
    row("5.", 5);
    row("-7", -7);
    row("+7", 7);
    row("−۷", -7);
    row("-1,234.75", -1234.75);
    row("007", 7);
    row("1,", 1);
    row("999,999,999,999,999", 999'999'999'999'999.0);
    row("1,234,567,890,123,456", 1'234'567'890'123'456.0);
    row("123456789012345678901234567890", 1.2345678901234568e29);
}

void TestMoney::parsed()
{
    QFETCH(QString, text);
    double amount = 99;
    QVERIFY(parseMoney(text, &amount));
    QTEST(amount, "amount");
}

void TestMoney::notParsed_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", "  ", "abc", "12a", "1.2.3", "1/2/3", "--5", "5-", "-", ".", ",", ",5", "1e5",
                             "1.5,000", "0x10", "inf", "nan"})
        QTest::newRow(*text ? text : "empty") << QString::fromLatin1(text);
}

void TestMoney::notParsed()
{
    QFETCH(QString, text);
    double amount = 99;
    QVERIFY(!parseMoney(text, &amount));
    QCOMPARE(amount, 99.0);
}

void TestMoney::shownAmountsAreReadBack_data()
{
    QTest::addColumn<double>("amount");
    for (double amount : {0.0, 1.0, -1.0, 1234.5, -98765432.25, 123456789012345.0})
        QTest::addRow("%f", amount) << amount;
}

void TestMoney::shownAmountsAreReadBack()
{
    QFETCH(double, amount);
    double read = 0;
    QVERIFY(parseMoney(DToMoney(amount, 2), &read));
    QCOMPARE(read, amount);
}

void TestMoney::plainNumbers_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole") << DToStr(9) << u"9"_s;
    QTest::newRow("half") << DToStr(4.5) << u"4.5"_s;
    QTest::newRow("negative quarter") << DToStr(-0.25) << u"-0.25"_s;
    QTest::newRow("four decimals at most") << DToStr(0.123456) << u"0.1235"_s;
    QTest::newRow("tens keep their zeros") << DToStr(100) << u"100"_s;
    QTest::newRow("no minus zero") << DToStr(-0.00001) << u"0"_s;
    QTest::newRow("no exponent") << DToStr(1e12) << u"1000000000000"_s;
    QTest::newRow("not a number") << DToStr(std::numeric_limits<double>::quiet_NaN()) << QString();
    QTest::newRow("int") << IToStr(-2147483647 - 1) << u"-2147483648"_s;
    QTest::newRow("long") << LToStr(9223372036854775807) << u"9223372036854775807"_s;
}

void TestMoney::plainNumbers()
{
    QFETCH(QString, shown);
    QTEST(shown, "expected");
}

void TestMoney::inWords_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("words");
    const auto row = [](double amount, const QString &words) { QTest::addRow("%.0f", amount) << amount << words; };
    row(0, u"صفر"_s);
    row(1, u"یک"_s);
    row(19, u"نوزده"_s);
    row(21, u"بیست و یک"_s);
    row(100, u"صد"_s);
    row(1000, u"یک هزار"_s);
    row(1250000, u"یک میلیون و دویست و پنجاه هزار"_s);
    row(850000000, u"هشتصد و پنجاه میلیون"_s);
    row(3000000000.0, u"سه میلیارد"_s);
    row(-5, u"منفی پنج"_s);
    row(1999.6, u"دو هزار"_s);
}

void TestMoney::inWords()
{
    QFETCH(double, amount);
    QTEST(amountInWords(amount), "words");
}

void TestMoney::inWordsWithDecimals()
{
    setDefaultMoneyDecimals(2);
    QCOMPARE(amountInWords(12.5), u"دوازده ممیز پنج"_s);
    QCOMPARE(amountInWords(12), u"دوازده"_s);
}

void TestMoney::nothingInWords_data()
{
    QTest::addColumn<double>("amount");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("too large to be exact") << 1e16;
}

void TestMoney::nothingInWords()
{
    QFETCH(double, amount);
    QCOMPARE(amountInWords(amount), QString());
}

static const RegisteredTest<TestMoney, QCoreApplication> registeredMoney;
#include "TestMoney.moc"
