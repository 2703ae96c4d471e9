// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receipts/CDlgReceipts.h"

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/treasury/receipts/CDlgShowReceipt.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/treasury/receiving/InvoiceOffice.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

using FormDriver::field;

class TestCDlgReceipts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void latestStandsFirst();
    void rowTellsTheReceipt();
    void filters_data();
    void filters();
    void voidOnesAreShownOnRequest();
    void footSumsUpWhatIsListedAndValid();
    void newOnesAreListed_data();
    void newOnesAreListed();
    void voidAsksWhyAndOpensTheInvoice();
    void voidWithoutReasonIsRefused();
    void windowShowsAllThatItSays_data();
    void windowShowsAllThatItSays();
    void chequeOnItsWayIsToldBeforeTheReason();
    void secondDeskIsToldWhoMadeItVoid();
    void chequeGoesWithItsReceipts();
    void partsOfOneHandingOverAreOfferedTogether_data();
    void partsOfOneHandingOverAreOfferedTogether();
    void showOpensEverything();
    void receiptGoesOnPaper();
    void statementIsThatOfThePerson();
    void rightsOfEachCommand_data();
    void rightsOfEachCommand();
    void withoutTheRightThePageIsRefused();
    void closedDatabaseHidesTheCommands();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    static QString numbers(CDlgReceipts &page);
    int key(int position) const { return m_keys.at(position); }
    // Opens the list on that receipt.
    static void select(CDlgReceipts &page, int key);

    InvoiceOffice m_office;
    int m_invoice = 0;
    QList<int> m_keys; // received for the invoice, paid to the other, received by cheque in two parts, void
};

void TestCDlgReceipts::init()
{
    m_office.clear();
    m_invoice = m_office.invoice(Invoice::sale, m_office.ali);
    m_keys = {m_office.take(m_office.ali, 990, m_office.purposeOf(m_office.ali, m_invoice)),
              m_office.take(m_office.pars, 300, {}, CTblReceipts::paid)};
    const Cheque cheque{.sayad = u"1234567890123456"_s, .bank = u"ملت"_s, .due = m_office.day};
    for (const ReceiptPosting::Posted &posted : ReceiptPosting::save({.personID = m_office.pars, .date = m_office.day.addDays(-2), .method = CTblReceipts::cheque, .cheque = cheque, .parts = {{500, u"اول"_s}, {70, u"دوم"_s}}}))
        m_keys.append(posted.receiptID);
    m_keys.append(m_office.take(m_office.ali, 1));
    ReceiptPosting::makeVoid(m_keys.constLast(), u"اشتباه"_s);
}

QString TestCDlgReceipts::numbers(CDlgReceipts &page)
{
    QStringList found;
    for (int row = 0; row < page.list()->count(); ++row)
        found.append(page.list()->cellText(row, u"amount"));
    return found.join(u' ');
}

void TestCDlgReceipts::select(CDlgReceipts &page, int key)
{
    page.filters().set(u"voided", true);
    page.open();
    page.refill();
    QVERIFY(page.list()->selectKey(key));
}

void TestCDlgReceipts::latestStandsFirst()
{
    CDlgReceipts page;
    page.open();
    QCOMPARE(numbers(page), u"70 500 300 990"_s);
}

void TestCDlgReceipts::rowTellsTheReceipt()
{
    CDlgReceipts page;
    page.open();
    const auto cell = [&page](int row, QStringView column) { return page.list()->cellText(row, column); };
    QCOMPARE(cell(3, u"number"), QString::number(key(0)));
    QCOMPARE(cell(3, u"kind"), u"دریافت"_s);
    QCOMPARE(cell(3, u"date"), u"1405/08/29"_s);
    QCOMPARE(cell(3, u"person"), u"علی رضایی"_s);
    QCOMPARE(cell(3, u"method"), u"نقدی"_s);
    QCOMPARE(cell(3, u"for"), u"فاکتور فروش شماره %1"_s.arg(m_invoice));
    QCOMPARE(cell(3, u"status"), u"معتبر"_s);
    QCOMPARE(cell(3, u"user"), u"admin"_s);
    QCOMPARE(cell(3, u"document"), value("SELECT iDocNum FROM Receipts ORDER BY iID LIMIT 1"));
    QCOMPARE(cell(2, u"kind"), u"پرداخت"_s);
    QCOMPARE(cell(2, u"for"), u"علی‌الحساب"_s);
    QCOMPARE(cell(0, u"method"), u"چک"_s);
}

