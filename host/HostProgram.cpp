// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/HostProgram.h"

#include "host/books/BookWindows.h"
#include "host/keeping/BackupKeeper.h"
#include "host/recovery/BackupListing.h"
#include "host/keeping/BackupPassphrase.h"
#include "host/keeping/BackupProcess.h"
#include "host/keeping/BackupProgress.h"
#include "host/keeping/CDlgClosingBackup.h"
#include "host/backup/BackupPointInTime.h"
#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupTaking.h"
#include "host/start/BackupCommands.h"
#include "host/start/BooksCommands.h"
#include "host/recovery/BackupView.h"
#include "host/recovery/CDlgDamage.h"
#include "host/start/CDlgFirstStart.h"
#include "host/start/CDlgLogin.h"
#include "host/start/DatabaseUpgrade.h"
#include "host/start/DemoOffice.h"
#include "host/frame/HostLog.h"
#include "host/frame/HostLook.h"
#include "host/desk/MainWindow.h"
#include "host/manual/ManualPages.h"
#include "host/manual/ManualPaper.h"
#include "host/start/OfficeServer.h"
#include "host/tour/Tour.h"
#include "host/server/ServerDamage.h"
#include "host/server/ServerLog.h"
#include "host/server/TableNames.h"
#include "host/server/WayBack.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/crm/persons/PersonParts.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/crm/subjects/CrmToday.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/treasury/receiving/InvoiceReceiptOwner.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasurySubjects.h"
#include "suite/treasury/subjects/TreasuryToday.h"
#include "suite/treasury/subjects/TreasuryWindows.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/DamagedTable.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/OfficeSession.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/db/connection/KLongWork.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/TemporaryFolders.h"

#include <QEventLoop>
#include <QLocale>
#include <QTimer>

#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int exitFailed = 1;
constexpr int exitWrongOptions = 2;

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return arguments;
}

DataFolder chooseFolder(const HostOptions &options)
{
    if (!options.dataDir.isEmpty())
        return DataFolder(options.dataDir);
    return DataFolder(options.demo ? DataFolder::demoPath() : DataFolder::defaultPath());
}

// Ends a run that has no return value; the error reaches the user in one message.
void tellFailure()
{
    try {
        throw;
    } catch (const ServerError &error) {
        qCCritical(lcHost).noquote() << "start:" << error.detail();
        if (error.kind() != ServerError::Kind::Cancelled)
            g_pDlgWarning->Show(error.userMessage());
    } catch (...) {
        KErrorBoundary::report(std::current_exception(), nullptr);
    }
}

int writeManual(const QString &path)
{
    const bool written = ManualPaper::writePdf(ManualPages(), path);
    HostLog::stop();
    if (!written)
        std::fprintf(stderr, "tzhost: cannot write %s\n", qUtf8Printable(path));
    return written ? 0 : exitFailed;
}

}

int HostProgram::start(int argc, char **argv)
{
    StartupClock clock;
    const bool persian = QLocale::system().language() == QLocale::Persian;
    const HostOptions options = HostOptions::parse(argumentsOf(argc, argv), persian);
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "tzhost: %s\n", qUtf8Printable(options.error));
        return exitWrongOptions;
    }
    if (options.help || options.version) {
        std::fputs(qUtf8Printable(options.help ? HostOptions::helpText(persian) : HostOptions::versionText(persian)), stdout);
        return 0;
    }

    if (options.isBackupCommand()) {
        const QCoreApplication application(argc, argv);
        QCoreApplication::setApplicationName(u"tzhost"_s);
        return BackupCommands::run(options, chooseFolder(options), persian);
    }

    if (options.checkBooks) {
        const QCoreApplication application(argc, argv);
        QCoreApplication::setApplicationName(u"tzhost"_s);
        return BooksCommands::run(options, chooseFolder(options), persian);
    }

    // Nothing is shown, and there may be no screen.
    if ((options.rebuildSearch || !options.manualPdf.isEmpty()) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    HostLog::collect();
    KApplication application(argc, argv);
    KApplication::setApplicationName(u"tzhost"_s);
    KApplication::setApplicationVersion(u"" TZ_VERSION ""_s);
    KApplication::setDesktopFileName(u"tzhost"_s);
    // Dialogs come and go before the main window; only closing that one ends the program.
    KApplication::setQuitOnLastWindowClosed(false);
    HostLook::apply(application);
    if (!options.manualPdf.isEmpty())
        return writeManual(options.manualPdf);
    clock.reached("application");
    const int result = HostProgram(options, clock).run();
    HostLog::stop();
    return result;
}

