// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgServices.h"

#include "host/books/CDlgAddService.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.open(); }
    void servicesStandByTheirCodes();
    void namesAreSearched();
    void newServiceGetsTheNextCode();
    void refusedEntryKeepsTheWindow_data();
    void refusedEntryKeepsTheWindow();
    void renameKeepsTheCode();
    void deletionIsAskedFor();
    void serviceOnAnInvoiceStays();
    void rightsOfEachCommand_data();
    void rightsOfEachCommand();
    void closedDatabaseHidesTheCommands();
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void codeOfTwoDesksIsGivenOnce();
    void serviceThatIsGoneIsToldAndLeavesTheList();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    static void inEditor(const std::function<void(CDlgAddService &)> &act);
    static KEdit *field(const CDlgAddService &window, const QString &name) { return named<KEdit>(window, name); }

    BooksOffice m_office;
};

namespace {

const QString code = u"کد :"_s;
const QString name = u"نام :"_s;

}

void TestCDlgServices::inEditor(const std::function<void(CDlgAddService &)> &act)
{
    Hand::inNextWindow([act](QDialog *dialog) {
        auto *window = qobject_cast<CDlgAddService *>(dialog);
        QVERIFY(window);
        act(*window);
    });
}

void TestCDlgServices::servicesStandByTheirCodes()
{
    CTblServices::add(7, u"بیمه"_s);
    CDlgServices page;
    page.open();
    QCOMPARE(page.list()->count(), 3);
    QCOMPARE(page.list()->cellText(0, u"code"), u"7"_s);
    QCOMPARE(page.list()->cellText(1, u"name"), u"کارشناسی خودرو"_s);
}

void TestCDlgServices::namesAreSearched()
{
    CDlgServices page;
    page.open();
    page.filters().set(u"name", u"سند"_s);
    page.refill();
    QCOMPARE(page.list()->count(), 1);
    page.filters().set(u"name", u"'%"_s);
    page.refill();
    QCOMPARE(page.list()->count(), 0);
}

void TestCDlgServices::newServiceGetsTheNextCode()
{
    CDlgServices page;
    page.resize(700, 400);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    inEditor([](CDlgAddService &window) {
        QCOMPARE(field(window, code)->integer(), 103);
        Hand::type(u"بیمه"_s);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    QVERIFY(page.runCommand(u"new"));
    QCOMPARE(page.list()->count(), 3);
    QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"name"), u"بیمه"_s);
}

void TestCDlgServices::refusedEntryKeepsTheWindow_data()
{
    QTest::addColumn<QString>("typedCode");
    QTest::addColumn<QString>("typedName");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::newRow("no name") << u"200"_s << QString() << u"لطفا نام خدمت را وارد نمایید."_s << name;
    QTest::newRow("code is taken") << u"101"_s << u"بیمه"_s
                                   << u"کد 101 از آن خدمت «کارشناسی خودرو» است."_s << code;
    QTest::newRow("no code") << QString() << u"بیمه"_s << u"لطفا کد خدمت را وارد نمایید."_s << code;
}

void TestCDlgServices::refusedEntryKeepsTheWindow()
{
    QFETCH(QString, typedCode);
    QFETCH(QString, typedName);
    QFETCH(QString, focus);
    CDlgAddService window(0);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    field(window, code)->setText(typedCode);
    field(window, name)->setText(typedName);
    window.accept();
    QVERIFY(window.isVisible());
    QTEST(g_pDlgWarning->takeShown().value(0), "message");
    QCOMPARE(Hand::focus()->accessibleName(), focus);
    QCOMPARE(field(window, name)->text(), typedName);
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"2"_s);
}

void TestCDlgServices::renameKeepsTheCode()
{
    CDlgServices page;
    page.resize(700, 400);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.list()->selectKey(m_office.transfer);
    inEditor([](CDlgAddService &window) {
        field(window, name)->setText(u"انتقال سند خودرو"_s);
        window.accept();
    });
    QVERIFY(page.runCommand(u"edit"));
    QCOMPARE(value("SELECT CONCAT(iCode,' ',sName) FROM Services WHERE iCode=102"), u"102 انتقال سند خودرو"_s);
    QCOMPARE(page.list()->cellText(1, u"name"), u"انتقال سند خودرو"_s);
}

