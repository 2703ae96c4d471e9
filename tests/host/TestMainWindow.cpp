// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/MainWindow.h"

#include "host/AutoModule.h"
#include "host/DatabaseUpgrade.h"
#include "host/StartButton.h"
#include "host/WorkArea.h"
#include "suite/accounting/KSecurity.h"
#include "suite/crm/CompanyDetails.h"
#include "suite/utility/KDialogTabPage.h"
#include "tests/host/HostTestOffice.h"

#include <QAction>
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
    void laterEntriesSayThatTheyComeLater();
    void withoutTheModuleTheWindowWorks();
    void contractsOpenAsATabEachTime();
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

private:
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

void TestMainWindow::laterEntriesSayThatTheyComeLater()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    const QList<QAction *> entries = window.menuBar()->actions().constFirst()->menu()->actions();
    QVERIFY(entries.at(0)->isEnabled());
    for (int later = 1; later < 4; ++later) {
        QVERIFY(!entries.at(later)->isEnabled());
        QVERIFY(entries.at(later)->toolTip().contains(QStringLiteral("نسخه‌های بعدی")));
        QCOMPARE(entries.at(later)->statusTip(), entries.at(later)->toolTip());
    }
    QVERIFY(window.menuBar()->actions().constFirst()->menu()->toolTipsVisible());
}

void TestMainWindow::withoutTheModuleTheWindowWorks()
{
    const MainWindow window(DataFolder(m_folder.path()), nullptr);
    QVERIFY(!action(window, QStringLiteral("قرارداد"))->isEnabled());
    QVERIFY(action(window, QStringLiteral("قرارداد"))->toolTip().contains(QStringLiteral("بارگذاری نشده")));
    action(window, QStringLiteral("اشخاص"))->trigger();
    QCOMPARE(window.workArea()->count(), 1);
}

void TestMainWindow::contractsOpenAsATabEachTime()
{
    const MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    action(window, QStringLiteral("قرارداد"))->trigger();
    action(window, QStringLiteral("قرارداد"))->trigger();
    QCOMPARE(window.workArea()->count(), 2);
}

void TestMainWindow::hostPagesOpenOnce_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("form");
    QTest::newRow("persons") << "اشخاص"
                             << "Persons";
    QTest::newRow("documents") << "اسناد حسابداری"
                               << "Documents";
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
    QCOMPARE(captions.size(), 6);
    QCOMPARE(captions.constFirst(), QStringLiteral("قرارداد"));
    QVERIFY(buttons.constFirst()->hasFocus());
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

QTEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
