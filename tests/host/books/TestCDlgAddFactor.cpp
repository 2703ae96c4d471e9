// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddFactor.h"

#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KLinesView.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgAddFactor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newInvoiceTakesTheOfficesRates();
    void totalsFollowWhatIsTyped();
    void typedTaxStays();
    void wholeInvoiceIsEnteredByKeyboard();
    void savedInvoiceIsShownAgain();
    void refusals_data();
    void refusals();
    void lineThatIsTooLargeIsToldBeforeItsLevies();
    void serviceThatIsNotInTheListIsRefused();
    void entryThatIsNoDateIsRefused();
    void refusalOfTheBooksKeepsWhatWasTyped();
    void dateAfterTheFiscalYearIsRefusedOnItsField();
    void changeIsSaved();
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void conflictShowsTheLinesAsPeopleReadThem();
    void invoiceThatWasMadeVoidMeanwhileIsRefusedWithWhoDidIt();
    void cancelSavesNothing();
    void returnedInvoiceIsMarked();
    void showOnlyTakesNothing();
    void documentIsShown();
    void everyControlHasANameOfItsOwn();

private:
    static KLinesModel *lines(const CDlgAddFactor &window) { return window.linesView()->linesModel(); }
    static KEdit *figure(const CDlgAddFactor &window, const QString &name) { return named<KEdit>(window, name); }
    static void enter(const CDlgAddFactor &window, int row, int column, const QVariant &value)
    {
        lines(window)->setData(lines(window)->index(row, column), value);
    }
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }

    BooksOffice m_office;
};

namespace {

enum Column {
    Service,
    Desc,
    Count,
    Price,
    Amount
};

const QString tax = u"مالیات :"_s;
const QString taxPercent = u"درصد مالیات :"_s;
const QString duty = u"عوارض :"_s;
const QString discount = u"تخفیف :"_s;
const QString sum = u"جمع ردیف‌ها :"_s;
const QString total = u"قابل پرداخت :"_s;

}

void TestCDlgAddFactor::init()
{
    m_office.open();
}

void TestCDlgAddFactor::newInvoiceTakesTheOfficesRates()
{
    CDlgAddFactor window(Invoice{}, false);
    QCOMPARE(window.windowTitle(), u"فاکتور فروش جدید"_s);
    QCOMPARE(figure(window, taxPercent)->number(), 6.0);
    QCOMPARE(figure(window, u"درصد عوارض :"_s)->number(), 4.0);
    QVERIFY(named<KDateEdit>(window, u"تاریخ :"_s)->date().isValid());
    enter(window, 0, Count, 2.0);
    enter(window, 0, Price, 500.0);
    QCOMPARE(figure(window, sum)->number(), 1000.0);
    QCOMPARE(figure(window, tax)->number(), 60.0);
    QCOMPARE(figure(window, duty)->number(), 40.0);
    QCOMPARE(figure(window, total)->number(), 1100.0);
}

void TestCDlgAddFactor::totalsFollowWhatIsTyped()
{
    CDlgAddFactor window(m_office.invoice(), false);
    figure(window, discount)->setText(u"500"_s);
    QCOMPARE(figure(window, tax)->number(), 30.0);
    QCOMPARE(figure(window, total)->number(), 550.0);
    figure(window, taxPercent)->setText(u"9"_s);
    QCOMPARE(figure(window, tax)->number(), 45.0);
    lines(window)->removeLine(1);
    QCOMPARE(figure(window, sum)->number(), 800.0);
    QCOMPARE(figure(window, tax)->number(), 27.0);
}

void TestCDlgAddFactor::typedTaxStays()
{
    CDlgAddFactor window(Invoice{}, false);
    enter(window, 0, Count, 1.0);
    enter(window, 0, Price, 1000.0);
    figure(window, tax)->setText(u"85"_s);
    QCOMPARE(figure(window, taxPercent)->number(), 8.5);
    enter(window, 0, Price, 2000.0);
    QCOMPARE(figure(window, tax)->number(), 85.0);
    QCOMPARE(figure(window, taxPercent)->number(), 4.25);
    QCOMPARE(figure(window, total)->number(), 2165.0);
}

