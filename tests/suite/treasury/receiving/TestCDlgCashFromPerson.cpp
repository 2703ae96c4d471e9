// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/BooksAgree.h"

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QTimer>
#include <QToolTip>
#include <QtTest>

using namespace Qt::StringLiterals;

using FormDriver::field;

namespace {

QString textUnderThePointer(QWidget *widget)
{
    const QPoint point = widget->rect().center();
    QHelpEvent rest(QEvent::ToolTip, point, widget->mapToGlobal(point));
    QApplication::sendEvent(widget, &rest);
    return QToolTip::text();
}

}

class TestCDlgCashFromPerson : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void windowShowsPersonAmountAndWords();
    void okSavesReceiptAndBalancedDocument();
    void amountIsReceivedInTheDecimalsOfTheMoneyUnit_data();
    void amountIsReceivedInTheDecimalsOfTheMoneyUnit();
    void moneyToTheBankStandsOnTheBankAccount();
    void cancelSavesNothing();
    void keyboardAloneSaves();
    void amountZeroIsRefusedAndFocused();
    void missingDateIsRefused();
    void dateOutsideTheFiscalYearIsRefusedAndFocused();
    void closedDatabaseOpensNoWindow();
    void databaseClosedMeanwhileRefusesAndStaysOpen();
    void withoutTheRightNoWindowOpens();
    void receiptThatMayNotBeIsRefused_data();
    void receiptThatMayNotBeIsRefused();
    void failedReceiptLeavesNoDocument();
    void everyInputHasItsLabelAsName();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    // Opens the window through the service and works in it once it is open.
    bool receive(const std::function<void(QDialog *)> &work);

    TestOffice m_office;
    int m_person = 0;
};

void TestCDlgCashFromPerson::initTestCase()
{
    GetDBSetting()->SetReceiptWindow(&CDlgCashFromPerson::receive);
    GetDBSetting()->SetFiscalYear(1405);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC));
    GetDBSetting()->SetFiscalYearClosingDate(QDateTime(QDate(2100, 1, 1), QTime(0, 0), Qt::UTC));
    m_person = m_office.addPerson(u"مریم احمدی"_s);
}

void TestCDlgCashFromPerson::init()
{
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->Login(m_office.admin);
    for (const char *table : {"Receipts", "Documents", "Docs"})
        m_office.database.run(u"DELETE FROM %1"_s.arg(QLatin1String(table)));
    g_pDlgWarning->takeShown();
}