HostProgram::HostProgram(const HostOptions &options, StartupClock &clock)
    : m_options(options)
    , m_clock(clock)
    , m_folder(chooseFolder(options))
    , m_lock(m_folder)
{
    connect(&m_lock, &InstanceLock::raiseRequested, this, &HostProgram::raiseWindow);
    connect(&m_screen, &StartScreen::loginPainted, this, &HostProgram::loginShown);
    GetDBSetting()->SetReceiptWindow(&CDlgCashFromPerson::receive);
    InvoiceReceiptOwner::enter();
    OfficeSubjects::enter();
    RecordHistory::setWindow(&CDlgHistory::Show);
    CrmSubjects::enter();
    PersonParts::enter();
    TreasurySubjects::enter();
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    CrmWindows::enter();
    CrmToday::enter();
    TreasuryWindows::enter();
    TreasuryToday::enter();
    BookWindows::enter();
    if (!options.moduleDir.isEmpty())
        BackupProcess::setFurtherArguments({u"--module-dir"_s, options.moduleDir});
    KErrorText::setDamageText([this](const QStringList &tables) { return damageText(tables); });
}

HostProgram::~HostProgram()
{
    shutDown();
    KErrorText::setDamageText({});
}

// Where an error names no table, the private server's log names the file.
QString HostProgram::damageText(const QStringList &tables)
{
    if (!m_server)
        return u"جدول «%1» روی سرور دفتر آسیب دیده یا گم شده است."_s.arg(TableNames::shown(tables.constFirst())) + u'\n' + WayBack::ofOfficeServer();
    const std::optional<ServerDamage> logged = ServerDamage::in(ServerLog(m_folder).tail(200));
    const bool isMeant = logged && tables.contains(logged->table());
    m_damage = (isMeant ? *logged : ServerDamage::ofTable(tables.constFirst())).sentence(m_folder);
    return m_damage + u"\nبرای بازگشت، «بازگرداندن پشتیبان» را در منوی «مدیریت» باز کنید."_s;
}

int HostProgram::run()
{
    try {
        int exitCode = 0;
        if (!prepareDespiteDamage(exitCode))
            return exitCode;
        if (m_options.rebuildSearch)
            return rebuildSearch();
        do {
            if (loginDespiteDamage())
                work();
        } while (m_switchUser);
        return 0;
    } catch (...) {
        m_screen.hide();
        tellFailure();
        return exitFailed;
    }
}

int HostProgram::rebuildSearch()
{
    const KLongWork work;
    SearchIndex::build(true);
    m_screen.hide();
    std::puts("rebuilt");
    return 0;
}

bool HostProgram::prepareDespiteDamage(int &exitCode)
{
    if (!m_options.lookInto.isEmpty()) {
        openBackup();
    } else if (!takeFolder()) {
        return false;
    }
    m_clock.reached("folder");
    for (;;) {
        try {
            return prepare(exitCode);
        } catch (...) {
            m_screen.hide();
            if (!leadBack(std::current_exception()))
                throw;
        }
    }
}

// A login that cannot succeed leads back too.
bool HostProgram::loginDespiteDamage()
{
    m_switchUser = false;
    m_damage.clear();
    while (!login()) {
        int exitCode = 0;
        if (m_damage.isEmpty() || m_view || !m_server || !showDamage(m_damage) || !prepare(exitCode))
            return false;
    }
    return true;
}

bool HostProgram::prepare(int &exitCode)
{
    if (!m_view && !startDatabase()) {
        exitCode = m_screen.isLeft() ? 0 : exitFailed;
        return false;
    }
    m_clock.reached("server");
    prepareSchema();
    return prepareOffice();
}

void HostProgram::openBackup()
{
    m_view = std::make_unique<BackupView>(m_folder, m_options.lookInto,
                                          [this](const QString &text) { return m_screen.showWaitingOrGiveUp(text); });
    m_folder = m_view->folder();
    HostLog::start(m_folder.logsPath());
    HostLook::showChoice();
}

