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

class TestOfficeSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingStoredGivesTheDefaultsAndTheClock();
    void everythingComesByOneStatement();
    void whatCannotBeIsBroughtIntoItsBounds();
    void laterChangesAreThoseOfTheNextReading();
    void furtherSectionsKeepTheirKeysApart();
    void valueOfAnotherKindGivesTheDefault();

private:
    TestOffice m_office;
};

void TestOfficeSettings::init()
{
    m_office.database.run(QStringLiteral("DELETE FROM Properties"));
}

void TestOfficeSettings::nothingStoredGivesTheDefaultsAndTheClock()
{
    const OfficeSettings settings = OfficeSettings::read();
    const QDateTime now = QDateTime::fromString(m_office.database.value(QStringLiteral("SELECT NOW()")), Qt::ISODate);
    QCOMPARE(settings.serverTime().timeSpec(), Qt::UTC);
    QVERIFY(qAbs(settings.serverTime().date().startOfDay().secsTo(now.date().startOfDay())) < 1);
    QVERIFY(!settings.isClosed());
    settings.requireOpen();
    QVERIFY(!settings.isCatalogLocked());
    QVERIFY(!settings.isNaturalPersonByMark());
    QCOMPARE(settings.moneyUnitName(), QStringLiteral("ریال"));
    QCOMPARE(settings.moneyDecimals(), 0);
    QCOMPARE(settings.fiscalYear(), GetShamsi(now.date()).year);
    QCOMPARE(settings.fiscalYearOpeningDate().date(), ConvertToMiladi(settings.fiscalYear(), 1, 1));
}

void TestOfficeSettings::everythingComesByOneStatement()
{
    GetDBSetting()->SetClosedDB(true);
    GetDBSetting()->SetCatalogLocked(true);
    GetDBSetting()->SetNaturalPersonByMark(true);
    GetDBSetting()->SetMoneyUnitName(QStringLiteral("تومان"));
    GetDBSetting()->SetMoneyDecimals(2);
    GetDBSetting()->SetFiscalYear(1404);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(QDate(2025, 3, 25), QTime(0, 0), Qt::UTC));
    CTblProperties::DBWriteSetting(LevyRates::section(), QStringLiteral("dPrecentTax"), 6.5);
    const ObservedStatements observed({QStringLiteral("SELECT")});
    const OfficeSettings settings = OfficeSettings::read({LevyRates::section()});
    QVERIFY(settings.isClosed());
    QVERIFY_THROWS_EXCEPTION(KAccountingError, settings.requireOpen());
    QVERIFY(settings.isCatalogLocked());
    QVERIFY(settings.isNaturalPersonByMark());
    QCOMPARE(settings.moneyUnitName(), QStringLiteral("تومان"));
    QCOMPARE(settings.moneyDecimals(), 2);
    QCOMPARE(settings.fiscalYear(), 1404);
    QCOMPARE(settings.fiscalYearOpeningDate().date(), QDate(2025, 3, 25));
    QCOMPARE(LevyRates::of(settings).tax, 6.5);
    QCOMPARE(LevyRates::of(settings).duty, 0.0);
    QCOMPARE(observed.taken().size(), 1);
}

void TestOfficeSettings::whatCannotBeIsBroughtIntoItsBounds()
{
    CTblProperties::DBWriteSettingInt(QStringLiteral("Money"), QStringLiteral("iDecimals"), 9);
    CTblProperties::DBWriteSettingInt(QStringLiteral("FiscalYear"), QStringLiteral("iFiscalYear"), -1);
    CTblProperties::DBWriteSetting(QStringLiteral("FiscalYear"), QStringLiteral("dateOpening"), QStringLiteral("yesterday"));
    const OfficeSettings settings = OfficeSettings::read();
    QCOMPARE(settings.moneyDecimals(), 4);
    QCOMPARE(settings.fiscalYear(), GetShamsi(settings.serverTime().date()).year);
    QCOMPARE(settings.fiscalYearOpeningDate().date(), ConvertToMiladi(settings.fiscalYear(), 1, 1));
}

void TestOfficeSettings::laterChangesAreThoseOfTheNextReading()
{
    const OfficeSettings before = OfficeSettings::read();
    m_office.database.run(QStringLiteral("INSERT INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"));
    QVERIFY(!before.isClosed());
    QVERIFY(OfficeSettings::read().isClosed());
    QVERIFY(GetDBSetting()->IsClosedDB());
    QVERIFY_THROWS_EXCEPTION(KAccountingError, GetDBSetting()->RequireOpenDB());
}

void TestOfficeSettings::furtherSectionsKeepTheirKeysApart()
{
    CTblProperties::DBWriteSettingInt(QStringLiteral("One's"), QStringLiteral("iDay"), 1);
    CTblProperties::DBWriteSettingInt(QStringLiteral("Two"), QStringLiteral("iDay"), 2);
    CTblProperties::DBWriteSettingInt(QStringLiteral("Two"), QStringLiteral("IDAY"), 3);
    const OfficeSettings settings = OfficeSettings::read({QStringLiteral("One's"), QStringLiteral("Two")});
    QCOMPARE(settings.integer(QStringLiteral("One's"), QStringLiteral("iDay"), 0), 1);
    QCOMPARE(settings.integer(QStringLiteral("Two"), QStringLiteral("iDay"), 0), 2);
    QCOMPARE(settings.integer(QStringLiteral("Two"), QStringLiteral("IDAY"), 0), 3);
    QCOMPARE(settings.integer(QStringLiteral("two"), QStringLiteral("iDay"), 7), 7);
}

void TestOfficeSettings::valueOfAnotherKindGivesTheDefault()
{
    const QString section = QStringLiteral("One");
    CTblProperties::DBWriteSetting(section, QStringLiteral("sText"), QStringLiteral("abc"));
    const OfficeSettings settings = OfficeSettings::read({section});
    QCOMPARE(settings.number(section, QStringLiteral("sText"), 4.5), 4.5);
    QCOMPARE(settings.integer(section, QStringLiteral("sText"), 5), 5);
    QCOMPARE(settings.text(section, QStringLiteral("sText"), {}), QStringLiteral("abc"));
    QCOMPARE(settings.text(section, QStringLiteral("sOther"), QStringLiteral("x")), QStringLiteral("x"));
}

static const RegisteredTest<TestOfficeSettings, QCoreApplication> registered;
#include "TestOfficeSettings.moc"
