// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/host/HostProgramTest.h"

#include "host/keeping/BackupPassphrase.h"
#include "host/keeping/BackupProcess.h"
#include "host/recovery/CDlgBackups.h"
#include "host/backup/BackupRestoring.h"
#include "host/desk/BackupBand.h"
#include "host/desk/BackupSign.h"
#include "host/server/BinaryLog.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/ServerDamage.h"
#include "host/server/TableNames.h"
#include "suite/accounting/frame/DamagedTable.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "host/recovery/CDlgDamage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "tests/support/RegisteredTest.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// What the program does about a damaged office, and the backups that lead back, from its start to its end.
class TestHostProgramRecovery : public HostProgramTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTblUsers::setHashCost(CTblUsers::leastCost()); }
    void init() { begin(); }
    void cleanup() { end(); }
    void damagedFileIsNamedAtTheStart_data();
    void damagedFileIsNamedAtTheStart();
    void damagedOfficeComesBack_data() { damagedFileIsNamedAtTheStart_data(); }
    void damagedOfficeComesBack();
    void everyTableIsMetWithItsWay();
    void closingTakesABackupOfWhatChanged();
    void goesBackToABackupAndAsksForTheLogin_data();
    void goesBackToABackupAndAsksForTheLogin();
    void takenBackupIsProvedByAProgramOfItsOwn();
    void backupIsOnlyShown();
    void viewOfABackupLeavesNothing();
};

void TestHostProgramRecovery::damagedFileIsNamedAtTheStart_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("named");
    QTest::newRow("system file") << u"ibdata1"_s << u"database/ibdata1"_s;
    QTest::newRow("table of the users") << u"tzauto/Users.ibd"_s << u"«کاربران»"_s;
    QTest::newRow("table of the versions") << u"tzauto/Properties.ibd"_s << u"«تنظیمات»"_s;
    QTest::newRow("definition of the contracts") << u"tzauto/AutomobilContracts.frm"_s << u"«قراردادها»"_s;
}

void TestHostProgramRecovery::damagedFileIsNamedAtTheStart()
{
    QFETCH(QString, file);
    QFETCH(QString, named);
    makeOffice();
    g_pDlgWarning->takeShown();
    const QString backups = m_options.dataDir + u"/backups"_s;
    QFile dump(backups + u"/tzauto-20260321-080000.sql"_s);
    QVERIFY(dump.open(QIODevice::WriteOnly));
    dump.close();
    harm(file);
    QStringList windows;
    QString texts;
    QString date;
    QCOMPARE(drive([&](QWidget *window) {
                 windows.append(QString::fromLatin1(window->metaObject()->className()));
                 for (const QLabel *label : window->findChildren<QLabel *>())
                     texts += label->text() + u'\n';
                 if (const auto *damage = qobject_cast<CDlgDamage *>(window))
                     date = damage->list()->cellText(0, u"date");
                 window->close();
             }),
             1);
    QCOMPARE(windows, QStringList{u"CDlgDamage"_s});
    QVERIFY2(texts.contains(named), qPrintable(texts));
    QVERIFY2(!texts.contains(u"tzhost --data-dir"_s), qPrintable(texts));
    QCOMPARE(date, u"1405/01/01"_s);
    // What stood in the window is not said again; whoever reads the log finds the command.
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY2(logText().contains(u"tzhost --data-dir "_s), qPrintable(logText()));
}

void TestHostProgramRecovery::damagedOfficeComesBack()
{
    QFETCH(QString, file);
    makeOffice();
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"mina"_s); }), 0);
    QCOMPARE(backups().size(), 1);
    harm(file);
    QStringList windows;
    bool worked = false;
    QCOMPARE(drive([&](QWidget *window) {
                 const QString kind = QString::fromLatin1(window->metaObject()->className());
                 if (windows.isEmpty() || windows.constLast() != kind)
                     windows.append(kind);
                 if (auto *damage = qobject_cast<CDlgDamage *>(window)) {
                     damage->restoreSelected();
                 } else if (auto *login = qobject_cast<CDlgLogin *>(window)) {
                     logIn(*login, u"sara"_s, u"gallery7"_s);
                     login->accept();
                 } else if (qobject_cast<MainWindow *>(window)) {
                     worked = CTblUsers::isKnown(u"mina"_s);
                     window->close();
                 }
             }),
             0);
    QCOMPARE(windows.constFirst(), u"CDlgDamage"_s);
    QVERIFY2(worked, qPrintable(windows.join(u' ')));
    // The damaged one is still there.
    QCOMPARE(QDir(m_options.dataDir).entryList({u"database-damaged*"_s}, QDir::Dirs).size(), 1);
    QVERIFY(g_pDlgMessage->takeShown().join(u'\n').contains(u"database-damaged"_s));
}

