// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/DatabaseUpgrade.h"

#include "auto/CAutoDBSetting.h"
#include "host/server/ServerError.h"
#include "suite/db/connection/KLease.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/books/totals/TotalsCheck.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "tests/support/BackupText.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The upgrade is the module's own; only an upgrade that breaks off half-way is played.
class TestDatabaseUpgrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void freshDatabaseIsBroughtUpWithoutADump();
    void secondRunChangesNothing();
    void olderDatabaseWithRowsIsDumpedFirst();
    void dumpHoldsTheDatabaseAsItWas();
    void olderDatabaseWithoutRowsIsNotDumped();
    void suiteUpgradeWithRowsIsDumpedFirst();
    void booksAreSummedUpWithProgress();
    void lostVersionStopsTheStart_data();
    void lostVersionStopsTheStart();
    void tablesOfOtherProgramsAreNoLoss();
    void whoUpgradesIsNamedToThoseWhoWait();
    void whoeverWaitsCanGiveUp();
    void whatAnotherProgramHasUpgradedIsLeftAlone();
    void versionIsStoredBeforeTheFailureIsShown();
    void officeThatWorkedWithoutTheModuleIsDumpedBeforeItsTables();
    void oneDumpServesBothUpgrades();
    void dumpThatFailsStopsTheUpgrade();
    void failedModuleUpgradeIsResumed();
    void contractsGetTheirFiscalYear();

private:
    void run(DatabaseUpgrade &upgrade);
    void makeOlder();
    static void storeModuleVersion(double version) { CTblProperties::DBWriteSetting(u"Schema"_s, u"TzAuto"_s, version); }
    QStringList dumps() const;

    TestDatabase::Alone m_alone; // a backup holds all writers of a server
    TestDatabase m_database;
    std::unique_ptr<QTemporaryDir> m_backups;
    QStringList m_waitedFor;
    static inline double s_versionWhenShown = 0;
    static inline int s_unfinishedWhenShown = 0;
};

namespace {

// Stops in the middle once, as a server that ran out of room would make it.
class HaltingModule : public CAutoDBSetting
{
public:
    int IsAClosedDB() override { return 0; }
    int UpdateDB(int, double, double &reachedVersion, bool alterFlag) override
    {
        flags.append(alterFlag);
        reachedVersion = 4.22;
        return ends ? 1 : 0;
    }
    void ShowAutomobilInformationsDlg() override { }
    void ShowAutomobilContractDlg() override { }
    void ShowAutomobilDemandsDlg() override { }
    void ShowAutomobilReportSeasonsDlg() override { }
    void Archives() override { }

    bool ends = false;
    QList<bool> flags;
};

}

void TestDatabaseUpgrade::init()
{
    m_database.recreate();
    m_backups = std::make_unique<QTemporaryDir>();
    m_waitedFor.clear();
    g_pDlgMessage->answerAll(true);
}

void TestDatabaseUpgrade::cleanup()
{
    g_pDlgMessage->answerAll(false);
}

void TestDatabaseUpgrade::run(DatabaseUpgrade &upgrade)
{
    upgrade.upgradeSuite();
    QVERIFY(upgrade.upgradeModule(*GetAutoDBSetting()));
}

// As a program of some years ago left it.
void TestDatabaseUpgrade::makeOlder()
{
    DatabaseUpgrade fresh(m_backups->path(), [](const QString &) {});
    run(fresh);
    m_database.run(u"ALTER TABLE AutomobilDemands DROP COLUMN iAlarmID"_s);
    storeModuleVersion(5.104);
}

QStringList TestDatabaseUpgrade::dumps() const
{
    return QDir(m_backups->path()).entryList({u"*.sql.zst"_s}, QDir::Files);
}

void TestDatabaseUpgrade::freshDatabaseIsBroughtUpWithoutADump()
{
    DatabaseUpgrade upgrade(m_backups->path(), [this](const QString &text) { m_waitedFor.append(text); });
    run(upgrade);
    QCOMPARE(SuiteSchema::storedVersion(), SuiteSchema::currentVersion());
    QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
    QVERIFY(upgrade.dumpTaken().isEmpty());
    QVERIFY(dumps().isEmpty());
    // The suite's tables and the module's, then the keys of each table.
    QCOMPARE(m_waitedFor.size(), 8);
    QCOMPARE(m_waitedFor.at(3), u"ساخت کلیدهای فهرست‌ها، 2 از 6: قراردادها"_s);
}

