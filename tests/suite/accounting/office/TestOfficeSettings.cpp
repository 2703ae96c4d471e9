// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/OfficeSettings.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/LevyRates.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestOfficeSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingStoredGivesTheDefaultsAndTheClock();
    void everythingComesByOneStatement();
    void whatCannotBeIsBroughtIntoItsBounds();
    void laterChangesAreThoseOfTheNextReading();
    void fiscalYearEndsWithTheShamsiYear();
    void dayOutsideTheFiscalYearIsRefused_data();
    void dayOutsideTheFiscalYearIsRefused();
    void furtherSectionsKeepTheirKeysApart();
    void valueOfAnotherKindGivesTheDefault();

private:
    TestOffice m_office;
};

void TestOfficeSettings::init()
{
    m_office.database.run(u"DELETE FROM Properties"_s);
}

void TestOfficeSettings::nothingStoredGivesTheDefaultsAndTheClock()
{
    const OfficeSettings settings = OfficeSettings::read();
    const QDateTime now = QDateTime::fromString(m_office.database.value(u"SELECT NOW()"_s), Qt::ISODate);
    QCOMPARE(settings.serverTime().timeSpec(), Qt::UTC);
    QVERIFY(qAbs(settings.serverTime().date().startOfDay().secsTo(now.date().startOfDay())) < 1);
    QVERIFY(!settings.isClosed());
    settings.requireOpen();
    QVERIFY(!settings.isCatalogLocked());
    QVERIFY(!settings.isNaturalPersonByMark());
    QCOMPARE(settings.moneyUnitName(), u"ریال"_s);
    QCOMPARE(settings.moneyDecimals(), 0);
    QCOMPARE(settings.fiscalYear(), GetShamsi(now.date()).year);
    QCOMPARE(settings.fiscalYearOpeningDate().date(), ConvertToMiladi(settings.fiscalYear(), 1, 1));
}

void TestOfficeSettings::everythingComesByOneStatement()
{
    GetDBSetting()->SetClosedDB(true);
    GetDBSetting()->SetCatalogLocked(true);
    GetDBSetting()->SetNaturalPersonByMark(true);
    GetDBSetting()->SetMoneyUnitName(u"تومان"_s);
    GetDBSetting()->SetMoneyDecimals(2);
    GetDBSetting()->SetFiscalYear(1404);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(QDate(2025, 3, 25), QTime(0, 0), Qt::UTC));
    CTblProperties::DBWriteSetting(LevyRates::section(), u"dPrecentTax"_s, 6.5);
    const ObservedStatements observed({u"SELECT"_s});
    const OfficeSettings settings = OfficeSettings::read({LevyRates::section()});
    QVERIFY(settings.isClosed());
    QVERIFY_THROWS_EXCEPTION(KAccountingError, settings.requireOpen());
    QVERIFY(settings.isCatalogLocked());
    QVERIFY(settings.isNaturalPersonByMark());
    QCOMPARE(settings.moneyUnitName(), u"تومان"_s);
    QCOMPARE(settings.moneyDecimals(), 2);
    QCOMPARE(settings.fiscalYear(), 1404);
    QCOMPARE(settings.fiscalYearOpeningDate().date(), QDate(2025, 3, 25));
    QCOMPARE(LevyRates::of(settings).tax, 6.5);
    QCOMPARE(LevyRates::of(settings).duty, 0.0);
    QCOMPARE(observed.taken().size(), 1);
}

void TestOfficeSettings::whatCannotBeIsBroughtIntoItsBounds()
{
    CTblProperties::DBWriteSettingInt(u"Money"_s, u"iDecimals"_s, 9);
    CTblProperties::DBWriteSettingInt(u"FiscalYear"_s, u"iFiscalYear"_s, -1);
    CTblProperties::DBWriteSetting(u"FiscalYear"_s, u"dateOpening"_s, u"yesterday"_s);
    const OfficeSettings settings = OfficeSettings::read();
    QCOMPARE(settings.moneyDecimals(), 4);
    QCOMPARE(settings.fiscalYear(), GetShamsi(settings.serverTime().date()).year);
    QCOMPARE(settings.fiscalYearOpeningDate().date(), ConvertToMiladi(settings.fiscalYear(), 1, 1));
}

