// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/host/desk/MainWindowTest.h"

#include "suite/utility/look/LookSizes.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// What surrounds the pages: start page, bar, keys, status line, reminders.
class TestMainWindowBar : public MainWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadModule(); }
    void cleanupTestCase() { unloadModule(); }
    void init() { begin(); }
    void standingOfTheBackupsIsInTheStatusLine();
    void failureOfABackupIsToldOnceAndWaitsForAModalWindow();
    void windowOfABackupIsMarked();
    void startPageHasTheCommandsOfADay();
    void launchersThatDoNotFitStandInAMenu();
    void launchersAreReachedByArrows();
    void lettersAreUniqueAndNotInNames();
    void letterOpensItsMenu();
    void f10GoesToTheMenus();
    void keysAreShown();
    void paletteIsSwitchedInTheBar();
    void userIsInTheBar();
    void barHoldsEverythingAtEveryWidth_data();
    void barHoldsEverythingAtEveryWidth();
    void statusLineTellsWhatIsWorkedOn();
    void closedDatabaseIsMarked();
    void titleNamesTheOffice();
    void badgeCountsTheUsersDueReminders();
    void badgeIsRefreshedByTheClock();
    void badgeOpensTheListAndFollowsIt();
    void badgeStaysQuietWhenTheDatabaseDoesNotAnswer();
    void dueRemindersAreToldOnceAtLogin();
};

void TestMainWindowBar::standingOfTheBackupsIsInTheStatusLine()
{
    const DataFolder folder(m_folder.path());
    MainWindow window(folder, m_module.entry());
    auto *sign = window.findChild<BackupSign *>();
    QVERIFY(sign && sign->isHidden());
    BackupKeeper keeper(folder, true);
    window.showBackups(keeper);
    QVERIFY(!sign->isHidden());
    QCOMPARE(sign->text(), u"پشتیبان: هنوز نیست"_s);
    BackupStanding standing{.kind = BackupStanding::Kind::Verified, .taken = QDateTime(QDate(2026, 11, 22), QTime(14, 20)), .verified = QDateTime(QDate(2026, 11, 22), QTime(14, 22)), .today = QDate(2026, 11, 22)};
    sign->show(standing);
    QCOMPARE(sign->text(), u"پشتیبان: 14:20 آزموده شد"_s);
    QCOMPARE(sign->accessibleName(), sign->text());
    QVERIFY2(sign->toolTip().contains(u"14:22"_s), qPrintable(sign->toolTip()));
    standing.today = QDate(2026, 11, 23);
    sign->show(standing);
    QCOMPARE(sign->text(), u"پشتیبان: 1405/09/01 14:20 آزموده شد"_s);
}

void TestMainWindowBar::failureOfABackupIsToldOnceAndWaitsForAModalWindow()
{
    const DataFolder folder(m_folder.path());
    MainWindow window(folder, m_module.entry());
    BackupKeeper keeper(folder, true);
    window.showBackups(keeper);
    window.show();
    QDialog question(&window);
    question.setModal(true);
    question.show();
    QVERIFY(QTest::qWaitForWindowExposed(&question));
    Q_EMIT keeper.failed(u"دیسک پر است."_s);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    question.close();
    QStringList shown;
    QTRY_VERIFY(!(shown += g_pDlgWarning->takeShown()).isEmpty());
    QCOMPARE(shown, QStringList{u"دیسک پر است."_s});
}

void TestMainWindowBar::windowOfABackupIsMarked()
{
    const auto ended = qScopeGuard([] { OfficeSettings::setOnlyRead({}); });
    OfficeSettings::setOnlyRead(u"این پنجره پشتیبان را نشان می‌دهد."_s);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.markAsBackup(u"نمایش پشتیبان 1405/09/01 ساعت 14:20 - فقط خواندنی"_s);
    showAt(window, 1366);
    QVERIFY(window.windowTitle().startsWith(u"نمایش پشتیبان 1405/09/01"_s));
    QVERIFY(window.findChild<BackupBand *>()->isVisible());
    for (const QString &entry : {u"تنظیمات"_s, u"پشتیبان‌گیری"_s, u"بازگرداندن پشتیبان"_s, u"تغییر کلمه عبور"_s}) {
        action(window, entry)->trigger();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این پنجره پشتیبان را نشان می‌دهد."_s});
    }
    // Lists open as in a closed database.
    action(window, u"اشخاص"_s)->trigger();
    auto *list = qobject_cast<KListPage *>(window.workArea()->currentPage());
    QVERIFY(list && !list->isOffered(u"new"));
}