// Without a mouse, from the person to OK; the person is picked in the window that F4 opens.
void TestCDlgAddFactor::wholeInvoiceIsEnteredByKeyboard()
{
    CDlgAddFactor window(Invoice{}, false);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(window.findChild<KPersonField *>()->isAncestorOf(Hand::focus()));
    window.findChild<KPersonField *>()->setPersonID(BooksOffice::ali);
    Hand::press(Qt::Key_Return);
    named<KDateEdit>(window, u"تاریخ :"_s)->setDate(BooksOffice::day(2, 3).date());
    for (int steps = 0; !window.linesView()->hasFocus() && steps < 6; ++steps)
        Hand::press(Qt::Key_Return);
    QVERIFY(window.linesView()->hasFocus());
    const auto type = [](const QString &text) {
        Hand::type(text);
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->hide();
        Hand::press(Qt::Key_Return);
    };
    type(u"101"_s);
    type(QString());
    type(u"2"_s);
    type(u"400"_s);
    // Past the service: Enter on an empty last line would leave the grid.
    Hand::press(Qt::Key_Left);
    type(u"کرایه"_s);
    type(u"1"_s);
    type(u"200"_s);
    // Out of the grid through its empty last line, over the figures.
    Hand::press(Qt::Key_Return);
    QCOMPARE(Hand::focus()->accessibleName(), discount);
    Hand::type(u"100"_s);
    Hand::press(Qt::Key_Return);
    QCOMPARE(Hand::focus()->accessibleName(), taxPercent);
    Hand::press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY(!window.isVisible());
    QCOMPARE(value("SELECT CONCAT_WS('/',iPersonID,DATE(date),dAmount,dDiscount,dTax,dImposition) FROM Factors"),
             u"1/%1/1000/100/54/36"_s.arg(BooksOffice::day(2, 3).date().toString(Qt::ISODate)));
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',iServiceID,IFNULL(sDesc,''),dAmount) ORDER BY iID SEPARATOR ' ') FROM "
                   "FactorStuffs"),
             u"%1//800 0/کرایه/200"_s.arg(m_office.inspection));
}

void TestCDlgAddFactor::savedInvoiceIsShownAgain()
{
    const int num = InvoicePosting::save(m_office.invoice(CTblFactors::purchase, BooksOffice::pars)).num;
    CDlgAddFactor window(InvoicePosting::load(num), false);
    QCOMPARE(window.windowTitle(), u"فاکتور خرید شماره 1"_s);
    QCOMPARE(window.findChild<KPersonField *>()->name(), u"پارس خودرو"_s);
    QCOMPARE(lines(window)->index(0, Service).data().toString(), u"101 کارشناسی خودرو"_s);
    QCOMPARE(lines(window)->index(0, Amount).data().toString(), u"800"_s);
    QCOMPARE(figure(window, taxPercent)->number(), 6.0);
    QCOMPARE(figure(window, total)->number(), 990.0);
    const Invoice shown = window.invoice();
    QCOMPARE(shown.lines, m_office.invoice().lines);
    QCOMPARE(shown.type, int(CTblFactors::purchase));
}

void TestCDlgAddFactor::refusals_data()
{
    QTest::addColumn<std::function<void(Invoice &)>>("spoil");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QPoint>("cell"); // row and column, where the grid has the focus
    const auto row = [](const char *name, const std::function<void(Invoice &)> &spoil, const QString &message,
                        const QString &focus, QPoint cell = {}) { QTest::newRow(name) << spoil << message << focus << cell; };
    const QString grid = u"ردیف‌های فاکتور"_s;
    row(
        "nobody", [](Invoice &i) { i.personID = 0; }, u"لطفا شخص را انتخاب نمایید."_s, u"شخص :"_s);
    row("no lines", [](Invoice &i) { i.lines.clear(); }, u"لطفا دست‌کم یک ردیف وارد نمایید."_s, grid, {0, Service});
    row("a line of nothing", [](Invoice &i) { i.lines[1].desc.clear(); },
        u"لطفا خدمت یا شرح ردیف 2 را وارد نمایید."_s, grid, {1, Service});
    row("no count", [](Invoice &i) { i.lines[1].count = 0; }, u"لطفا تعداد ردیف 2 را وارد نمایید."_s, grid, {1, Count});
    row("no price", [](Invoice &i) { i.lines[0].price = 0; }, u"لطفا قیمت ردیف 1 را وارد نمایید."_s, grid, {0, Price});
    row("an amount that the books cannot hold", [](Invoice &i) { i.lines[1].price = 1e17; },
        u"مبلغ ردیف 2 بیش از اندازه بزرگ است."_s, grid, {1, Price});
    row(
        "discount above the sum", [](Invoice &i) { i.discount = 2000; }, u"تخفیف از جمع ردیف‌ها بیشتر است."_s, discount);
}

void TestCDlgAddFactor::refusals()
{
    QFETCH(std::function<void(Invoice &)>, spoil);
    QFETCH(QString, focus);
    QFETCH(QPoint, cell);
    Invoice invoice = m_office.invoice();
    invoice.num = InvoicePosting::save(invoice).num;
    spoil(invoice);
    CDlgAddFactor window(invoice, false);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.accept();
    QVERIFY(window.isVisible());
    QTEST(g_pDlgWarning->takeShown().value(0), "message");
    QCOMPARE(Hand::focus()->accessibleName(), focus);
    if (window.linesView()->hasFocus())
        QCOMPARE(window.linesView()->currentIndex(), lines(window)->index(cell.x(), cell.y()));
    QCOMPARE(value("SELECT dAmount FROM Factors"), u"1000"_s);
}

