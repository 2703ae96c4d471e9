// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/HostProgram.h"

#include "host/keeping/BackupPassphrase.h"
#include "host/keeping/BackupProcess.h"
#include "host/recovery/CDlgBackups.h"
#include "host/backup/BackupFiles.h"
#include "host/backup/BackupRestoring.h"
#include "host/desk/BackupBand.h"
#include "host/desk/BackupSign.h"
#include "host/server/BinaryLog.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/ServerDamage.h"
#include "host/server/TableNames.h"
#include "suite/accounting/frame/DamagedTable.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "host/recovery/CDlgDamage.h"
#include "host/start/CDlgFirstStart.h"
#include "host/start/CDlgLogin.h"
#include "host/frame/HostLog.h"
#include "host/desk/MainWindow.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

// The program from its start to its end: in this process, so that its windows can be driven, on a server of its own; and
// as a process where the command line matters.
class TestHostProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTblUsers::setHashCost(CTblUsers::leastCost()); }
    void init();
    void cleanup();
    void helpAndVersionNeedNoDisplay();
    void wrongCommandLineIsToldWithItsOwnExitCode();
    void newOfficeGoesFromFirstStartToWork();
    void existingOfficeGoesStraightToTheLogin();
    void logTellsTheTimeOfEachPhaseAndNoSecret();
    void missingModuleIsToldOnceAndTheProgramGoesOn();
    void serverThatDiesIsRestartedWithOneMessage();
    void secondStartLeavesTheFolderToTheFirst();
    void demoOfficeIsFilledOnce();
    void anotherUserCanLogIn();
    void folderThatCannotBeUsedIsTold();
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

private:
    // Runs the program and calls step every few milliseconds with the window that takes input, until the program ends.
    int drive(const std::function<void(QWidget *)> &step);
    void makeOffice();
    static void fillFirstStart(const CDlgFirstStart &dialog);
    static void logIn(const CDlgLogin &dialog, const QString &user, const QString &password);
    static QWidget *inputWindow();
    QString logText() const;
    bool serverRuns() const;
    // Empties the file of the database, or removes a table's definition.
    void harm(const QString &file) const;
    QList<BackupFile> backups() const;
    // Logs in, works and closes the program.
    int workOnce(const std::function<void(MainWindow *)> &work = {});
    static void addUser(const QString &name);

    std::unique_ptr<QTemporaryDir> m_folder;
    HostOptions m_options;
};

namespace {

constexpr int longestRunMilliseconds = 120000;

QByteArray output(const QStringList &arguments, int *exitCode)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(display));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(u"" TZ_HOST_PROGRAM ""_s, arguments);
    program.waitForFinished();
    *exitCode = program.exitCode();
    return program.readAll();
}

}

void TestHostProgram::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_options = HostOptions();
    m_options.dataDir = m_folder->filePath(u"office"_s);
    m_options.moduleDir = u"" TZ_MODULE_DIR ""_s;
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
        dialog->answerAll(true);
}

void TestHostProgram::cleanup()
{
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
        dialog->answerAll(false);
    QVERIFY(!serverRuns());
    m_folder.reset();
}

QWidget *TestHostProgram::inputWindow()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        if (window->isVisible() && qobject_cast<MainWindow *>(window))
            return window;
    return nullptr;
}

int TestHostProgram::drive(const std::function<void(QWidget *)> &step)
{
    QElapsedTimer running;
    running.start();
    QTimer timer;
    timer.setInterval(15);
    connect(&timer, &QTimer::timeout, this, [&] {
        QWidget *window = inputWindow();
        if (running.elapsed() > longestRunMilliseconds && window)
            window->close();
        else if (window)
            step(window);
    });
    timer.start();
    StartupClock clock;
    HostLog::collect();
    const int result = HostProgram(m_options, clock).run();
    HostLog::stop();
    return result;
}

void TestHostProgram::fillFirstStart(const CDlgFirstStart &dialog)
{
    named<KEdit>(dialog, u"نام کاربری :"_s)->setText(u"sara"_s);
    named<KEdit>(dialog, u"کلمه عبور :"_s)->setText(u"gallery7"_s);
    named<KEdit>(dialog, u"تکرار کلمه عبور :"_s)->setText(u"gallery7"_s);
    named<KEdit>(dialog, u"نام نمایشگاه :"_s)->setText(u"نمایشگاه آریا"_s);
}

void TestHostProgram::logIn(const CDlgLogin &dialog, const QString &user, const QString &password)
{
    named<KEdit>(dialog, u"نام کاربری :"_s)->setText(user);
    named<KEdit>(dialog, u"کلمه عبور :"_s)->setText(password);
}

void TestHostProgram::makeOffice()
{
    QCOMPARE(drive([](QWidget *window) {
                 if (auto *first = qobject_cast<CDlgFirstStart *>(window)) {
                     fillFirstStart(*first);
                     first->accept();
                 } else {
                     window->close();
                 }
             }),
             0);
}