void TestMainWindowBar::startPageHasTheCommandsOfADay()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    const QList<StartButton *> buttons = launchers(window);
    QStringList captions;
    for (const StartButton *button : buttons) {
        QCOMPARE(button->accessibleName(), button->text());
        captions.append(button->text());
    }
    QCOMPARE(captions.size(), 10);
    QCOMPARE(captions.constFirst(), u"قرارداد"_s);
    QVERIFY(!captions.contains(u"بیشتر"_s));
    QVERIFY(buttons.constFirst()->hasFocus());
    for (const StartButton *button : buttons)
        QCOMPARE(button->y(), buttons.constFirst()->y());
    QTest::keyClick(buttons.constFirst(), Qt::Key_Space);
    QCOMPARE(window.workArea()->count(), 1);
    QTRY_VERIFY(!buttons.constFirst()->isVisible());
    window.workArea()->showStartPage();
    QTRY_VERIFY(buttons.constFirst()->isVisible());
    QCOMPARE(window.workArea()->count(), 1);
}

void TestMainWindowBar::launchersThatDoNotFitStandInAMenu()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 800);
    const QList<StartButton *> buttons = launchers(window);
    QVERIFY2(buttons.size() < 10, qPrintable(QString::number(buttons.size())));
    QCOMPARE(buttons.constLast()->text(), u"بیشتر"_s);
    for (const StartButton *button : buttons) {
        QVERIFY2(button->parentWidget()->rect().contains(button->geometry()), qPrintable(button->text()));
        QVERIFY(button->width() >= button->sizeHint().width());
    }
    buttons.constLast()->setFocus();
    QTest::keyClick(buttons.constLast(), Qt::Key_Return);
    QPointer<QWidget> popup = QApplication::activePopupWidget();
    auto *menu = qobject_cast<QMenu *>(popup.data());
    QVERIFY(menu);
    // In their order, behind those in the row.
    QCOMPARE(menu->actions().size() + buttons.size() - 1, 10);
    QCOMPARE(menu->actions().constLast()->iconText(), u"پشتیبان‌گیری"_s);
    const QAction *users = action(window, u"کاربران و دسترسی‌ها"_s);
    QVERIFY(menu->actions().contains(users));
    const_cast<QAction *>(users)->trigger();
    menu->close();
    QCOMPARE(window.workArea()->count(), 1);
    // With the room, they stand in the row again.
    window.workArea()->showStartPage();
    window.resize(1400, 700);
    QTRY_COMPARE(launchers(window).size(), 10);
}

void TestMainWindowBar::launchersAreReachedByArrows()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    const QList<StartButton *> buttons = launchers(window);
    QVERIFY(buttons.at(0)->x() > buttons.at(1)->x());
    QTest::keyClick(buttons.at(0), Qt::Key_Left);
    QVERIFY(buttons.at(1)->hasFocus());
    QTest::keyClick(buttons.at(1), Qt::Key_Right);
    QVERIFY(buttons.at(0)->hasFocus());
    QTest::keyClick(buttons.at(0), Qt::Key_Tab);
    QVERIFY(buttons.at(1)->hasFocus());
}

