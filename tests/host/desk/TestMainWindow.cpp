// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/host/desk/MainWindowTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// Menus, the pages that they open, and leaving.
class TestMainWindow : public MainWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadModule(); }
    void cleanupTestCase() { unloadModule(); }
    void init() { begin(); }
    void menuOfTheModuleStandsToTheLetter();
    void entriesOfTheModuleAreThere();
    void everyShortcutBelongsToOneEntry();
    void withoutTheModuleTheWindowWorks();
    void pagesOpenOnce_data();
    void pagesOpenOnce();
    void anotherPageOpensWithControlHeld();
    void shortcutWithShiftOpensAnotherPage();
    void withoutRightsNothingOpens_data();
    void withoutRightsNothingOpens();
    void settingsAreRefusedWithoutTheRight();
    void backupsAreForAdministrators();
    void historyIsForAdministrators();
    void geometryIsRemembered();
    void closingTellsItAndThePagesEndWithTheWindow();
    void leavingEndsAnOpenEditorBeforeItsPage_data();
    void leavingEndsAnOpenEditorBeforeItsPage();
    void keptEditorKeepsTheProgram();
    void closingTheDatabaseHidesTheCommandsOfTheListAtOnce();
    void entriesWithoutTheirRightLookDisabled();
    void switchingUserIsTold();
    void remindersOpenOnceForEverybody();
};

void TestMainWindow::menuOfTheModuleStandsToTheLetter()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QAction *first = window.menuBar()->actions().constFirst();
    QCOMPARE(first->iconText(), u"گالری اتومبیل"_s);
    QStringList entries;
    for (const QAction *entry : first->menu()->actions())
        entries.append(entry->iconText());
    QCOMPARE(entries, (QStringList{
                          u"قرارداد"_s,
                          u"تقاضا"_s,
                          u"گالري اتومبيل"_s,
                          u"گزارش فصلي"_s,
                          u"اقساط و سررسیدها"_s,
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
            entries.insert(entry->shortcut(), entry->iconText());
        }
    }
    QVERIFY(entries.size() > 5);
}

void TestMainWindow::withoutTheModuleTheWindowWorks()
{
    const MainWindow window(DataFolder(m_folder.path()), nullptr);
    QVERIFY(!action(window, u"قرارداد"_s)->isEnabled());
    QVERIFY(action(window, u"قرارداد"_s)->toolTip().contains(u"بارگذاری نشده"_s));
    action(window, u"اشخاص"_s)->trigger();
    QCOMPARE(window.workArea()->count(), 1);
}

void TestMainWindow::pagesOpenOnce_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("form");
    QTest::newRow("contracts") << "قرارداد"
                               << "AutomobilContracts";
    QTest::newRow("demands") << "تقاضا"
                             << "AutomobilDemands";
    QTest::newRow("cars") << "گالري اتومبيل"
                          << "AutomobilInformations";
    QTest::newRow("instalments") << "اقساط و سررسیدها"
                                 << "AutomobilPayments";
    QTest::newRow("cash and banks") << "صندوق و بانک"
                                    << "Receipts";
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

void TestMainWindow::pagesOpenOnce()
{
    QFETCH(QString, entry);
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(action(window, entry));
    action(window, entry)->trigger();
    const KDialogTabPage *opened = window.workArea()->currentPage();
    action(window, u"یادآوری ها"_s)->trigger();
    QVERIFY(window.workArea()->currentPage() != opened);
    action(window, entry)->trigger();
    QCOMPARE(window.workArea()->count(), 2);
    QCOMPARE(window.workArea()->currentPage(), opened);
    QCOMPARE(opened->title(), entry);
}

void TestMainWindow::anotherPageOpensWithControlHeld()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QMenu *menu = window.menuBar()->actions().constFirst()->menu();
    const QPoint entry = menu->actionGeometry(menu->actions().constFirst()).center();
    for (const Qt::KeyboardModifiers modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers()}) {
        menu->popup(QPoint(0, 0));
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        QTest::mouseClick(menu, Qt::LeftButton, modifiers, entry);
    }
    const QTabWidget *tabs = window.workArea()->findChild<QTabWidget *>();
    QCOMPARE(tabs->count(), 3);
    QCOMPARE(tabs->tabText(1), u"قرارداد"_s);
    QCOMPARE(tabs->tabText(2), u"قرارداد (2)"_s);
}

