// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/MainWindow.h"

#include "auto/CAutoDBSetting.h"
#include "host/recovery/Backup.h"
#include "host/keeping/BackupKeeper.h"
#include "host/recovery/CDlgBackups.h"
#include "host/desk/BackupBand.h"
#include "host/desk/BackupSign.h"
#include "host/desk/CDlgAbout.h"
#include "host/desk/CDlgKeys.h"
#include "host/today/HostSteps.h"
#include "host/desk/KeyList.h"
#include "host/desk/PageAction.h"
#include "host/administration/CDlgChangePassword.h"
#include "host/books/CDlgDocuments.h"
#include "host/administration/CDlgSettings.h"
#include "host/administration/CDlgUsers.h"
#include "host/start/DatabaseInfo.h"
#include "host/desk/ReminderBadge.h"
#include "host/finding/SearchBox.h"
#include "host/finding/SearchBuilding.h"
#include "host/today/StartPage.h"
#include "host/desk/StatusLine.h"
#include "host/desk/TopBar.h"
#include "host/desk/UndoOffer.h"
#include "host/frame/StartupClock.h"
#include "host/desk/WorkArea.h"
#include "host/books/CDlgChartOfAccounts.h"
#include "host/books/CDlgFactors.h"
#include "host/books/CDlgServices.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/recovery/CDlgBin.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/messages/CDlgMessageTexts.h"
#include "suite/crm/reminders/CDlgAlarms.h"
#include "suite/crm/reminders/CDlgDueAlarms.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/treasury/cashbox/CDlgCashAccounts.h"
#include "suite/treasury/receipts/CDlgReceipts.h"
#include "suite/treasury/cheques/CDlgCheques.h"
#include "suite/utility/frame/ActionHindrance.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/frame/ModalWindows.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString windowSection = u"tzhost\\Window"_s;
const QString remindersText = u"یادآوری ها"_s;
const QKeySequence remindersKey(Qt::CTRL | Qt::Key_R);

QKeySequence control(Qt::Key key)
{
    return QKeySequence(Qt::CTRL | key);
}

template <class Page>
void showPage()
{
    GetDBSetting()->AddDialogToTabPage_(new Page, 1, 0);
}

QString longDate(const QDate &day)
{
    const ShamsiDate date = GetShamsi(day);
    return u"%1 %2 %3 %4"_s
        .arg(shamsiDayName(shamsiDayOfWeek(day)), QString::number(date.day), shamsiMonthName(date.month),
             QString::number(date.year));
}

}

MainWindow::MainWindow(const DataFolder &folder, CAutoDBSetting *module, QWidget *parent)
    : QMainWindow(parent)
    , m_folder(folder)
    , m_module(module)
    , m_bar(new TopBar(this))
    , m_status(new StatusLine(this))
    , m_undo(new UndoOffer(this))
    , m_reminders(m_bar->reminders())
    , m_searchBuilding(new SearchBuilding(this))
{
    HostSteps::enter(m_folder);
    // Once it holds the menus, whose room it asks for.
    buildMenus();
    setMenuWidget(m_bar);
    buildKeys();
    m_startPage = new StartPage(m_startActions);
    m_workArea = new WorkArea(m_startPage, this);
    setCentralWidget(m_workArea);
    setStatusBar(m_status);
    m_status->addPermanentWidget(m_undo);
    connect(m_undo, &UndoOffer::chosen, this, &MainWindow::undoDeletion);
    RowDeleting::setListener([this](const Bin::Entry &entry) { m_undo->offer(entry); });
    startClock();
    showRights();
    GetDBSetting()->SetTabHost(m_workArea);
    refresh();
    restoreWindow();
    m_startPage->focusFirst();
}

MainWindow::~MainWindow()
{
    RowDeleting::setListener({});
    m_workArea->closeAll();
    if (GetDBSetting()->TabHost() == m_workArea)
        GetDBSetting()->SetTabHost(nullptr);
}

QMenuBar *MainWindow::menuBar() const
{
    return m_bar->menuBar();
}

