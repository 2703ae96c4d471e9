// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgFactors.h"

#include "host/books/CDlgAddFactor.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KLinesView.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgFactors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void latestInvoiceStandsFirst();
    void rowTellsTheInvoice();
    void filters_data();
    void filters();
    void voidOnesAreShownOnRequest();
    void withoutTheRightThePageIsRefused();
    void rightsOfEachCommand_data();
    void rightsOfEachCommand();
    void closedDatabaseHidesTheCommands();
    void newInvoiceIsOfItsKind_data();
    void newInvoiceIsOfItsKind();
    void editOpensTheSelectedOne();
    void voidIsAskedFor();
    void voidOneIsNeitherEditedNorVoidedAgain();
    void showOpensReadOnly();
    void documentOfTheSelectedOne();
    void listGoesOnPaper();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    static void showPage(CDlgFactors &page);

    BooksOffice m_office;
};

void TestCDlgFactors::init()
{
    m_office.open();
    Invoice invoice = m_office.invoice();
    InvoicePosting::save(invoice);
    invoice = m_office.invoice(CTblFactors::purchase, BooksOffice::pars);
    invoice.date = BooksOffice::day(2, 20);
    InvoicePosting::save(invoice);
    invoice = m_office.invoice();
    invoice.date = BooksOffice::day(3, 5);
    InvoicePosting::makeVoid(InvoicePosting::save(invoice).num);
}

void TestCDlgFactors::showPage(CDlgFactors &page)
{
    page.resize(1000, 500);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
}

void TestCDlgFactors::latestInvoiceStandsFirst()
{
    CDlgFactors page;
    page.open();
    QCOMPARE(page.list()->count(), 2);
    QCOMPARE(page.list()->cellText(0, u"number"), u"2"_s);
    QCOMPARE(page.list()->cellText(1, u"number"), u"1"_s);
}

void TestCDlgFactors::rowTellsTheInvoice()
{
    CDlgFactors page;
    page.open();
    QCOMPARE(page.list()->cellText(0, u"type"), u"خرید"_s);
    QCOMPARE(page.list()->cellText(0, u"date"), u"1405/02/20"_s);
    QCOMPARE(page.list()->cellText(0, u"person"), u"پارس خودرو"_s);
    QCOMPARE(page.list()->cellText(0, u"amount"), u"1,000"_s);
    QCOMPARE(page.list()->cellText(0, u"owed"), u"990"_s);
    QCOMPARE(page.list()->cellText(0, u"document"), u"2"_s);
    QCOMPARE(page.list()->cellText(0, u"status"), u"معتبر"_s);
    QCOMPARE(page.list()->cellText(1, u"type"), u"فروش"_s);
}

void TestCDlgFactors::filters_data()
{
    QTest::addColumn<std::function<void(CDlgFactors &)>>("ask");
    QTest::addColumn<QString>("numbers");
    const auto row = [](const char *name, const std::function<void(CDlgFactors &)> &ask, const char *numbers) {
        QTest::newRow(name) << ask << QString::fromLatin1(numbers);
    };
    const auto setDate = [](CDlgFactors &page, QStringView filter, int month, int day) {
        page.filters().set(filter, BooksOffice::day(month, day).date());
    };
    row(
        "nothing asked", [](CDlgFactors &) {}, "2 1");
    row(
        "person", [](CDlgFactors &page) { page.filters().set(u"person", BooksOffice::ali); }, "1");
    row(
        "sales", [](CDlgFactors &page) { page.filters().set(u"type", CTblFactors::sale); }, "1");
    row(
        "purchases", [](CDlgFactors &page) { page.filters().set(u"type", CTblFactors::purchase); }, "2");
    row(
        "from its own day", [=](CDlgFactors &page) { setDate(page, u"from", 2, 20); }, "2");
    row(
        "to its own day", [=](CDlgFactors &page) { setDate(page, u"to", 2, 20); }, "2 1");
    row(
        "to the day before", [=](CDlgFactors &page) { setDate(page, u"to", 2, 19); }, "1");
}

void TestCDlgFactors::filters()
{
    QFETCH(std::function<void(CDlgFactors &)>, ask);
    CDlgFactors page;
    page.open();
    ask(page);
    page.refill();
    QStringList numbers;
    for (int row = 0; row < page.list()->count(); ++row)
        numbers.append(page.list()->cellText(row, u"number"));
    QTEST(numbers.join(u' '), "numbers");
}

void TestCDlgFactors::voidOnesAreShownOnRequest()
{
    CDlgFactors page;
    page.open();
    page.filters().set(u"voided", true);
    page.refill();
    QCOMPARE(page.list()->count(), 3);
    QCOMPARE(page.list()->cellText(0, u"status"), u"باطل"_s);
    QVERIFY(page.list()->listModel()->rows().at(0).warning);
}

void TestCDlgFactors::withoutTheRightThePageIsRefused()
{
    m_office.loginClerk();
    CDlgFactors page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Factors"_s, KSecurity::Access)});
}

void TestCDlgFactors::rightsOfEachCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("right");
    QTest::newRow("new sale") << u"newSale"_s << int(KSecurity::Write);
    QTest::newRow("new purchase") << u"newPurchase"_s << int(KSecurity::Write);
    QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
    QTest::newRow("void") << u"void"_s << int(KSecurity::Delete);
    QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
    QTest::newRow("print") << u"print"_s << int(KSecurity::PrintList);
}

