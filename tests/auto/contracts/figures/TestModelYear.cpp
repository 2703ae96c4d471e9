// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/ModelYear.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

class TestModelYear : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void yearOf999Or3001IsRefused1000And3000AreAccepted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("999") << QStringLiteral("999") << false;
        QTest::newRow("1000") << QStringLiteral("1000") << true;
        QTest::newRow("3000") << QStringLiteral("3000") << true;
        QTest::newRow("3001") << QStringLiteral("3001") << false;
        QTest::newRow("1402, a Shamsi year") << QStringLiteral("1402") << true;
        QTest::newRow("Persian digits") << QStringLiteral("۱۴۰۲") << true;
        QTest::newRow("Arabic-Indic digits") << QStringLiteral("١٤٠٢") << true;
        QTest::newRow("Persian digits out of range") << QStringLiteral("۹۹۹") << false;
        QTest::newRow("blanks around") << QStringLiteral(" 1402 ") << true;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("zero") << QStringLiteral("0") << false;
        QTest::newRow("a sign") << QStringLiteral("+1402") << false;
        QTest::newRow("negative") << QStringLiteral("-1402") << false;
        QTest::newRow("no whole number") << QStringLiteral("1402.5") << false;
        QTest::newRow("grouped") << QStringLiteral("1,402") << false;
        QTest::newRow("words") << QStringLiteral("هزار") << false;
        QTest::newRow("a number and words") << QStringLiteral("1402 صفر") << false;
        QTest::newRow("too large for a number") << QStringLiteral("14021402140214021402") << false;
    }

    void yearOf999Or3001IsRefused1000And3000AreAccepted()
    {
        QFETCH(QString, text);
        QFETCH(bool, accepted);
        QCOMPARE(isModelYear(text), accepted);
    }
};

static const RegisteredTest<TestModelYear> registered;

#include "TestModelYear.moc"
