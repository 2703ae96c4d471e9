// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/receiving/ChequeFields.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/treasury/receiving/InvoiceOffice.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

using FormDriver::field;

namespace {

// The sample from a leaf.
const QString sayad = u"1234567890123456"_s;

void enterCheque(QDialog &dialog, const QString &number = sayad)
{
    field<QComboBox>(&dialog, u"روش :"_s)->setCurrentText(u"چک"_s);
    field<KEdit>(&dialog, u"شناسه صیادی :"_s)->setText(number);
    field<KEdit>(&dialog, u"شماره چک :"_s)->setText(u"77"_s);
    field<KEdit>(&dialog, u"بانک :"_s)->setText(u"ملت"_s);
    field<KDateEdit>(&dialog, u"سررسید :"_s)->setDate(field<KDateEdit>(&dialog, u"تاریخ :"_s)->date().addMonths(1));
}

}

// How the window for receipts and payments goes on from method and item to what is saved.
class TestReceiptWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.clear(); }
    void titles_data();
    void titles();
    void accountsFollowTheMethod_data();
    void accountsFollowTheMethod();
    void windowGrowsAndShrinksWithTheCheque();
    void unusualDatesAreAsked_data();
    void unusualDatesAreAsked();
    void sayadIsCheckedWhileTyped();
    void chequeIsEnteredWithTheReceipt();
    void wrongChequeIsRefusedAtItsField_data();
    void wrongChequeIsRefusedAtItsField();
    void itemProposesItsRest();
    void typedAmountAndTextStay();
    void personBringsItsItems();
    void amountThatIsAskedForStaysOnAccount();
    void moneyOnAccountIsToldBeforeMoreIsTaken_data();
    void moneyOnAccountIsToldBeforeMoreIsTaken();
    void fixedPurposeCannotBeChanged();
    void partLeavesTheRestOpen();
    void moreThanTheRestIsAskedAndSpread();
    void moreThanTheRestGoesBackToTheAmount();
    void itemThatIsPaidMeanwhileIsToldAndNotTakenOnAccount();
    void paymentRunsTheOtherWay();
    void pressedTwiceSavesOnce();
    void printingIsRememberedFromTheLastTime();
    void withoutTheRightNothingOpens();
    void closedDatabaseOpensNothing();
    void everyInputHasItsName();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }

    InvoiceOffice m_office;
};

void TestReceiptWindow::titles_data()
{
    QTest::addColumn<CDlgCashFromPerson::Start>("start");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("account");
    QTest::newRow("from a known person in cash") << CDlgCashFromPerson::Start{.personID = 1} << u"دریافت نقدی"_s << u"دریافت در :"_s;
    QTest::newRow("from whom the user picks") << CDlgCashFromPerson::Start{} << u"دریافت"_s << u"دریافت در :"_s;
    QTest::newRow("by cheque") << CDlgCashFromPerson::Start{.personID = 1, .method = CTblReceipts::cheque} << u"دریافت"_s << u"دریافت در :"_s;
    QTest::newRow("paid") << CDlgCashFromPerson::Start{.kind = CTblReceipts::paid, .personID = 1} << u"پرداخت"_s << u"پرداخت از :"_s;
}

void TestReceiptWindow::titles()
{
    QFETCH(CDlgCashFromPerson::Start, start);
    QFETCH(QString, account);
    CDlgCashFromPerson dialog(start);
    QTEST(dialog.windowTitle(), "title");
    QVERIFY(field<QComboBox>(&dialog, account));
    QCOMPARE(FormDriver::button(&dialog, u"..."_s)->isVisibleTo(&dialog), start.personID == 0);
}

void TestReceiptWindow::accountsFollowTheMethod_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("account");
    QTest::newRow("cash") << u"نقدی"_s << u"صندوق"_s;
    QTest::newRow("bank") << u"بانکی"_s << u"بانک"_s;
    QTest::newRow("card") << u"کارت"_s << u"بانک"_s;
    QTest::newRow("cheque") << u"چک"_s << QString();
}

void TestReceiptWindow::accountsFollowTheMethod()
{
    QFETCH(QString, method);
    QFETCH(QString, account);
    CDlgCashFromPerson dialog(m_office.ali, 5, {});
    dialog.show();
    field<QComboBox>(&dialog, u"روش :"_s)->setCurrentText(method);
    auto *accounts = field<QComboBox>(&dialog, u"دریافت در :"_s);
    auto *cheque = dialog.findChild<ChequeFields *>();
    QCOMPARE(accounts->isVisible(), !account.isEmpty());
    QCOMPARE(cheque->isVisible(), account.isEmpty());
    if (!account.isEmpty())
        QCOMPARE(accounts->currentText(), account);
}

