// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblProperties.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <limits>

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
    QString m_section = QStringLiteral("AutomobilContracts");
};

void TestCTblProperties::missingKeyGivesTheDefault()
{
    QCOMPARE(CTblProperties::DBReadSetting(m_section, QStringLiteral("nothing"), 2.5), 2.5);
    QCOMPARE(CTblProperties::DBReadSetting(m_section, QStringLiteral("nothing"), QStringLiteral("x")), QStringLiteral("x"));
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, QStringLiteral("nothing"), 3), 3);
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
    CTblProperties::DBWriteSetting(m_section, QStringLiteral("dNumber"), number);
    QVERIFY(CTblProperties::DBReadSetting(m_section, QStringLiteral("dNumber"), -1.0) == number);
}

void TestCTblProperties::textComesBackAsItWas_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("persian") << QStringLiteral("نمایشگاه آزادی");
    QTest::newRow("quotes") << QStringLiteral("a'b\"c\\d");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("statement") << QStringLiteral("'); DROP TABLE Users; --");
}

void TestCTblProperties::textComesBackAsItWas()
{
    QFETCH(QString, text);
    CTblProperties::DBWriteSetting(m_section, QStringLiteral("sText"), text);
    QCOMPARE(CTblProperties::DBReadSetting(m_section, QStringLiteral("sText"), QStringLiteral("default")), text);
}

void TestCTblProperties::valueOfAnotherKindGivesTheDefault()
{
    CTblProperties::DBWriteSetting(m_section, QStringLiteral("sText"), QStringLiteral("abc"));
    QCOMPARE(CTblProperties::DBReadSetting(m_section, QStringLiteral("sText"), 4.0), 4.0);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, QStringLiteral("sText"), 5), 5);
}

void TestCTblProperties::keysDifferInCase()
{
    CTblProperties::DBWriteSettingInt(m_section, QStringLiteral("iDay"), 1);
    CTblProperties::DBWriteSettingInt(m_section, QStringLiteral("IDAY"), 2);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, QStringLiteral("iDay"), 0), 1);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, QStringLiteral("IDAY"), 0), 2);
}

void TestCTblProperties::secondWriteReplacesTheFirst()
{
    CTblProperties::DBWriteSettingInt(m_section, QStringLiteral("iTwice"), 1);
    CTblProperties::DBWriteSettingInt(m_section, QStringLiteral("iTwice"), 2);
    QCOMPARE(CTblProperties::DBReadSettingInt(m_section, QStringLiteral("iTwice"), 0), 2);
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM Properties WHERE sKey='iTwice'")),
             QStringLiteral("1"));
}

void TestCTblProperties::sectionIsReadWhole()
{
    CTblProperties::DBWriteSetting(QStringLiteral("Company"), QStringLiteral("sName1"), QStringLiteral("نمایشگاه"));
    CTblProperties::DBWriteSetting(QStringLiteral("Company"), QStringLiteral("sName2"), QStringLiteral("آزادی"));
    const QHash<QString, QString> company = CTblProperties::DBReadSection(QStringLiteral("Company"));
    QCOMPARE(company.size(), 2);
    QCOMPARE(company.value(QStringLiteral("sName2")), QStringLiteral("آزادی"));
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

static const RegisteredTest<TestCTblProperties, QCoreApplication> registered;
#include "TestCTblProperties.moc"