void TestCDlgAddFactor::lineThatIsTooLargeIsToldBeforeItsLevies()
{
    CDlgAddFactor window(m_office.invoice(), false);
    enter(window, 1, Price, u"99999999999999999"_s);
    QVERIFY(!figure(window, tax)->isEntryValid());
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"مبلغ ردیف 2 بیش از اندازه بزرگ است."_s});
    enter(window, 1, Price, u"200"_s);
    figure(window, duty)->setText(u"9999999999999999"_s);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(value("SELECT COUNT(*) FROM Factors"), u"0"_s);
}

void TestCDlgAddFactor::serviceThatIsNotInTheListIsRefused()
{
    CDlgAddFactor window(m_office.invoice(), false);
    enter(window, 1, Service, u"رنگ"_s);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"خدمت «رنگ» در لیست خدمات نیست."_s});
    QCOMPARE(window.linesView()->currentIndex(), lines(window)->index(1, Service));
    QCOMPARE(lines(window)->index(1, Service).data().toString(), u"رنگ"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Factors"), u"0"_s);
}

void TestCDlgAddFactor::entryThatIsNoDateIsRefused()
{
    CDlgAddFactor window(m_office.invoice(), false);
    auto *date = named<KDateEdit>(window, u"تاریخ :"_s);
    date->setText(u"1405/13/1"_s);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    date->setText(QString());
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا تاریخ را وارد نمایید."_s});
}

void TestCDlgAddFactor::refusalOfTheBooksKeepsWhatWasTyped()
{
    Invoice early = m_office.invoice();
    early.date = BooksOffice::day(1, 1).addDays(-1);
    CDlgAddFactor window(early, false);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تاریخ فاکتور پیش از تاریخ افتتاحیه سال مالی است."_s});
    QCOMPARE(window.invoice().lines, early.lines);
    QCOMPARE(window.num(), 0);
}

void TestCDlgAddFactor::dateAfterTheFiscalYearIsRefusedOnItsField()
{
    Invoice late = m_office.invoice();
    late.date = BooksOffice::day(12, 29).addDays(1);
    CDlgAddFactor window(late, false);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    named<KEdit>(window, u"شرح :"_s)->setFocus();
    window.accept();
    QVERIFY(window.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تاریخ فاکتور پس از پایان سال مالی 1405 (1405/12/29) است."_s});
    QVERIFY(named<KDateEdit>(window, u"تاریخ :"_s)->hasFocus());
    QCOMPARE(window.num(), 0);
}

void TestCDlgAddFactor::changeIsSaved()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    CDlgAddFactor window(InvoicePosting::load(num), false);
    enter(window, 0, Count, 3.0);
    enter(window, 0, Service, u"102"_s);
    QVERIFY(window.OnOK());
    QCOMPARE(value("SELECT CONCAT_WS('/',dAmount,dTax,iDocNum) FROM Factors"), u"1400/78/1"_s);
    QCOMPARE(value("SELECT iServiceID FROM FactorStuffs ORDER BY iID LIMIT 1"), QString::number(m_office.transfer));
    QCOMPARE(value("SELECT SUM(dBed) FROM Docs WHERE iHesabMoeenCode=110301"), u"1430"_s);
}

void TestCDlgAddFactor::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    int num = 0;
    const auto other = [&](const std::function<void(Invoice &)> &change) {
        Invoice theirs = InvoicePosting::load(num);
        change(theirs);
        InvoicePosting::save(theirs);
    };
    TwoDesks({
                 .reset = [&] { num = InvoicePosting::save(m_office.invoice()).num; },
                 .open = [&] { return std::make_unique<CDlgAddFactor>(InvoicePosting::load(num), false); },
                 .enter = [](KDialog &window) { enter(static_cast<CDlgAddFactor &>(window), 0, Count, 3.0); },
                 .changeOther = [&] { other([](Invoice &invoice) { invoice.desc = u"نقدی"_s; }); },
                 .changeSame = [&] { other([](Invoice &invoice) { invoice.lines[0].price = 500; }); },
                 .remove =
                     [&] {
                         m_office.database.run(u"DELETE FROM Factors"_s);
                         m_office.database.run(u"DELETE FROM FactorStuffs"_s);
                     },
                 .stored =
                     [&] {
                         return value("SELECT GROUP_CONCAT(CONCAT_WS('/',dAmount,dTax,iDocNum,sDesc,(SELECT SUM(dBed) FROM Docs "
                                      "WHERE iDocNum=Factors.iDocNum))) FROM Factors");
                     },
                 .merged = u"1400/78/1/نقدی/1530"_s,
                 .theirs = u"1200/54/1/1290"_s,
                 .mine = u"1400/78/1/1530"_s,
                 .renewed = u"1400/78/2/1530"_s,
             })
        .check(what);
}