void TestReceiptWindow::windowGrowsAndShrinksWithTheCheque()
{
    CDlgCashFromPerson dialog(m_office.ali, 5, {});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const auto *area = dialog.findChild<QScrollArea *>();
    const int before = dialog.height();
    auto *method = field<QComboBox>(&dialog, u"روش :"_s);
    method->setCurrentText(u"چک"_s);
    QTRY_VERIFY(dialog.height() > before);
    QTRY_COMPARE(area->verticalScrollBar()->maximum(), 0);
    method->setCurrentText(u"کارت"_s);
    QTRY_COMPARE(dialog.height(), before);
}

void TestReceiptWindow::unusualDatesAreAsked_data()
{
    QTest::addColumn<int>("days"); // of the receipt, from today
    QTest::addColumn<int>("due");  // of the cheque, from the receipt; 0: in cash
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("field");
    QTest::newRow("today in cash") << 0 << 0 << QString() << QString();
    QTest::newRow("yesterday") << -1 << 0 << QString() << QString();
    QTest::newRow("tomorrow") << 1 << 0 << u"پس از امروز"_s << u"تاریخ :"_s;
    QTest::newRow("cheque of next month") << 0 << 30 << QString() << QString();
    QTest::newRow("cheque of last year") << 0 << -365 << u"سررسید چک"_s << u"سررسید :"_s;
}

void TestReceiptWindow::unusualDatesAreAsked()
{
    QFETCH(int, days);
    QFETCH(int, due);
    QFETCH(QString, asked);
    QFETCH(QString, field);
    CDlgCashFromPerson dialog(m_office.ali, 5, u"شرح"_s);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    if (due != 0)
        enterCheque(dialog);
    auto *date = ::field<KDateEdit>(&dialog, u"تاریخ :"_s);
    date->setDate(date->date().addDays(days));
    if (due != 0)
        ::field<KDateEdit>(&dialog, u"سررسید :"_s)->setDate(date->date().addDays(due));
    if (!asked.isEmpty()) {
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.accept();
        QVERIFY(dialog.isVisible());
        const QStringList shown = g_pDlgYesNo->takeShown();
        QVERIFY2(shown.size() == 1 && shown.constFirst().contains(asked), qPrintable(shown.join(u'/')));
        QVERIFY(::field<KDateEdit>(&dialog, field)->hasFocus());
        QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"0"_s);
    }
    dialog.accept();
    QCOMPARE(g_pDlgYesNo->takeShown().size(), asked.isEmpty() ? 0 : 1);
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"1"_s);
}

void TestReceiptWindow::sayadIsCheckedWhileTyped()
{
    CDlgCashFromPerson dialog({.personID = m_office.ali, .method = CTblReceipts::cheque});
    dialog.show();
    auto *edit = field<KEdit>(&dialog, u"شناسه صیادی :"_s);
    const FieldNote *note = FieldNote::of(edit);
    Hand::typeInto(*edit, u"1234567"_s);
    QCOMPARE(edit->notice(), QString());
    QCOMPARE(note->text(), u"7 رقم از 16"_s);
    Hand::typeInto(*edit, u"89012345678"_s);
    QVERIFY(!edit->notice().isEmpty());
    edit->setText(u"۱۲۳۴-۵۶۷۸-۹۰۱۲-۳۴۵۶"_s);
    QCOMPARE(edit->notice(), QString());
    QCOMPARE(note->text(), QString());
    QCOMPARE(dialog.findChild<ChequeFields *>()->cheque().sayad, sayad);
    edit->setText(u"12x4"_s);
    QVERIFY(!edit->notice().isEmpty());
}

