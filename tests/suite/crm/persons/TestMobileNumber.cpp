// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/MobileNumber.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

class TestMobileNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form_data();
    void form();
};

void TestMobileNumber::form_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("good");
    QTest::newRow("plain") << QStringLiteral("09121234567") << true;
    QTest::newRow("Persian digits") << QStringLiteral("۰۹۱۲۱۲۳۴۵۶۷") << true;
    QTest::newRow("Arabic digits") << QStringLiteral("٠٩١٢١٢٣٤٥٦٧") << true;
    QTest::newRow("blanks and hyphens") << QStringLiteral("0912 123-45-67") << true;
    QTest::newRow("country code with plus") << QStringLiteral("+98 912 123 4567") << true;
    QTest::newRow("country code with zeros") << QStringLiteral("00989121234567") << true;
    QTest::newRow("country code alone") << QStringLiteral("989121234567") << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("one digit short") << QStringLiteral("0912123456") << false;
    QTest::newRow("one digit too many") << QStringLiteral("091212345678") << false;
    QTest::newRow("a town's number") << QStringLiteral("02188776655") << false;
    QTest::newRow("zero left out") << QStringLiteral("9121234567") << false;
    QTest::newRow("a letter") << QStringLiteral("0912123456a") << false;
    QTest::newRow("a town abroad") << QStringLiteral("+982188776655") << false;
}

void TestMobileNumber::form()
{
    QFETCH(QString, number);
    QTEST(MobileNumber::isGood(number), "good");
}

static const RegisteredTest<TestMobileNumber, QCoreApplication> registered;
#include "TestMobileNumber.moc"