void TestCDlgReceipts::filters_data()
{
    QTest::addColumn<std::function<void(CDlgReceipts &, const InvoiceOffice &)>>("ask");
    QTest::addColumn<QString>("amounts");
    const auto row = [](const char *name, const std::function<void(CDlgReceipts &, const InvoiceOffice &)> &ask, const QString &amounts) {
        QTest::newRow(name) << ask << amounts;
    };
    row(
        "person", [](auto &page, const auto &office) { page.filters().set(u"person", office.pars); }, u"70 500 300"_s);
    row(
        "received", [](auto &page, const auto &) { page.filters().set(u"kind", 1); }, u"70 500 990"_s);
    row(
        "paid", [](auto &page, const auto &) { page.filters().set(u"kind", 2); }, u"300"_s);
    row(
        "by cheque", [](auto &page, const auto &) { page.filters().set(u"method", int(CTblReceipts::cheque)); }, u"70 500"_s);
    row(
        "for", [](auto &page, const auto &) { page.filters().set(u"for", u"فروش"_s); }, u"990"_s);
    row(
        "from its own day", [](auto &page, const auto &office) { page.filters().set(u"from", office.day.date()); }, u"300 990"_s);
    row(
        "to the day before", [](auto &page, const auto &office) { page.filters().set(u"to", office.day.addDays(-1).date()); }, u"70 500"_s);
    row(
        "amount from", [](auto &page, const auto &) { page.filters().set(u"amountFrom", 500); }, u"500 990"_s);
    row(
        "amount to", [](auto &page, const auto &) { page.filters().set(u"amountTo", 300); }, u"70 300"_s);
}

void TestCDlgReceipts::filters()
{
    using Ask = std::function<void(CDlgReceipts &, const InvoiceOffice &)>;
    QFETCH(Ask, ask);
    CDlgReceipts page;
    page.open();
    ask(page, m_office);
    page.refill();
    QTEST(numbers(page), "amounts");
}

void TestCDlgReceipts::voidOnesAreShownOnRequest()
{
    CDlgReceipts page;
    page.open();
    page.filters().set(u"voided", true);
    page.refill();
    QCOMPARE(numbers(page), u"1 70 500 300 990"_s);
    QCOMPARE(page.list()->cellText(0, u"status"), u"باطل"_s);
    QVERIFY(page.list()->listModel()->rows().at(0).warning);
    QVERIFY(!page.list()->listModel()->rows().at(1).warning);
}

void TestCDlgReceipts::footSumsUpWhatIsListedAndValid()
{
    CDlgReceipts page;
    page.open();
    QCOMPARE(page.sumsText(), u"جمع دریافت : 1,560     جمع پرداخت : 300"_s);
    // What is void, or unpaid since its cheque bounced, is listed and does not count.
    m_office.database.run(u"UPDATE Receipts SET iStatus=2 WHERE iChequeID>0"_s);
    page.filters().set(u"voided", true);
    page.refill();
    QCOMPARE(page.list()->count(), 5);
    QCOMPARE(page.sumsText(), u"جمع دریافت : 990     جمع پرداخت : 300"_s);
    page.filters().set(u"kind", 2);
    page.refill();
    QCOMPARE(page.sumsText(), u"جمع دریافت : 0     جمع پرداخت : 300"_s);
    page.filters().set(u"amountFrom", 5000);
    page.refill();
    QCOMPARE(page.sumsText(), u"جمع دریافت : 0     جمع پرداخت : 0"_s);
}

void TestCDlgReceipts::newOnesAreListed_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("kind");
    QTest::newRow("receipt") << u"newReceipt"_s << u"دریافت"_s << u"دریافت"_s;
    QTest::newRow("payment") << u"newPayment"_s << u"پرداخت"_s << u"پرداخت"_s;
}

