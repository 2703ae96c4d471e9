// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/MobileNumber.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestMobileNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form_data();
    void form();
    void spellings_data();
    void spellings();
};

void TestMobileNumber::form_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("good");
    QTest::newRow("plain") << u"09121234567"_s << true;
    QTest::newRow("Persian digits") << u"۰۹۱۲۱۲۳۴۵۶۷"_s << true;
    QTest::newRow("Arabic digits") << u"٠٩١٢١٢٣٤٥٦٧"_s << true;
    QTest::newRow("blanks and hyphens") << u"0912 123-45-67"_s << true;
    QTest::newRow("country code with plus") << u"+98 912 123 4567"_s << true;
    QTest::newRow("country code with zeros") << u"00989121234567"_s << true;
    QTest::newRow("country code alone") << u"989121234567"_s << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("one digit short") << u"0912123456"_s << false;
    QTest::newRow("one digit too many") << u"091212345678"_s << false;
    QTest::newRow("a town's number") << u"02188776655"_s << false;
    QTest::newRow("zero left out") << u"9121234567"_s << false;
    QTest::newRow("a letter") << u"0912123456a"_s << false;
    QTest::newRow("a town abroad") << u"+982188776655"_s << false;
}

void TestMobileNumber::form()
{
    QFETCH(QString, number);
    QTEST(MobileNumber::isGood(number), "good");
}

void TestMobileNumber::spellings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("all");
    QTest::addColumn<QString>("international");
    QTest::newRow("one") << u"0912 123-4567"_s << QStringList{u"09121234567"_s} << u"+989121234567"_s;
    QTest::newRow("Persian digits and the country") << u"+۹۸۹۱۲۱۲۳۴۵۶۷"_s << QStringList{u"09121234567"_s} << u"+989121234567"_s;
    QTest::newRow("a land line") << u"02188776655"_s << QStringList() << QString();
    QTest::newRow("several") << u"09121234567، 02188776655 / 0935 111 2233"_s << QStringList{u"09121234567"_s, u"09351112233"_s} << QString();
    QTest::newRow("between words") << u"همراه 09121234567 منزل ۰۹۳۵۱۱۱۲۲۳۳"_s << QStringList{u"09121234567"_s, u"09351112233"_s} << QString();
    QTest::newRow("parted by a stroke") << u"09121234567 - 09351112233"_s << QStringList{u"09121234567"_s, u"09351112233"_s} << QString();
    QTest::newRow("twice the same") << u"09121234567, +98 912 123 4567"_s << QStringList{u"09121234567"_s} << QString();
    QTest::newRow("hostile") << u"sms:09121234567?body=x"_s << QStringList{u"09121234567"_s} << QString();
    QTest::newRow("nothing") << QString() << QStringList() << QString();
}

void TestMobileNumber::spellings()
{
    QFETCH(QString, text);
    QTEST(MobileNumber::allIn(text), "all");
    QTEST(MobileNumber::international(text), "international");
}

static const RegisteredTest<TestMobileNumber, QCoreApplication> registeredMobileNumber;
#include "TestMobileNumber.moc"