QString TestHostProgram::logText() const
{
    QFile file(HostLog::fileName(DataFolder(m_options.dataDir).logsPath()));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool TestHostProgram::serverRuns() const
{
    return QFile::exists(DataFolder(m_options.dataDir).databasePath() + u"/server.pid"_s);
}

void TestHostProgram::helpAndVersionNeedNoDisplay()
{
    int exitCode = -1;
    const QByteArray help = output({u"--help"_s}, &exitCode);
    QCOMPARE(exitCode, 0);
    QVERIFY2(help.contains("--data-dir"), help.constData());
    const QByteArray version = output({u"--version"_s}, &exitCode);
    QCOMPARE(exitCode, 0);
    QCOMPARE(version, QByteArray("TzAuto " TZ_VERSION "\n"));
}

void TestHostProgram::wrongCommandLineIsToldWithItsOwnExitCode()
{
    int exitCode = -1;
    const QByteArray words = output({u"--colour"_s}, &exitCode);
    QCOMPARE(exitCode, 2);
    QVERIFY2(words.contains("colour"), words.constData());
}

void TestHostProgram::newOfficeGoesFromFirstStartToWork()
{
    QStringList windows;
    QString proposed;
    const int result = drive([&](QWidget *window) {
        windows.append(QString::fromLatin1(window->metaObject()->className()));
        if (auto *first = qobject_cast<CDlgFirstStart *>(window)) {
            fillFirstStart(*first);
            first->accept();
        } else if (auto *login = qobject_cast<CDlgLogin *>(window)) {
            proposed = named<KEdit>(*login, u"نام کاربری :"_s)->text();
            logIn(*login, proposed, u"gallery7"_s);
            login->accept();
        } else {
            window->close();
        }
    });
    QCOMPARE(result, 0);
    windows.removeDuplicates();
    QCOMPARE(windows, (QStringList{u"CDlgFirstStart"_s, u"CDlgLogin"_s, u"MainWindow"_s}));
    QCOMPARE(proposed, u"sara"_s);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestHostProgram::existingOfficeGoesStraightToTheLogin()
{
    makeOffice();
    QStringList windows;
    drive([&](QWidget *window) {
        windows.append(QString::fromLatin1(window->metaObject()->className()));
        window->close();
    });
    QCOMPARE(windows, QStringList{u"CDlgLogin"_s});
}

void TestHostProgram::logTellsTheTimeOfEachPhaseAndNoSecret()
{
    makeOffice();
    m_options.quitAfterLoginShown = true;
    QCOMPARE(drive([](QWidget *) {}), 0);
    const QString log = logText();
    for (const char *phase : {"folder", "server", "suite-schema", "module", "module-schema", "login", "total"}) {
        const QRegularExpression line(u"startup: %1 \\d+\\n"_s.arg(QString::fromLatin1(phase)));
        QVERIFY2(log.count(line) == 1, qPrintable(QString::fromLatin1(phase) + u'\n' + log));
    }
    QFile account(DataFolder(m_options.dataDir).clientConfigPath());
    QVERIFY(account.open(QIODevice::ReadOnly));
    const QRegularExpressionMatch secret =
        QRegularExpression(u"password=\"(.+)\""_s).match(QString::fromUtf8(account.readAll()));
    QVERIFY(secret.hasMatch());
    QVERIFY(!log.contains(secret.captured(1)));
    QVERIFY(!log.contains(u"gallery7"_s));
}

void TestHostProgram::missingModuleIsToldOnceAndTheProgramGoesOn()
{
    makeOffice();
    m_options.moduleDir = m_folder->path();
    bool worked = false;
    drive([&](QWidget *window) {
        if (auto *login = qobject_cast<CDlgLogin *>(window)) {
            logIn(*login, u"sara"_s, u"gallery7"_s);
            login->accept();
            return;
        }
        for (QAction *action : window->findChildren<QAction *>())
            if (action->iconText() == u"اشخاص"_s)
                action->trigger();
        worked = static_cast<MainWindow *>(window)->workArea()->count() == 1;
        window->close();
    });
    QVERIFY(worked);
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY(shown.constFirst().contains(u"TzAuto"_s));
}

void TestHostProgram::serverThatDiesIsRestartedWithOneMessage()
{
    makeOffice();
    bool killed = false;
    QString answer;
    drive([&](QWidget *window) {
        if (auto *login = qobject_cast<CDlgLogin *>(window)) {
            logIn(*login, u"sara"_s, u"gallery7"_s);
            login->accept();
        } else if (!killed) {
            killed = true;
            QFile pid(DataFolder(m_options.dataDir).databasePath() + u"/server.pid"_s);
            QVERIFY(pid.open(QIODevice::ReadOnly));
            QCOMPARE(QProcess::execute(u"kill"_s,
                                       {u"-9"_s, QString::fromLatin1(pid.readAll().trimmed())}),
                     0);
        } else if (logText().contains(u"the server runs again"_s)) {
            CTblTemp query;
            query.Open(true, false, true);
            query.ExecuteQuery("SELECT sUser FROM Users");
            answer = query.GetTextFieldValue(0);
            window->close();
        }
    });
    QCOMPARE(answer, u"sara"_s);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestHostProgram::secondStartLeavesTheFolderToTheFirst()
{
    makeOffice();
    int exitCode = -1;
    QElapsedTimer second;
    drive([&](QWidget *window) {
        QProcess program;
        second.start();
        program.start(u"" TZ_HOST_PROGRAM ""_s, {u"--data-dir"_s, m_options.dataDir});
        // The first program must answer while the second waits for it.
        while (!program.waitForFinished(10) && second.elapsed() < 20000)
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
        exitCode = program.exitCode();
        window->close();
    });
    QCOMPARE(exitCode, 0);
    QVERIFY(second.elapsed() < 20000);
}

void TestHostProgram::demoOfficeIsFilledOnce()
{
    // As a process: what fills the office stands beside the program, not beside this test.
    const QStringList arguments = {u"--demo"_s, u"--demo-size"_s, u"25"_s,
                                   u"--data-dir"_s, m_options.dataDir, u"--quit-after-login-shown"_s};
    const auto runProgram = [&] {
        QProcess program;
        program.start(u"" TZ_HOST_PROGRAM ""_s, arguments);
        return program.waitForFinished(longestRunMilliseconds) && program.exitCode() == 0;
    };
    QVERIFY(runProgram());
    QVERIFY(logText().contains(u"startup: demo "_s));
    QVERIFY(runProgram());
    QVERIFY(!logText().contains(u"startup: demo "_s));

    QString contracts;
    drive([&](QWidget *window) {
        CTblTemp query;
        query.Open(true, false, true);
        query.ExecuteQuery("SELECT COUNT(*) FROM AutomobilContracts");
        contracts = query.GetTextFieldValue(0);
        window->close();
    });
    QCOMPARE(contracts, u"25"_s);
}

void TestHostProgram::anotherUserCanLogIn()
{
    makeOffice();
    QStringList windows;
    bool switched = false;
    drive([&](QWidget *window) {
        windows.append(QString::fromLatin1(window->metaObject()->className()));
        if (auto *login = qobject_cast<CDlgLogin *>(window)) {
            if (switched) {
                login->reject();
                return;
            }
            logIn(*login, u"sara"_s, u"gallery7"_s);
            login->accept();
            return;
        }
        switched = true;
        for (QAction *action : window->findChildren<QAction *>())
            if (action->iconText() == u"ورود با کاربر دیگر"_s)
                action->trigger();
    });
    QCOMPARE(windows, (QStringList{u"CDlgLogin"_s, u"MainWindow"_s, u"CDlgLogin"_s}));
}

void TestHostProgram::folderThatCannotBeUsedIsTold()
{
    // A file is where the folder would be.
    QFile file(m_options.dataDir);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(drive([](QWidget *) {}), 1);
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(m_options.dataDir), qPrintable(shown.constFirst()));
}

void TestHostProgram::damagedFileIsNamedAtTheStart_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("named");
    QTest::newRow("system file") << u"ibdata1"_s << u"database/ibdata1"_s;
    QTest::newRow("table of the users") << u"tzauto/Users.ibd"_s << u"«کاربران»"_s;
    QTest::newRow("table of the versions") << u"tzauto/Properties.ibd"_s << u"«تنظیمات»"_s;
    QTest::newRow("definition of the contracts") << u"tzauto/AutomobilContracts.frm"_s << u"«قراردادها»"_s;
}

void TestHostProgram::damagedFileIsNamedAtTheStart()
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

void TestHostProgram::harm(const QString &file) const
{
    QFile damaged(m_options.dataDir + u"/database/"_s + file);
    QVERIFY(file.endsWith(u"frm"_s) ? damaged.remove() : damaged.resize(0));
}

QList<BackupFile> TestHostProgram::backups() const
{
    return BackupFiles::in(DataFolder(m_options.dataDir).backupsPath(), u"tzauto"_s);
}

int TestHostProgram::workOnce(const std::function<void(MainWindow *)> &work)
{
    return drive([&](QWidget *window) {
        if (auto *login = qobject_cast<CDlgLogin *>(window)) {
            logIn(*login, u"sara"_s, u"gallery7"_s);
            login->accept();
        } else if (auto *main = qobject_cast<MainWindow *>(window)) {
            if (work)
                work(main);
            main->close();
        }
    });
}

void TestHostProgram::addUser(const QString &name)
{
    CTblUsers::create(name, u"gallery7"_s, {}, false);
}

void TestHostProgram::damagedOfficeComesBack()
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

// All tables at once: each is recognised by what the server says of it, and the backup brings all of them back.
void TestHostProgram::everyTableIsMetWithItsWay()
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

void TestHostProgram::closingTakesABackupOfWhatChanged()
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

void TestHostProgram::goesBackToABackupAndAsksForTheLogin_data()
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

void TestHostProgram::goesBackToABackupAndAsksForTheLogin()
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

void TestHostProgram::takenBackupIsProvedByAProgramOfItsOwn()
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

void TestHostProgram::backupIsOnlyShown()
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

// The real program beside this one, which has the folder; also of an encrypted backup, whose passphrase nobody else sees.
void TestHostProgram::viewOfABackupLeavesNothing()
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

static const RegisteredTest<TestHostProgram, QApplication> registeredHostProgram;
#include "TestHostProgram.moc"
