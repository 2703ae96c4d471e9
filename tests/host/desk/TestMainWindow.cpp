// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/MainWindow.h"

#include "host/frame/AutoModule.h"
#include "host/start/DatabaseUpgrade.h"
#include "host/desk/ReminderBadge.h"
#include "host/desk/StartButton.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/reminders/CDlgAlarms.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/HostTestOffice.h"
#include "tests/suite/crm/reminders/Alarms.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QAction>
#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_module.unload(); }
    void init();
    void menuOfTheModuleStandsToTheLetter();
    void entriesOfTheModuleAreThere();
    void everyShortcutBelongsToOneEntry();
    void withoutTheModuleTheWindowWorks();
    void listsOfTheModuleOpenAsATabEachTime_data();
    void listsOfTheModuleOpenAsATabEachTime();
    void hostPagesOpenOnce_data();
    void hostPagesOpenOnce();
    void withoutRightsNothingOpens_data();
    void withoutRightsNothingOpens();
    void settingsAreRefusedWithoutTheRight();
    void startPageHasTheCommandsOfADay();
    void statusLineTellsWhatIsWorkedOn();
    void closedDatabaseIsMarked();
    void titleNamesTheOffice();
    void geometryIsRemembered();
    void closingEndsEveryPageAndTellsIt();
    void switchingUserIsTold();
    void remindersOpenOnceForEverybody();
    void badgeCountsTheUsersDueReminders();
    void badgeIsRefreshedByTheClock();
    void badgeOpensTheListAndFollowsIt();
    void badgeStaysQuietWhenTheDatabaseDoesNotAnswer();
    void dueRemindersAreToldOnceAtLogin();

private:
    static ReminderBadge *badge(const MainWindow &window) { return window.findChild<ReminderBadge *>(); }
    static QAction *action(const MainWindow &window, const QString &text);
    static QStringList statusTexts(const MainWindow &window);

    HostTestOffice m_office;
    AutoModule m_module;
    QTemporaryDir m_folder;
};

void TestMainWindow::initTestCase()
{
    QVERIFY2(m_module.load(QStringLiteral(TZ_MODULE_DIR)), qPrintable(m_module.errorText()));
}

void TestMainWindow::init()
{
    m_office.fresh();
    DatabaseUpgrade upgrade(m_folder.path(), [](const QString &) {});
    upgrade.upgradeSuite();
    QVERIFY(upgrade.upgradeModule(*m_module.entry()));
}

QAction *TestMainWindow::action(const MainWindow &window, const QString &text)
{
    for (QAction *candidate : window.findChildren<QAction *>())
        if (candidate->text() == text && !candidate->menu())
            return candidate;
    return nullptr;
}

QStringList TestMainWindow::statusTexts(const MainWindow &window)
{
    QStringList texts;
    for (const QLabel *label : window.statusBar()->findChildren<QLabel *>())
        if (!label->isHidden())
            texts.append(label->text());
    return texts;
}

void TestMainWindow::menuOfTheModuleStandsToTheLetter()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QAction *first = window.menuBar()->actions().constFirst();
    QCOMPARE(first->text(), QStringLiteral("گالری اتومبیل"));
    QStringList entries;
    for (const QAction *entry : first->menu()->actions())
        entries.append(entry->text());
    QCOMPARE(entries, (QStringList{
                          QStringLiteral("قرارداد"),
                          QStringLiteral("تقاضا"),
                          QStringLiteral("گالري اتومبيل"),
                          QStringLiteral("گزارش فصلي"),
                      }));
    QCOMPARE(window.layoutDirection(), QApplication::layoutDirection());
}

void TestMainWindow::entriesOfTheModuleAreThere()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QMenu *menu = window.menuBar()->actions().constFirst()->menu();
    for (const QAction *entry : menu->actions())
        QVERIFY2(entry->isEnabled(), qPrintable(entry->text()));
    QVERIFY(menu->toolTipsVisible());
}

