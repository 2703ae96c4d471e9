// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"
#include "auto/schema/SchemaUpgrade.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct VersionedStatement
{
    double version;
    QString text;
};

// Every statement of the upgrade in its order, from the table beside this file.
QList<VersionedStatement> requiredStatements()
{
    QList<VersionedStatement> statements;
    QFile file(u"" TZ_TEST_SOURCE "/upgrade_statements.tsv"_s);
    if (!file.open(QIODevice::ReadOnly))
        return statements;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (!line.startsWith(QLatin1Char('#')) && parts.size() == 2)
            statements.append({parts[0].toDouble(), parts[1]});
    }
    return statements;
}

const QStringList schemaWords{u"CREATE"_s, u"DROP"_s, u"ALTER"_s};

QString failureMessage(const char *stored, const char *reached)
{
    return u"عملیات ارتقاء پایگاه داده Auto با خطا مواجه شد\nنسخه برنامه : %1\nارتقاء بدون مشکل تا %2."_s
        .arg(QLatin1String(stored), QLatin1String(reached));
}

}

class TestSchemaUpgrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void freshDatabaseRunsEveryStatementToTheLetter();
    void storedVersionRunsOnlyTheStepsAboveIt_data();
    void storedVersionRunsOnlyTheStepsAboveIt();
    void contractsKeepTheirRowsAndGainTheirColumns();
    void reachedVersionFollowsTheLastCompletedStep();
    void failingCreateOfCarModelsGivesBackTheStepBefore();
    void halfRunStepRunsAgainWithTheAlterFlagFalse();
    void halfRunStepStopsAgainWithTheAlterFlagTrue();
    void repeatedAlterObeysTheAlterFlag_data();
    void repeatedAlterObeysTheAlterFlag();
    void alterFlagFalseStillRaisesOtherErrors();
    void bodyStatusTextsBecomeNumbers_data();
    void bodyStatusTextsBecomeNumbers();
    void sessionIsStrictAgainAfterwards();
    void databaseOutOfReachIsReported();
    void columnLengthsAreReadAnewAfterwards();

private:
    void bringTo(double version);
    bool hasColumn(const QString &table, const QString &column);
    QString sqlMode() { return m_database.value(u"SELECT @@SESSION.sql_mode"_s); }

    TestDatabase m_database;
    CAutoDBSetting m_setting;
};

void TestSchemaUpgrade::initTestCase()
{
    const auto statements = requiredStatements();
    QCOMPARE(statements.size(), 22);
    const auto count = [&statements](QLatin1String word) {
        return std::count_if(statements.begin(), statements.end(),
                             [word](const VersionedStatement &statement) { return statement.text.startsWith(word); });
    };
    QCOMPARE(count(QLatin1String("CREATE TABLE ")), 9);
    QCOMPARE(count(QLatin1String("DROP TABLE IF EXISTS ")), 9);
    QCOMPARE(count(QLatin1String("ALTER TABLE ")), 4);
}

void TestSchemaUpgrade::init()
{
    m_database.recreate();
    g_pDlgWarning->answerAll(true);
}

void TestSchemaUpgrade::cleanup()
{
    g_pDlgWarning->answerAll(false);
}

// Runs the required statements up to a version by hand, as an office's database of that age holds their outcome.
void TestSchemaUpgrade::bringTo(double version)
{
    for (const VersionedStatement &statement : requiredStatements()) {
        if (statement.version <= version)
            m_database.run(statement.text);
    }
}

bool TestSchemaUpgrade::hasColumn(const QString &table, const QString &column)
{
    return m_database.value(u"SELECT COUNT(*) FROM information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE()"
                            " AND TABLE_NAME='%1' AND COLUMN_NAME='%2'"_s
                                .arg(table, column))
        == QLatin1String("1");
}