void TestDatabaseUpgrade::secondRunChangesNothing()
{
    DatabaseUpgrade first(m_backups->path(), [](const QString &) {});
    run(first);
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی')"_s);
    DatabaseUpgrade second(m_backups->path(), [this](const QString &text) { m_waitedFor.append(text); });
    run(second);
    QVERIFY(m_waitedFor.isEmpty());
    QVERIFY(dumps().isEmpty());
}

void TestDatabaseUpgrade::olderDatabaseWithRowsIsDumpedFirst()
{
    makeOlder();
    m_database.run(u"INSERT INTO AutomobilContracts(iCode) VALUES(7)"_s);
    DatabaseUpgrade upgrade(m_backups->path(), [this](const QString &text) { m_waitedFor.append(text); });
    run(upgrade);
    QCOMPARE(dumps().size(), 1);
    QVERIFY(textOfBackup(upgrade.dumpTaken()).contains("CREATE TABLE"));
    QVERIFY(BackupFile(upgrade.dumpTaken()).manifest()->reason == BackupManifest::Reason::BeforeUpgrade);
    QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
    QCOMPARE(m_database.value(u"SELECT iCode FROM AutomobilContracts"_s), u"7"_s);
    QVERIFY(!m_waitedFor.isEmpty());
}

void TestDatabaseUpgrade::dumpHoldsTheDatabaseAsItWas()
{
    makeOlder();
    m_database.run(u"INSERT INTO AutomobilDemands(iCode) VALUES(9)"_s);
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    run(upgrade);
    const QByteArray text = textOfBackup(upgrade.dumpTaken());
    QVERIFY(text.contains("INSERT INTO `AutomobilDemands`"));
    QVERIFY(!text.contains("iAlarmID"));
}

void TestDatabaseUpgrade::olderDatabaseWithoutRowsIsNotDumped()
{
    makeOlder();
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    run(upgrade);
    QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
    QVERIFY(dumps().isEmpty());
}

void TestDatabaseUpgrade::suiteUpgradeWithRowsIsDumpedFirst()
{
    SuiteSchema::upgrade();
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی')"_s);
    CTblProperties::DBWriteSettingInt(u"Schema"_s, u"Suite"_s, 1);
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    upgrade.upgradeSuite();
    QCOMPARE(SuiteSchema::storedVersion(), SuiteSchema::currentVersion());
    QCOMPARE(dumps().size(), 1);
}

// As an office from before them, and as one whose program was ended while it summed up: the next start goes on.
void TestDatabaseUpgrade::booksAreSummedUpWithProgress()
{
    SuiteSchema::upgrade();
    m_database.run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT seq,1405,3,'2026-05-05' FROM seq_1_to_12000"_s);
    m_database.run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) SELECT seq,1405,1101,110101,2,0 FROM seq_1_to_12000"_s);
    const QString left = u"SELECT COUNT(*) FROM Documents WHERE bSummed=0"_s;
    DatabaseUpgrade ended(m_backups->path(), [](const QString &) { throw std::runtime_error("ended"); });
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, ended.sumUpBooks());
    QCOMPARE(m_database.value(left), u"8000"_s);
    m_database.run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT seq,1404,3,'2026-03-05' FROM seq_1_to_2000"_s);
    DatabaseUpgrade next(m_backups->path(), [this](const QString &text) { m_waitedFor.append(text); });
    next.upgradeSuite();
    next.sumUpBooks();
    QCOMPARE(m_waitedFor, (QStringList{u"جمع‌بندی حساب‌ها: 4000 سند"_s, u"جمع‌بندی حساب‌ها: 8000 سند"_s, u"جمع‌بندی حساب‌ها: 10000 سند"_s}));
    QCOMPARE(m_database.value(left), u"0"_s);
    QCOMPARE(m_database.value(u"SELECT dBed+0 FROM AccountTotals WHERE iDay=0 AND iHesabMoeenCode=110101"_s).toDouble(), 24000.0);
    QVERIFY(TotalsCheck::find().isEmpty());
    m_waitedFor.clear();
    next.sumUpBooks();
    QCOMPARE(m_waitedFor, QStringList());
}

// Whoever created the tables anew would lose what is in them.
void TestDatabaseUpgrade::lostVersionStopsTheStart_data()
{
    QTest::addColumn<QString>("loss");
    QTest::addColumn<QString>("named");
    QTest::newRow("the suite's number") << u"DELETE FROM Properties WHERE sKey='Suite'"_s << u"برنامه"_s;
    QTest::newRow("the suite's number is empty") << u"UPDATE Properties SET sValue='' WHERE sKey='Suite'"_s << u"برنامه"_s;
    QTest::newRow("the table of the numbers") << u"DROP TABLE Properties"_s << u"برنامه"_s;
    QTest::newRow("the module's version") << u"DELETE FROM Properties WHERE sKey='TzAuto'"_s << u"گالری اتومبیل"_s;
    QTest::newRow("the module's version is no number") << u"UPDATE Properties SET sValue=NULL WHERE sKey='TzAuto'"_s << u"گالری اتومبیل"_s;
}