void TestCDlgFactors::rightsOfEachCommand()
{
    QFETCH(QString, command);
    QFETCH(int, right);
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"Factors"_s, KSecurity::allRights & ~right);
    CDlgFactors page;
    QVERIFY(page.OnAccess());
    page.open();
    QVERIFY(page.runCommand(command));
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(u"Factors"_s, static_cast<KSecurity::Right>(right))});
    QCOMPARE(value("SELECT GROUP_CONCAT(iStatus ORDER BY iID) FROM Factors"), u"0,0,1"_s);
}

void TestCDlgFactors::closedDatabaseHidesTheCommands()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgFactors page;
    page.open();
    for (const QString &command : {u"newSale"_s, u"newPurchase"_s, u"edit"_s, u"void"_s})
        QVERIFY2(page.button(command)->isHidden(), qPrintable(command));
    QVERIFY(!page.button(u"show")->isHidden());
}

void TestCDlgFactors::newInvoiceIsOfItsKind_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("type");
    QTest::newRow("sale") << u"newSale"_s << int(CTblFactors::sale);
    QTest::newRow("purchase") << u"newPurchase"_s << int(CTblFactors::purchase);
}

void TestCDlgFactors::newInvoiceIsOfItsKind()
{
    QFETCH(QString, command);
    QFETCH(int, type);
    CDlgFactors page;
    showPage(page);
    Hand::inNextWindow([&](QDialog *dialog) {
        auto *window = qobject_cast<CDlgAddFactor *>(dialog);
        QVERIFY(window);
        window->findChild<KPersonField *>()->setPersonID(BooksOffice::pars);
        named<KDateEdit>(*window, u"تاریخ :"_s)->setDate(BooksOffice::day(4, 1).date());
        KLinesModel *lines = window->linesView()->linesModel();
        lines->setData(lines->index(0, 0), u"102"_s);
        lines->setData(lines->index(0, 2), 1.0);
        lines->setData(lines->index(0, 3), 700.0);
        window->accept();
    });
    QVERIFY(page.runCommand(command));
    QCOMPARE(value("SELECT CONCAT_WS('/',iID,iType,dAmount) FROM Factors ORDER BY iID DESC LIMIT 1"),
             u"4/%1/700"_s.arg(type));
    QCOMPARE(page.list()->currentKey(), 4);
    QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"owed"), u"770"_s);
}

void TestCDlgFactors::editOpensTheSelectedOne()
{
    CDlgFactors page;
    showPage(page);
    page.list()->selectKey(1);
    Hand::inNextWindow([](QDialog *dialog) {
        auto *window = qobject_cast<CDlgAddFactor *>(dialog);
        QVERIFY(window);
        QCOMPARE(window->num(), 1);
        KLinesModel *lines = window->linesView()->linesModel();
        lines->setData(lines->index(0, 3), 900.0);
        window->accept();
    });
    Q_EMIT page.list()->rowActivated(1);
    QCOMPARE(page.list()->cellText(1, u"amount"), u"2,000"_s);
    QCOMPARE(page.list()->currentKey(), 1);
}

void TestCDlgFactors::voidIsAskedFor()
{
    CDlgFactors page;
    page.open();
    page.list()->selectKey(1);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    page.runCommand(u"void");
    QCOMPARE(page.list()->count(), 2);
    QVERIFY(g_pDlgYesNo->takeShown().value(0).contains(u"1"_s));
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    page.runCommand(u"void");
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(value("SELECT CONCAT_WS('/',f.iStatus,d.iStatus) FROM Factors f JOIN Documents d ON d.iNum=f.iDocNum WHERE f.iID=1"),
             u"1/1"_s);
}

void TestCDlgFactors::voidOneIsNeitherEditedNorVoidedAgain()
{
    CDlgFactors page;
    page.open();
    page.filters().set(u"voided", true);
    page.refill();
    page.list()->selectKey(3);
    for (const QString &command : {u"edit"_s, u"void"_s}) {
        page.runCommand(command);
        QVERIFY(g_pDlgWarning->takeShown().value(0).startsWith(u"فاکتور شماره 3 باطل شده است و تغییر نمی‌کند."_s));
    }
    QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
}

void TestCDlgFactors::showOpensReadOnly()
{
    CDlgFactors page;
    showPage(page);
    page.list()->selectKey(1);
    bool readOnly = false;
    Hand::inNextWindow([&readOnly](QDialog *dialog) {
        const auto *window = qobject_cast<CDlgAddFactor *>(dialog);
        readOnly = window && window->linesView()->linesModel()->isReadOnly();
    });
    page.runCommand(u"show");
    QVERIFY(readOnly);
}

void TestCDlgFactors::documentOfTheSelectedOne()
{
    CDlgFactors page;
    showPage(page);
    page.list()->selectKey(2);
    QString title;
    Hand::inNextWindow([&title](QDialog *dialog) { title = dialog->windowTitle(); });
    page.runCommand(u"showDocument");
    QCOMPARE(title, u"سند حسابداری شماره 2 سال مالی 1405"_s);
}

void TestCDlgFactors::listGoesOnPaper()
{
    CDlgFactors page;
    showPage(page);
    QString shown;
    Hand::inNextWindow([&shown](QDialog *dialog) { shown = QString::fromLatin1(dialog->metaObject()->className()); });
    page.runCommand(u"print");
    QCOMPARE(shown, u"CDlgReportGenerator"_s);
}

static const RegisteredTest<TestCDlgFactors, QApplication> registeredCDlgFactors;
#include "TestCDlgFactors.moc"