void TestReceiptWindow::chequeIsEnteredWithTheReceipt()
{
    CDlgCashFromPerson dialog(m_office.ali, 700, u"بابت خودرو"_s);
    dialog.show();
    enterCheque(dialog);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(value("SELECT CONCAT_WS('|',sSayad,sNumber,sBank,dAmount,sDrawer,iKind,iState) FROM Cheques"), u"%1|77|ملت|700|علی رضایی|0|0"_s.arg(sayad));
    QCOMPARE(value("SELECT CONCAT_WS('|',r.iMethod,r.iAccount,r.dAmount,r.iChequeID=c.iID) FROM Receipts r,Cheques c"), u"4|0|700|1"_s);
    QCOMPARE(value("SELECT CONCAT_WS('|',iHesabMoeenCode,dBed) FROM Docs WHERE dBed>0"), u"110481|700"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
}

void TestReceiptWindow::wrongChequeIsRefusedAtItsField_data()
{
    QTest::addColumn<QString>("fieldName");
    QTest::addColumn<QString>("text");
    QTest::newRow("no Sayad number") << u"شناسه صیادی :"_s << QString();
    QTest::newRow("too short") << u"شناسه صیادی :"_s << u"123"_s;
    QTest::newRow("no bank") << u"بانک :"_s << QString();
    QTest::newRow("no due date") << u"سررسید :"_s << QString();
    QTest::newRow("no such day") << u"سررسید :"_s << u"1405/13/40"_s;
}

void TestReceiptWindow::wrongChequeIsRefusedAtItsField()
{
    QFETCH(QString, fieldName);
    QFETCH(QString, text);
    CDlgCashFromPerson dialog(m_office.ali, 700, u"بابت خودرو"_s);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    enterCheque(dialog);
    auto *wrong = field<QLineEdit>(&dialog, fieldName);
    wrong->setText(text);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QVERIFY(wrong->hasFocus());
    QCOMPARE(field<KEdit>(&dialog, u"شماره چک :"_s)->plainText(), u"77"_s);
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Receipts)+(SELECT COUNT(*) FROM Cheques)"), u"0"_s);
    dialog.cancel();
}

void TestReceiptWindow::itemProposesItsRest()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali});
    auto *items = field<QComboBox>(&dialog, u"بابت :"_s);
    QCOMPARE(items->count(), 2);
    QCOMPARE(items->currentText(), u"فاکتور فروش شماره %1"_s.arg(num));
    items->setCurrentText(u"علی‌الحساب"_s);
    QCOMPARE(field<KEdit>(&dialog, u"شرح :"_s)->text(), u"دریافت علی‌الحساب"_s);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), QString());
    items->setCurrentText(u"فاکتور فروش شماره %1"_s.arg(num));
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"990"_s);
    QCOMPARE(field<KEdit>(&dialog, u"شرح :"_s)->text(), u"بابت فاکتور فروش شماره %1"_s.arg(num));
    QVERIFY(FieldNote::of(items)->text().startsWith(u"مانده 990 "_s));
    dialog.accept();
    QCOMPARE(value("SELECT CONCAT_WS('|',iTable,iRecordID,iFor,sFor,dAmount) FROM Receipts"), u"7|%1|4|فاکتور فروش شماره %1|990"_s.arg(num));
    QCOMPARE(m_office.open(m_office.ali), QString());
}

void TestReceiptWindow::typedAmountAndTextStay()
{
    m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali});
    field<QComboBox>(&dialog, u"بابت :"_s)->setCurrentIndex(0);
    field<KEdit>(&dialog, u"مبلغ :"_s)->setText(u"500"_s);
    field<KEdit>(&dialog, u"شرح :"_s)->setText(u"پیش پرداخت"_s);
    field<QComboBox>(&dialog, u"بابت :"_s)->setCurrentIndex(1);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"500"_s);
    QCOMPARE(field<KEdit>(&dialog, u"شرح :"_s)->text(), u"پیش پرداخت"_s);
}

void TestReceiptWindow::personBringsItsItems()
{
    m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog(CDlgCashFromPerson::Start{});
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا شخص را انتخاب نمایید."_s});
    auto *person = dialog.findChild<KPersonField *>();
    auto *items = field<QComboBox>(&dialog, u"بابت :"_s);
    QCOMPARE(items->count(), 1);
    person->setPersonID(m_office.ali);
    Q_EMIT person->changed(m_office.ali);
    QCOMPARE(items->count(), 2);
    // What is owed is what money is most likely for; on account is a choice, not an oversight.
    QCOMPARE(items->currentIndex(), 1);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"990"_s);
    person->setPersonID(m_office.pars);
    Q_EMIT person->changed(m_office.pars);
    QCOMPARE(items->count(), 1);
    QCOMPARE(items->currentText(), u"علی‌الحساب"_s);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), QString());
}

