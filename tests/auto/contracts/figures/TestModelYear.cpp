// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/ModelYear.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestModelYear : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void yearOf999Or3001IsRefused1000And3000AreAccepted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("999") << u"999"_s << false;
        QTest::newRow("1000") << u"1000"_s << true;
        QTest::newRow("3000") << u"3000"_s << true;
        QTest::newRow("3001") << u"3001"_s << false;
        QTest::newRow("1402, a Shamsi year") << u"1402"_s << true;
        QTest::newRow("Persian digits") << u"۱۴۰۲"_s << true;
        QTest::newRow("Arabic-Indic digits") << u"١٤٠٢"_s << true;
        QTest::newRow("Persian digits out of range") << u"۹۹۹"_s << false;
        QTest::newRow("blanks around") << u" 1402 "_s << true;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("zero") << u"0"_s << false;
        QTest::newRow("a sign") << u"+1402"_s << false;
        QTest::newRow("negative") << u"-1402"_s << false;
        QTest::newRow("no whole number") << u"1402.5"_s << false;
        QTest::newRow("grouped") << u"1,402"_s << false;
        QTest::newRow("words") << u"هزار"_s << false;
        QTest::newRow("a number and words") << u"1402 صفر"_s << false;
        QTest::newRow("too large for a number") << u"14021402140214021402"_s << false;
    }

    void yearOf999Or3001IsRefused1000And3000AreAccepted()
    {
        QFETCH(QString, text);
        QFETCH(bool, accepted);
        QCOMPARE(isModelYear(text), accepted);
    }
};

static const RegisteredTest<TestModelYear> registeredModelYear;

#include "TestModelYear.moc"