void TestDatabaseUpgrade::lostVersionStopsTheStart()
{
    QFETCH(QString, loss);
    QFETCH(QString, named);
    DatabaseUpgrade fresh(m_backups->path(), [](const QString &) {});
    run(fresh);
    m_database.run(u"INSERT INTO CarBrands(sName) VALUES('پراید')"_s);
    m_database.run(loss);
    const QString schema = u"SELECT GROUP_CONCAT(CONCAT(TABLE_NAME,CREATE_TIME) ORDER BY 1) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"_s;
    m_database.run(u"SET SESSION group_concat_max_len=1000000"_s);
    const QString before = m_database.value(schema);
    for (int start = 0; start < 2; ++start) {
        DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
        upgrade.setWayBack(u"راه بازگشت"_s);
        try {
            upgrade.upgradeSuite();
            static_cast<void>(upgrade.upgradeModule(*GetAutoDBSetting()));
            QFAIL("the tables were taken for new ones");
        } catch (const ServerError &error) {
            QCOMPARE(error.kind(), ServerError::Kind::VersionLost);
            QVERIFY2(error.userMessage().contains(named), qPrintable(error.userMessage()));
            QVERIFY(error.userMessage().endsWith(u"\nراه بازگشت"_s));
        }
    }
    QCOMPARE(m_database.value(schema), before);
    QCOMPARE(m_database.value(u"SELECT sName FROM CarBrands"_s), u"پراید"_s);
}

// The office's administrator may keep tables of another program beside ours.
void TestDatabaseUpgrade::tablesOfOtherProgramsAreNoLoss()
{
    m_database.run(u"CREATE TABLE Others(iID INT) CHARSET=utf8"_s);
    m_database.run(u"INSERT INTO Others VALUES(1)"_s);
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    run(upgrade);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Others"_s), u"1"_s);
}

void TestDatabaseUpgrade::whoUpgradesIsNamedToThoseWhoWait()
{
    KLease::createTable();
    std::unique_ptr<KLease> other = KLease::tryTake(u"upgrade"_s, u"کاربر «علی» روی رایانه «میز ۲»"_s);
    QStringList waitedFor;
    DatabaseUpgrade upgrade(
        m_backups->path(), [](const QString &) {},
        [&](const QString &text) {
            waitedFor.append(text);
            if (waitedFor.size() == 3)
                other.reset();
            return true;
        });
    run(upgrade);
    QVERIFY(waitedFor.size() >= 3);
    QCOMPARE(waitedFor.first(), u"کاربر «علی» روی رایانه «میز ۲» در حال ارتقای پایگاه داده است"_s);
    QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
    QVERIFY(!KLease::holder(u"upgrade"_s));
}

void TestDatabaseUpgrade::whoeverWaitsCanGiveUp()
{
    KLease::createTable();
    const std::unique_ptr<KLease> other = KLease::tryTake(u"upgrade"_s, u"دیگری"_s);
    DatabaseUpgrade upgrade(
        m_backups->path(), [](const QString &) {}, [](const QString &) { return false; });
    try {
        upgrade.upgradeSuite();
        QFAIL("it did not wait");
    } catch (const ServerError &error) {
        QCOMPARE(error.kind(), ServerError::Kind::Cancelled);
    }
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(TABLE_NAME) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"_s), u"Leases"_s);
}

void TestDatabaseUpgrade::whatAnotherProgramHasUpgradedIsLeftAlone()
{
    makeOlder();
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی')"_s);
    std::unique_ptr<KLease> other = KLease::tryTake(u"upgrade"_s, u"دیگری"_s);
    DatabaseUpgrade upgrade(
        m_backups->path(), [](const QString &) {},
        [&](const QString &) {
            if (other) {
                m_database.run(u"ALTER TABLE AutomobilDemands ADD COLUMN iAlarmID INT DEFAULT 0"_s);
                SuiteSchema::raiseModuleVersion(6.211);
            }
            other.reset();
            return true;
        });
    run(upgrade);
    QVERIFY(dumps().isEmpty());
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Properties WHERE sKey='TzAutoUnfinished' AND sValue<>'0'"_s), u"0"_s);
}