void TestMainWindowBar::lettersAreUniqueAndNotInNames()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QList<QList<QAction *>> levels{window.menuBar()->actions()};
    for (const QAction *menu : window.menuBar()->actions())
        levels.append(menu->menu()->actions());
    int letters = 0;
    for (const QList<QAction *> &level : std::as_const(levels)) {
        QSet<QKeySequence> taken;
        for (QAction *entry : level) {
            if (entry->isSeparator())
                continue;
            const QKeySequence letter = QKeySequence::mnemonic(entry->text());
            QVERIFY2(!letter.isEmpty(), qPrintable(entry->text()));
            QVERIFY2(!taken.contains(letter), qPrintable(entry->text()));
            taken.insert(letter);
            ++letters;
        }
    }
    QVERIFY(letters > 20);
    QAccessibleInterface *bar = QAccessible::queryAccessibleInterface(window.menuBar());
    QVERIFY(bar);
    QCOMPARE(bar->text(QAccessible::Name), u"منو"_s);
    QCOMPARE(bar->childCount(), 4);
    QCOMPARE(bar->child(0)->text(QAccessible::Name), u"گالری اتومبیل"_s);
    QCOMPARE(bar->child(0)->child(0)->child(3)->text(QAccessible::Name), u"گزارش فصلي"_s);
}

void TestMainWindowBar::letterOpensItsMenu()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    const int letter = QKeySequence::mnemonic(u"&م"_s)[0].key();
    QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key(letter), u"م"_s, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    QCOMPARE(QApplication::activePopupWidget(), window.menuBar()->actions().at(2)->menu());
    // And the letter of an entry runs it.
    QTest::sendKeyEvent(QTest::Click, QApplication::activePopupWidget(), Qt::Key(QKeySequence::mnemonic(u"&ک"_s)[0].key()), u"ک"_s, Qt::NoModifier);
    QTRY_COMPARE(window.workArea()->count(), 1);
    QCOMPARE(window.workArea()->currentPage()->title(), u"کاربران و دسترسی‌ها"_s);
}

void TestMainWindowBar::f10GoesToTheMenus()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    QTest::keyClick(window.windowHandle(), Qt::Key_F10);
    QTRY_COMPARE(QApplication::activePopupWidget(), window.menuBar()->actions().constFirst()->menu());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTRY_VERIFY(!QApplication::activePopupWidget());
}

void TestMainWindowBar::keysAreShown()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    action(window, u"قرارداد"_s)->trigger();
    QString shown;
    Hand::inNextWindow([&shown](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"کلیدهای میانبر"_s);
        const auto *list = dialog->findChild<KExtListCtrl *>();
        for (int row = 0; row < list->count(); ++row)
            shown += list->cellText(row, 0) + u'|' + list->cellText(row, 1) + u'|' + list->cellText(row, 2) + u'\n';
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
    });
    QTest::keyClick(window.windowHandle(), Qt::Key_Slash, Qt::ControlModifier);
    for (const QString &line : {u"گالری اتومبیل|Ctrl+1|قرارداد\n"_s, u"برنامه|Ctrl+/|کلیدها\n"_s, u"قرارداد|Ins|جديد\n"_s,
                                u"پنجره اصلی|Ctrl+W|بستن صفحه\n"_s, u"پنجره‌های ویرایش|Ctrl+Enter|تاييد\n"_s})
        QVERIFY2(shown.contains(line), qPrintable(line + shown));
}

void TestMainWindowBar::paletteIsSwitchedInTheBar()
{
    const auto restored = qScopeGuard([palette = QApplication::palette()] { QApplication::setPalette(palette); });
    for (const HostLook::Choice choice : {HostLook::Choice::Dark, HostLook::Choice::Light})
        HostLook::choose(choice);
    QCoreApplication::processEvents();
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    action(window, u"قرارداد"_s)->trigger();
    auto *toDark = named<QToolButton>(window, u"تیره"_s);
    QVERIFY(toDark);
    QCOMPARE(toDark->toolTip(), u"تیره"_s);
    const auto ground = [&window] { return window.workArea()->currentPage()->palette().color(QPalette::Window); };
    const QColor light = ground();
    QTest::mouseClick(toDark, Qt::LeftButton);
    QCOMPARE(HostLook::choice(), HostLook::Choice::Dark);
    QTRY_COMPARE(ground(), HostColors::of(HostColors::Role::Window, HostColors::Look::Dark));
    QVERIFY(ground() != light);
    QCOMPARE(toDark->accessibleName(), u"روشن"_s);
    toDark->setFocus();
    QTest::keyClick(toDark, Qt::Key_Space);
    QTRY_COMPARE(ground(), light);
    QCOMPARE(toDark->accessibleName(), u"تیره"_s);
}