void TestMainWindow::shortcutWithShiftOpensAnotherPage()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto press = [&window](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(window.windowHandle(), Qt::Key_2, modifiers);
    };
    press(Qt::ControlModifier);
    QCOMPARE(window.workArea()->count(), 1);
    press(Qt::ControlModifier);
    QCOMPARE(window.workArea()->count(), 1);
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(window.workArea()->count(), 2);
    QCOMPARE(window.workArea()->currentPage()->title(), u"اشخاص"_s);
}

void TestMainWindow::withoutRightsNothingOpens_data()
{
    pagesOpenOnce_data();
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
    action(window, u"تنظیمات"_s)->trigger();
    action(window, u"پشتیبان‌گیری"_s)->trigger();
    const QString refusal = KSecurity::refusalText(u"Settings"_s, KSecurity::Access);
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{refusal, refusal}));
}

void TestMainWindow::backupsAreForAdministrators()
{
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"Settings"_s, KSecurity::allRights);
    KSecurity::forgetRights();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    action(window, u"بازگرداندن پشتیبان"_s)->trigger();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این کار فقط برای مدیر برنامه مجاز است."_s});
    QVERIFY(!window.restoreRequest().file.exists());
}

void TestMainWindow::historyIsForAdministrators()
{
    {
        const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
        action(window, u"تاریخچه"_s)->trigger();
        QCOMPARE(window.workArea()->currentPage()->title(), u"تاریخچه"_s);
        QVERIFY(ActionHindrance::of(*action(window, u"تاریخچه"_s)).isEmpty());
    }
    m_office.loginClerk();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(!ActionHindrance::of(*action(window, u"تاریخچه"_s)).isEmpty());
    action(window, u"تاریخچه"_s)->trigger();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تاریخچه همه رکوردها را تنها مدیر می‌بیند."_s});
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

void TestMainWindow::closingTellsItAndThePagesEndWithTheWindow()
{
    QPointer<KDialogTabPage> page;
    {
        MainWindow window(DataFolder(m_folder.path()), m_module.entry());
        action(window, u"قرارداد"_s)->trigger();
        page = window.workArea()->currentPage();
        action(window, u"اشخاص"_s)->trigger();
        QSignalSpy closed(&window, &MainWindow::closed);
        window.close();
        QCOMPARE(closed.count(), 1);
        QVERIFY(!window.isSwitchingUser());
        QVERIFY(page);
    }
    QVERIFY(!page);
}

void TestMainWindow::leavingEndsAnOpenEditorBeforeItsPage_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("typed");
    QTest::newRow("quit") << u"خروج"_s << false;
    QTest::newRow("quit, work in the editor") << u"خروج"_s << true;
    QTest::newRow("another login") << u"ورود با کاربر دیگر"_s << true;
}

// A screen reader's command reaches the menu past the editor. The editor belongs to code of the page that waits for it.
void TestMainWindow::leavingEndsAnOpenEditorBeforeItsPage()
{
    QFETCH(QString, entry);
    QFETCH(bool, typed);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    action(window, u"خدمات"_s)->trigger();
    auto *page = qobject_cast<KListPage *>(window.workArea()->currentPage());
    QVERIFY(page);
    QSignalSpy closed(&window, &MainWindow::closed);
    Hand::inNextWindow([&](QDialog *dialog) {
        if (typed)
            dialog->findChild<QLineEdit *>()->setText(u"7"_s);
        action(window, entry)->trigger();
        QVERIFY(!dialog->isVisible());
    });
    const QPointer<KListPage> waiting = page;
    QVERIFY(page->runCommand(u"new"));
    QVERIFY(waiting);
    QCOMPARE(closed.count(), 1);
    QVERIFY(!window.isVisible());
    QCOMPARE(g_pDlgYesNo->takeShown().size(), typed ? 1 : 0);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Services"_s), u"0"_s);
}

