// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/settings/ContractSettings.h"

#include "suite/accounting/office/LevyRates.h"

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestContractSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void check_data();
    void check();
    void missingSettingsAreZero();
    void everySettingIsWrittenUnderItsKeyAndReadBack();
    void failedSaveWritesNothing();
    void invoicesStartFromTheSameRates();

private:
    TestDatabase m_database;
};

void TestContractSettings::init()
{
    m_database.recreate();
    SuiteSchema::upgrade();
    KSecurity::setUser(1, true);
}

void TestContractSettings::check_data()
{
    using Problem = ContractSettings::Problem;
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("third");
    QTest::addColumn<bool>("thirdInUse");
    QTest::addColumn<int>("problem");
    const auto row = [](const char *name, double first, double second, double third, bool inUse, Problem problem) {
        QTest::newRow(name) << first << second << third << inUse << int(problem);
    };
    row("T1 = 100, T2 = 50: refused with the first message", 100, 50, 0, false, Problem::SecondTierBelowFirst);
    row("T2 = 0, T3 = 0, tier 3 off: saved whatever T1 is", 1e9, 0, 0, false, Problem::None);
    row("T2 = 0, T3 = 0, tier 3 on: saved as well", 100, 0, 0, true, Problem::None);
    row("T2 = 0, T3 = 500, tier 3 on, T1 = 10: refused with the first message", 10, 0, 500, true,
        Problem::SecondTierBelowFirst);
    row("T2 = 0, T3 = 500, tier 3 off: T1 below T3", 10, 0, 500, false, Problem::None);
    row("T3 = 200 with tier 3 off and T2 = 300: refused with the second message", 100, 300, 200, false,
        Problem::ThirdTierBelowOthers);
    row("T3 below T1 with tier 3 off and T2 = 0", 300, 0, 200, false, Problem::ThirdTierBelowOthers);
    row("equal T1 and T2: accepted", 100, 100, 0, false, Problem::None);
    row("equal T2 and T3: accepted", 100, 200, 200, true, Problem::None);
    row("all equal: accepted", 100, 100, 100, true, Problem::None);
    row("rising tiers", 100, 200, 300, true, Problem::None);
    row("T2 within 0.0001 of zero counts as zero", 100, 0.00005, 0, false, Problem::None);
    row("T3 within 0.0001 of zero counts as zero", 100, 200, 0.00005, true, Problem::None);
    row("T3 not zero, T2 above it", 100, 300, 200, true, Problem::ThirdTierBelowOthers);
}

void TestContractSettings::check()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(double, third);
    QFETCH(bool, thirdInUse);
    QFETCH(int, problem);
    ContractSettings settings;
    settings.tiers.ceilings = {first, second, third};
    settings.tiers.thirdInUse = thirdInUse;
    QCOMPARE(int(settings.check()), problem);
}

void TestContractSettings::missingSettingsAreZero()
{
    const ContractSettings settings = ContractSettings::load();
    QCOMPARE(settings.taxPercent, 0.0);
    QCOMPARE(settings.dutyPercent, 0.0);
    for (int tier = 0; tier < 3; ++tier) {
        QCOMPARE(settings.tiers.ceilings[size_t(tier)], 0.0);
        QCOMPARE(settings.tiers.percents[size_t(tier)], 0.0);
    }
    QVERIFY(!settings.tiers.thirdInUse);
    QVERIFY(!settings.archiveDemands);
    QCOMPARE(settings.demandDays, 0);
}

void TestContractSettings::everySettingIsWrittenUnderItsKeyAndReadBack()
{
    ContractSettings settings;
    settings.dutyPercent = 1.5;
    settings.taxPercent = 9;
    settings.tiers = {{1000, 2000.25, 12345678901.5}, {0.5, 0.75, 1.25}, true};
    settings.demandDays = 30;
    settings.archiveDemands = true;
    settings.levySeparate = true;
    settings.postPlan = true;
    settings.lateFeePercent = 0.25;
    settings.lateFeeGrace = 5;
    settings.save();

    const auto stored = [this](const char *key) {
        return m_database.value(u"SELECT sValue FROM Properties WHERE sSection='AutomobilContracts' AND "
                                "BINARY sKey='%1'"_s
                                    .arg(QLatin1String(key)));
    };
    QCOMPARE(stored("dPercentImposition").toDouble(), 1.5);
    QCOMPARE(stored("dPrecentTax").toDouble(), 9.0);
    QCOMPARE(stored("dTransactionAmount").toDouble(), 1000.0);
    QCOMPARE(stored("dTransactionAmount2").toDouble(), 2000.25);
    QCOMPARE(stored("dTransactionAmount3").toDouble(), 12345678901.5);
    QCOMPARE(stored("dPercentCommission").toDouble(), 0.5);
    QCOMPARE(stored("dPercentCommission2").toDouble(), 0.75);
    QCOMPARE(stored("dPercentCommission3").toDouble(), 1.25);
    QCOMPARE(stored("iDay"), u"30"_s);
    QCOMPARE(stored("bTransactionAmount"), u"1"_s);
    QCOMPARE(stored("bDemands"), u"1"_s);
    QCOMPARE(stored("bLevySeparate"), u"1"_s);
    QCOMPARE(stored("bPostPlan"), u"1"_s);
    QCOMPARE(stored("dLateFeePercent").toDouble(), 0.25);
    QCOMPARE(stored("iLateFeeGrace"), u"5"_s);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Properties WHERE sSection='AutomobilContracts'"_s),
             u"15"_s);

    const ContractSettings read = ContractSettings::load();
    QCOMPARE(read.dutyPercent, settings.dutyPercent);
    QCOMPARE(read.taxPercent, settings.taxPercent);
    QCOMPARE(read.tiers.ceilings, settings.tiers.ceilings);
    QCOMPARE(read.tiers.percents, settings.tiers.percents);
    QVERIFY(read.tiers.thirdInUse);
    QVERIFY(read.archiveDemands);
    QCOMPARE(read.demandDays, 30);
    QVERIFY(read.levySeparate);
    QVERIFY(read.postPlan);
    QCOMPARE(read.lateFeePercent, 0.25);
    QCOMPARE(read.lateFeeGrace, 5);
}

void TestContractSettings::failedSaveWritesNothing()
{
    m_database.run(u"CREATE TRIGGER refuseDays BEFORE INSERT ON Properties FOR EACH ROW "
                   "IF NEW.sKey='iDay' THEN SIGNAL SQLSTATE '45000'; END IF"_s);
    const QString before = m_database.value(u"SELECT COUNT(*) FROM Properties WHERE sSection='AutomobilContracts'"_s);
    ContractSettings settings;
    settings.taxPercent = 9;
    QVERIFY_THROWS_EXCEPTION(CMySQLException, settings.save());
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Properties WHERE sSection='AutomobilContracts'"_s),
             before);
}

void TestContractSettings::invoicesStartFromTheSameRates()
{
    ContractSettings settings;
    settings.taxPercent = 6.5;
    settings.dutyPercent = 3.25;
    settings.save();
    const LevyRates rates = LevyRates::of(OfficeSettings::read({LevyRates::section()}));
    QCOMPARE(rates.tax, 6.5);
    QCOMPARE(rates.duty, 3.25);
}

static const RegisteredTest<TestContractSettings, QCoreApplication> registeredContractSettings;
#include "TestContractSettings.moc"