void TestCDlgReceipts::newOnesAreListed()
{
    QFETCH(QString, command);
    CDlgReceipts page;
    page.open();
    QString title;
    Hand::inNextWindow([&](QDialog *window) {
        title = window->windowTitle();
        auto *person = window->findChild<KPersonField *>();
        person->setPersonID(m_office.pars);
        Q_EMIT person->changed(m_office.pars);
        field<KEdit>(window, u"مبلغ :"_s)->setText(u"42"_s);
        FormDriver::click(window, u"تاييد"_s);
    });
    QVERIFY(page.runCommand(command));
    QTEST(title, "title");
    QCOMPARE(page.list()->cellText(0, u"amount"), u"42"_s);
    QTEST(page.list()->cellText(0, u"kind"), "kind");
    QCOMPARE(page.list()->currentRow(), 0);
}

void TestCDlgReceipts::voidAsksWhyAndOpensTheInvoice()
{
    CDlgReceipts page;
    select(page, key(0));
    QCOMPARE(m_office.open(m_office.ali), QString());
    Hand::inNextWindow([](QDialog *window) {
        QCOMPARE(window->windowTitle(), u"ابطال دریافت"_s);
        field<KEdit>(window, u"دلیل :"_s)->setText(u"مبلغ اشتباه بود"_s);
        FormDriver::click(window, u"تاييد"_s);
    });
    QVERIFY(page.runCommand(u"void"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(m_office.database.value(u"SELECT CONCAT_WS('|',iStatus,iVoidUserID,sVoidReason,dateVoid IS NOT NULL) FROM Receipts WHERE iID=%1"_s.arg(key(0))),
             u"1|%1|مبلغ اشتباه بود|1"_s.arg(m_office.admin));
    QCOMPARE(m_office.open(m_office.ali), u"%1=990"_s.arg(m_invoice));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Docs d JOIN Receipts r ON r.iDocNum=d.iDocNum WHERE r.iID=%1"_s.arg(key(0))), u"0"_s);
    // The other three keep their documents.
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"2/0/0"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindPayment)), u"1/0/0"_s);
}

void TestCDlgReceipts::voidWithoutReasonIsRefused()
{
    CDlgReceipts page;
    select(page, key(0));
    Hand::inNextWindow([](QDialog *window) {
        auto *reason = field<KEdit>(window, u"دلیل :"_s);
        for (const QString &text : {QString(), u"   "_s}) {
            reason->setText(text);
            FormDriver::click(window, u"تاييد"_s);
            QVERIFY(window->isVisible());
            QVERIFY(reason->hasFocus());
            QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا دلیل را وارد نمایید."_s});
        }
    });
    QVERIFY(page.runCommand(u"void"));
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts WHERE iStatus=1"), u"1"_s);
}

void TestCDlgReceipts::windowShowsAllThatItSays_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<int>("sentences");
    for (const double points : {10., 12.5, 15.}) {
        for (const int sentences : {1, 3, 5})
            QTest::addRow("%g points, %d sentences", points, sentences) << points << sentences;
    }
}

void TestCDlgReceipts::windowShowsAllThatItSays()
{
    QFETCH(double, points);
    QFETCH(int, sentences);
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    const QString sentence = u"دریافت شماره 105 به مبلغ 6,358,000,000 ریال باطل می‌شود و آنچه با آن تسویه شده بود دوباره باز می‌شود. "_s;
    {
        CDlgVoiding window(
            u"ابطال دریافت"_s, sentence.repeated(sentences).trimmed(), [](const QString &) {});
        window.show();
        const bool isExposed = QTest::qWaitForWindowExposed(&window);
        QApplication::setFont(usual);
        QVERIFY(isExposed);
        const auto *area = window.findChild<QScrollArea *>();
        QCOMPARE(area->verticalScrollBar()->maximum(), 0);
    }
}

// The cheque was deposited: no reason is typed in vain.
void TestCDlgReceipts::chequeOnItsWayIsToldBeforeTheReason()
{
    m_office.database.run(u"UPDATE Cheques SET iState=1"_s);
    CDlgReceipts page;
    select(page, key(3));
    g_pDlgWarning->takeShown();
    QVERIFY(page.runCommand(u"void"));
    const QStringList told = g_pDlgWarning->takeShown();
    QVERIFY2(told.size() == 1 && told.constFirst().contains(u"در جریان وصول"_s), qPrintable(told.join(u'/')));
    QCOMPARE(m_office.database.value(u"SELECT iStatus FROM Receipts WHERE iID=%1"_s.arg(key(3))), u"0"_s);
}