void TestMainWindow::everyShortcutBelongsToOneEntry()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QHash<QKeySequence, QString> entries;
    for (const QAction *menu : window.menuBar()->actions()) {
        for (const QAction *entry : menu->menu()->actions()) {
            if (entry->shortcut().isEmpty())
                continue;
            QVERIFY2(!entries.contains(entry->shortcut()), qPrintable(entry->text()));
            entries.insert(entry->shortcut(), entry->text());
        }
    }
    QVERIFY(entries.size() > 5);
}

void TestMainWindow::withoutTheModuleTheWindowWorks()
{
    const MainWindow window(DataFolder(m_folder.path()), nullptr);
    QVERIFY(!action(window, QStringLiteral("قرارداد"))->isEnabled());
    QVERIFY(action(window, QStringLiteral("قرارداد"))->toolTip().contains(QStringLiteral("بارگذاری نشده")));
    action(window, QStringLiteral("اشخاص"))->trigger();
    QCOMPARE(window.workArea()->count(), 1);
}

void TestMainWindow::listsOfTheModuleOpenAsATabEachTime_data()
{
    QTest::addColumn<QString>("entry");
    QTest::newRow("contracts") << QStringLiteral("قرارداد");
    QTest::newRow("demands") << QStringLiteral("تقاضا");
    QTest::newRow("cars") << QStringLiteral("گالري اتومبيل");
}

void TestMainWindow::listsOfTheModuleOpenAsATabEachTime()
{
    QFETCH(QString, entry);
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    action(window, entry)->trigger();
    action(window, entry)->trigger();
    QCOMPARE(window.workArea()->count(), 2);
    QCOMPARE(window.workArea()->currentPage()->title(), entry);
}

void TestMainWindow::hostPagesOpenOnce_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("form");
    QTest::newRow("persons") << "اشخاص"
                             << "Persons";
    QTest::newRow("documents") << "اسناد حسابداری"
                               << "Documents";
    QTest::newRow("invoices") << "فاکتورها"
                              << "Factors";
    QTest::newRow("services") << "خدمات"
                              << "Services";
    QTest::newRow("chart of accounts") << "سرفصل حساب‌ها"
                                       << "ChartOfAccounts";
    QTest::newRow("users") << "کاربران و دسترسی‌ها"
                           << "Users";
}

void TestMainWindow::hostPagesOpenOnce()
{
    QFETCH(QString, entry);
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(action(window, entry));
    action(window, entry)->trigger();
    action(window, entry)->trigger();
    QCOMPARE(window.workArea()->count(), 1);
    QCOMPARE(window.workArea()->currentPage()->title(), entry);
}

void TestMainWindow::withoutRightsNothingOpens_data()
{
    hostPagesOpenOnce_data();
    QTest::newRow("contracts") << "قرارداد"
                               << "AutomobilContracts";
    QTest::newRow("demands") << "تقاضا"
                             << "AutomobilDemands";
    QTest::newRow("cars") << "گالري اتومبيل"
                          << "AutomobilInformations";
}

void TestMainWindow::withoutRightsNothingOpens()
{
    QFETCH(QString, entry);
    QFETCH(QString, form);
    m_office.loginClerk();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    action(window, entry)->trigger();
    QCOMPARE(window.workArea()->count(), 0);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, KSecurity::Access)});
}

void TestMainWindow::settingsAreRefusedWithoutTheRight()
{
    m_office.loginClerk();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    action(window, QStringLiteral("تنظیمات"))->trigger();
    action(window, QStringLiteral("پشتیبان‌گیری"))->trigger();
    const QString refusal = KSecurity::refusalText(QStringLiteral("Settings"), KSecurity::Access);
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{refusal, refusal}));
}