bool TestCDlgCashFromPerson::receive(const std::function<void(QDialog *)> &work)
{
    bool opened = false;
    QTimer::singleShot(50, [&] {
        auto *dialog = qobject_cast<CDlgCashFromPerson *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        opened = true;
        work(dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    const bool saved =
        GetDBSetting()->CashFromPersonMulti(m_person, 1250000, u"بابت کمسیون قرارداد شماره 12"_s, nullptr);
    QTest::qWait(60);
    if (!opened)
        qWarning("the window did not open");
    return saved;
}

void TestCDlgCashFromPerson::windowShowsPersonAmountAndWords()
{
    CDlgCashFromPerson dialog(m_person, 1250000, u"شرح"_s);
    QCOMPARE(dialog.windowTitle(), u"دریافت نقدی"_s);
    auto *person = field<KEdit>(&dialog, u"شخص :"_s);
    QCOMPARE(person->text(), u"مریم احمدی"_s);
    QVERIFY(person->isReadOnly());
    auto *amount = field<KEdit>(&dialog, u"مبلغ :"_s);
    QCOMPARE(amount->text(), u"1,250,000"_s);
    auto *words = dialog.findChild<AmountWords *>(u"amountInWords"_s);
    QVERIFY(words->text().startsWith(amountInWords(1250000)));
    amount->setText(u"7"_s);
    QVERIFY(words->text().startsWith(amountInWords(7)));
    // No amount moves what stands below it; of one too long for the line all can be read under the pointer.
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QSize before = dialog.size();
    const QRect below = field<KDateEdit>(&dialog, u"تاریخ :"_s)->geometry();
    amount->setNumber(987'654'321'987'654);
    QCoreApplication::processEvents();
    QVERIFY(words->isCut());
    QVERIFY(words->text().startsWith(amountInWords(987'654'321'987'654)));
    QCOMPARE(textUnderThePointer(words), words->text());
    amount->clear();
    QVERIFY(words->text().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(dialog.size(), before);
    QCOMPARE(field<KDateEdit>(&dialog, u"تاریخ :"_s)->geometry(), below);
    QCOMPARE(field<KDateEdit>(&dialog, u"تاریخ :"_s)->date(), GetDBSetting()->GetDBServerDate().date());
    auto *account = field<QComboBox>(&dialog, u"دریافت در :"_s);
    QCOMPARE(account->count(), 1);
    QCOMPARE(account->itemText(0), u"صندوق"_s);
}

void TestCDlgCashFromPerson::okSavesReceiptAndBalancedDocument()
{
    QVERIFY(receive([](QDialog *dialog) { FormDriver::click(dialog, u"تاييد"_s); }));
    QCOMPARE(value("SELECT CONCAT_WS('|',iPersonID,dAmount,sDesc,iDocNum,iFiscalYear,iUserID) FROM Receipts"),
             u"%1|1250000|بابت کمسیون قرارداد شماره 12|1|1405|%2"_s.arg(m_person).arg(m_office.admin));
    QCOMPARE(value("SELECT CONCAT_WS('|',iNum,iFiscalYear,iKind,sDesc) FROM Documents"),
             u"1|1405|%1|بابت کمسیون قرارداد شماره 12"_s.arg(Accounts::documentKindReceipt));
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('|',iHesabKolCode,iHesabMoeenCode,iPersonID,dBed,dBes) ORDER BY iID SEPARATOR "
                   "' ') FROM Docs WHERE iDocNum=1 AND iFiscalYear=1405"),
             u"1101|110101|0|1250000|0 1103|110301|%1|0|1250000"_s.arg(m_person));
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgCashFromPerson::amountIsReceivedInTheDecimalsOfTheMoneyUnit_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("received");
    QTest::newRow("none") << 0 << u"334"_s;
    QTest::newRow("two") << 2 << u"333.67"_s;
}

void TestCDlgCashFromPerson::amountIsReceivedInTheDecimalsOfTheMoneyUnit()
{
    QFETCH(int, decimals);
    QFETCH(QString, received);
    GetDBSetting()->SetMoneyDecimals(decimals);
    CDlgCashFromPerson dialog(m_person, 1001. / 3, u"بابت قسط"_s);
    dialog.accept();
    GetDBSetting()->SetMoneyDecimals(0);
    QCOMPARE(value("SELECT dAmount FROM Receipts"), received);
    QCOMPARE(value("SELECT CONCAT_WS('/',MAX(dBed),MAX(dBes)) FROM Docs"), u"%1/%1"_s.arg(received));
}

void TestCDlgCashFromPerson::moneyToTheBankStandsOnTheBankAccount()
{
    QVERIFY(receive([](QDialog *dialog) {
        field<QComboBox>(dialog, u"روش :"_s)->setCurrentText(u"بانکی"_s);
        QCOMPARE(field<QComboBox>(dialog, u"دریافت در :"_s)->currentText(), u"بانک"_s);
        field<KEdit>(dialog, u"مبلغ :"_s)->setText(u"۵۰۰"_s);
        FormDriver::click(dialog, u"تاييد"_s);
    }));
    QCOMPARE(value("SELECT CONCAT_WS('|',iHesabKolCode,iHesabMoeenCode,dBed) FROM Docs WHERE dBed>0"),
             u"1102|110201|500"_s);
    QCOMPARE(value("SELECT CONCAT_WS('|',iMethod,iAccount) FROM Receipts"), u"2|110201"_s);
}

void TestCDlgCashFromPerson::cancelSavesNothing()
{
    QVERIFY(!receive([](QDialog *dialog) { FormDriver::click(dialog, u"انصراف"_s); }));
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Receipts)+(SELECT COUNT(*) FROM Documents)"), u"0"_s);
}

void TestCDlgCashFromPerson::keyboardAloneSaves()
{
    QVERIFY(receive([](QDialog *dialog) {
        auto *amount = field<KEdit>(dialog, u"مبلغ :"_s);
        QVERIFY(amount->hasFocus());
        amount->selectAll();
        QTest::keyClicks(amount, u"42"_s);
        QTest::keyClick(dialog, Qt::Key_Return, Qt::ControlModifier);
    }));
    QCOMPARE(value("SELECT dAmount FROM Receipts"), u"42"_s);
}

void TestCDlgCashFromPerson::amountZeroIsRefusedAndFocused()
{
    QVERIFY(!receive([](QDialog *dialog) {
        auto *amount = field<KEdit>(dialog, u"مبلغ :"_s);
        field<KEdit>(dialog, u"شرح :"_s)->setFocus();
        amount->setText(u"0"_s);
        FormDriver::click(dialog, u"تاييد"_s);
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(amount->hasFocus());
    }));
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"0"_s);
}

void TestCDlgCashFromPerson::missingDateIsRefused()
{
    QVERIFY(!receive([](QDialog *dialog) {
        for (const QString &text : {QString(), u"1405/13/40"_s}) {
            field<KDateEdit>(dialog, u"تاریخ :"_s)->setText(text);
            FormDriver::click(dialog, u"تاييد"_s);
            QVERIFY(dialog->isVisible());
            QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        }
    }));
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"0"_s);
}