void TestOfficeSettings::laterChangesAreThoseOfTheNextReading()
{
    const OfficeSettings before = OfficeSettings::read();
    m_office.database.run(u"INSERT INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s);
    QVERIFY(!before.isClosed());
    QVERIFY(OfficeSettings::read().isClosed());
    QVERIFY(GetDBSetting()->IsClosedDB());
    QVERIFY_THROWS_EXCEPTION(KAccountingError, GetDBSetting()->RequireOpenDB());
}

void TestOfficeSettings::fiscalYearEndsWithTheShamsiYear()
{
    GetDBSetting()->SetFiscalYear(1403); // a leap year
    QCOMPARE(OfficeSettings::read().fiscalYearClosingDate().date(), ConvertToMiladi(1403, 12, 30));
    GetDBSetting()->SetFiscalYear(1404);
    QCOMPARE(OfficeSettings::read().fiscalYearClosingDate().date(), ConvertToMiladi(1404, 12, 29));
    // Of another year, as an office leaves it that changes only the year: it ends nothing.
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(ConvertToMiladi(1404, 1, 1), QTime(0, 0), Qt::UTC));
    GetDBSetting()->SetFiscalYearClosingDate(QDateTime(ConvertToMiladi(1403, 12, 30), QTime(0, 0), Qt::UTC));
    QCOMPARE(GetDBSetting()->FiscalYearClosingDate().date(), ConvertToMiladi(1404, 12, 29));
    // A fiscal year may end inside the next Shamsi year.
    GetDBSetting()->SetFiscalYearClosingDate(QDateTime(ConvertToMiladi(1405, 6, 31), QTime(0, 0), Qt::UTC));
    QCOMPARE(GetDBSetting()->FiscalYearClosingDate().date(), ConvertToMiladi(1405, 6, 31));
}

void TestOfficeSettings::dayOutsideTheFiscalYearIsRefused_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("refusal");
    const QString after = u"تاریخ سند پس از پایان سال مالی 1405 (1405/12/29) است."_s;
    QTest::newRow("eve of the opening") << ConvertToMiladi(1405, 1, 1) << u"تاریخ سند پیش از تاریخ افتتاحیه سال مالی است."_s;
    QTest::newRow("opening") << ConvertToMiladi(1405, 1, 2) << QString();
    QTest::newRow("last day") << ConvertToMiladi(1405, 12, 29) << QString();
    QTest::newRow("day after") << ConvertToMiladi(1406, 1, 1) << after;
    QTest::newRow("years ahead") << ConvertToMiladi(1450, 1, 1) << after;
}

void TestOfficeSettings::dayOutsideTheFiscalYearIsRefused()
{
    QFETCH(QDate, day);
    GetDBSetting()->SetFiscalYear(1405);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(ConvertToMiladi(1405, 1, 2), QTime(0, 0), Qt::UTC));
    QTEST(OfficeSettings::read().fiscalYearRefusal(day, u"سند"_s), "refusal");
}

void TestOfficeSettings::furtherSectionsKeepTheirKeysApart()
{
    CTblProperties::DBWriteSettingInt(u"One's"_s, u"iDay"_s, 1);
    CTblProperties::DBWriteSettingInt(u"Two"_s, u"iDay"_s, 2);
    CTblProperties::DBWriteSettingInt(u"Two"_s, u"IDAY"_s, 3);
    const OfficeSettings settings = OfficeSettings::read({u"One's"_s, u"Two"_s});
    QCOMPARE(settings.integer(u"One's"_s, u"iDay"_s, 0), 1);
    QCOMPARE(settings.integer(u"Two"_s, u"iDay"_s, 0), 2);
    QCOMPARE(settings.integer(u"Two"_s, u"IDAY"_s, 0), 3);
    QCOMPARE(settings.integer(u"two"_s, u"iDay"_s, 7), 7);
}

void TestOfficeSettings::valueOfAnotherKindGivesTheDefault()
{
    const QString section = u"One"_s;
    CTblProperties::DBWriteSetting(section, u"sText"_s, u"abc"_s);
    const OfficeSettings settings = OfficeSettings::read({section});
    QCOMPARE(settings.number(section, u"sText"_s, 4.5), 4.5);
    QCOMPARE(settings.integer(section, u"sText"_s, 5), 5);
    QCOMPARE(settings.text(section, u"sText"_s, {}), u"abc"_s);
    QCOMPARE(settings.text(section, u"sOther"_s, u"x"_s), u"x"_s);
}

static const RegisteredTest<TestOfficeSettings, QCoreApplication> registeredOfficeSettings;
#include "TestOfficeSettings.moc"
