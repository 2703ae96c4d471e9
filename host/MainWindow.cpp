// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/MainWindow.h"

#include "auto/CAutoDBSetting.h"
#include "auto/db/KConnection.h"
#include "host/Backup.h"
#include "host/CDlgAbout.h"
#include "host/CDlgChangePassword.h"
#include "host/CDlgDocuments.h"
#include "host/CDlgSettings.h"
#include "host/CDlgUsers.h"
#include "host/StartPage.h"
#include "host/WorkArea.h"
#include "suite/accounting/CDBSetting.h"
#include "suite/accounting/KMessageDialog.h"
#include "suite/accounting/KSecurity.h"
#include "suite/crm/CDlgPersons.h"
#include "suite/crm/CompanyDetails.h"
#include "suite/utility/KSettings.h"
#include "suite/utility/ShamsiDate.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>

namespace {

const QString windowSection = QStringLiteral("tzhost\\Window");

QString longDate(const QDate &day)
{
    const ShamsiDate date = GetShamsi(day);
    return QStringLiteral("%1 %2 %3 %4")
        .arg(shamsiDayName(shamsiDayOfWeek(day)), QString::number(date.day), shamsiMonthName(date.month),
             QString::number(date.year));
}

QString databaseText()
{
    const KConnectionSettings settings = KConnection::settings(0);
    return settings.host.isEmpty() ? settings.database : settings.database + QStringLiteral(" @ ") + settings.host;
}

}

MainWindow::MainWindow(const DataFolder &folder, CAutoDBSetting *module, QWidget *parent)
    : QMainWindow(parent)
    , m_folder(folder)
    , m_module(module)
    , m_user(new QLabel(this))
    , m_database(new QLabel(this))
    , m_fiscalYear(new QLabel(this))
    , m_date(new QLabel(this))
    , m_closedMark(new QLabel(this))
{
    menuBar()->setAccessibleName(QStringLiteral("منو"));
    buildAutoMenu();
    buildBookMenu();
    buildManagementMenu();
    buildProgramMenu();
    m_startPage = new StartPage(m_startActions);
    m_workArea = new WorkArea(m_startPage, this);
    setCentralWidget(m_workArea);
    buildStatusBar();
    GetDBSetting()->SetTabHost(m_workArea);
    refresh();
    restoreWindow();
    m_startPage->focusFirst();
}

MainWindow::~MainWindow()
{
    m_workArea->closeAll();
    if (GetDBSetting()->TabHost() == m_workArea)
        GetDBSetting()->SetTabHost(nullptr);
}

template <class Page>
void MainWindow::openOnce()
{
    if (!m_workArea->showExisting<Page>())
        GetDBSetting()->AddDialogToTabPage_(new Page, 1, 0);
}

QAction *MainWindow::addCommand(QMenu *menu, const Command &command)
{
    auto *action = new QAction(command.text, this);
    if (!command.icon.isEmpty())
        action->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(command.icon)));
    action->setShortcut(command.shortcut);
    action->setEnabled(command.run && command.available);
    if (!command.run) {
        const QString later = QStringLiteral("«%1» در نسخه‌های بعدی برنامه می‌آید.").arg(command.text);
        action->setToolTip(later);
        action->setStatusTip(later);
    } else if (!command.available) {
        const QString missing = QStringLiteral("افزونه گالری اتومبیل بارگذاری نشده است.");
        action->setToolTip(missing);
        action->setStatusTip(missing);
    } else {
        connect(action, &QAction::triggered, this, command.run);
    }
    menu->addAction(action);
    return action;
}

void MainWindow::buildAutoMenu()
{
    QMenu *menu = menuBar()->addMenu(QStringLiteral("گالری اتومبیل"));
    menu->setToolTipsVisible(true);
    m_startActions.append(addCommand(menu, {QStringLiteral("قرارداد"), QStringLiteral("contract"), [this] { openContracts(); },
                                            QKeySequence(Qt::CTRL | Qt::Key_1), m_module != nullptr}));
    addCommand(menu, {QStringLiteral("تقاضا"), QStringLiteral("search"), {}});
    addCommand(menu, {QStringLiteral("گالري اتومبيل"), QStringLiteral("car"), {}});
    addCommand(menu, {QStringLiteral("گزارش فصلي"), QStringLiteral("receipt"), {}});
}

void MainWindow::buildBookMenu()
{
    QMenu *menu = menuBar()->addMenu(QStringLiteral("اشخاص و اسناد"));
    m_startActions.append(addCommand(menu, {QStringLiteral("اشخاص"), QStringLiteral("users"), [this] { openOnce<CDlgPersons>(); },
                                            QKeySequence(Qt::CTRL | Qt::Key_2)}));
    m_startActions.append(addCommand(menu, {QStringLiteral("اسناد حسابداری"), QStringLiteral("document"),
                                            [this] { openOnce<CDlgDocuments>(); }, QKeySequence(Qt::CTRL | Qt::Key_3)}));
}