bool HostProgram::leadBack(const std::exception_ptr &error)
{
    if (m_options.connect || m_view)
        return false;
    try {
        std::rethrow_exception(error);
    } catch (const ServerError &known) {
        if (known.kind() != ServerError::Kind::Damaged && known.kind() != ServerError::Kind::VersionLost)
            return false;
        qCCritical(lcHost).noquote() << "damage:" << known.detail() << known.userMessage();
        // The window takes the place of the command, which stays in the log.
        return showDamage(known.userMessage().remove(u'\n' + WayBack(m_folder).sentences()));
    } catch (const CMySQLException &known) {
        if (DamagedTable::namedBy(known).isEmpty())
            return false;
        qCCritical(lcHost).noquote() << "damage:" << KErrorText::logText(error) << WayBack(m_folder).sentences();
        static_cast<void>(KErrorText::userMessage(error));
        return showDamage(m_damage);
    } catch (...) {
        return false;
    }
}

// A closed window is the end of the program without a further message: what is wrong stood in it.
bool HostProgram::showDamage(QString what)
{
    KConnection::closeThreadConnections();
    m_server.reset();
    m_damage.clear();
    if (CDlgDamage(m_folder, what).exec() == QDialog::Accepted)
        return true;
    throw ServerError(ServerError::Kind::Cancelled, u"پایگاه داده آسیب دیده است."_s, u"the user closed the way back"_s);
}

bool HostProgram::takeFolder()
{
    m_folder.create();
    m_folderWasMade = true;
    if (!m_lock.acquire()) {
        if (!m_lock.raiseOther())
            g_pDlgWarning->Show(m_lock.inUseMessage());
        return false;
    }
    HostLog::start(m_folder.logsPath());
    setSettingsFile(m_folder.settingsFile());
    HostLook::showChoice();
    qCInfo(lcHost).noquote() << "tzhost" << TZ_VERSION << "on" << m_folder.path();
    TemporaryFolders::removeLeft();
    return true;
}

bool HostProgram::startDatabase()
{
    if (m_options.connect) {
        m_screen.showWaiting(u"اتصال به سرور دفتر"_s);
        if (!OfficeServer::connect(m_options, m_screen.window()))
            return false;
        BackupRestoring(KConnection::settings(0)).cleanLeft();
        return true;
    }
    if (!m_options.rebuildSearch)
        m_screen.offerLogin();
    try {
        startPrivateServer();
    } catch (const ServerError &error) {
        if (error.kind() != ServerError::Kind::Cancelled)
            throw;
        qCInfo(lcHost).noquote() << "start:" << error.detail();
        return false;
    }
    return true;
}

void HostProgram::startPrivateServer()
{
    ServerOptions options;
    options.takeBackup = BackupTaking::beforeServerUpgrade(m_folder);
    options.folderWasMade = std::exchange(m_folderWasMade, false);
    m_server = std::make_unique<EmbeddedServer>(m_folder, options);
    connect(m_server.get(), &EmbeddedServer::endedUnexpectedly, this, &HostProgram::serverEnded);
    // What the module lacks is told when its turn has come.
    const auto meanwhile = [this] { static_cast<void>(m_module.entry() || m_module.load(m_options.moduleDir)); };
    const auto progress = [this](const QString &waitingFor) {
        if (!m_screen.showWaiting(waitingFor))
            throw ServerError(ServerError::Kind::Cancelled, u"ورود به برنامه بسته شد."_s, u"the user closed the login"_s);
    };
    m_server->start(progress, meanwhile);
    KConnection::configure(0, m_server->connectionSettings());
    BackupRestoring(m_server->connectionSettings()).cleanLeft();
}

void HostProgram::prepareSchema()
{
    DatabaseUpgrade upgrade(
        m_folder.backupsPath(), [this](const QString &text) { m_screen.showWaiting(text); },
        [this](const QString &text) { return m_screen.showWaitingOrGiveUp(text); });
    upgrade.setWayBack(m_server ? WayBack(m_folder).sentences() : WayBack::ofOfficeServer());
    upgrade.upgradeSuite();
    upgrade.sumUpBooks();
    m_clock.reached("suite-schema");
    if (!m_module.entry() && !m_module.load(m_options.moduleDir)) {
        g_pDlgWarning->Show(m_module.errorText() + u"\nبرنامه بدون آن ادامه می‌یابد."_s, m_screen.window());
        return;
    }
    m_clock.reached("module");
    if (!upgrade.upgradeModule(*m_module.entry()))
        m_module.unload();
    m_clock.reached("module-schema");
    if (m_view)
        m_view->close();
}