void TestCDlgAddFactor::conflictShowsTheLinesAsPeopleReadThem()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    CDlgAddFactor window(InvoicePosting::load(num), false);
    Invoice theirs = InvoicePosting::load(num);
    theirs.lines[0].price = 500;
    InvoicePosting::save(theirs);
    enter(window, 0, Count, 3.0);
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
    QVERIFY(!window.OnOK());
    const QString shown = CDlgRowConflict::takeShown().join(u'\n');
    QVERIFY2(shown.contains(u"ردیف‌ها: کارشناسی خودرو : 2 × 400\nکرایه: 1 × 200 | "_s), qPrintable(shown));
    QVERIFY2(shown.contains(u" 2 × 500\n"_s) && shown.contains(u" 3 × 400\n"_s), qPrintable(shown));
    QCOMPARE(window.invoice().lines.at(0).count, 3.0);
}

void TestCDlgAddFactor::invoiceThatWasMadeVoidMeanwhileIsRefusedWithWhoDidIt()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    CDlgAddFactor window(InvoicePosting::load(num), false);
    enter(window, 0, Count, 3.0);
    InvoicePosting::makeVoid(num);
    QVERIFY(!window.OnOK());
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"باطل شده است"_s) && told.constFirst().contains(u"«admin»"_s), qPrintable(told.constFirst()));
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
    QCOMPARE(window.invoice().lines.at(0).count, 3.0);
}

void TestCDlgAddFactor::cancelSavesNothing()
{
    CDlgAddFactor window(m_office.invoice(), false);
    window.show();
    window.reject();
    QCOMPARE(value("SELECT COUNT(*) FROM Factors"), u"0"_s);
}

void TestCDlgAddFactor::returnedInvoiceIsMarked()
{
    CDlgAddFactor window(m_office.invoice(), false);
    window.findChild<QCheckBox *>()->setChecked(true);
    QVERIFY(window.OnOK());
    QCOMPARE(value("SELECT GROUP_CONCAT(DISTINCT iKind) FROM FactorStuffs"), u"3"_s);
    const CDlgAddFactor again(InvoicePosting::load(window.num()), false);
    QVERIFY(again.findChild<QCheckBox *>()->isChecked());
}

void TestCDlgAddFactor::showOnlyTakesNothing()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    InvoicePosting::makeVoid(num);
    CDlgAddFactor window(InvoicePosting::load(num), true);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (const KEdit *edit : window.findChildren<KEdit *>())
        QVERIFY2(edit->isReadOnly(), qPrintable(edit->accessibleName()));
    QVERIFY(lines(window)->isReadOnly());
    QVERIFY(!window.findChild<QCheckBox *>()->isEnabled());
    // By their distance from the leading edge.
    QMap<int, QString> buttons;
    for (const QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->isVisible())
            buttons.insert(window.width() - button->mapTo(&window, QPoint()).x(), button->text());
    }
    QCOMPARE(buttons.values(), (QStringList{u"نمایش سند"_s, u"چاپ فاکتور"_s, u"بازگشت"_s}));
    window.accept();
    QCOMPARE(value("SELECT iStatus FROM Factors"), u"1"_s);
}

void TestCDlgAddFactor::documentIsShown()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    CDlgAddFactor window(InvoicePosting::load(num), false);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    int rows = 0;
    Hand::inNextWindow([&rows](QDialog *dialog) {
        if (const auto *shown = qobject_cast<CDlgShowDocument *>(dialog))
            rows = shown->rows()->list()->count();
        dialog->reject();
    });
    named<QPushButton>(window, u"نمایش سند"_s)->click();
    QCOMPARE(rows, 5);
}

void TestCDlgAddFactor::everyControlHasANameOfItsOwn()
{
    CDlgAddFactor window(m_office.invoice(), false);
    QSet<QString> names;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isControl = qobject_cast<KEdit *>(widget) || qobject_cast<KDateEdit *>(widget)
            || qobject_cast<QPushButton *>(widget) || qobject_cast<QCheckBox *>(widget) || qobject_cast<KLinesView *>(widget);
        if (!isControl || qobject_cast<QLineEdit *>(widget->parentWidget()))
            continue;
        const auto *button = qobject_cast<QPushButton *>(widget);
        const QString name = widget->accessibleName().isEmpty() && button ? button->text() : widget->accessibleName();
        QVERIFY(!name.isEmpty());
        QVERIFY2(!names.contains(name), qPrintable(name));
        names.insert(name);
    }
}

static const RegisteredTest<TestCDlgAddFactor, QApplication> registeredCDlgAddFactor;
#include "TestCDlgAddFactor.moc"
