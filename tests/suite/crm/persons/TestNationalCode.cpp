// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/NationalCode.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using NationalCode::State;

class TestNationalCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void person_data();
    void person();
    void everyCheckDigitButOneIsRefused();
    void company_data();
    void company();
    void foreigner_data();
    void foreigner();
};

void TestNationalCode::person_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<State>("expected");
    QTest::newRow("empty") << QString() << State::Empty;
    QTest::newRow("blanks only") << QStringLiteral("   ") << State::Empty;
    // Weighted sums worked by hand: 0*10+0*9+7*8+6*7+2*6+2*5+9*4+6*3+4*2 = 182, 182 mod 11 = 6, 11 - 6 = 5.
    QTest::newRow("rest 6") << QStringLiteral("0076229645") << State::Good;
    QTest::newRow("rest 6, another check digit") << QStringLiteral("0076229646") << State::WrongCheckDigit;
    // Sum 2 from the last weight alone: rest 2 gives 9.
    QTest::newRow("rest 2 gives 9") << QStringLiteral("0000000019") << State::Good;
    // 1*9+1*2 = 11: rest 0 is the check digit itself.
    QTest::newRow("rest 0 gives 0") << QStringLiteral("0100000010") << State::Good;
    QTest::newRow("rest 0 is not 11") << QStringLiteral("0100000011") << State::WrongCheckDigit;
    // 1*10+1*2 = 12: rest 1 is the check digit itself.
    QTest::newRow("rest 1 gives 1") << QStringLiteral("1000000011") << State::Good;
    QTest::newRow("rest 1 is not 10 mod 10") << QStringLiteral("1000000010") << State::WrongCheckDigit;
    QTest::newRow("Persian digits") << QStringLiteral("۰۰۷۶۲۲۹۶۴۵") << State::Good;
    QTest::newRow("Arabic digits with blanks around") << QStringLiteral(" ٠٠٧٦٢٢٩٦٤٥ ") << State::Good;
    QTest::newRow("one digit ten times passes the sum only") << QStringLiteral("1111111111") << State::WrongCheckDigit;
    QTest::newRow("ten zeros") << QStringLiteral("0000000000") << State::WrongCheckDigit;
    QTest::newRow("leading zeros lost") << QStringLiteral("76229645") << State::WrongLength;
    QTest::newRow("eleven digits") << QStringLiteral("00762296450") << State::WrongLength;
    QTest::newRow("a letter") << QStringLiteral("007622964a") << State::NotANumber;
    QTest::newRow("a hyphen") << QStringLiteral("007-622964-5") << State::NotANumber;
    QTest::newRow("Devanagari digits are no digits here") << QStringLiteral("००७६२२९६४५") << State::NotANumber;
}

void TestNationalCode::person()
{
    QFETCH(QString, code);
    QTEST(NationalCode::checkPerson(code), "expected");
}

void TestNationalCode::everyCheckDigitButOneIsRefused()
{
    for (int body = 100000000; body < 100000000 + 2000; ++body) {
        int good = 0;
        for (int check = 0; check < 10; ++check)
            good += NationalCode::checkPerson(QString::number(body) + QString::number(check)) == State::Good ? 1 : 0;
        QCOMPARE(good, 1);
    }
}

void TestNationalCode::company_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<State>("expected");
    QTest::newRow("empty") << QString() << State::Empty;
    QTest::newRow("good") << QStringLiteral("10380284790") << State::Good;
    QTest::newRow("good, of the other series") << QStringLiteral("14005893875") << State::Good;
    QTest::newRow("Persian digits") << QStringLiteral("۱۰۳۸۰۲۸۴۷۹۰") << State::Good;
    QTest::newRow("check digit off by one") << QStringLiteral("10380284791") << State::WrongCheckDigit;
    QTest::newRow("two digits exchanged") << QStringLiteral("10380287490") << State::WrongCheckDigit;
    QTest::newRow("ten digits") << QStringLiteral("1038028479") << State::WrongLength;
    QTest::newRow("a person's code") << QStringLiteral("0076229645") << State::WrongLength;
    QTest::newRow("text") << QStringLiteral("شرکت") << State::NotANumber;
}

void TestNationalCode::company()
{
    QFETCH(QString, code);
    QTEST(NationalCode::checkCompany(code), "expected");
}

void TestNationalCode::foreigner_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<State>("expected");
    QTest::newRow("empty") << QString() << State::Empty;
    QTest::newRow("seven digits") << QStringLiteral("1234567") << State::WrongLength;
    QTest::newRow("eight digits") << QStringLiteral("12345678") << State::Good;
    QTest::newRow("twelve Persian digits") << QStringLiteral("۱۲۳۴۵۶۷۸۹۰۱۲") << State::Good;
    QTest::newRow("sixteen digits") << QStringLiteral("1234567890123456") << State::Good;
    QTest::newRow("seventeen digits") << QStringLiteral("12345678901234567") << State::WrongLength;
    QTest::newRow("passport letter") << QStringLiteral("P1234567") << State::NotANumber;
}

void TestNationalCode::foreigner()
{
    QFETCH(QString, code);
    QTEST(NationalCode::checkForeigner(code), "expected");
}

static const RegisteredTest<TestNationalCode, QCoreApplication> registered;
#include "TestNationalCode.moc"