void TestSchemaUpgrade::freshDatabaseRunsEveryStatementToTheLetter()
{
    double reached = -1;
    ObservedStatements observed(schemaWords);
    QCOMPARE(m_setting.UpdateDB(0, 0, reached, true), 1);
    const QStringList statements = observed.taken();
    QCOMPARE(reached, 6.211);
    const auto required = requiredStatements();
    QCOMPARE(statements.size(), required.size());
    for (qsizetype i = 0; i < required.size(); ++i)
        QCOMPARE(statements[i], required[i].text);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"_s),
             u"9"_s);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestSchemaUpgrade::storedVersionRunsOnlyTheStepsAboveIt_data()
{
    QTest::addColumn<double>("stored");
    QTest::addColumn<double>("after");
    QTest::newRow("0") << 0.0 << 6.211;
    QTest::newRow("4.22") << 4.22 << 6.211;
    QTest::newRow("4.659") << 4.659 << 6.211;
    QTest::newRow("4.673") << 4.673 << 6.211;
    QTest::newRow("5.097") << 5.097 << 6.211;
    QTest::newRow("5.104") << 5.104 << 6.211;
    QTest::newRow("6.211 runs nothing") << 6.211 << 6.211;
    QTest::newRow("above 6.211 runs nothing and is given back unchanged") << 7.5 << 7.5;
    QTest::newRow("between two steps") << 4.66 << 6.211;
}

void TestSchemaUpgrade::storedVersionRunsOnlyTheStepsAboveIt()
{
    QFETCH(double, stored);
    QFETCH(double, after);
    bringTo(stored);
    QStringList required;
    for (const VersionedStatement &statement : requiredStatements()) {
        if (statement.version > stored)
            required.append(statement.text);
    }
    double reached = -1;
    ObservedStatements observed(schemaWords);
    QCOMPARE(m_setting.UpdateDB(0, stored, reached, true), 1);
    QCOMPARE(observed.taken(), required);
    QCOMPARE(reached, after);
}

void TestSchemaUpgrade::contractsKeepTheirRowsAndGainTheirColumns()
{
    bringTo(4.22);
    m_database.run(u"INSERT INTO AutomobilContracts (iCode, sDesc) VALUES (17, 'سند قدیمی')"_s);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.22, reached, true), 1);
    QCOMPARE(m_database.value(u"SELECT sDesc FROM AutomobilContracts WHERE iCode=17"_s),
             u"سند قدیمی"_s);
    QCOMPARE(m_database.value(u"SELECT bReturn FROM AutomobilContracts"_s), u"0"_s);
    QVERIFY(hasColumn(u"AutomobilContracts"_s, u"dPercentImposition2"_s));
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.COLUMNS WHERE "
                              "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='AutomobilContracts'"_s),
             u"125"_s);
}

void TestSchemaUpgrade::reachedVersionFollowsTheLastCompletedStep()
{
    bringTo(4.22);
    m_database.run(u"CREATE VIEW AutomobilPayments AS SELECT 1"_s);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.22, reached, true), 0);
    QCOMPARE(reached, 4.659);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(failureMessage("4.220000", "4.659000")));
}

void TestSchemaUpgrade::failingCreateOfCarModelsGivesBackTheStepBefore()
{
    // DROP TABLE IF EXISTS passes over a view, and then its name is taken.
    bringTo(4.673);
    m_database.run(u"CREATE TABLE CarBrands (iOld INT)"_s);
    m_database.run(u"CREATE VIEW CarModels AS SELECT 1"_s);
    double reached = 0;
    ObservedStatements observed(schemaWords);
    QCOMPARE(m_setting.UpdateDB(0, 0, reached, true), 0);
    const QStringList statements = observed.taken();

    QCOMPARE(reached, 4.673);
    QVERIFY(statements.last().startsWith(QLatin1String("CREATE TABLE CarModels(")));
    QVERIFY(hasColumn(u"CarBrands"_s, u"sNameEnglish"_s));
    QVERIFY(!hasColumn(u"CarBrands"_s, u"iOld"_s));
    QVERIFY(hasColumn(u"AutomobilInformations"_s, u"iBodyStatus"_s));
    QVERIFY(!hasColumn(u"CarClasses"_s, u"iID"_s));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(failureMessage("0.000000", "4.673000")));
}

