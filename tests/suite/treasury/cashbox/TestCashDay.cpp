// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cashbox/CDlgCashDay.h"

#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/treasury/cashbox/CDlgCashAccounts.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QtTest>

using namespace Qt::StringLiterals;

using FormDriver::field;

// What the cash boxes and banks hold, and the sheet of a day, against what the tables say by themselves.
class TestCashDay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void dayListsWhatCameAndWent();
    void sumsAreThoseOfTheTables_data();
    void sumsAreThoseOfTheTables();
    void voidReceiptIsNotThere();
    void stepsToTheDayBeforeAndAfter();
    void anotherAccountIsReadAtOnce();
    void differenceToWhatIsCounted_data();
    void differenceToWhatIsCounted();
    void countBelongsToItsAccountAndDay();
    void returnStaysInTheWindow();
    void wrongDayIsTold_data();
    void wrongDayIsTold();
    void wrongDayDoesNotKeepTheWindowOpen();
    void nextDayEndsAtToday();
    void paperSaysWhatTheWindowSays();
    void printingNeedsTheRight();
    void everyInputHasAName();
    void accountsAreListedWithTheirBalances();
    void accountsLeadToTheirSheets();
    void accountsNeedTheRight();

private:
    static QDate date(int dayOfMonth) { return ConvertToMiladi(1405, 4, dayOfMonth); }
    static int save(CTblReceipts::Kind kind, int person, int dayOfMonth, double amount, int account, const ReceiptPurpose &purpose = {});
    double table(const QString &sum, const QString &when, int account = Accounts::cash);

    TestOffice m_office;
    int m_buyer = 0;
    int m_seller = 0;
    int m_wrong = 0; // a receipt that is made void
};

namespace {

QString dayLine(const CDlgCashDay &window, int row)
{
    QStringList cells;
    for (int column = 0; column < 9; ++column)
        cells.append(window.list()->cellText(row, column));
    return cells.join(u'|');
}

}

int TestCashDay::save(CTblReceipts::Kind kind, int person, int dayOfMonth, double amount, int account, const ReceiptPurpose &purpose)
{
    ReceiptPosting::Handover handover;
    handover.kind = kind;
    handover.personID = person;
    handover.date = QDateTime(date(dayOfMonth), QTime(0, 0), Qt::UTC);
    handover.method = account == Accounts::cash ? CTblReceipts::cash : CTblReceipts::bank;
    handover.account = account;
    handover.parts = {{amount, u"شرح"_s, purpose}};
    return ReceiptPosting::save(handover).constFirst().receiptID;
}

double TestCashDay::table(const QString &sum, const QString &when, int account)
{
    return m_office.database
        .value(u"SELECT COALESCE(SUM(%1),0) FROM Docs d, Documents h WHERE h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear AND h.iStatus=0 "
               "AND d.iHesabMoeenCode=%2 AND DATE(h.date)%3"_s.arg(sum)
                   .arg(account)
                   .arg(when))
        .toDouble();
}

void TestCashDay::initTestCase()
{
    GetDBSetting()->SetFiscalYear(1405);
    m_buyer = m_office.addPerson(u"مریم کریمی"_s);
    m_seller = m_office.addPerson(u"رضا احمدی"_s);
    save(CTblReceipts::received, m_buyer, 1, 5000, Accounts::cash);
    ReceiptPurpose purpose;
    purpose.text = u"قسط 2 قرارداد 7"_s;
    save(CTblReceipts::received, m_buyer, 2, 700, Accounts::cash, purpose);
    save(CTblReceipts::paid, m_seller, 2, 1200, Accounts::cash);
    save(CTblReceipts::received, m_buyer, 2, 900, Accounts::bank);
    m_wrong = save(CTblReceipts::received, m_buyer, 2, 444, Accounts::cash);
    ReceiptPosting::makeVoid(m_wrong, u"اشتباه"_s);
    save(CTblReceipts::received, m_seller, 3, 50, Accounts::cash);
    ManualDocument transfer;
    transfer.date = QDateTime(date(2), QTime(0, 0), Qt::UTC);
    transfer.desc = u"واریز به بانک"_s;
    transfer.rows = {{Accounts::bank, 0, 300, 0, u"از صندوق"_s}, {Accounts::cash, 0, 0, 300, u"به بانک"_s}};
    transfer.save();
}

void TestCashDay::init()
{
    GetDBSetting()->Login(m_office.admin);
    KSecurity::forgetRights();
    g_pDlgWarning->takeShown();
}