QAction *MainWindow::makeAction(const Command &command)
{
    const QIcon icon = LookIcons::icon(u":/icons/%1.svg"_s.arg(command.icon));
    QAction *action = nullptr;
    if (command.options & Command::OpensPage) {
        auto *opening = new PageAction(icon, command.text, this);
        opening->setKey(command.shortcut);
        connect(opening, &PageAction::chosen, this,
                [this, kind = opening->iconText(), run = command.run](bool another) { m_workArea->open(kind, another, run); });
        action = opening;
    } else {
        action = new QAction(icon, command.text, this);
        action->setShortcut(command.shortcut);
        connect(action, &QAction::triggered, this, command.run);
    }
    if ((command.options & Command::NeedsModule) && !m_module) {
        const QString hindrance = u"افزونه گالری اتومبیل بارگذاری نشده است."_s;
        action->setEnabled(false);
        action->setToolTip(hindrance);
        action->setStatusTip(hindrance);
    } else if (!command.form.isEmpty() || (command.options & Command::OfAdministrators)) {
        m_guarded.append({action, command.form, action->toolTip()});
    }
    return action;
}

void MainWindow::showRights()
{
    for (const Guarded &entry : std::as_const(m_guarded)) {
        const bool granted = entry.form.isEmpty() ? GetDBSetting()->IsAdmin() : KSecurity::IsGranted(entry.form, KSecurity::Access);
        const QString refusal = entry.form.isEmpty() ? u"این دستور تنها برای مدیر است."_s : KSecurity::refusalText(entry.form, KSecurity::Access);
        ActionHindrance::set(*entry.action, granted ? QString() : refusal, entry.tip);
    }
}

void MainWindow::addMenu(const QString &title, const std::vector<Command> &commands)
{
    auto *menu = new CommandMenu(title, menuBar());
    menuBar()->addMenu(menu);
    menu->setToolTipsVisible(true);
    // The user's rights may have been changed meanwhile.
    connect(menu, &QMenu::aboutToShow, this, &MainWindow::showRights);
    for (const Command &command : commands) {
        if (command.options & Command::StartsGroup)
            menu->addSeparator();
        QAction *action = makeAction(command);
        menu->addAction(action);
        if (command.options & Command::OnStartPage)
            m_startActions.append(action);
        if (command.options & Command::OfUser)
            m_bar->userMenu()->addAction(action);
    }
}

void MainWindow::buildMenus()
{
    buildAutoMenu();
    buildBooksMenu();
    buildManagementMenu();
    buildProgramMenu();
}

void MainWindow::buildAutoMenu()
{
    const auto contracts = [this] { m_module->ShowAutomobilContractDlg(); };
    const auto demands = [this] { m_module->ShowAutomobilDemandsDlg(); };
    const auto cars = [this] { m_module->ShowAutomobilInformationsDlg(); };
    const auto instalments = [this] { m_module->ShowAutomobilPaymentsDlg(); };
    const auto seasons = [this] { m_module->ShowAutomobilReportSeasonsDlg(); };
    constexpr int page = Command::OnStartPage | Command::NeedsModule | Command::OpensPage;

    addMenu(u"&گالری اتومبیل"_s,
            {
                {u"&قرارداد"_s, u"contract"_s, contracts, control(Qt::Key_1), page, u"AutomobilContracts"_s},
                {u"&تقاضا"_s, u"search"_s, demands, control(Qt::Key_6), page, u"AutomobilDemands"_s},
                {u"&گالري اتومبيل"_s, u"car"_s, cars, control(Qt::Key_7), page, u"AutomobilInformations"_s},
                {u"گ&زارش فصلي"_s, u"money"_s, seasons, control(Qt::Key_9), Command::OnStartPage | Command::NeedsModule,
                 u"AutomobilReportSeasons"_s},
                {u"&اقساط و سررسیدها"_s, u"calendar"_s, instalments, control(Qt::Key_0), Command::NeedsModule | Command::OpensPage,
                 u"AutomobilPayments"_s},
            });
}