void TestSchemaUpgrade::halfRunStepRunsAgainWithTheAlterFlagFalse()
{
    failingCreateOfCarModelsGivesBackTheStepBefore();
    m_database.run(u"DROP VIEW CarModels"_s);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.673, reached, false), 1);
    QCOMPARE(reached, 6.211);
    QVERIFY(hasColumn(u"CarYears"_s, u"iGreaBoxType"_s));
    QVERIFY(hasColumn(u"AutomobilInformations"_s, u"iYear"_s));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestSchemaUpgrade::halfRunStepStopsAgainWithTheAlterFlagTrue()
{
    failingCreateOfCarModelsGivesBackTheStepBefore();
    m_database.run(u"DROP VIEW CarModels"_s);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.673, reached, true), 0);
    QCOMPARE(reached, 4.673);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(failureMessage("4.673000", "4.673000")));
    QVERIFY(!hasColumn(u"CarClasses"_s, u"iID"_s));
}

void TestSchemaUpgrade::repeatedAlterObeysTheAlterFlag_data()
{
    QTest::addColumn<double>("stored");
    QTest::newRow("columns of 4.659 are there") << 4.22;
    QTest::newRow("column of 5.104 is there") << 5.097;
    QTest::newRow("column of 6.211 is there") << 5.104;
}

void TestSchemaUpgrade::repeatedAlterObeysTheAlterFlag()
{
    QFETCH(double, stored);
    bringTo(stored == 4.22 ? 4.659 : 6.211);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, stored, reached, true), 0);
    QCOMPARE(reached, stored);
    QCOMPARE(m_setting.UpdateDB(0, stored, reached, false), 1);
    QCOMPARE(reached, 6.211);
}

void TestSchemaUpgrade::alterFlagFalseStillRaisesOtherErrors()
{
    bringTo(4.673);
    m_database.run(u"ALTER TABLE AutomobilInformations DROP COLUMN sBodyStatus"_s);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.673, reached, false), 0);
    QCOMPARE(reached, 4.673);
}

void TestSchemaUpgrade::bodyStatusTextsBecomeNumbers_data()
{
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("number");
    QTest::newRow("a number") << u"'3'"_s << u"3"_s;
    QTest::newRow("words") << u"'abc'"_s << u"0"_s;
    QTest::newRow("empty") << u"''"_s << u"0"_s;
    QTest::newRow("NULL stays NULL") << u"NULL"_s << QString();
}

void TestSchemaUpgrade::bodyStatusTextsBecomeNumbers()
{
    QFETCH(QString, literal);
    QFETCH(QString, number);
    bringTo(4.673);
    m_database.run(u"INSERT INTO AutomobilInformations (iCode, sBodyStatus) VALUES (1, %1)"_s.arg(literal));
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.673, reached, true), 1);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"1"_s);
    QCOMPARE(m_database.value(u"SELECT iBodyStatus FROM AutomobilInformations"_s), number);
}

void TestSchemaUpgrade::sessionIsStrictAgainAfterwards()
{
    const QString before = sqlMode();
    QVERIFY(before.contains(QLatin1String("STRICT")));
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 0, reached, true), 1);
    QCOMPARE(sqlMode(), before);
    QCOMPARE(m_setting.UpdateDB(0, 5.104, reached, true), 0);
    QCOMPARE(sqlMode(), before);
}

void TestSchemaUpgrade::databaseOutOfReachIsReported()
{
    KConnectionSettings nowhere = m_database.settings();
    nowhere.socketPath += u".gone"_s;
    KConnection::configure(7, nowhere);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(7, 4.22, reached, true), 0);
    QCOMPARE(reached, 4.22);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(failureMessage("4.220000", "4.220000")));
}

void TestSchemaUpgrade::columnLengthsAreReadAnewAfterwards()
{
    bringTo(4.22);
    KTableSchema::forgetAll();
    QCOMPARE(KTableSchema::textLength(u"AutomobilContracts"_s, u"sName1"_s), 0);
    double reached = 0;
    QCOMPARE(m_setting.UpdateDB(0, 4.22, reached, true), 1);
    QCOMPARE(KTableSchema::textLength(u"AutomobilContracts"_s, u"sName1"_s), 100);
    QCOMPARE(KTableSchema::textLength(u"AutomobilContracts"_s, u"sLicense"_s), 50);
    QCOMPARE(KTableSchema::textLength(u"AutomobilInformations"_s, u"sLicense"_s), 20);
}

static const RegisteredTest<TestSchemaUpgrade, QCoreApplication> registeredSchemaUpgrade;
#include "TestSchemaUpgrade.moc"