void TestMainWindow::startPageHasTheCommandsOfADay()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QList<StartButton *> buttons = window.findChildren<StartButton *>();
    QStringList captions;
    for (const StartButton *button : buttons) {
        QCOMPARE(button->accessibleName(), button->text());
        captions.append(button->text());
    }
    QCOMPARE(captions.size(), 10);
    QCOMPARE(captions.constFirst(), QStringLiteral("قرارداد"));
    QVERIFY(buttons.constFirst()->hasFocus());
    QSet<int> rows;
    for (const StartButton *button : buttons)
        rows.insert(button->y());
    QVERIFY2(rows.size() <= 3, "more rows would make the window higher than a small screen");
    QTest::keyClick(buttons.constFirst(), Qt::Key_Space);
    QCOMPARE(window.workArea()->count(), 1);
    QTRY_VERIFY(!buttons.constFirst()->isVisible());
}

void TestMainWindow::statusLineTellsWhatIsWorkedOn()
{
    GetDBSetting()->SetFiscalYear(1404);
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QString all = statusTexts(window).join(u'|');
    QVERIFY2(all.contains(QStringLiteral("کاربر : مدیر")), qPrintable(all));
    QVERIFY2(all.contains(m_office.database.name()), qPrintable(all));
    QVERIFY2(all.contains(QStringLiteral("سال مالی : 1404")), qPrintable(all));
    QVERIFY2(!all.contains(QStringLiteral("بسته است")), qPrintable(all));
}

void TestMainWindow::closedDatabaseIsMarked()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    GetDBSetting()->SetClosedDB(true);
    window.refresh();
    QVERIFY(statusTexts(window).contains(QStringLiteral("پایگاه داده بسته است")));
}

void TestMainWindow::titleNamesTheOffice()
{
    CompanyDetails company;
    company.name1 = QStringLiteral("نمایشگاه آریا");
    company.write();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(window.windowTitle().startsWith(QStringLiteral("نمایشگاه آریا")));
}

void TestMainWindow::geometryIsRemembered()
{
    QSize size;
    {
        MainWindow window(DataFolder(m_folder.path()), m_module.entry());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.resize(720, 510);
        size = window.size();
        window.close();
    }
    MainWindow next(DataFolder(m_folder.path()), m_module.entry());
    QCOMPARE(next.size(), size);
}

void TestMainWindow::closingEndsEveryPageAndTellsIt()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    action(window, QStringLiteral("قرارداد"))->trigger();
    action(window, QStringLiteral("اشخاص"))->trigger();
    QSignalSpy closed(&window, &MainWindow::closed);
    window.close();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(window.workArea()->count(), 0);
    QVERIFY(!window.isSwitchingUser());
}

void TestMainWindow::switchingUserIsTold()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QSignalSpy closed(&window, &MainWindow::closed);
    action(window, QStringLiteral("ورود با کاربر دیگر"))->trigger();
    QCOMPARE(closed.count(), 1);
    QVERIFY(window.isSwitchingUser());
}