void MainWindow::buildBooksMenu()
{
    constexpr int page = Command::OnStartPage | Command::OpensPage;
    addMenu(u"&اشخاص و اسناد"_s,
            {
                {u"&اشخاص"_s, u"users"_s, &showPage<CDlgPersons>, control(Qt::Key_2), page, u"Persons"_s},
                {u"ا&سناد حسابداری"_s, u"document"_s, &showPage<CDlgDocuments>, control(Qt::Key_3), page, u"Documents"_s},
                {u"&فاکتورها"_s, u"receipt"_s, &showPage<CDlgFactors>, control(Qt::Key_8), page, u"Factors"_s},
                {u"&دریافت‌ها و پرداخت‌ها"_s, u"money"_s, &showPage<CDlgReceipts>, {}, Command::OpensPage, u"Receipts"_s},
                {u"&چک‌ها"_s, u"money"_s, &showPage<CDlgCheques>, {}, Command::OpensPage, u"Cheques"_s},
                {u"&خدمات"_s, u"edit"_s, &showPage<CDlgServices>, {}, Command::StartsGroup | Command::OpensPage, u"Services"_s},
                {u"س&رفصل حساب‌ها"_s, u"database"_s, &showPage<CDlgChartOfAccounts>, {}, Command::OpensPage, u"ChartOfAccounts"_s},
                {u"&صندوق و بانک"_s, u"money"_s, &showPage<CDlgCashAccounts>, {}, Command::OpensPage, u"Receipts"_s},
                {u"&متن پیام‌ها"_s, u"edit"_s, &showPage<CDlgMessageTexts>, {}, Command::StartsGroup | Command::OpensPage, u"MessageTexts"_s},
                {u'&' + remindersText, u"reminder"_s, [this] { showReminders(); }, remindersKey, Command::OpensPage},
            });
}

void MainWindow::buildManagementMenu()
{
    const auto showFolder = [this] { Backup::showFolder(m_folder.backupsPath(), this); };
    addMenu(u"&مدیریت"_s,
            {
                {u"&کاربران و دسترسی‌ها"_s, u"user"_s, &showPage<CDlgUsers>, control(Qt::Key_4),
                 Command::OnStartPage | Command::OpensPage, u"Users"_s},
                {u"&تنظیمات"_s, u"settings"_s, [this] { editSettings(); }, control(Qt::Key_5), Command::OnStartPage, u"Settings"_s},
                {u"تا&ریخچه"_s, u"history"_s, &showPage<CDlgHistory>, {}, Command::OpensPage | Command::OfAdministrators},
                {u"&پشتیبان‌گیری"_s, u"save"_s, [this] { takeBackup(); }, control(Qt::Key_B),
                 Command::OnStartPage | Command::StartsGroup, u"Settings"_s},
                {u"&بازگرداندن پشتیبان"_s, u"refresh"_s, [this] { manageBackups(); }, {}, 0, u"Settings"_s},
                {u"پ&وشه پشتیبان‌ها"_s, u"database"_s, showFolder},
                {u"بازسازی &فهرست جستجو"_s, u"search"_s, [this] { rebuildSearch(); }, {}, Command::StartsGroup | Command::OfAdministrators},
                {u"&سطل بازیافت"_s, u"delete"_s, &showPage<CDlgBin>, {}, Command::OpensPage},
            });
}

void MainWindow::rebuildSearch()
{
    if (refusedInBackup())
        return;
    KErrorBoundary::guarded(this, [&] {
        const QString left = u"بازسازی نیمه‌کاره ماند و در شروع بعدی برنامه ادامه می‌یابد."_s;
        showNote(SearchBuilding::runAnew(this) ? u"فهرست جستجو بازسازی شد."_s : left);
    });
}

void MainWindow::buildProgramMenu()
{
    const auto changePassword = [this] {
        if (!refusedInBackup())
            CDlgChangePassword(this).exec();
    };
    const auto about = [this] { CDlgAbout(m_folder, this).exec(); };
    addMenu(u"&برنامه"_s,
            {
                {u"&تغییر کلمه عبور"_s, u"user"_s, changePassword, {}, Command::OfUser},
                {u"&ورود با کاربر دیگر"_s, u"logout"_s, [this] { switchUser(); }, {}, Command::OfUser},
                {u"&کلیدها"_s, u"keys"_s, [this] { showKeys(); }, control(Qt::Key_Slash), Command::StartsGroup},
                {u"&گام‌های نخست"_s, u"check"_s, [this] { showFirstSteps(); }},
                {u"گ&شت در برنامه"_s, u"show"_s, [this] { Q_EMIT tourWanted(); }},
                {u"&راهنما"_s, u"help"_s, [this] { Q_EMIT manualWanted(); }, QKeySequence(Qt::Key_F1)},
                {u"&درباره برنامه"_s, u"info"_s, about},
                {u"&خروج"_s, u"close"_s, [this] { close(); }, control(Qt::Key_Q), Command::StartsGroup | Command::OfUser},
            });
}