void TestCDlgServices::deletionIsAskedFor()
{
    CDlgServices page;
    page.open();
    page.list()->selectKey(m_office.transfer);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    page.runCommand(u"delete");
    QCOMPARE(page.list()->count(), 2);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    page.runCommand(u"delete");
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"1"_s);
}

void TestCDlgServices::serviceOnAnInvoiceStays()
{
    InvoicePosting::save(m_office.invoice());
    CDlgServices page;
    page.open();
    page.list()->selectKey(m_office.inspection);
    page.runCommand(u"delete");
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این خدمت در فاکتور شماره 1 به کار رفته است و حذف نمی‌شود."_s});
    QCOMPARE(page.list()->count(), 2);
}

void TestCDlgServices::rightsOfEachCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("right");
    QTest::newRow("add") << u"new"_s << int(KSecurity::Write);
    QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
    QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
}

void TestCDlgServices::rightsOfEachCommand()
{
    QFETCH(QString, command);
    QFETCH(int, right);
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"Services"_s, KSecurity::allRights & ~right);
    CDlgServices page;
    page.open();
    page.runCommand(command);
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(u"Services"_s, static_cast<KSecurity::Right>(right))});
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"2"_s);
}

void TestCDlgServices::closedDatabaseHidesTheCommands()
{
    CDlgAddService window(0);
    field(window, name)->setText(u"بیمه"_s);
    GetDBSetting()->SetClosedDB(true);
    CDlgServices page;
    page.open();
    for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s})
        QVERIFY(page.button(command)->isHidden());
    // Also for a window that was open by then.
    QVERIFY(!window.OnOK());
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"2"_s);
}

void TestCDlgServices::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    const auto run = [this](const QString &statement) { m_office.database.run(statement); };
    int id = 0;
    TwoDesks({
                 .reset =
                     [&] {
                         run(u"DELETE FROM Services"_s);
                         id = CTblServices::add(7, u"بیمه"_s);
                     },
                 .open = [&] { return std::make_unique<CDlgAddService>(id); },
                 .enter = [](KDialog &window) { field(static_cast<CDlgAddService &>(window), name)->setText(u"بیمه بدنه"_s); },
                 .changeOther = [&] { run(u"UPDATE Services SET iCode=8"_s); },
                 .changeSame = [&] { run(u"UPDATE Services SET sName='بیمه عمر'"_s); },
                 .remove = [&] { run(u"DELETE FROM Services"_s); },
                 .stored = [&] { return value("SELECT GROUP_CONCAT(CONCAT_WS('/',iCode,sName)) FROM Services"); },
                 .merged = u"8/بیمه بدنه"_s,
                 .theirs = u"7/بیمه عمر"_s,
                 .mine = u"7/بیمه بدنه"_s,
                 .renewed = u"7/بیمه بدنه"_s,
             })
        .check(what);
}

void TestCDlgServices::codeOfTwoDesksIsGivenOnce()
{
    CDlgAddService first(0);
    CDlgAddService second(0);
    field(first, name)->setText(u"بیمه"_s);
    field(second, name)->setText(u"کرایه"_s);
    first.accept();
    second.accept();
    QCOMPARE(second.result(), int(QDialog::Rejected));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"کد 103 از آن خدمت «بیمه» است."_s});
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"3"_s);
}

void TestCDlgServices::serviceThatIsGoneIsToldAndLeavesTheList()
{
    CDlgServices page;
    page.open();
    page.list()->selectKey(m_office.transfer);
    m_office.database.run(u"DELETE FROM Services WHERE iID=%1"_s.arg(m_office.transfer));
    page.runCommand(u"delete");
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(page.list()->count(), 1);
}

static const RegisteredTest<TestCDlgServices, QApplication> registeredCDlgServices;
#include "TestCDlgServices.moc"