void TestReceiptWindow::amountThatIsAskedForStaysOnAccount()
{
    m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali, .amount = 5});
    QCOMPARE(field<QComboBox>(&dialog, u"بابت :"_s)->currentText(), u"علی‌الحساب"_s);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"5"_s);
}

void TestReceiptWindow::moneyOnAccountIsToldBeforeMoreIsTaken_data()
{
    QTest::addColumn<double>("received");
    QTest::addColumn<double>("paid");
    QTest::addColumn<QString>("told");
    QTest::newRow("none") << 0. << 0. << QString();
    QTest::newRow("received") << 400. << 0. << u"علی‌الحساب دریافت شده: 400 "_s;
    QTest::newRow("a part paid back") << 400. << 150. << u"علی‌الحساب دریافت شده: 250 "_s;
    QTest::newRow("paid") << 0. << 150. << u"علی‌الحساب پرداخت شده: 150 "_s;
    QTest::newRow("all paid back") << 400. << 400. << QString();
}

void TestReceiptWindow::moneyOnAccountIsToldBeforeMoreIsTaken()
{
    QFETCH(double, received);
    QFETCH(double, paid);
    QFETCH(QString, told);
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    m_office.take(m_office.ali, 90, m_office.purposeOf(m_office.ali, num));
    ReceiptPosting::makeVoid(m_office.take(m_office.ali, 7), u"اشتباه"_s);
    m_office.take(m_office.pars, 33);
    if (received > 0)
        m_office.take(m_office.ali, received);
    if (paid > 0)
        m_office.take(m_office.ali, paid, {}, CTblReceipts::paid);
    CDlgCashFromPerson dialog({.personID = m_office.ali, .purpose = m_office.purposeOf(m_office.ali, num)});
    const QString text = FieldNote::of(dialog.findChild<KPersonField *>())->text();
    QVERIFY2(told.isEmpty() ? text.isEmpty() : text.startsWith(told), qPrintable(text));
}

void TestReceiptWindow::fixedPurposeCannotBeChanged()
{
    const int first = m_office.invoice(Invoice::sale, m_office.ali);
    m_office.invoice(Invoice::sale, m_office.ali);
    const ReceiptPurpose purpose = m_office.purposeOf(m_office.ali, first);
    CDlgCashFromPerson dialog({.personID = m_office.ali, .purpose = purpose});
    auto *items = field<QComboBox>(&dialog, u"بابت :"_s);
    QVERIFY(!items->isEnabled());
    QCOMPARE(items->currentText(), purpose.text);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"990"_s);
    dialog.accept();
    QCOMPARE(value("SELECT iRecordID FROM Receipts"), QString::number(first));
}

void TestReceiptWindow::partLeavesTheRestOpen()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali, .amount = 400, .purpose = m_office.purposeOf(m_office.ali, num)});
    dialog.accept();
    QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
    QCOMPARE(m_office.open(m_office.ali), u"%1=590"_s.arg(num));
}

void TestReceiptWindow::moreThanTheRestIsAskedAndSpread()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali, .amount = 1000, .purpose = m_office.purposeOf(m_office.ali, num)});
    dialog.show();
    enterCheque(dialog);
    dialog.accept();
    const QStringList asked = g_pDlgYesNo->takeShown();
    QCOMPARE(asked.size(), 1);
    QVERIFY2(asked.constFirst().contains(u"علی‌الحساب : 10 "_s), qPrintable(asked.constFirst()));
    QCOMPARE(dialog.posted().size(), 2);
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('|',dAmount,iRecordID,IFNULL(sFor,'')) ORDER BY iID SEPARATOR ' / ') FROM Receipts"),
             u"990|%1|فاکتور فروش شماره %1 / 10|0|"_s.arg(num));
    // One cheque of the whole amount, and a document for each part.
    QCOMPARE(value("SELECT CONCAT_WS('|',COUNT(*),SUM(dAmount)) FROM Cheques"), u"1|1000"_s);
    QCOMPARE(value("SELECT COUNT(DISTINCT iChequeID) FROM Receipts WHERE iChequeID>0"), u"1"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"2/0/0"_s);
}

void TestReceiptWindow::moreThanTheRestGoesBackToTheAmount()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali, .amount = 1000, .purpose = m_office.purposeOf(m_office.ali, num)});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    field<KEdit>(&dialog, u"شرح :"_s)->setFocus();
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QVERIFY(field<KEdit>(&dialog, u"مبلغ :"_s)->hasFocus());
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"0"_s);
    dialog.cancel();
}

