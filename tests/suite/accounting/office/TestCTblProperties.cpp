// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblProperties.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <limits>

using namespace Qt::StringLiterals;

class TestCTblProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingKeyGivesTheDefault();
    void numberComesBackExactly_data();
    void numberComesBackExactly();
    void textComesBackAsItWas_data();
    void textComesBackAsItWas();
    void valueOfAnotherKindGivesTheDefault();
    void keysDifferInCase();
    void secondWriteReplacesTheFirst();
    void sectionIsReadWhole();
    void liveObjectsAreCounted();

private:
    TestOffice m_office;
    QString m_section = u"AutomobilContracts"_s;
};

void TestCTblProperties::missingKeyGivesTheDefault()
{
    QCOMPARE(CTblProperties::DBReadSetting(m_section, u"nothing"_s, 2.5), 2.5);
    QCOMPARE(CTblProperties::DBReadSetting(m_section, u"nothing"_s, u"x"_s), u"x"_s);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, u"nothing"_s, 3), 3);
}

void TestCTblProperties::numberComesBackExactly_data()
{
    QTest::addColumn<double>("number");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("tenth") << 0.1;
    QTest::newRow("percent") << 9.0;
    QTest::newRow("billions") << 123456789012.75;
    QTest::newRow("negative") << -0.0625;
    QTest::newRow("largest") << std::numeric_limits<double>::max();
}

void TestCTblProperties::numberComesBackExactly()
{
    QFETCH(double, number);
    CTblProperties::DBWriteSetting(m_section, u"dNumber"_s, number);
    QVERIFY(CTblProperties::DBReadSetting(m_section, u"dNumber"_s, -1.0) == number);
}

void TestCTblProperties::textComesBackAsItWas_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("persian") << u"نمایشگاه آزادی"_s;
    QTest::newRow("quotes") << u"a'b\"c\\d"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("statement") << u"'); DROP TABLE Users; --"_s;
}

void TestCTblProperties::textComesBackAsItWas()
{
    QFETCH(QString, text);
    CTblProperties::DBWriteSetting(m_section, u"sText"_s, text);
    QCOMPARE(CTblProperties::DBReadSetting(m_section, u"sText"_s, u"default"_s), text);
}

void TestCTblProperties::valueOfAnotherKindGivesTheDefault()
{
    CTblProperties::DBWriteSetting(m_section, u"sText"_s, u"abc"_s);
    QCOMPARE(CTblProperties::DBReadSetting(m_section, u"sText"_s, 4.0), 4.0);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, u"sText"_s, 5), 5);
}

void TestCTblProperties::keysDifferInCase()
{
    CTblProperties::DBWriteSettingInt(m_section, u"iDay"_s, 1);
    CTblProperties::DBWriteSettingInt(m_section, u"IDAY"_s, 2);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, u"iDay"_s, 0), 1);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, u"IDAY"_s, 0), 2);
}

void TestCTblProperties::secondWriteReplacesTheFirst()
{
    CTblProperties::DBWriteSettingInt(m_section, u"iTwice"_s, 1);
    CTblProperties::DBWriteSettingInt(m_section, u"iTwice"_s, 2);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, u"iTwice"_s, 0), 2);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Properties WHERE sKey='iTwice'"_s),
             u"1"_s);
}

void TestCTblProperties::sectionIsReadWhole()
{
    CTblProperties::DBWriteSetting(u"Company"_s, u"sName1"_s, u"نمایشگاه"_s);
    CTblProperties::DBWriteSetting(u"Company"_s, u"sName2"_s, u"آزادی"_s);
    const QHash<QString, QString> company = CTblProperties::DBReadSection(u"Company"_s);
    QCOMPARE(company.size(), 2);
    QCOMPARE(company.value(u"sName2"_s), u"آزادی"_s);
}

void TestCTblProperties::liveObjectsAreCounted()
{
    const int before = CTblProperties::liveCount();
    {
        const CTblProperties one;
        const CTblProperties two;
        QCOMPARE(CTblProperties::liveCount(), before + 2);
    }
    QCOMPARE(CTblProperties::liveCount(), before);
}

static const RegisteredTest<TestCTblProperties, QCoreApplication> registeredCTblProperties;
#include "TestCTblProperties.moc"