void TestHostProgramRecovery::everyTableIsMetWithItsWay()
{
    makeOffice();
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"mina"_s); }), 0);
    const DataFolder folder(m_options.dataDir);
    const QDir tables(folder.databasePath() + u"/tzauto"_s);
    QStringList names;
    for (const QFileInfo &file : tables.entryInfoList({u"*.ibd"_s}, QDir::Files))
        names << file.completeBaseName();
    QVERIFY2(names.size() > 30, qPrintable(names.join(u' ')));
    const auto read = [](KConnection &connection, const QString &table) {
        QString damaged;
        try {
            connection.run(KSql::formatted("SELECT COUNT(*) FROM %1", KSql::name(table)));
        } catch (const CMySQLException &error) {
            damaged = DamagedTable::namedBy(error).join(u' ');
        }
        return damaged;
    };
    for (const QString &name : std::as_const(names))
        QVERIFY(QFile::resize(tables.filePath(name + u".ibd"_s), 0));
    {
        EmbeddedServer server(folder);
        server.start();
        KConnection connection(server.connectionSettings());
        for (const QString &name : std::as_const(names)) {
            QCOMPARE(read(connection, name), name);
            const QString sentence = ServerDamage::ofTable(name).sentence(folder);
            QVERIFY2(sentence.contains(TableNames::shown(name)) && sentence.contains(name + u".ibd"_s), qPrintable(sentence));
        }
    }
    const QString aside = BackupRestoring::intoNewFolder(folder, backups().constFirst());
    QVERIFY(QDir(aside).exists());
    EmbeddedServer server(folder);
    server.start();
    KConnection connection(server.connectionSettings());
    for (const QString &name : std::as_const(names))
        QCOMPARE(read(connection, name), QString());
}

void TestHostProgramRecovery::closingTakesABackupOfWhatChanged()
{
    makeOffice();
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"mina"_s); }), 0);
    QCOMPARE(backups().size(), 1);
    QVERIFY(backups().constFirst().manifest());
    QCOMPARE(backups().constFirst().manifest()->reason, BackupManifest::Reason::Closing);
    // Logging in and looking changes nothing.
    QCOMPARE(workOnce(), 0);
    QCOMPARE(backups().size(), 1);
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"reza"_s); }), 0);
    QCOMPARE(backups().size(), 2);
}

void TestHostProgramRecovery::goesBackToABackupAndAsksForTheLogin_data()
{
    QTest::addColumn<bool>("keepsLog");
    QTest::addColumn<bool>("lastMinute");
    QTest::addColumn<QStringList>("asked");
    const QString lost = u"تغییری که پس از آن ثبت شده"_s;
    const QString choice = u"تا آخرین دقیقه بازگردانده شود؟"_s;
    QTest::newRow("no log of changes") << false << false << QStringList{lost};
    QTest::newRow("as of the backup") << true << false << QStringList{choice, lost};
    QTest::newRow("to the last minute") << true << true << QStringList{choice, u"تغییرهای پس از پشتیبان تا آخرین دقیقه بازگردانده می‌شود"_s};
}

void TestHostProgramRecovery::goesBackToABackupAndAsksForTheLogin()
{
    QFETCH(const bool, keepsLog);
    QFETCH(const bool, lastMinute);
    QFETCH(const QStringList, asked);
    makeOffice();
    BinaryLog(DataFolder(m_options.dataDir)).setWanted(keepsLog);
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"mina"_s); }), 0);
    const QString file = backups().constFirst().path();
    QStringList windows;
    bool before = false;
    bool after = true;
    int logins = 0;
    QCOMPARE(drive([&](QWidget *window) {
                 if (auto *login = qobject_cast<CDlgLogin *>(window)) {
                     ++logins;
                     logIn(*login, u"sara"_s, u"gallery7"_s);
                     login->accept();
                 } else if (auto *dialog = qobject_cast<CDlgBackups *>(window)) {
                     if (keepsLog && !lastMinute)
                         g_pDlgYesNo->answerNext(KMessageDialog::No);
                     dialog->runCommand(u"restore");
                 } else if (auto *main = qobject_cast<MainWindow *>(window)) {
                     if (logins == 1 && !before) {
                         addUser(u"reza"_s);
                         before = CTblUsers::isKnown(u"reza"_s);
                         // From an event of its own: this timer does not tick within its own step.
                         for (QAction *action : main->findChildren<QAction *>())
                             if (action->iconText() == u"بازگرداندن پشتیبان"_s)
                                 QTimer::singleShot(0, action, &QAction::trigger);
                     } else if (logins == 2) {
                         after = CTblUsers::isKnown(u"reza"_s);
                         main->close();
                     }
                 }
             }),
             0);
    QCOMPARE(logins, 2);
    QVERIFY(before);
    QCOMPARE(after, lastMinute);
    const QStringList questions = g_pDlgYesNo->takeShown();
    QCOMPARE(questions.size(), asked.size());
    for (int each = 0; each < asked.size(); ++each)
        QVERIFY2(questions.at(each).contains(asked.at(each)), qPrintable(questions.at(each)));
    const QString told = g_pDlgMessage->takeShown().join(u'\n');
    QVERIFY2(told.contains(u"بازگردانده شد به"_s) && told.contains(m_options.dataDir) && !told.contains(u'%'), qPrintable(told));
    QCOMPARE(told.contains(u"و تغییرهای ثبت شده پس از آن"_s), lastMinute);
    const QList<BackupFile> files = backups();
    QVERIFY(std::any_of(files.cbegin(), files.cend(), [](const BackupFile &each) {
        return each.manifest() && each.manifest()->reason == BackupManifest::Reason::BeforeRestore;
    }));
    QVERIFY(QFile::exists(file));
}

