// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgAccountDocs.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestCDlgAccountDocs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void rowsWithTheRunningBalance();
    void balanceBeforeTheRangeIsBroughtForward();
    void withoutRowsTheSheetIsEmpty();
    void rangeIsChangedInTheWindow();
    void entryThatIsNoDateIsRefused();
    void rangeThatEndsBeforeItBeginsIsRefused();
    void rowShowsItsDocument();
    void broughtForwardRowShowsNothing();
    void rights();
    void documentThatIsGoneIsTold();
    void documentIsShownWithItsHead();
    void everyInputHasAName();
    void tabGoesThroughTheWindowAsItIsRead();

private:
    static void write(int month, int dayOfMonth, double amount, bool receives);

    TestOffice m_office;
};

namespace {

enum Column {
    Number,
    Document,
    Date,
    Person,
    Desc,
    Debit,
    Credit,
    Balance,
    Nature
};

QDateTime day(int month, int dayOfMonth)
{
    return QDateTime(ConvertToMiladi(1405, month, dayOfMonth), QTime(0, 0), Qt::UTC);
}

QString rowText(const CDlgAccountDocs &window, int row)
{
    QStringList cells;
    for (int column = Number; column <= Nature; ++column)
        cells.append(window.list()->cellText(row, column));
    return cells.join(u'|');
}

}

// Money that comes into the cash box, or goes out of it, against the bank.
void TestCDlgAccountDocs::write(int month, int dayOfMonth, double amount, bool receives)
{
    ManualDocument document;
    document.date = day(month, dayOfMonth);
    document.desc = u"انتقال"_s;
    document.rows = {{Accounts::cash, 0, receives ? amount : 0, receives ? 0 : amount, u"صندوق %1"_s.arg(amount)},
                     {Accounts::bank, 0, receives ? 0 : amount, receives ? amount : 0, u"بانک"_s}};
    document.save();
}

void TestCDlgAccountDocs::initTestCase()
{
    GetDBSetting()->SetFiscalYear(1405);
    write(2, 1, 1000, true);
    write(2, 10, 1500, false);
    write(3, 1, 200, true);
}

void TestCDlgAccountDocs::init()
{
    GetDBSetting()->Login(m_office.admin);
    g_pDlgWarning->takeShown();
}

void TestCDlgAccountDocs::rowsWithTheRunningBalance()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    QCOMPARE(window.windowTitle(), u"گردش حساب 110101 - صندوق"_s);
    QCOMPARE(window.list()->count(), 3);
    QCOMPARE(rowText(window, 0), u"1|1|1405/02/01||صندوق 1000|1,000||1,000|بد"_s);
    QCOMPARE(rowText(window, 1), u"2|2|1405/02/10||صندوق 1500||1,500|500|بس"_s);
    QCOMPARE(rowText(window, 2), u"3|3|1405/03/01||صندوق 200|200||300|بس"_s);
    QCOMPARE(window.totalsText(), u"تعداد : 3     جمع بدهکار : 1,200     جمع بستانکار : 1,500     مانده : 300 بس"_s);
}

void TestCDlgAccountDocs::balanceBeforeTheRangeIsBroughtForward()
{
    CDlgAccountDocs window(AccountLevel::Kol, Accounts::cashKol, day(2, 10), day(2, 10));
    QCOMPARE(window.list()->count(), 2);
    QCOMPARE(rowText(window, 0), u"||||مانده از قبل|||1,000|بد"_s);
    QCOMPARE(rowText(window, 1), u"1|2|1405/02/10||صندوق 1500||1,500|500|بس"_s);
    QVERIFY(window.totalsText().endsWith(u"مانده : 500 بس"_s));
}

void TestCDlgAccountDocs::withoutRowsTheSheetIsEmpty()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::dutyExpense, {}, {});
    QCOMPARE(window.list()->count(), 0);
    QVERIFY(window.totalsText().endsWith(u"مانده : 0 -"_s));
}

