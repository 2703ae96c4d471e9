// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/NationalCode.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

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
    QTest::newRow("blanks only") << u"   "_s << State::Empty;
    // Weighted sums worked by hand: 0*10+0*9+7*8+6*7+2*6+2*5+9*4+6*3+4*2 = 182, 182 mod 11 = 6, 11 - 6 = 5.
    QTest::newRow("rest 6") << u"0076229645"_s << State::Good;
    QTest::newRow("rest 6, another check digit") << u"0076229646"_s << State::WrongCheckDigit;
    // Sum 2 from the last weight alone: rest 2 gives 9.
    QTest::newRow("rest 2 gives 9") << u"0000000019"_s << State::Good;
    // 1*9+1*2 = 11: rest 0 is the check digit itself.
    QTest::newRow("rest 0 gives 0") << u"0100000010"_s << State::Good;
    QTest::newRow("rest 0 is not 11") << u"0100000011"_s << State::WrongCheckDigit;
    // 1*10+1*2 = 12: rest 1 is the check digit itself.
    QTest::newRow("rest 1 gives 1") << u"1000000011"_s << State::Good;
    QTest::newRow("rest 1 is not 10 mod 10") << u"1000000010"_s << State::WrongCheckDigit;
    QTest::newRow("Persian digits") << u"۰۰۷۶۲۲۹۶۴۵"_s << State::Good;
    QTest::newRow("Arabic digits with blanks around") << u" ٠٠٧٦٢٢٩٦٤٥ "_s << State::Good;
    QTest::newRow("one digit ten times passes the sum only") << u"1111111111"_s << State::WrongCheckDigit;
    QTest::newRow("ten zeros") << u"0000000000"_s << State::WrongCheckDigit;
    QTest::newRow("leading zeros lost") << u"76229645"_s << State::WrongLength;
    QTest::newRow("eleven digits") << u"00762296450"_s << State::WrongLength;
    QTest::newRow("a letter") << u"007622964a"_s << State::NotANumber;
    QTest::newRow("a hyphen") << u"007-622964-5"_s << State::NotANumber;
    QTest::newRow("Devanagari digits are no digits here") << u"००७६२२९६४५"_s << State::NotANumber;
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
    QTest::newRow("good") << u"10380284790"_s << State::Good;
    QTest::newRow("good, of the other series") << u"14005893875"_s << State::Good;
    QTest::newRow("Persian digits") << u"۱۰۳۸۰۲۸۴۷۹۰"_s << State::Good;
    QTest::newRow("check digit off by one") << u"10380284791"_s << State::WrongCheckDigit;
    QTest::newRow("two digits exchanged") << u"10380287490"_s << State::WrongCheckDigit;
    QTest::newRow("ten digits") << u"1038028479"_s << State::WrongLength;
    QTest::newRow("a person's code") << u"0076229645"_s << State::WrongLength;
    QTest::newRow("text") << u"شرکت"_s << State::NotANumber;
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
    QTest::newRow("seven digits") << u"1234567"_s << State::WrongLength;
    QTest::newRow("eight digits") << u"12345678"_s << State::Good;
    QTest::newRow("twelve Persian digits") << u"۱۲۳۴۵۶۷۸۹۰۱۲"_s << State::Good;
    QTest::newRow("sixteen digits") << u"1234567890123456"_s << State::Good;
    QTest::newRow("seventeen digits") << u"12345678901234567"_s << State::WrongLength;
    QTest::newRow("passport letter") << u"P1234567"_s << State::NotANumber;
}

void TestNationalCode::foreigner()
{
    QFETCH(QString, code);
    QTEST(NationalCode::checkForeigner(code), "expected");
}

static const RegisteredTest<TestNationalCode, QCoreApplication> registeredNationalCode;
#include "TestNationalCode.moc"