void TestCDlgCashFromPerson::dateOutsideTheFiscalYearIsRefusedAndFocused()
{
    QVERIFY(!receive([](QDialog *dialog) {
        auto *date = field<KDateEdit>(dialog, u"تاریخ :"_s);
        date->setDate(QDate(2100, 1, 2));
        field<KEdit>(dialog, u"شرح :"_s)->setFocus();
        FormDriver::click(dialog, u"تاييد"_s);
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"تاریخ دریافت پس از پایان سال مالی 1405 (%1) است."_s.arg(shamsiText(QDate(2100, 1, 1)))});
        QVERIFY(date->hasFocus());
    }));
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"0"_s);
}

void TestCDlgCashFromPerson::closedDatabaseOpensNoWindow()
{
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!GetDBSetting()->CashFromPersonMulti(m_person, 1, QString(), nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgCashFromPerson::databaseClosedMeanwhileRefusesAndStaysOpen()
{
    QVERIFY(!receive([](QDialog *dialog) {
        GetDBSetting()->SetClosedDB(true);
        FormDriver::click(dialog, u"تاييد"_s);
        QVERIFY(dialog->isVisible());
    }));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Receipts)+(SELECT COUNT(*) FROM Documents)"), u"0"_s);
}

void TestCDlgCashFromPerson::withoutTheRightNoWindowOpens()
{
    GetDBSetting()->Login(m_office.clerk);
    QVERIFY(!GetDBSetting()->CashFromPersonMulti(m_person, 1, QString(), nullptr));
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Write)});
}

void TestCDlgCashFromPerson::receiptThatMayNotBeIsRefused_data()
{
    QTest::addColumn<ReceiptPosting::Handover>("receipt");
    const QDateTime today(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    const ReceiptPosting::Handover good{.personID = m_person, .date = today, .account = Accounts::cash, .parts = {{100, u"شرح"_s}}};
    auto row = [&good](const char *name, const std::function<void(ReceiptPosting::Handover &)> &spoil) {
        ReceiptPosting::Handover receipt = good;
        spoil(receipt);
        QTest::newRow(name) << receipt;
    };
    row("no person", [](auto &receipt) { receipt.personID = 0; });
    row("person who is gone", [](auto &receipt) { receipt.personID = 999999; });
    row("nothing to receive", [](auto &receipt) { receipt.parts.clear(); });
    row("for a record that nobody owns", [](auto &receipt) { receipt.parts[0].purpose.recordKind = 77; });
    row("amount zero", [](auto &receipt) { receipt.parts[0].amount = 0; });
    row("amount within 0.0001 of zero", [](auto &receipt) { receipt.parts[0].amount = 0.00005; });
    row("negative amount", [](auto &receipt) { receipt.parts[0].amount = -5; });
    row("no account", [](auto &receipt) { receipt.account = 0; });
    row("account outside the chart", [](auto &receipt) { receipt.account = 999999; });
    row("no date", [](auto &receipt) { receipt.date = QDateTime(); });
    row("before the books opened", [](auto &receipt) { receipt.date = receipt.date.addYears(-40); });
    row("after the fiscal year", [](auto &receipt) { receipt.date = receipt.date.addYears(90); });
}

void TestCDlgCashFromPerson::receiptThatMayNotBeIsRefused()
{
    QFETCH(ReceiptPosting::Handover, receipt);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, ReceiptPosting::save(receipt));
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Receipts)+(SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM Docs)"),
             u"0"_s);
}

void TestCDlgCashFromPerson::failedReceiptLeavesNoDocument()
{
    // Too long for Receipts.sDesc and Documents.sDesc alike would fail at once; a missing table fails last.
    m_office.database.run(u"RENAME TABLE Receipts TO ReceiptsAway"_s);
    bool failed = false;
    try {
        ReceiptPosting::save({.personID = m_person,
                              .date = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC),
                              .account = Accounts::cash,
                              .parts = {{100, QString()}}});
    } catch (const CMySQLException &) {
        failed = true;
    }
    m_office.database.run(u"RENAME TABLE ReceiptsAway TO Receipts"_s);
    QVERIFY(failed);
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM Docs)"), u"0"_s);
}

void TestCDlgCashFromPerson::everyInputHasItsLabelAsName()
{
    CDlgCashFromPerson dialog(m_person, 1, QString());
    QVERIFY(FormDriver::everyInputHasAName(&dialog));
}

static const RegisteredTest<TestCDlgCashFromPerson, QApplication> registeredCDlgCashFromPerson;
#include "TestCDlgCashFromPerson.moc"