void TestMainWindowBar::userIsInTheBar()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    auto *user = named<QToolButton>(window, u"مدیر"_s);
    QVERIFY(user);
    QCOMPARE(user->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QStringList entries;
    QTest::mouseClick(user, Qt::LeftButton);
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (const QAction *entry : menu->actions())
        entries.append(entry->iconText());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QCOMPARE(entries, (QStringList{u"تغییر کلمه عبور"_s, u"ورود با کاربر دیگر"_s, u"خروج"_s}));
    window.resize(1100, 700);
    QTRY_COMPARE(user->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(user->toolTip(), u"مدیر"_s);
    QCOMPARE(user->accessibleName(), u"مدیر"_s);
}

void TestMainWindowBar::barHoldsEverythingAtEveryWidth_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {640, 960, 1092, 1366, 1920})
        QTest::addRow("%d", width) << width;
}

void TestMainWindowBar::barHoldsEverythingAtEveryWidth()
{
    QFETCH(int, width);
    Alarms::add(m_office.admin, -60, u"اول"_s);
    m_office.database.run(u"UPDATE Users SET sName='%1'"_s.arg(QString(80, u'ن')));
    GetDBSetting()->Login(m_office.admin);
    GetDBSetting()->SetClosedDB(true);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, width);
    QCOMPARE(window.width(), width);
    const QWidget *bar = window.findChild<TopBar *>();
    QList<QRect> places{window.menuBar()->geometry()};
    for (const QToolButton *button : bar->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly)) {
        QVERIFY(button->isVisible());
        QVERIFY(button->width() >= button->sizeHint().width());
        places.append(button->geometry());
    }
    QCOMPARE(places.size(), 4);
    for (qsizetype one = 0; one < places.size(); ++one) {
        QVERIFY2(bar->rect().contains(places[one]), qPrintable(QString::number(one)));
        for (qsizetype other = 0; other < one; ++other)
            QVERIFY(!places[one].intersects(places[other]));
    }
    if (width >= 960) {
        for (QAction *menu : window.menuBar()->actions())
            QVERIFY2(window.menuBar()->rect().contains(window.menuBar()->actionGeometry(menu)), qPrintable(menu->text()));
    }
    const QWidget *search = window.findChild<QLineEdit *>(QString(), Qt::FindChildrenRecursively);
    QVERIFY(search->accessibleName() == u"جستجو در همه" && search->width() >= LookSizes::scaled(width >= LookSizes::wide ? 360 : 120));
    // The labels of the line at the foot: those that do not fit are cut, the last ones first, and none lies outside.
    bool wasCut = false;
    for (const ElidedLabel *label : window.statusBar()->findChildren<ElidedLabel *>()) {
        if (label->isHidden() || label->text().isEmpty())
            continue;
        QVERIFY2(label->parentWidget()->rect().contains(label->geometry()) || label->width() == 0, qPrintable(label->text()));
        QVERIFY2(!wasCut || label->width() == 0 || label->isCut(), qPrintable(label->text()));
        wasCut = wasCut || label->isCut();
    }
}

void TestMainWindowBar::statusLineTellsWhatIsWorkedOn()
{
    GetDBSetting()->SetFiscalYear(1404);
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QString all = statusTexts(window).join(u'|');
    QVERIFY2(all.contains(u"کاربر : مدیر"_s), qPrintable(all));
    QVERIFY2(all.contains(m_office.database.name()), qPrintable(all));
    QVERIFY2(all.contains(u"سال مالی : 1404"_s), qPrintable(all));
    QVERIFY2(!all.contains(u"بسته است"_s), qPrintable(all));
}

void TestMainWindowBar::closedDatabaseIsMarked()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    GetDBSetting()->SetClosedDB(true);
    window.refresh();
    QVERIFY(statusTexts(window).contains(u"پایگاه داده بسته است"_s));
}

void TestMainWindowBar::titleNamesTheOffice()
{
    CompanyDetails company;
    company.name1 = u"نمایشگاه آریا"_s;
    company.write();
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(window.windowTitle().startsWith(u"نمایشگاه آریا"_s));
}