bool HostProgram::prepareOffice()
{
    if (m_options.demo && !m_view)
        fillDemo();
    if (m_options.rebuildSearch || CTblUsers::anyUser())
        return true;
    m_screen.hide();
    if (m_view) {
        g_pDlgWarning->Show(u"در این پشتیبان هنوز کاربری نیست که با آن بتوان وارد شد."_s);
        return false;
    }
    CDlgFirstStart firstStart;
    const auto shown = [this, &firstStart] {
        loginShown();
        if (m_options.quitAfterLoginShown)
            firstStart.reject();
    };
    connect(&firstStart, &CDlgFirstStart::painted, &firstStart, shown, Qt::QueuedConnection);
    if (firstStart.exec() != QDialog::Accepted)
        return false;
    m_proposedUser = firstStart.userName();
    return true;
}

void HostProgram::fillDemo()
{
    if (DemoOffice::isFilled())
        return;
    m_screen.showWaiting(u"ساختن دفتر نمونه"_s);
    DemoOffice::fill(m_options.demoSize, m_options.demoDay, m_server->folder().clientConfigPath(),
                     [this] { m_screen.showWaiting(u"ساختن دفتر نمونه"_s); });
    m_proposedUser = DemoOffice::userName();
    m_clock.reached("demo");
}

void HostProgram::loginShown()
{
    if (m_started)
        return;
    m_started = true;
    m_clock.reached("login");
    m_clock.passed("total");
}

bool HostProgram::login()
{
    if (m_screen.isLeft())
        return false;
    std::unique_ptr<CDlgLogin> dialog = m_screen.takeLogin();
    const QString officeName = CompanyDetails::read().name();
    if (dialog)
        dialog->databaseAnswers(officeName);
    else
        dialog = std::make_unique<CDlgLogin>(officeName);
    if (!m_proposedUser.isEmpty())
        dialog->setUserName(m_proposedUser);
    m_proposedUser.clear();
    m_screen.hide();
    m_clock.passed("answering");
    if (m_started && m_options.quitAfterLoginShown)
        return false;
    const auto shown = [this, &dialog] {
        loginShown();
        if (m_options.quitAfterLoginShown)
            dialog->reject();
    };
    connect(dialog.get(), &CDlgLogin::painted, dialog.get(), shown, Qt::QueuedConnection);
    return dialog->exec() == QDialog::Accepted && GetDBSetting()->Login(dialog->userID());
}

void HostProgram::work()
{
    BackupKeeper keeper(m_folder, m_server != nullptr);
    RestoreRequest request;
    {
        MainWindow window(m_folder, m_module.entry());
        QEventLoop loop;
        connect(&window, &MainWindow::closed, &loop, &QEventLoop::quit);
        connect(&window, &MainWindow::manualWanted, &m_manual, [&] { m_manual.showFor(&window); });
        Tour tour(window);
        connect(&window, &MainWindow::tourWanted, &tour, &Tour::start);
        connect(&tour, &Tour::manualWanted, &m_manual, &ManualKey::showPage);
        m_window = &window;
        // The window appears first.
        QTimer shown;
        shown.setSingleShot(true);
        connect(&shown, &QTimer::timeout, &window, &MainWindow::tellDueReminders);
        connect(&shown, &QTimer::timeout, &window, &MainWindow::tellBackups);
        if (m_view) {
            window.markAsBackup(m_view->band());
        } else {
            connect(&shown, &QTimer::timeout, &window, &MainWindow::emptyBin);
            connect(&shown, &QTimer::timeout, &window, &MainWindow::makeSearchable);
            connect(&shown, &QTimer::timeout, &tour, [&tour] {
                // A server that does not answer is told of by what the user does next.
                try {
                    if (DemoOffice::isFilled())
                        tour.offerOnce();
                } catch (const CMySQLException &) {
                    qCWarning(lcHost).noquote() << "tour:" << KErrorText::logText(std::current_exception());
                }
            });
            window.showBackups(keeper);
            keeper.start();
        }
        window.show();
        shown.start(0);
        loop.exec();
        m_manual.close();
        m_switchUser = window.isSwitchingUser();
        request = window.restoreRequest();
        m_window = nullptr;
    }
    // The pages store their user's settings as they end with the window.
    if (request.file.exists()) {
        keeper.cancel();
        restore(request);
        m_switchUser = true;
    } else if (!m_view) {
        CDlgClosingBackup::run(keeper);
    }
    GetDBSetting()->Logout();
}