void MainWindow::buildManagementMenu()
{
    QMenu *menu = menuBar()->addMenu(QStringLiteral("مدیریت"));
    m_startActions.append(addCommand(menu, {QStringLiteral("کاربران و دسترسی‌ها"), QStringLiteral("user"),
                                            [this] { openOnce<CDlgUsers>(); }, QKeySequence(Qt::CTRL | Qt::Key_4)}));
    m_startActions.append(addCommand(menu, {QStringLiteral("تنظیمات"), QStringLiteral("settings"), [this] { editSettings(); },
                                            QKeySequence(Qt::CTRL | Qt::Key_5)}));
    menu->addSeparator();
    m_startActions.append(addCommand(menu, {QStringLiteral("پشتیبان‌گیری"), QStringLiteral("save"),
                                            [this] { takeBackup(); },
                                            QKeySequence(Qt::CTRL | Qt::Key_B)}));
    addCommand(menu, {QStringLiteral("پوشه پشتیبان‌ها"), QStringLiteral("database"),
                      [this] { Backup::showFolder(m_folder.backupsPath(), this); }});
}

void MainWindow::buildProgramMenu()
{
    QMenu *menu = menuBar()->addMenu(QStringLiteral("برنامه"));
    addCommand(menu, {QStringLiteral("تغییر کلمه عبور"), QStringLiteral("user"), [this] { CDlgChangePassword(this).exec(); }});
    addCommand(menu, {QStringLiteral("ورود با کاربر دیگر"), QStringLiteral("logout"), [this] {
                          m_switchingUser = true;
                          close();
                      }});
    menu->addSeparator();
    addCommand(menu, {QStringLiteral("درباره برنامه"), QStringLiteral("info"), [this] { CDlgAbout(m_folder, this).exec(); },
                      QKeySequence(Qt::Key_F1)});
    menu->addSeparator();
    addCommand(menu, {QStringLiteral("خروج"), QStringLiteral("close"), [this] { close(); },
                      QKeySequence(Qt::CTRL | Qt::Key_Q)});
}

void MainWindow::buildStatusBar()
{
    m_closedMark->setStyleSheet(QStringLiteral("font-weight: bold; color: #c0392b"));
    for (QLabel *label : {m_user, m_database, m_fiscalYear, m_date, m_closedMark}) {
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(8, 0, 8, 0);
        statusBar()->addPermanentWidget(label);
    }
    m_clock.setInterval(60 * 1000);
    connect(&m_clock, &QTimer::timeout, this, &MainWindow::showDate);
    m_clock.start();
}

void MainWindow::refresh()
{
    const CDBSetting *setting = GetDBSetting();
    const QString office = CompanyDetails::read().name();
    const QString program = QStringLiteral("گالری اتومبیل");
    setWindowTitle(office.isEmpty() ? program : office + QStringLiteral(" - ") + program);
    m_user->setText(QStringLiteral("کاربر : %1").arg(setting->GetUserFullName()));
    m_database->setText(QStringLiteral("پایگاه داده : %1").arg(databaseText()));
    m_fiscalYear->setText(QStringLiteral("سال مالی : %1").arg(setting->FiscalYear()));
    const bool closed = setting->IsClosedDB();
    m_closedMark->setText(closed ? QStringLiteral("پایگاه داده بسته است") : QString());
    m_closedMark->setVisible(closed);
    showDate();
    m_startPage->setGreeting(QStringLiteral("سلام %1").arg(setting->GetUserFullName()),
                             office.isEmpty() ? longDate(QDate::currentDate())
                                              : office + QStringLiteral("، ") + longDate(QDate::currentDate()));
}

void MainWindow::showNote(const QString &text)
{
    constexpr int shownMilliseconds = 15000;
    statusBar()->showMessage(text, shownMilliseconds);
}

void MainWindow::showDate()
{
    m_date->setText(longDate(QDate::currentDate()));
}

void MainWindow::openContracts()
{
    m_module->ShowAutomobilContractDlg();
}

bool MainWindow::mayManage(bool changes)
{
    KSecurity security;
    security.SetFormName(QStringLiteral("Settings"));
    security.CheckSecurity();
    return security.CheckAccessSecurity() && (!changes || security.CheckModifySecurity());
}

void MainWindow::editSettings()
{
    if (mayManage(true) && CDlgSettings(this).exec() == QDialog::Accepted)
        refresh();
}

void MainWindow::takeBackup()
{
    // A backup holds everything, also what its taker may not open here.
    if (mayManage(false))
        Backup::takeNow(m_folder.backupsPath(), this);
}

void MainWindow::restoreWindow()
{
    const QByteArray geometry = ReadSetting(windowSection, QStringLiteral("geometry"), QByteArray());
    if (!geometry.isEmpty() && restoreGeometry(geometry))
        return;
    // People work in this window all day: the whole screen, unless they left it otherwise.
    resize(QSize(1180, 760).boundedTo(QGuiApplication::primaryScreen()->availableSize() - QSize(40, 80)));
    setWindowState(windowState() | Qt::WindowMaximized);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    WriteSetting(windowSection, QStringLiteral("geometry"), saveGeometry());
    m_workArea->closeAll();
    event->accept();
    Q_EMIT closed();
}