void TestHostProgramRecovery::takenBackupIsProvedByAProgramOfItsOwn()
{
    makeOffice();
    BackupProcess::setProgram(u"" TZ_HOST_PROGRAM ""_s);
    const auto own = qScopeGuard([] { BackupProcess::setProgram({}); });
    bool asked = false;
    QString sign;
    QCOMPARE(drive([&](QWidget *window) {
                 if (auto *login = qobject_cast<CDlgLogin *>(window)) {
                     logIn(*login, u"sara"_s, u"gallery7"_s);
                     login->accept();
                 } else if (auto *main = qobject_cast<MainWindow *>(window); main && !asked) {
                     asked = true;
                     for (QAction *action : main->findChildren<QAction *>())
                         if (action->iconText() == u"پشتیبان‌گیری"_s)
                             QTimer::singleShot(0, action, &QAction::trigger);
                 } else if (main && !backups().isEmpty() && backups().constFirst().verification().state != BackupManifest::Verification::State::None) {
                     sign = main->findChild<BackupSign *>()->text();
                     if (sign.contains(u"آزموده شد"_s))
                         main->close();
                 }
             }),
             0);
    QCOMPARE(backups().constFirst().verification().state, BackupManifest::Verification::State::Passed);
    QVERIFY2(sign.contains(u"آزموده شد"_s), qPrintable(sign));
    // Nothing has changed since, so that closing takes no further one.
    QCOMPARE(backups().size(), 1);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
}

void TestHostProgramRecovery::backupIsOnlyShown()
{
    makeOffice();
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"mina"_s); }), 0);
    m_options.lookInto = backups().constFirst().path();
    QString title;
    QString refusal;
    bool closed = false;
    QCOMPARE(workOnce([&](MainWindow *main) {
                 title = main->windowTitle();
                 closed = GetDBSetting()->IsClosedDB();
                 const auto *band = main->findChild<BackupBand *>();
                 QVERIFY(band && band->isVisible() && title.startsWith(band->text()));
                 g_pDlgWarning->takeShown();
                 for (const QString &text : {u"تنظیمات"_s, u"بازگرداندن پشتیبان"_s})
                     for (QAction *action : main->findChildren<QAction *>())
                         if (action->iconText() == text)
                             action->trigger();
                 refusal = g_pDlgWarning->takeShown().join(u'\n');
             }),
             0);
    QVERIFY2(title.startsWith(u"نمایش پشتیبان 14"_s) && title.contains(u"فقط خواندنی"_s), qPrintable(title));
    QVERIFY(closed);
    QCOMPARE(refusal.count(u"این پنجره پشتیبان"_s), 2);
    QVERIFY(!GetDBSetting()->IsLoggedIn());
    QVERIFY(!OfficeSettings::isOnlyRead());
    QCOMPARE(backups().size(), 1);
    QCOMPARE(QDir(DataFolder(m_options.dataDir).temporaryPath()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
}

void TestHostProgramRecovery::viewOfABackupLeavesNothing()
{
    makeOffice();
    const QString passphrase = u"کوه سبز پنجره هفت"_s;
    BackupPassphrase(DataFolder(m_options.dataDir)).store(passphrase);
    QCOMPARE(workOnce([](MainWindow *) { addUser(u"mina"_s); }), 0);
    QVERIFY(backups().constFirst().isEncrypted());
    int exitCode = -1;
    QCOMPARE(workOnce([&](MainWindow *) {
                 QProcess view;
                 view.setProcessChannelMode(QProcess::ForwardedErrorChannel);
                 view.start(u"" TZ_HOST_PROGRAM ""_s,
                            {u"--data-dir"_s, m_options.dataDir, u"--module-dir"_s, m_options.moduleDir, u"--look-into"_s,
                             backups().constFirst().path(), u"--quit-after-login-shown"_s});
                 view.write(passphrase.toUtf8() + '\n');
                 view.closeWriteChannel();
                 QVERIFY(view.waitForFinished(longestRunMilliseconds));
                 exitCode = view.exitCode();
             }),
             0);
    QCOMPARE(exitCode, 0);
    QCOMPARE(QDir(DataFolder(m_options.dataDir).temporaryPath()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
}

static const RegisteredTest<TestHostProgramRecovery, QApplication> registeredHostProgramRecovery;
#include "TestHostProgramRecovery.moc"