void TestCDlgReceipts::secondDeskIsToldWhoMadeItVoid()
{
    CDlgReceipts page;
    select(page, key(0));
    QStringList told;
    Hand::inNextWindow([&](QDialog *window) {
        field<KEdit>(window, u"دلیل :"_s)->setText(u"اینجا هم"_s);
        // The other desk is first.
        KSecurity::setRights(m_office.clerk, u"Receipts"_s, KSecurity::allRights);
        GetDBSetting()->Login(m_office.clerk);
        ReceiptPosting::makeVoid(key(0), u"آنجا"_s);
        GetDBSetting()->Login(m_office.admin);
        FormDriver::click(window, u"تاييد"_s);
        QVERIFY(window->isVisible());
        QCOMPARE(field<KEdit>(window, u"دلیل :"_s)->text(), u"اینجا هم"_s);
        told = g_pDlgWarning->takeShown();
    });
    QVERIFY(page.runCommand(u"void"));
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"clerk"_s) && told.constFirst().contains(u"باطل کرده است"_s), qPrintable(told.constFirst()));
    QCOMPARE(m_office.database.value(u"SELECT sVoidReason FROM Receipts WHERE iID=%1"_s.arg(key(0))), u"آنجا"_s);
    // And once more: before a reason is asked for.
    g_pDlgWarning->takeShown();
    select(page, key(0));
    QVERIFY(page.runCommand(u"void"));
    told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"clerk"_s) && told.constFirst().contains(u"آنجا"_s), qPrintable(told.constFirst()));
}

void TestCDlgReceipts::partsOfOneHandingOverAreOfferedTogether_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("states"); // of the three parts
    QTest::newRow("all") << int(KMessageDialog::Yes) << u"1,1,1"_s;
    QTest::newRow("only this one") << int(KMessageDialog::No) << u"0,1,0"_s;
    QTest::newRow("none") << int(KMessageDialog::Cancel) << u"0,0,0"_s;
}

void TestCDlgReceipts::partsOfOneHandingOverAreOfferedTogether()
{
    QFETCH(int, answer);
    const auto posted = ReceiptPosting::save({.personID = m_office.pars, .date = m_office.day.addDays(-1), .account = Accounts::cash, .parts = {{60, u"اول"_s}, {30, u"دوم"_s}, {10, u"سوم"_s}}});
    const QList<int> keys{posted[0].receiptID, posted[1].receiptID, posted[2].receiptID};
    QCOMPARE(ReceiptPosting::handedOverWith(keys[1]), (QList<int>{keys[0], keys[2]}));
    CDlgReceipts page;
    select(page, keys[1]);
    g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
    if (answer != KMessageDialog::Cancel)
        Hand::inNextWindow([](QDialog *window) {
            field<KEdit>(window, u"دلیل :"_s)->setText(u"اشتباه"_s);
            FormDriver::click(window, u"تاييد"_s);
        });
    QVERIFY(page.runCommand(u"void"));
    const QStringList asked = g_pDlgYesNo->takeShown();
    QCOMPARE(asked.size(), 1);
    QVERIFY2(asked.constFirst().contains(u"شماره %1، %2."_s.arg(keys[0]).arg(keys[2])), qPrintable(asked.constFirst()));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    const QString states = m_office.database.value(u"SELECT GROUP_CONCAT(iStatus ORDER BY iID) FROM Receipts WHERE iID>=%1"_s.arg(keys[0]));
    QTEST(states, "states");
    // What was taken back is offered no more.
    QCOMPARE(ReceiptPosting::handedOverWith(keys[0]).size(), answer == KMessageDialog::Yes ? 0 : answer == KMessageDialog::No ? 1
                                                                                                                              : 2);
}