void TestMainWindow::keptEditorKeepsTheProgram()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    action(window, u"خدمات"_s)->trigger();
    auto *page = static_cast<KListPage *>(window.workArea()->currentPage());
    QSignalSpy closed(&window, &MainWindow::closed);
    Hand::inNextWindow([&](QDialog *dialog) {
        auto *line = dialog->findChild<QLineEdit *>();
        line->setText(u"7"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        action(window, u"ورود با کاربر دیگر"_s)->trigger();
        QVERIFY(dialog->isVisible());
        QCOMPARE(line->text(), u"7"_s);
    });
    QVERIFY(page->runCommand(u"new"));
    QCOMPARE(closed.count(), 0);
    QVERIFY(window.isVisible());
    QVERIFY(!window.isSwitchingUser());
}

void TestMainWindow::closingTheDatabaseHidesTheCommandsOfTheListAtOnce()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    action(window, u"اشخاص"_s)->trigger();
    auto *page = static_cast<KListPage *>(window.workArea()->currentPage());
    QVERIFY(!page->button(u"new")->isHidden());
    for (const bool closes : {true, false}) {
        Hand::inNextWindow([closes](QDialog *dialog) {
            GetDBSetting()->SetClosedDB(closes);
            dialog->done(QDialog::Accepted);
        });
        action(window, u"تنظیمات"_s)->trigger();
        QCOMPARE(page->button(u"new")->isHidden(), closes);
        const QVector<KeyList::Entry> keys = KeyList::ofPage(*page);
        const auto has = [&keys](const QString &work) { return std::ranges::any_of(keys, [&work](const auto &entry) { return entry.work == work; }); };
        QCOMPARE(has(u"جديد"_s), !closes);
        QVERIFY(has(u"نمايش"_s));
    }
}

void TestMainWindow::entriesWithoutTheirRightLookDisabled()
{
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"Persons"_s, KSecurity::Access);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QAction *persons = action(window, u"اشخاص"_s);
    const QAction *invoices = action(window, u"فاکتورها"_s);
    QVERIFY(ActionHindrance::of(*persons).isEmpty());
    const QString refusal = KSecurity::refusalText(u"Factors"_s, KSecurity::Access);
    QCOMPARE(ActionHindrance::of(*invoices), refusal);
    QCOMPARE(invoices->toolTip(), refusal);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const StartButton *button : window.findChildren<StartButton *>()) {
        if (button->text() == invoices->iconText())
            QCOMPARE(button->toolTip(), refusal);
        if (button->text() == persons->iconText())
            QVERIFY(button->toolTip() != refusal);
    }
    QMenu *menu = window.menuBar()->actions().at(1)->menu();
    menu->popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    const QImage picture = menu->grab().toImage();
    const auto darkest = [&](const QAction *entry) {
        const QRect line = menu->actionGeometry(const_cast<QAction *>(entry));
        int lightness = 255;
        // The words, which begin at the right, without the icon.
        for (int x = line.center().x(); x < line.right() - 40; ++x)
            for (int y = line.top(); y < line.bottom(); ++y)
                lightness = std::min(lightness, picture.pixelColor(x, y).lightness());
        return lightness;
    };
    QVERIFY2(darkest(invoices) > darkest(persons) + 40, qPrintable(u"%1 %2"_s.arg(darkest(invoices)).arg(darkest(persons))));
}

void TestMainWindow::switchingUserIsTold()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QSignalSpy closed(&window, &MainWindow::closed);
    action(window, u"ورود با کاربر دیگر"_s)->trigger();
    QCOMPARE(closed.count(), 1);
    QVERIFY(window.isSwitchingUser());
}

void TestMainWindow::remindersOpenOnceForEverybody()
{
    m_office.loginClerk();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QAction *entry = action(window, u"یادآوری ها"_s);
    QVERIFY(entry);
    QVERIFY(window.menuBar()->actions().at(1)->menu()->actions().contains(entry));
    entry->trigger();
    QCOMPARE(window.workArea()->count(), 1);
    auto *page = qobject_cast<CDlgAlarms *>(window.workArea()->currentPage());
    QVERIFY(page);
    page->open();
    QCOMPARE(page->list()->count(), 0);
    // What arrived meanwhile is there at the next look.
    Alarms::add(GetDBSetting()->GetUserID(), -1, u"تازه"_s);
    entry->trigger();
    QCOMPARE(window.workArea()->count(), 1);
    QCOMPARE(page->list()->count(), 1);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

static const RegisteredTest<TestMainWindow, QApplication> registeredMainWindow;
#include "TestMainWindow.moc"