void TestCashDay::dayListsWhatCameAndWent()
{
    const CDlgCashDay window(Accounts::cash, date(2));
    QCOMPARE(window.list()->count(), 5);
    QCOMPARE(dayLine(window, 0), u"||||مانده از قبل||||5,000"_s);
    QCOMPARE(dayLine(window, 1), u"1|2|2|مریم کریمی|قسط 2 قرارداد 7|نقدی|700||5,700"_s);
    QCOMPARE(dayLine(window, 2), u"2|3|3|رضا احمدی|علی‌الحساب|نقدی||1,200|4,500"_s);
    QVERIFY2(dayLine(window, 3).endsWith(u"||به بانک|||300|4,200"_s), qPrintable(dayLine(window, 3)));
    QCOMPARE(dayLine(window, 4), u"||||جمع روز||700|1,500|4,200"_s);
    QCOMPARE(window.totalsText(), u"مانده از قبل : 5,000     دریافت : 700     پرداخت : 1,500     مانده پایان روز : 4,200"_s);
}

void TestCashDay::sumsAreThoseOfTheTables_data()
{
    QTest::addColumn<int>("account");
    QTest::addColumn<int>("dayOfMonth");
    for (const int dayOfMonth : {1, 2, 3, 4}) {
        QTest::addRow("cash, day %d", dayOfMonth) << int(Accounts::cash) << dayOfMonth;
        QTest::addRow("bank, day %d", dayOfMonth) << int(Accounts::bank) << dayOfMonth;
    }
}

void TestCashDay::sumsAreThoseOfTheTables()
{
    QFETCH(int, account);
    QFETCH(int, dayOfMonth);
    const QDateTime day(date(dayOfMonth), QTime(0, 0), Qt::UTC);
    const QString text = u"'%1'"_s.arg(day.date().toString(Qt::ISODate));
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLevel::Moeen, account, day, day);
    QCOMPARE(sheet.before.net(), table(u"d.dBed-d.dBes"_s, u'<' + text, account));
    QCOMPARE(sheet.sum.bed, table(u"d.dBed"_s, u'=' + text, account));
    QCOMPARE(sheet.sum.bes, table(u"d.dBes"_s, u'=' + text, account));
    QCOMPARE(sheet.closing(), table(u"d.dBed-d.dBes"_s, u"<="_s + text, account));
}

void TestCashDay::voidReceiptIsNotThere()
{
    QCOMPARE(m_office.database.value(u"SELECT iStatus FROM Receipts WHERE iID=%1"_s.arg(m_wrong)), u"1"_s);
    const CDlgCashDay window(Accounts::cash, date(2));
    for (int row = 0; row < window.list()->count(); ++row)
        QVERIFY(!dayLine(window, row).contains(u"444"_s));
}