void TestCDlgReceipts::chequeGoesWithItsReceipts()
{
    CDlgReceipts page;
    select(page, key(3));
    Hand::inNextWindow([](QDialog *window) {
        field<KEdit>(window, u"دلیل :"_s)->setText(u"چک برگشت داده شد"_s);
        FormDriver::click(window, u"تاييد"_s);
    });
    QVERIFY(page.runCommand(u"void"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(iStatus ORDER BY iID) FROM Receipts WHERE iID IN (%1,%2)"_s.arg(key(2)).arg(key(3))), u"1,1"_s);
    QCOMPARE(value("SELECT iState FROM Cheques"), u"6"_s);
}

void TestCDlgReceipts::showOpensEverything()
{
    CDlgReceipts page;
    select(page, key(4));
    QStringList found;
    Hand::inNextWindow([&found](QDialog *window) {
        found = {window->windowTitle()};
        for (const QString &name : {u"وضعیت :"_s, u"شخص :"_s, u"باطل‌کننده :"_s, u"دلیل :"_s})
            found.append(field<KEdit>(window, name)->text());
        QVERIFY(FormDriver::everyInputHasAName(window));
    });
    QVERIFY(page.runCommand(u"show"));
    QCOMPARE(found, (QStringList{u"دریافت شماره %1"_s.arg(key(4)), u"باطل"_s, u"علی رضایی"_s, u"admin"_s, u"اشتباه"_s}));
    select(page, key(2));
    Hand::inNextWindow([&found](QDialog *window) {
        found = {field<KEdit>(window, u"شناسه صیادی :"_s)->text(), field<KEdit>(window, u"مبلغ چک :"_s)->text()};
        Hand::inNextWindow([&found](QDialog *cheque) { found.append(QString::fromLatin1(cheque->metaObject()->className())); });
        FormDriver::click(window, u"نمایش چک"_s);
    });
    QVERIFY(page.runCommand(u"show"));
    QCOMPARE(found, (QStringList{u"1234567890123456"_s, u"570"_s, u"CDlgShowCheque"_s}));
}

void TestCDlgReceipts::receiptGoesOnPaper()
{
    CDlgReceipts page;
    select(page, key(1));
    QString title;
    Hand::inNextWindow([&title](QDialog *window) { title = window->windowTitle(); });
    QVERIFY(page.runCommand(u"printReceipt"));
    QCOMPARE(title, u"پیش نمایش چاپ - رسید پرداخت"_s);
}

void TestCDlgReceipts::statementIsThatOfThePerson()
{
    CDlgReceipts page;
    select(page, key(1));
    QString title;
    Hand::inNextWindow([&title](QDialog *window) { title = window->windowTitle(); });
    QVERIFY(page.runCommand(u"statement"));
    QVERIFY2(title.contains(u"صورتحساب"_s) && title.contains(u"پارس خودرو"_s), qPrintable(title));
}

void TestCDlgReceipts::rightsOfEachCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("right");
    QTest::newRow("newReceipt") << u"newReceipt"_s << int(KSecurity::Write);
    QTest::newRow("newPayment") << u"newPayment"_s << int(KSecurity::Write);
    QTest::newRow("void") << u"void"_s << int(KSecurity::Delete);
    QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
    QTest::newRow("printReceipt") << u"printReceipt"_s << int(KSecurity::Read);
    QTest::newRow("print") << u"print"_s << int(KSecurity::PrintList);
}

void TestCDlgReceipts::rightsOfEachCommand()
{
    QFETCH(QString, command);
    QFETCH(int, right);
    KSecurity::setRights(m_office.clerk, u"Receipts"_s, KSecurity::allRights & ~right);
    GetDBSetting()->Login(m_office.clerk);
    CDlgReceipts page;
    select(page, key(0));
    g_pDlgWarning->takeShown();
    page.runCommand(command);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, static_cast<KSecurity::Right>(right))});
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts WHERE iStatus=0"), u"4"_s);
}

void TestCDlgReceipts::withoutTheRightThePageIsRefused()
{
    KSecurity::setRights(m_office.clerk, u"Receipts"_s, 0);
    GetDBSetting()->Login(m_office.clerk);
    CDlgReceipts page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Access)});
}

void TestCDlgReceipts::closedDatabaseHidesTheCommands()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgReceipts page;
    page.open();
    QVERIFY(!page.isOffered(u"newReceipt") && !page.isOffered(u"newPayment") && !page.isOffered(u"void"));
    QVERIFY(page.isOffered(u"show") && page.isOffered(u"printReceipt") && page.isOffered(u"print"));
}

static const RegisteredTest<TestCDlgReceipts, QApplication> registeredCDlgReceipts;
#include "TestCDlgReceipts.moc"