void TestReceiptWindow::itemThatIsPaidMeanwhileIsToldAndNotTakenOnAccount()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    CDlgCashFromPerson dialog({.personID = m_office.ali});
    dialog.show();
    field<QComboBox>(&dialog, u"بابت :"_s)->setCurrentIndex(1);
    m_office.take(m_office.ali, 990, m_office.purposeOf(m_office.ali, num));
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"تغییر داده است"_s), qPrintable(told.constFirst()));
    dialog.accept();
    told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"دیگر باز نیست"_s), qPrintable(told.constFirst()));
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"1"_s);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"990"_s);
    dialog.cancel();
}

void TestReceiptWindow::paymentRunsTheOtherWay()
{
    const int num = m_office.invoice(Invoice::purchase, m_office.pars);
    CDlgCashFromPerson dialog({.kind = CTblReceipts::paid, .personID = m_office.pars});
    field<QComboBox>(&dialog, u"بابت :"_s)->setCurrentIndex(1);
    QCOMPARE(field<KEdit>(&dialog, u"مبلغ :"_s)->text(), u"990"_s);
    dialog.accept();
    QCOMPARE(value("SELECT CONCAT_WS('|',iKind,iTable,iRecordID,dAmount) FROM Receipts"), u"1|8|%1|990"_s.arg(num));
    QCOMPARE(m_office.database.value(u"SELECT CONCAT_WS('|',d.iHesabMoeenCode,d.iPersonID) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum "
                                     "WHERE h.iKind=%1 AND d.dBed>0"_s.arg(Accounts::documentKindPayment)),
             u"110301|%1"_s.arg(m_office.pars));
    QCOMPARE(m_office.open(m_office.pars, CTblReceipts::paid), QString());
}

void TestReceiptWindow::pressedTwiceSavesOnce()
{
    CDlgCashFromPerson dialog(m_office.ali, 5, u"شرح"_s);
    dialog.show();
    dialog.accept();
    dialog.accept();
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"1"_s);
}

void TestReceiptWindow::printingIsRememberedFromTheLastTime()
{
    {
        CDlgCashFromPerson dialog(m_office.ali, 5, u"شرح"_s);
        QVERIFY(!field<QCheckBox>(&dialog, u"چاپ رسید پس از ثبت"_s)->isChecked());
        field<QCheckBox>(&dialog, u"چاپ رسید پس از ثبت"_s)->setChecked(true);
        dialog.accept();
    }
    QString shown;
    Hand::inNextWindow([&shown](QDialog *window) {
        auto *print = field<QCheckBox>(window, u"چاپ رسید پس از ثبت"_s);
        QVERIFY(print->isChecked());
        Hand::inNextWindow([&shown](QDialog *paper) { shown = paper->windowTitle(); });
        FormDriver::click(window, u"تاييد"_s);
    });
    QVERIFY(CDlgCashFromPerson::receive(m_office.ali, 6, u"شرح"_s, nullptr));
    QCOMPARE(shown, u"پیش نمایش چاپ - رسید دریافت"_s);
    CDlgCashFromPerson dialog(m_office.ali, 7, u"شرح"_s);
    field<QCheckBox>(&dialog, u"چاپ رسید پس از ثبت"_s)->setChecked(false);
    dialog.accept();
}

void TestReceiptWindow::withoutTheRightNothingOpens()
{
    GetDBSetting()->Login(m_office.clerk);
    QCOMPARE(CDlgCashFromPerson::run({.personID = m_office.ali, .amount = 5}, nullptr).size(), 0);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Write)});
}

void TestReceiptWindow::closedDatabaseOpensNothing()
{
    GetDBSetting()->SetClosedDB(true);
    QCOMPARE(CDlgCashFromPerson::run({.personID = m_office.ali, .amount = 5}, nullptr).size(), 0);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{OfficeSettings::closedMessage()});
}

void TestReceiptWindow::everyInputHasItsName()
{
    CDlgCashFromPerson dialog(CDlgCashFromPerson::Start{.method = CTblReceipts::cheque});
    QVERIFY(FormDriver::everyInputHasAName(&dialog));
}

static const RegisteredTest<TestReceiptWindow, QApplication> registeredReceiptWindow;
#include "TestReceiptWindow.moc"