void TestCashDay::stepsToTheDayBeforeAndAfter()
{
    CDlgCashDay window(Accounts::cash, date(2));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    FormDriver::click(&window, u"روز بعد"_s);
    QVERIFY(window.totalsText().startsWith(u"مانده از قبل : 4,200     دریافت : 50"_s));
    QTest::keyClick(window.list(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(window.list(), Qt::Key_PageUp, Qt::ControlModifier);
    QVERIFY2(window.totalsText().startsWith(u"مانده از قبل : 0     دریافت : 5,000"_s), qPrintable(window.totalsText()));
    field<KDateEdit>(&window, u"روز :"_s)->setText(u"1405/04/04"_s);
    QVERIFY2(window.totalsText().startsWith(u"مانده از قبل : 4,250     دریافت : 0"_s), qPrintable(window.totalsText()));
    // What is no day keeps what is shown.
    field<KDateEdit>(&window, u"روز :"_s)->setText(u"1405/13/01"_s);
    QVERIFY(window.totalsText().startsWith(u"مانده از قبل : 4,250     دریافت : 0"_s));
}

void TestCashDay::anotherAccountIsReadAtOnce()
{
    CDlgCashDay window(Accounts::cash, date(2));
    auto *account = field<QComboBox>(&window, u"حساب :"_s);
    account->setCurrentIndex(account->findData(int(Accounts::bank)));
    QVERIFY2(window.totalsText().endsWith(u"دریافت : 1,200     پرداخت : 0     مانده پایان روز : 1,200"_s), qPrintable(window.totalsText()));
}

void TestCashDay::differenceToWhatIsCounted_data()
{
    QTest::addColumn<QString>("counted");
    QTest::addColumn<QString>("difference");
    QTest::newRow("not counted") << QString() << QString();
    QTest::newRow("as the books") << u"4200"_s << u"اختلاف : ندارد"_s;
    QTest::newRow("missing") << u"4000"_s << u"کسری صندوق : 200"_s;
    QTest::newRow("too much") << u"4201"_s << u"اضافه صندوق : 1"_s;
    QTest::newRow("empty box") << u"0"_s << u"کسری صندوق : 4,200"_s;
}

void TestCashDay::differenceToWhatIsCounted()
{
    QFETCH(QString, counted);
    QFETCH(QString, difference);
    CDlgCashDay window(Accounts::cash, date(2));
    field<KEdit>(&window, u"موجودی شمارش‌شده :"_s)->setText(counted);
    QCOMPARE(window.differenceText(), difference);
}

void TestCashDay::countBelongsToItsAccountAndDay()
{
    CDlgCashDay window(Accounts::cash, date(2));
    window.show();
    auto *counted = field<KEdit>(&window, u"موجودی شمارش‌شده :"_s);
    counted->setText(u"4000"_s);
    FormDriver::click(&window, u"روز قبل"_s);
    QCOMPARE(counted->text(), QString());
    QCOMPARE(window.differenceText(), QString());
    counted->setText(u"5000"_s);
    QCOMPARE(window.differenceText(), u"اختلاف : ندارد"_s);
    FormDriver::click(&window, u"روز بعد"_s);
    QCOMPARE(counted->number(), 4000.0);
    QCOMPARE(window.differenceText(), u"کسری صندوق : 200"_s);
    auto *account = field<QComboBox>(&window, u"حساب :"_s);
    account->setCurrentIndex(account->findData(int(Accounts::bank)));
    QCOMPARE(counted->text(), QString());
    account->setCurrentIndex(account->findData(int(Accounts::cash)));
    QCOMPARE(counted->number(), 4000.0);
    // Reading the same day again takes nothing away.
    window.refill();
    QCOMPARE(counted->number(), 4000.0);
}

void TestCashDay::returnStaysInTheWindow()
{
    CDlgCashDay window(Accounts::cash, date(2));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *counted = field<KEdit>(&window, u"موجودی شمارش‌شده :"_s);
    counted->setFocus();
    QTest::keyClicks(counted, u"4000"_s);
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
        QTest::keyClick(counted, Qt::Key_Return, modifier);
        QVERIFY(window.isVisible());
        QCOMPARE(window.differenceText(), u"کسری صندوق : 200"_s);
    }
    FormDriver::click(&window, u"بازگشت"_s);
    QVERIFY(!window.isVisible());
}

void TestCashDay::wrongDayIsTold_data()
{
    QTest::addColumn<QString>("day");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("message");
    const QString noDate = u"روز : تاریخ نادرست است. نمونه : 1405/08/29"_s;
    QTest::newRow("no such day, Tab") << u"1404/13/99"_s << int(Qt::Key_Tab) << noDate;
    QTest::newRow("no such day, Return") << u"1404/13/99"_s << int(Qt::Key_Return) << noDate;
    QTest::newRow("half a day, Tab") << u"1404/1"_s << int(Qt::Key_Tab) << noDate;
    QTest::newRow("nothing, Tab") << QString() << int(Qt::Key_Tab) << u"روز : لطفا تاریخ را وارد نمایید."_s;
}

void TestCashDay::wrongDayIsTold()
{
    QFETCH(QString, day);
    QFETCH(int, key);
    QFETCH(QString, message);
    CDlgCashDay window(Accounts::cash, date(2));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *line = field<KDateEdit>(&window, u"روز :"_s);
    line->setFocus();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, day);
    QTest::keyClick(line, Qt::Key(key));
    QCoreApplication::processEvents();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
    QCOMPARE(window.focusWidget(), line);
    QCOMPARE(line->text(), day);
    window.print();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
    QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
    // What is shown, and what would be printed, is still the day before the slip.
    QCOMPARE(window.report().shownCorner(u"RightCenter"_s), u"تاریخ : 1405/04/02"_s);
    line->setText(u"1405/04/01"_s);
    QTest::keyClick(line, Qt::Key_Tab);
    QCoreApplication::processEvents();
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(window.report().shownCorner(u"RightCenter"_s), u"تاریخ : 1405/04/01"_s);
}