void TestMainWindowBar::badgeCountsTheUsersDueReminders()
{
    const int clerk = CTblUsers::create(u"other"_s, u"other1"_s, {}, false);
    Alarms::add(clerk, -60, u"مال دیگری"_s);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(badge(window)->isHidden());
    Alarms::add(m_office.admin, -60, u"اول"_s);
    Alarms::add(m_office.admin, -1, u"دوم"_s);
    Alarms::add(m_office.admin, 60, u"آینده"_s);
    window.refresh();
    QVERIFY(!badge(window)->isHidden());
    QCOMPARE(badge(window)->text(), u"2"_s);
    QCOMPARE(badge(window)->accessibleName(), u"یادآوری : 2"_s);
    QVERIFY(badge(window)->toolTip().contains(u"Ctrl+R"_s));
    QVERIFY(badge(window)->focusPolicy() & Qt::TabFocus);
}

void TestMainWindowBar::badgeIsRefreshedByTheClock()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    Alarms::add(m_office.admin, -1, u"کار"_s);
    QVERIFY(badge(window)->isHidden());
    auto *clock = window.findChild<QTimer *>(u"clock"_s);
    QVERIFY(clock && clock->isActive());
    QCOMPARE(clock->interval(), 60 * 1000);
    // Minutes that pass at once.
    clock->setInterval(1);
    QTRY_VERIFY(!badge(window)->isHidden());
    QCOMPARE(badge(window)->accessibleName(), u"یادآوری : 1"_s);
}

void TestMainWindowBar::badgeOpensTheListAndFollowsIt()
{
    Alarms::add(m_office.admin, -60, u"اول"_s);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    badge(window)->setFocus();
    QTest::keyClick(badge(window), Qt::Key_Space);
    auto *page = qobject_cast<CDlgAlarms *>(window.workArea()->currentPage());
    QVERIFY(page);
    page->list()->selectRow(0);
    QVERIFY(page->runCommand(u"done"));
    QVERIFY(badge(window)->isHidden());
    Alarms::add(m_office.admin, -60, u"دوم"_s);
    window.refresh();
    QTest::mouseClick(badge(window), Qt::LeftButton);
    QCOMPARE(window.workArea()->count(), 1);
    QCOMPARE(page->list()->count(), 1);
}

void TestMainWindowBar::badgeStaysQuietWhenTheDatabaseDoesNotAnswer()
{
    Alarms::add(m_office.admin, -60, u"اول"_s);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    QVERIFY(!badge(window)->isHidden());
    m_office.database.run(u"RENAME TABLE Alarms TO AlarmsAway"_s);
    badge(window)->tick();
    QVERIFY(badge(window)->isHidden());
    window.tellDueReminders();
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    m_office.database.run(u"RENAME TABLE AlarmsAway TO Alarms"_s);
    // It does not ask again every minute, but it does ask again.
    badge(window)->tick();
    QVERIFY(badge(window)->isHidden());
    for (int minute = 0; minute < 10; ++minute)
        badge(window)->tick();
    QCOMPARE(badge(window)->accessibleName(), u"یادآوری : 1"_s);
    QVERIFY(!badge(window)->isHidden());
}

void TestMainWindowBar::dueRemindersAreToldOnceAtLogin()
{
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    window.show();
    // Without reminders no window opens, or this would wait for a user.
    window.tellDueReminders();
    Alarms::add(m_office.admin, -60, u"اول"_s);
    Alarms::add(m_office.admin, -50, u"هر بار"_s, Alarms::repeats);
    QList<int> rows;
    const auto count = [&rows](QDialog *dialog) { rows.append(dialog->findChild<KExtListCtrl *>()->count()); };
    for (int login = 0; login < 2; ++login) {
        Hand::inNextWindow(count);
        window.tellDueReminders();
    }
    QCOMPARE(rows, (QList<int>{2, 1}));
    QCOMPARE(badge(window)->accessibleName(), u"یادآوری : 2"_s);
}

static const RegisteredTest<TestMainWindowBar, QApplication> registeredMainWindowBar;
#include "TestMainWindowBar.moc"
