// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/MainWindow.h"

#include "auto/CAutoDBSetting.h"
#include "auto/reports/season/CDlgAutomobilReportSeasons.h"
#include "host/demo/DemoData.h"
#include "host/desk/WorkArea.h"
#include "host/start/CDlgLogin.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Hand.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Entries of the menu, commands of the lists.
const QString contracts = u"قرارداد"_s;
const QString demands = u"تقاضا"_s;
const QString cars = u"گالري اتومبيل"_s;
const QString persons = u"اشخاص"_s;
const QString documents = u"اسناد حسابداری"_s;
const QString invoices = u"فاکتورها"_s;
const QString create = u"new"_s;
const QString edit = u"edit"_s;
const QString show = u"show"_s;
const QString newSale = u"newSale"_s;

}

// What opening a window costs: in a demo office, from the command to the painted window, the statements that read. No window
// may ask the same thing twice on the way.
class TestOpenings : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;

    QAction *action(const QString &text) const
    {
        for (QAction *candidate : m_window->findChildren<QAction *>()) {
            if (candidate->iconText() == text && !candidate->menu())
                return candidate;
        }
        return nullptr;
    }

    // What the command reads until the window that it opens is painted; a modal one is closed again then.
    static QStringList readBy(const std::function<void()> &command, bool isModal)
    {
        QStringList taken;
        const ObservedStatements observed({u"SELECT"_s});
        // The helper waits for a while when no window opens.
        const auto isWaiting = std::make_shared<bool>(true);
        if (isModal) {
            Hand::inNextWindow([&, waits = std::weak_ptr(isWaiting)](QDialog *dialog) {
                if (waits.expired())
                    return;
                QVERIFY(QTest::qWaitForWindowExposed(dialog));
                QCoreApplication::processEvents();
                if (const auto *report = qobject_cast<CDlgAutomobilReportSeasons *>(dialog))
                    QTRY_VERIFY_WITH_TIMEOUT(!report->isBusy(), 20'000);
                taken = observed.taken();
            });
        }
        command();
        QCoreApplication::processEvents();
        return isModal ? taken : observed.taken();
    }

    // The list of that entry with its first row selected.
    KListPage *openedList(const QString &entry) const
    {
        action(entry)->trigger();
        QCoreApplication::processEvents();
        auto *page = qobject_cast<KListPage *>(m_window->workArea()->currentPage());
        page->list()->selectRow(0);
        return page;
    }

    // Whether the database is closed is asked by the list, which refuses quietly, and by an editor for any other caller.
    static QStringList twice(const QStringList &statements)
    {
        QStringList repeated;
        for (const QString &statement : statements) {
            const int allowed = statement.contains(u"sSection IN ('Database','"_s) ? 2 : 1;
            if (statements.count(statement) > allowed && !repeated.contains(statement))
                repeated.append(statement);
        }
        return repeated;
    }

    static void judge(const QStringList &taken, int most)
    {
        qInfo("%lld SELECTs", static_cast<long long>(taken.size()));
        for (const QString &statement : taken)
            qDebug("    %s", qPrintable(statement.left(160)));
        QVERIFY(!taken.isEmpty());
        QVERIFY2(twice(taken).isEmpty(), qPrintable(twice(taken).join(u'\n')));
        QVERIFY2(taken.size() <= most, qPrintable(taken.join(u'\n')));
    }

private Q_SLOTS:
    void initTestCase()
    {
        CTblUsers::setHashCost(CTblUsers::leastCost());
        prepareModuleTables(m_database);
        DemoData::fill(60);
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
        // What the tables look like is read once in the life of the program, by whatever is opened first.
        logIn();
        m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), GetAutoDBSetting());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        for (const auto &[entry, command] : {std::pair(contracts, create), std::pair(contracts, edit), std::pair(demands, edit), std::pair(cars, edit),
                                             std::pair(persons, edit), std::pair(documents, create), std::pair(invoices, newSale)}) {
            KListPage *page = openedList(entry);
            readBy([&] { QVERIFY(page->runCommand(command)); }, true);
        }
    }

    void cleanupTestCase() { m_window.reset(); }

    void cleanup()
    {
        if (m_window)
            m_window->workArea()->closeAll();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    }

    void logIn()
    {
        CDlgLogin dialog(u"نمایشگاه"_s);
        const QList<KEdit *> entries = dialog.findChildren<KEdit *>();
        QCOMPARE(entries.size(), 2);
        for (KEdit *entry : entries)
            entry->setText(u"demo"_s);
        const ObservedStatements observed({u"SELECT"_s});
        dialog.accept();
        QVERIFY(GetDBSetting()->Login(dialog.userID()));
        // One of them asks whether this computer has to wait.
        judge(observed.taken(), 5);
    }

    void mainWindow()
    {
        const ObservedStatements observed({u"SELECT"_s});
        MainWindow window(DataFolder(m_folder.path()), GetAutoDBSetting());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        judge(observed.taken(), 5);
        GetDBSetting()->SetTabHost(m_window->workArea());
    }

    void windowOfTheMenu_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("isModal");
        QTest::addColumn<int>("most");
        QTest::newRow("contracts") << contracts << false << 4;
        QTest::newRow("demands") << demands << false << 8;
        QTest::newRow("cars") << cars << false << 9;
        QTest::newRow("seasonal report") << u"گزارش فصلي"_s << true << 12;
        QTest::newRow("persons") << persons << false << 2;
        QTest::newRow("documents") << documents << false << 9;
        QTest::newRow("invoices") << invoices << false << 4;
        QTest::newRow("services") << u"خدمات"_s << false << 2;
        QTest::newRow("chart of accounts") << u"سرفصل حساب‌ها"_s << false << 7;
        // Empty here, and so it asks whether the filter or the table is.
        QTest::newRow("reminders") << u"یادآوری ها"_s << false << 5;
        QTest::newRow("users") << u"کاربران و دسترسی‌ها"_s << false << 2;
        QTest::newRow("settings") << u"تنظیمات"_s << true << 1;
    }

    void windowOfTheMenu()
    {
        QFETCH(QString, entry);
        QFETCH(bool, isModal);
        QFETCH(int, most);
        judge(readBy([&] { action(entry)->trigger(); }, isModal), most);
    }

    void windowOfAList_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("most");
        QTest::newRow("contract, new") << contracts << create << 5; // one of them asks whether it is the first
        // With the custom fields, which a contract that is deleted meanwhile is saved anew with.
        QTest::newRow("contract, edit") << contracts << edit << 7;
        QTest::newRow("contract, show") << contracts << show << 4;
        QTest::newRow("settings of the contracts") << contracts << u"settings"_s << 1;
        QTest::newRow("comprehensive report") << contracts << u"fullReport"_s << 19;
        QTest::newRow("demand, new") << demands << create << 9;
        QTest::newRow("demand, edit") << demands << edit << 8;
        QTest::newRow("demand, show") << demands << show << 6;
        // With one for the names of further pictures, and one for each of those, which come after the window is there.
        QTest::newRow("car, new") << cars << create << 15;
        QTest::newRow("car, edit") << cars << edit << 20;
        QTest::newRow("car, show") << cars << show << 18;
        QTest::newRow("person, new") << persons << create << 2;
        QTest::newRow("person, edit") << persons << edit << 2;
        QTest::newRow("document, new") << documents << create << 5;
        QTest::newRow("invoice, new") << invoices << newSale << 3;
    }

    void windowOfAList()
    {
        QFETCH(QString, entry);
        QFETCH(QString, command);
        QFETCH(int, most);
        KListPage *page = openedList(entry);
        judge(readBy([&] { QVERIFY(page->runCommand(command)); }, true), most);
    }
};

static const RegisteredTest<TestOpenings, KApplication> registeredOpenings;

#include "TestOpenings.moc"
