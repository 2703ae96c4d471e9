// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/host/HostProgramTest.h"

#include "suite/db/records/CTblTemp.h"
#include "host/desk/WorkArea.h"
#include "tests/support/RegisteredTest.h"

#include <QAction>
#include <QLabel>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

// The program from its start to its end: in this process, so that its windows can be driven, on a server of its own; and
// as a process where the command line matters.
class TestHostProgram : public HostProgramTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTblUsers::setHashCost(CTblUsers::leastCost()); }
    void init() { begin(); }
    void cleanup() { end(); }
    void helpAndVersionNeedNoDisplay();
    void wrongCommandLineIsToldWithItsOwnExitCode();
    void newOfficeGoesFromFirstStartToWork();
    void existingOfficeGoesStraightToTheLogin();
    void whatIsTypedWhileTheServerStartsLogsIn();
    void wrongPasswordTypedWhileTheServerStartsIsToldOnce();
    void loginLeftWhileTheServerStartsEndsTheProgram();
    void logTellsTheTimeOfEachPhaseAndNoSecret();
    void missingModuleIsToldOnceAndTheProgramGoesOn();
    void serverThatDiesIsRestartedWithOneMessage();
    void secondStartLeavesTheFolderToTheFirst();
    void demoOfficeIsFilledOnce();
    void anotherUserCanLogIn();
    void folderThatCannotBeUsedIsTold();
};

namespace {

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

void TestHostProgram::whatIsTypedWhileTheServerStartsLogsIn()
{
    makeOffice();
    m_drivesEarlyLogin = true;
    bool pressedBefore = false;
    int presses = 0;
    QString heading;
    QString waitingFor;
    QStringList windows;
    QCOMPARE(drive([&](QWidget *window) {
                 windows.append(QString::fromLatin1(window->metaObject()->className()));
                 auto *login = qobject_cast<CDlgLogin *>(window);
                 if (!login) {
                     window->close();
                     return;
                 }
                 if (presses++ > 0)
                     return;
                 pressedBefore = !logText().contains(u"startup: server "_s);
                 for (const QLabel *label : login->findChildren<QLabel *>()) {
                     heading += label->text().contains(u"نمایشگاه آریا"_s) ? label->text() : QString();
                     waitingFor += label->text().contains(u"پایگاه داده"_s) ? label->text() : QString();
                 }
                 logIn(*login, u"sara"_s, u"gallery7"_s);
                 login->accept();
             }),
             0);
    QVERIFY(pressedBefore);
    QCOMPARE(heading, u"نمایشگاه آریا"_s);
    QVERIFY(!waitingFor.isEmpty());
    windows.removeDuplicates();
    QCOMPARE(windows, (QStringList{u"CDlgLogin"_s, u"MainWindow"_s}));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestHostProgram::wrongPasswordTypedWhileTheServerStartsIsToldOnce()
{
    makeOffice();
    m_drivesEarlyLogin = true;
    bool pressed = false;
    QCOMPARE(drive([&](QWidget *window) {
                 auto *login = qobject_cast<CDlgLogin *>(window);
                 if (login && !pressed) {
                     pressed = true;
                     logIn(*login, u"sara"_s, u"guess"_s);
                     login->accept();
                 } else if (!login || logText().contains(u"wrong password"_s)) {
                     window->close();
                 }
             }),
             0);
    QVERIFY(pressed);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"نام کاربری یا کلمه عبور درست نیست."_s});
}

void TestHostProgram::loginLeftWhileTheServerStartsEndsTheProgram()
{
    makeOffice();
    m_drivesEarlyLogin = true;
    QCOMPARE(drive([](QWidget *window) { window->close(); }), 0);
    QVERIFY2(logText().contains(u"the user closed the login"_s), qPrintable(logText()));
    QVERIFY(!logText().contains(u"startup: server "_s));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    // It starts as well as ever.
    QCOMPARE(workOnce(), 0);
}

void TestHostProgram::logTellsTheTimeOfEachPhaseAndNoSecret()
{
    makeOffice();
    m_options.quitAfterLoginShown = true;
    QCOMPARE(drive([](QWidget *) {}), 0);
    const QString log = logText();
    for (const char *phase : {"folder", "server", "suite-schema", "module", "module-schema", "login", "total", "answering"}) {
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

static const RegisteredTest<TestHostProgram, QApplication> registeredHostProgram;
#include "TestHostProgram.moc"