void TestMainWindow::remindersOpenOnceForEverybody()
{
    m_office.loginClerk();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QAction *entry = action(window, QStringLiteral("یادآوری ها"));
    QVERIFY(entry);
    QVERIFY(window.menuBar()->actions().at(1)->menu()->actions().contains(entry));
    entry->trigger();
    QCOMPARE(window.workArea()->count(), 1);
    auto *page = qobject_cast<CDlgAlarms *>(window.workArea()->currentPage());
    QVERIFY(page);
    page->open();
    QCOMPARE(page->list()->count(), 0);
    // What came meanwhile is there when one looks again.
    Alarms::add(GetDBSetting()->GetUserID(), -1, QStringLiteral("تازه"));
    entry->trigger();
    QCOMPARE(window.workArea()->count(), 1);
    QCOMPARE(page->list()->count(), 1);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestMainWindow::badgeCountsTheUsersDueReminders()
{
    const int clerk = CTblUsers::create(QStringLiteral("other"), QStringLiteral("other1"), {}, false);
    Alarms::add(clerk, -60, QStringLiteral("مال دیگری"));
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(badge(window)->isHidden());
    Alarms::add(m_office.admin, -60, QStringLiteral("اول"));
    Alarms::add(m_office.admin, -1, QStringLiteral("دوم"));
    Alarms::add(m_office.admin, 60, QStringLiteral("آینده"));
    window.refresh();
    QVERIFY(!badge(window)->isHidden());
    QCOMPARE(badge(window)->text(), QStringLiteral("یادآوری : 2"));
    QCOMPARE(badge(window)->accessibleName(), badge(window)->text());
    QVERIFY(badge(window)->focusPolicy() & Qt::TabFocus);
}

void TestMainWindow::badgeIsRefreshedByTheClock()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    Alarms::add(m_office.admin, -1, QStringLiteral("کار"));
    QVERIFY(badge(window)->isHidden());
    auto *clock = window.findChild<QTimer *>(QStringLiteral("clock"));
    QVERIFY(clock && clock->isActive());
    QCOMPARE(clock->interval(), 60 * 1000);
    // Minutes that pass at once.
    clock->setInterval(1);
    QTRY_VERIFY(!badge(window)->isHidden());
    QCOMPARE(badge(window)->text(), QStringLiteral("یادآوری : 1"));
}

void TestMainWindow::badgeOpensTheListAndFollowsIt()
{
    Alarms::add(m_office.admin, -60, QStringLiteral("اول"));
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    badge(window)->setFocus();
    QTest::keyClick(badge(window), Qt::Key_Space);
    auto *page = qobject_cast<CDlgAlarms *>(window.workArea()->currentPage());
    QVERIFY(page);
    page->list()->selectRow(0);
    QVERIFY(page->runCommand(QStringLiteral("انجام شد")));
    QVERIFY(badge(window)->isHidden());
    Alarms::add(m_office.admin, -60, QStringLiteral("دوم"));
    window.refresh();
    QTest::mouseClick(badge(window), Qt::LeftButton);
    QCOMPARE(window.workArea()->count(), 1);
    QCOMPARE(page->list()->count(), 1);
}

void TestMainWindow::badgeStaysQuietWhenTheDatabaseDoesNotAnswer()
{
    Alarms::add(m_office.admin, -60, QStringLiteral("اول"));
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(!badge(window)->isHidden());
    m_office.database.run(QStringLiteral("RENAME TABLE Alarms TO AlarmsAway"));
    badge(window)->tick();
    QVERIFY(badge(window)->isHidden());
    window.tellDueReminders();
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    m_office.database.run(QStringLiteral("RENAME TABLE AlarmsAway TO Alarms"));
    // It does not ask again every minute, but it does ask again.
    badge(window)->tick();
    QVERIFY(badge(window)->isHidden());
    for (int minute = 0; minute < 10; ++minute)
        badge(window)->tick();
    QCOMPARE(badge(window)->text(), QStringLiteral("یادآوری : 1"));
    QVERIFY(!badge(window)->isHidden());
}

void TestMainWindow::dueRemindersAreToldOnceAtLogin()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    // Without any no window comes, or this would wait for somebody.
    window.tellDueReminders();
    Alarms::add(m_office.admin, -60, QStringLiteral("اول"));
    Alarms::add(m_office.admin, -50, QStringLiteral("هر بار"), Alarms::repeats);
    QList<int> rows;
    const auto count = [&rows](QDialog *dialog) { rows.append(dialog->findChild<KExtListCtrl *>()->count()); };
    for (int login = 0; login < 2; ++login) {
        Hand::inNextWindow(count);
        window.tellDueReminders();
    }
    QCOMPARE(rows, (QList<int>{2, 1}));
    QCOMPARE(badge(window)->text(), QStringLiteral("یادآوری : 2"));
}

static const RegisteredTest<TestMainWindow, QApplication> registered;
#include "TestMainWindow.moc"