void TestCashDay::wrongDayDoesNotKeepTheWindowOpen()
{
    CDlgCashDay window(Accounts::cash, date(2));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *line = field<KDateEdit>(&window, u"روز :"_s);
    line->setFocus();
    line->setText(u"1404/13/99"_s);
    auto *back = FormDriver::button(&window, u"بازگشت"_s);
    QTest::mousePress(back, Qt::LeftButton);
    QCoreApplication::processEvents();
    QTest::mouseRelease(back, Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(!window.isVisible());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCashDay::nextDayEndsAtToday()
{
    const QDate today = GetDBSetting()->GetDBServerDate().date();
    CDlgCashDay window(Accounts::cash, today.addDays(-1));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *line = field<KDateEdit>(&window, u"روز :"_s);
    auto *next = FormDriver::button(&window, u"روز بعد"_s);
    QVERIFY(next->isEnabled());
    QTest::keyClick(window.list(), Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(line->date(), today);
    QVERIFY(!next->isEnabled());
    QTest::keyClick(window.list(), Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(line->date(), today);
    FormDriver::click(&window, u"روز قبل"_s);
    QVERIFY(next->isEnabled());
}

void TestCashDay::paperSaysWhatTheWindowSays()
{
    CDlgCashDay window(Accounts::cash, date(2));
    field<KEdit>(&window, u"موجودی شمارش‌شده :"_s)->setText(u"4000"_s);
    const ListReport report = window.report();
    QCOMPARE(report.rows().size(), 5);
    const QString summary = report.shownSummary().join(u'\n').replace(QChar::Nbsp, u' ');
    for (const QString &text : {window.totalsText(), u"موجودی شمارش‌شده : 4,000"_s, u"کسری صندوق : 200"_s, u"امضای صندوقدار"_s})
        QVERIFY2(summary.contains(text), qPrintable(summary));
    QCOMPARE(report.shownTitle(), u"برگه روزانه صندوق"_s);
    QCOMPARE(report.shownCorner(u"RightCenter"_s), u"تاریخ : 1405/04/02"_s);
    const QString file = m_office.folder.filePath(u"day.pdf"_s);
    QVERIFY(CDlgReportGenerator::savePdf(report, file, nullptr));
    QVERIFY(QFileInfo(file).size() > 1000);
}

void TestCashDay::printingNeedsTheRight()
{
    CDlgCashDay window(Accounts::cash, date(2));
    GetDBSetting()->Login(m_office.clerk);
    window.print();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::PrintList)});
}

void TestCashDay::everyInputHasAName()
{
    CDlgCashDay window(Accounts::cash, date(2));
    QVERIFY(FormDriver::everyInputHasAName(&window));
}

void TestCashDay::accountsAreListedWithTheirBalances()
{
    CDlgCashAccounts page;
    page.show();
    QCOMPARE(page.title(), u"صندوق و بانک"_s);
    QCOMPARE(page.list()->count(), 2);
    const QString always = u">'1900-01-01'"_s;
    for (int row = 0; row < 2; ++row) {
        const int code = page.list()->cellText(row, u"code").toInt();
        const int column = page.list()->columnOf(u"balance");
        const double shown = page.list()->model()->index(row, column).data(KListModel::SortRole).toDouble();
        QCOMPARE(shown, table(u"d.dBed-d.dBes"_s, always, code));
    }
    QCOMPARE(page.list()->cellText(0, u"balance"), u"4,250"_s);
    QCOMPARE(page.list()->cellText(0, u"kind"), u"صندوق"_s);
    QCOMPARE(page.list()->cellText(1, u"kind"), u"بانک"_s);
    QCOMPARE(page.totalText(), u"جمع موجودی : 5,450 ریال"_s);
}

void TestCashDay::accountsLeadToTheirSheets()
{
    CDlgCashAccounts page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.list()->selectRow(0);
    QStringList titles;
    const auto remember = [&titles](QDialog *dialog) { titles.append(dialog->windowTitle()); };
    Hand::inNextWindow(remember);
    QTest::keyClick(page.list(), Qt::Key_Return);
    page.activateWindow(); // the offscreen platform has no window manager to do it
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Hand::inNextWindow(remember);
    QTest::keyClick(page.list(), Qt::Key_F4);
    QCOMPARE(titles, (QStringList{u"گردش حساب 110101 - صندوق"_s, u"برگه روزانه صندوق"_s}));
}

void TestCashDay::accountsNeedTheRight()
{
    GetDBSetting()->Login(m_office.clerk);
    CDlgCashAccounts page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Access)});
}

static const RegisteredTest<TestCashDay, QApplication> registeredCashDay;
#include "TestCashDay.moc"