// A user may leave the message open for hours.
void TestDatabaseUpgrade::versionIsStoredBeforeTheFailureIsShown()
{
    makeOlder();
    m_database.run(u"ALTER TABLE AutomobilInformations DROP COLUMN iYear"_s);
    storeModuleVersion(5.097);
    m_database.run(u"ALTER TABLE AutomobilDemands ADD COLUMN iAlarmID INT"_s);
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    upgrade.upgradeSuite();
    s_versionWhenShown = 0;
    g_pDlgWarning->answerAll(false);
    KMessageDialog::setBox([](KMessageDialog::Kind, const QString &, KMessageDialog::Buttons, QWidget *) {
        s_versionWhenShown = SuiteSchema::moduleVersion();
        s_unfinishedWhenShown = CTblProperties::DBReadSettingInt(u"Schema"_s, u"TzAutoUnfinished"_s, 0);
        return KMessageDialog::Yes;
    });
    const bool completed = upgrade.upgradeModule(*GetAutoDBSetting());
    KMessageDialog::setBox(nullptr);
    QVERIFY(!completed);
    QCOMPARE(s_versionWhenShown, 5.104);
    QCOMPARE(s_unfinishedWhenShown, 1);
}

void TestDatabaseUpgrade::officeThatWorkedWithoutTheModuleIsDumpedBeforeItsTables()
{
    SuiteSchema::upgrade();
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی')"_s);
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    run(upgrade);
    QCOMPARE(dumps().size(), 1);
}

void TestDatabaseUpgrade::oneDumpServesBothUpgrades()
{
    makeOlder();
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی')"_s);
    m_database.run(u"ALTER TABLE AutomobilInformations DROP COLUMN iYear"_s);
    storeModuleVersion(5.097);
    CTblProperties::DBWriteSettingInt(u"Schema"_s, u"Suite"_s, 1);
    int dumpsBegun = 0;
    QString last;
    DatabaseUpgrade upgrade(m_backups->path(), [&](const QString &text) {
        dumpsBegun += text != last && text.contains(u"پشتیبان"_s) ? 1 : 0;
        last = text;
    });
    run(upgrade);
    QCOMPARE(dumpsBegun, 1);
    QCOMPARE(dumps().size(), 1);
}

void TestDatabaseUpgrade::dumpThatFailsStopsTheUpgrade()
{
    makeOlder();
    m_database.run(u"INSERT INTO Persons(sName2) VALUES('علی')"_s);
    // A file is where the folder would be made.
    QFile inTheWay(m_backups->filePath(u"backups"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    DatabaseUpgrade upgrade(inTheWay.fileName(), [](const QString &) {});
    upgrade.upgradeSuite();
    QVERIFY_THROWS_EXCEPTION(ServerError, static_cast<void>(upgrade.upgradeModule(*GetAutoDBSetting())));
    QCOMPARE(SuiteSchema::moduleVersion(), 5.104);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE() "
                              "AND TABLE_NAME='AutomobilDemands' AND COLUMN_NAME='iAlarmID'"_s),
             u"0"_s);
    // The next statement runs as any other: nothing of the guard is left.
    m_database.run(u"CREATE TABLE Later(iID INT)"_s);
}

void TestDatabaseUpgrade::failedModuleUpgradeIsResumed()
{
    SuiteSchema::upgrade();
    m_database.run(u"CREATE TABLE AutomobilContracts(iID INT)"_s);
    HaltingModule module;
    const auto tryOnce = [this, &module] {
        DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
        return upgrade.upgradeModule(module);
    };
    QVERIFY(!tryOnce());
    QCOMPARE(SuiteSchema::moduleVersion(), 4.22);
    module.ends = true;
    QVERIFY(tryOnce());
    QVERIFY(tryOnce());
    // The step that was left half done may meet its own columns; a later one may not.
    QCOMPARE(module.flags, (QList<bool>{true, false, true}));
}

void TestDatabaseUpgrade::contractsGetTheirFiscalYear()
{
    DatabaseUpgrade upgrade(m_backups->path(), [](const QString &) {});
    run(upgrade);
    m_database.run(u"INSERT INTO AutomobilContracts(iCode) VALUES(1)"_s);
    QCOMPARE(m_database.value(u"SELECT iFiscalYear FROM AutomobilContracts"_s), u"0"_s);
}

static const RegisteredTest<TestDatabaseUpgrade, QApplication> registeredDatabaseUpgrade;
#include "TestDatabaseUpgrade.moc"