// Alt alone goes to the menus too, as the toolkit has it.
void MainWindow::buildKeys()
{
    auto *search = new QShortcut(control(Qt::Key_K), this);
    connect(search, &QShortcut::activated, m_bar->search(), &SearchBox::begin);
    auto *menus = new QShortcut(QKeySequence(Qt::Key_F10), this);
    connect(menus, &QShortcut::activated, this, [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
}

void MainWindow::startClock()
{
    m_reminders->setToolTip(m_reminders->toolTip() + u" (%1)"_s.arg(remindersKey.toString(QKeySequence::NativeText)));
    connect(m_reminders, &ReminderBadge::clicked, this, &MainWindow::openReminders);
    m_clock.setObjectName(u"clock"_s);
    m_clock.setInterval(60 * 1000);
    connect(&m_clock, &QTimer::timeout, this, &MainWindow::showDate);
    connect(&m_clock, &QTimer::timeout, m_reminders, &ReminderBadge::tick);
    connect(&m_clock, &QTimer::timeout, this, [this] {
        if (m_binEmptied.isValid() && m_binEmptied != QDate::currentDate())
            emptyBin();
    });
    m_clock.start();
}

void MainWindow::refresh()
{
    const CDBSetting *setting = GetDBSetting();
    const OfficeSettings shared = OfficeSettings::read();
    const QString office = CompanyDetails::read().name();
    const QString program = u"گالری اتومبیل"_s;
    setWindowTitle((m_band.isEmpty() ? QString() : m_band + u" - "_s) + (office.isEmpty() ? program : office + u" - "_s + program));
    m_bar->setUser(setting->GetUserFullName());
    m_status->setUser(setting->GetUserFullName());
    m_status->setDatabase(DatabaseInfo::name());
    m_status->setFiscalYear(shared.fiscalYear());
    m_status->setClosed(shared.isClosed());
    showDate();
    m_reminders->refresh();
    m_startPage->setGreeting(u"سلام %1"_s.arg(setting->GetUserFullName()),
                             office.isEmpty() ? longDate(QDate::currentDate())
                                              : office + u"، "_s + longDate(QDate::currentDate()));
    m_startPage->refresh();
}

void MainWindow::showNote(const QString &text)
{
    constexpr int shownMilliseconds = 15000;
    m_status->showMessage(text, shownMilliseconds);
}

void MainWindow::undoDeletion(const Bin::Entry &entry)
{
    KErrorBoundary::guarded(this, [&] {
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        showNote(restored.message.section(u'\n', 0, 0));
        if (auto *list = qobject_cast<KListPage *>(m_workArea->currentPage()))
            list->showRecord(restored.table, restored.key);
        // What is not as it was is not to be overlooked.
        if (restored.message.contains(u'\n'))
            g_pDlgMessage->Show(restored.message, this);
    });
}

void MainWindow::emptyBin()
{
    m_binEmptied = QDate::currentDate();
    try {
        Bin::removeExpired();
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "bin:" << KErrorText::logText(std::current_exception());
    }
}

void MainWindow::makeSearchable()
{
    connect(m_searchBuilding, &SearchBuilding::progressed, m_bar->search(), &SearchBox::setNotice, Qt::UniqueConnection);
    m_searchBuilding->start();
}

void MainWindow::tellDueReminders()
{
    try {
        if (CDlgDueAlarms::ShowAtLogin(this))
            m_reminders->refresh();
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "reminders:" << KErrorText::logText(std::current_exception());
    }
}

void MainWindow::openReminders()
{
    m_workArea->open(remindersText, false, [this] { showReminders(); });
}

void MainWindow::showReminders()
{
    auto *page = new CDlgAlarms;
    connect(page, &CDlgAlarms::alarmsChanged, m_reminders, &ReminderBadge::refresh);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
    m_reminders->refresh();
}

void MainWindow::showKeys()
{
    QVector<KeyList::Entry> keys = KeyList::ofMenus(*menuBar());
    if (const KDialogTabPage *page = m_workArea->currentPage())
        keys += KeyList::ofPage(*page);
    CDlgKeys(keys + KeyList::everywhere(), this).exec();
}

void MainWindow::showFirstSteps()
{
    m_workArea->showStartPage();
    m_startPage->showFirstSteps();
}

void MainWindow::showDate()
{
    m_status->setDate(longDate(QDate::currentDate()));
}

bool MainWindow::mayManage(bool changes)
{
    KSecurity security;
    security.SetFormName(u"Settings"_s);
    security.CheckSecurity();
    return security.CheckAccessSecurity() && (!changes || security.CheckModifySecurity());
}

bool MainWindow::refusedInBackup()
{
    if (!OfficeSettings::isOnlyRead())
        return false;
    g_pDlgWarning->Show(OfficeSettings::closedMessage(), this);
    return true;
}

void MainWindow::editSettings()
{
    if (refusedInBackup() || !mayManage(true) || CDlgSettings(m_folder, this).exec() != QDialog::Accepted)
        return;
    refresh();
    if (KDialogTabPage *page = m_workArea->currentPage())
        page->refreshIfStale();
}

void MainWindow::takeBackup()
{
    // A backup holds everything, also what the user who takes it may not open here.
    if (refusedInBackup() || !mayManage(false))
        return;
    if (m_keeper && m_keeper->isTaking())
        g_pDlgMessage->Show(u"هم‌اکنون پشتیبانی گرفته می‌شود."_s, this);
    else
        Backup::takeNow(m_folder, m_keeper, this);
}

// The database is exchanged when no page of this window works on it any more.
void MainWindow::manageBackups()
{
    if (refusedInBackup() || !mayManage(false))
        return;
    m_restore = CDlgBackups::choose(m_folder, m_keeper, this);
    if (m_restore.file.exists() && !close())
        m_restore = {};
}

void MainWindow::showBackups(BackupKeeper &keeper)
{
    m_keeper = &keeper;
    const auto show = [this, &keeper] {
        m_status->backups()->show(keeper.standing());
        m_startPage->setBackups(keeper.standing());
    };
    connect(&keeper, &BackupKeeper::standingChanged, this, show);
    connect(&keeper, &BackupKeeper::failed, this, [this](const QString &message) {
        m_backupFailure = message;
        tellBackupFailure();
    });
    connect(m_status->backups(), &BackupSign::clicked, this, &MainWindow::manageBackups);
    connect(m_startPage, &StartPage::backupAsked, this, &MainWindow::takeBackup);
    show();
}

void MainWindow::tellBackups()
{
    m_backupFailure = m_keeper ? BackupKeeper::failure() : QString();
    tellBackupFailure();
}

// Not into the middle of a question, nor while the database is waited for.
void MainWindow::tellBackupFailure()
{
    constexpr int laterMilliseconds = 2000;
    if (m_backupFailure.isEmpty())
        return;
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget() || KConnection::isWaiting()) {
        QTimer::singleShot(laterMilliseconds, this, &MainWindow::tellBackupFailure);
        return;
    }
    g_pDlgWarning->Show(std::exchange(m_backupFailure, {}), this);
}

void MainWindow::markAsBackup(const QString &band)
{
    m_band = band;
    auto *both = new QWidget(this);
    auto *column = new QVBoxLayout(both);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(new BackupBand(band, both));
    takeCentralWidget();
    column->addWidget(m_workArea, 1);
    setCentralWidget(both);
    refresh();
}

void MainWindow::switchUser()
{
    m_switchingUser = true;
    m_switchingUser = close();
}

void MainWindow::restoreWindow()
{
    constexpr QSize least(640, 420);
    const QSize free = QGuiApplication::primaryScreen()->availableSize();
    setMinimumSize(QSize(LookSizes::scaled(least.width()), LookSizes::scaled(least.height())).boundedTo(free));
    const QByteArray geometry = ReadSetting(windowSection, u"geometry"_s, QByteArray());
    if (!geometry.isEmpty() && restoreGeometry(geometry)) {
        LookSizes::keepOnScreen(this);
        return;
    }
    // People work in this window all day: the whole screen, unless they left it otherwise.
    resize(QSize(1180, 760).boundedTo(free - QSize(40, 80)));
    setWindowState(windowState() | Qt::WindowMaximized);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!closeModalWindows()) {
        event->ignore();
        return;
    }
    WriteSetting(windowSection, u"geometry"_s, saveGeometry());
    event->accept();
    Q_EMIT closed();
}