// Whatever comes of it, the user logs in again: to the database as it was, or as it has become.
void HostProgram::restore(const RestoreRequest &request)
{
    const QString when = BackupListing::whenText(request.file);
    const KConnectionSettings settings = KConnection::settings(0);
    OfficeSession::end();
    KConnection::closeThreadConnections();
    const auto broughtForward = request.lastMinute
        ? BackupPointInTime(m_folder).onto(settings, request.file, {.lastMinute = true})
        : std::function<void(const QString &)>();
    try {
        BackupFile copy;
        QString warnings;
        {
            BackupProgress window(u"بازگرداندن پشتیبان"_s, u"بازگرداندن پشتیبان %1…"_s.arg(when), nullptr);
            window.run([&](const BackupProgress::Progress &progress) {
                copy = BackupRestoring(settings).restore({.file = request.file,
                                                          .passphrase = request.passphrase,
                                                          .backupsFolder = m_folder.backupsPath(),
                                                          .copyPassphrase = BackupPassphrase(m_folder).read(),
                                                          .beforeExchange = broughtForward,
                                                          .warn = [&](const QString &words) { warnings += u'\n' + words; }},
                                                         progress);
            });
        }
        KTableSchema::forgetAll();
        prepareSchema();
        m_screen.hide();
        qCInfo(lcHost).noquote() << "restored:" << request.file.path() << "copy of the state before:" << copy.path();
        const QString forward = request.lastMinute ? u" و تغییرهای ثبت شده پس از آن"_s : QString();
        g_pDlgMessage->Show(u"بازگردانده شد به %1%2.\nپشتیبان وضع پیش از آن: %3"_s.arg(when, forward, ServerError::shownPath(copy.path())) + warnings);
    } catch (const ServerError &error) {
        m_screen.hide();
        qCCritical(lcHost).noquote() << "restore:" << error.detail();
        if (error.kind() == ServerError::Kind::Damaged && m_server && showDamage(error.userMessage())) {
            startPrivateServer();
            prepareSchema();
        } else if (error.kind() != ServerError::Kind::Cancelled) {
            g_pDlgWarning->Show(u"بازگردانده نشد. %1"_s.arg(error.userMessage()));
        }
    }
}

void HostProgram::serverEnded(const QString &message, const QString &detail)
{
    qCCritical(lcHost).noquote() << "the server ended:" << detail;
    // An operation that was cut off has its own message on the screen by now; one is enough.
    const bool alreadyTold = QApplication::activeModalWidget() != nullptr;
    if (!restartServer())
        return;
    if (alreadyTold && m_window)
        m_window->showNote(message);
    else
        g_pDlgWarning->Show(message, m_window);
}

bool HostProgram::restartServer()
{
    for (;;) {
        try {
            m_server->restart([this](const QString &waitingFor) { m_screen.showWaiting(waitingFor); });
            m_screen.hide();
            // Connections to the server that ended would fail once more before they notice.
            KConnection::closeThreadConnections();
            qCInfo(lcHost) << "the server runs again";
            return true;
        } catch (const ServerError &error) {
            m_screen.hide();
            qCCritical(lcHost).noquote() << "restart:" << error.detail();
            const QString question = error.userMessage() + u"\nدوباره تلاش شود؟"_s;
            if (g_pDlgYesNo->Ask(question, m_window) != KMessageDialog::Yes)
                return false;
        }
    }
}

void HostProgram::raiseWindow()
{
    QWidget *window = QApplication::activeModalWidget();
    if (!window)
        window = m_window;
    if (!window)
        return;
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

void HostProgram::shutDown()
{
    // Pages that were closed a moment ago still belong to the module's code.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_module.unload();
    KConnection::closeThreadConnections();
    m_view.reset();
    if (!m_server)
        return;
    try {
        m_server->stop([this](const QString &waitingFor) { m_screen.showWaiting(waitingFor); });
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "stop:" << error.detail();
    }
    m_server.reset();
}
