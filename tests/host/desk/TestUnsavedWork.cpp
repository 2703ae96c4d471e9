// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/MainWindow.h"

#include "auto/CAutoDBSetting.h"
#include "auto/catalog/CDlgAddCar.h"
#include "auto/catalog/parameters/CDlgAddInputParameter.h"
#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/contracts/CDlgAutomobilContractSetting.h"
#include "host/administration/CDlgChangePassword.h"
#include "host/administration/CDlgUserRights.h"
#include "host/books/CDlgAddAccount.h"
#include "host/demo/DemoData.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/crm/persons/CDlgAddCompanyProps.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/cheques/CDlgChequeChange.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QAction>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using OpenEditor = std::function<void()>;

KTextArea *someText(const QDialog &dialog)
{
    for (KTextArea *text : dialog.findChildren<KTextArea *>())
        if (text->isVisible() && text->isEnabled() && !text->isReadOnly())
            return text;
    return nullptr;
}

KEdit *someLine(const QDialog &dialog)
{
    for (KEdit *line : dialog.findChildren<KEdit *>())
        if (line->isVisible() && line->isEnabled() && !line->isReadOnly())
            return line;
    return nullptr;
}

// Enters something as a user would, wherever the window takes it first.
void enterSomething(QDialog &dialog)
{
    if (KEdit *line = someLine(dialog)) {
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, u"7"_s);
    } else if (KTextArea *text = someText(dialog)) {
        QTest::keyClicks(text, u"7"_s);
    } else if (auto *grid = dialog.findChild<QTableView *>()) {
        grid->setCurrentIndex(grid->model()->index(0, 0));
        QTest::keyClick(grid, Qt::Key_Space);
    } else {
        QFAIL("the window takes no entry");
    }
}

void walkThroughTheFields(const QDialog &dialog)
{
    for (int step = 0; step < 60; ++step) {
        QTest::keyClick(dialog.focusWidget() ? dialog.focusWidget() : const_cast<QDialog *>(&dialog), Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
}

}

Q_DECLARE_METATYPE(OpenEditor)

// Every editor of the program, in a demo office: what was entered is asked about, and nothing else.
class TestUnsavedWork : public QObject
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

    // The command of a list, on its first row.
    OpenEditor command(const QString &entry, const QString &id)
    {
        return [this, entry, id] {
            action(entry)->trigger();
            QCoreApplication::processEvents();
            auto *page = qobject_cast<KListPage *>(m_window->workArea()->currentPage());
            page->list()->selectRow(0);
            QVERIFY(page->runCommand(id));
        };
    }

    template <class Dialog, class... Arguments>
    static OpenEditor window(Arguments... arguments)
    {
        return [=] {
            Dialog dialog(arguments...);
            dialog.exec();
        };
    }

private Q_SLOTS:
    void initTestCase()
    {
        CTblUsers::setHashCost(CTblUsers::leastCost());
        prepareModuleTables(m_database);
        DemoData::fill(30);
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
        GetDBSetting()->Login(m_database.value(u"SELECT MIN(iID) FROM Users"_s).toInt());
        m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), GetAutoDBSetting());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void cleanupTestCase() { m_window.reset(); }

    void init()
    {
        m_window->workArea()->closeAll();
        g_pDlgYesNo->takeShown();
        g_pDlgWarning->takeShown();
    }

    void editors_data()
    {
        const QString newOne = u"new"_s;
        const QString firstOne = u"edit"_s;
        QTest::addColumn<OpenEditor>("open");
        QTest::newRow("contract, new") << command(u"قرارداد"_s, newOne);
        QTest::newRow("contract") << command(u"قرارداد"_s, firstOne);
        QTest::newRow("settings of the contracts") << command(u"قرارداد"_s, u"settings"_s);
        QTest::newRow("demand, new") << command(u"تقاضا"_s, newOne);
        QTest::newRow("demand") << command(u"تقاضا"_s, firstOne);
        QTest::newRow("car, new") << command(u"گالري اتومبيل"_s, newOne);
        QTest::newRow("car") << command(u"گالري اتومبيل"_s, firstOne);
        QTest::newRow("person, new") << command(u"اشخاص"_s, newOne);
        QTest::newRow("person") << command(u"اشخاص"_s, firstOne);
        QTest::newRow("document, new") << command(u"اسناد حسابداری"_s, newOne);
        QTest::newRow("invoice, new") << command(u"فاکتورها"_s, u"newSale"_s);
        QTest::newRow("invoice") << command(u"فاکتورها"_s, firstOne);
        QTest::newRow("service, new") << command(u"خدمات"_s, newOne);
        QTest::newRow("message text, new") << command(u"متن پیام‌ها"_s, newOne);
        QTest::newRow("user, new") << command(u"کاربران و دسترسی‌ها"_s, newOne);
        QTest::newRow("user") << command(u"کاربران و دسترسی‌ها"_s, firstOne);
        QTest::newRow("receipt, new") << command(u"دریافت‌ها و پرداخت‌ها"_s, u"newReceipt"_s);
        QTest::newRow("reason of a voiding") << OpenEditor([] { CDlgVoiding::run(
                                                                    u"ابطال دریافت"_s, u"دریافت شماره 1 باطل می‌شود."_s, [](const QString &) {}, nullptr); });
        QTest::newRow("cheque's state") << window<CDlgChequeChange>(1);
        QTest::newRow("rights") << window<CDlgUserRights>(1);
        QTest::newRow("settings") << OpenEditor([this] { action(u"تنظیمات"_s)->trigger(); });
        QTest::newRow("password") << OpenEditor([this] { action(u"تغییر کلمه عبور"_s)->trigger(); });
        QTest::newRow("tariff, new") << window<CDlgAddAutomobilTariff>(0, false, false);
        QTest::newRow("parameter, new") << window<CDlgAddInputParameter>(0, int(CTblItems::typeColor), QString(), u"رنگ"_s);
        QTest::newRow("entry of the catalog") << window<CDlgAddCar>(u"نوع"_s);
        QTest::newRow("account, new") << window<CDlgAddAccount>(AccountLevel::Kol, 0);
        QTest::newRow("company") << window<CDlgAddCompanyProps>();
    }

    void editors()
    {
        QFETCH(OpenEditor, open);
        bool wasOpen = false;
        Hand::inNextWindow([&wasOpen](QDialog *dialog) {
            wasOpen = true;
            walkThroughTheFields(*dialog);
            dialog->close();
            QVERIFY(!dialog->isVisible());
        });
        open();
        QVERIFY(wasOpen);
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());

        wasOpen = false;
        Hand::inNextWindow([&wasOpen](QDialog *dialog) {
            wasOpen = true;
            enterSomething(*dialog);
            g_pDlgYesNo->answerNext(KMessageDialog::No);
            QTest::keyClick(dialog, Qt::Key_Escape);
            QVERIFY(dialog->isVisible());
            dialog->close();
            QVERIFY(!dialog->isVisible());
        });
        open();
        QVERIFY(wasOpen);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 2);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    }
};

static const RegisteredTest<TestUnsavedWork, KApplication> registeredUnsavedWork;

#include "TestUnsavedWork.moc"