void TestCDlgAccountDocs::rangeIsChangedInTheWindow()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    FormDriver::field<KDateEdit>(&window, u"تا تاریخ :"_s)->setDate(day(2, 1).date());
    window.show();
    FormDriver::click(&window, u"جستجو"_s);
    QCOMPARE(window.list()->count(), 1);
}

void TestCDlgAccountDocs::entryThatIsNoDateIsRefused()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    FormDriver::field<KDateEdit>(&window, u"از تاریخ :"_s)->setText(u"1405/13/1"_s);
    window.refill();
    QVERIFY(g_pDlgWarning->takeShown().value(0).startsWith(u"از تاریخ :"_s));
    QCOMPARE(window.list()->count(), 3);
}

void TestCDlgAccountDocs::rangeThatEndsBeforeItBeginsIsRefused()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    window.show();
    auto *from = FormDriver::field<KDateEdit>(&window, u"از تاریخ :"_s);
    from->setText(u"1405/03/02"_s);
    FormDriver::field<KDateEdit>(&window, u"تا تاریخ :"_s)->setText(u"1405/03/01"_s);
    window.refill();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"«از تاریخ» بزرگتر از «تا تاریخ» است. لطفا اصلاح نمایید."_s});
    QCOMPARE(window.focusWidget(), from);
    QCOMPARE(window.list()->count(), 3);
}

void TestCDlgAccountDocs::rowShowsItsDocument()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.list()->selectRow(1);
    QString title;
    int rows = 0;
    Hand::inNextWindow([&](QDialog *dialog) {
        title = dialog->windowTitle();
        if (const auto *shown = qobject_cast<CDlgShowDocument *>(dialog))
            rows = shown->rows()->list()->count();
    });
    QTest::keyClick(window.list(), Qt::Key_Return);
    QCOMPARE(title, u"سند حسابداری شماره 2 سال مالی 1405"_s);
    QCOMPARE(rows, 2);
}

void TestCDlgAccountDocs::broughtForwardRowShowsNothing()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, day(2, 10), {});
    window.list()->selectRow(0);
    Q_EMIT window.list()->rowActivated(window.list()->currentKey());
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgAccountDocs::rights()
{
    GetDBSetting()->Login(m_office.clerk);
    const QString form = u"Documents"_s;
    CDlgAccountDocs::Show(AccountLevel::Moeen, Accounts::cash, {}, {}, nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, KSecurity::Read)});
    CDlgShowDocument::Show(1, 1405, nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, KSecurity::Read)});
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    window.print();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, KSecurity::PrintList)});
}

void TestCDlgAccountDocs::documentThatIsGoneIsTold()
{
    for (const int num : {0, 77}) {
        CDlgShowDocument::Show(num, 1405, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"سند حسابداری وجود ندارد."_s});
    }
}

void TestCDlgAccountDocs::documentIsShownWithItsHead()
{
    const CDlgShowDocument window(1, 1405);
    QCOMPARE(window.findChild<QLabel *>(u"documentHead"_s)->text(),
             u"تاریخ : 1405/02/01     نوع : دستی     شرح : انتقال"_s);
    QCOMPARE(window.rows()->totalsText(), u"جمع بدهکار : 1,000     جمع بستانکار : 1,000"_s);
}

void TestCDlgAccountDocs::everyInputHasAName()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    QVERIFY(FormDriver::everyInputHasAName(&window));
}

void TestCDlgAccountDocs::tabGoesThroughTheWindowAsItIsRead()
{
    CDlgAccountDocs window(AccountLevel::Moeen, Accounts::cash, {}, {});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(window.list()->hasFocus());
    QStringList met;
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto *button = qobject_cast<QPushButton *>(QApplication::focusWidget());
        met.append(button ? button->text() : QApplication::focusWidget()->accessibleName());
    } while (!window.list()->hasFocus() && met.size() < 20);
    QCOMPARE(met, (QStringList{u"چاپ"_s, u"بازگشت"_s, u"از تاریخ :"_s, u"تا تاریخ :"_s, u"جستجو"_s, u"گردش حساب"_s}));
}

static const RegisteredTest<TestCDlgAccountDocs, QApplication> registeredCDlgAccountDocs;
#include "TestCDlgAccountDocs.moc"
