// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgAccountDocs.h"

#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/DocumentSheet.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QtTest>

#include <cmath>

using namespace Qt::StringLiterals;

// A person's statement, against what the tables say by themselves.
class TestPersonStatement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void rowsSayWhatTheyAreFor();
    void lastLineIsWhatThePersonOwes();
    void fourteenRowsAreInSight();
    void rangeBringsTheBalanceForward();
    void sumsAreThoseOfTheTables_data();
    void sumsAreThoseOfTheTables();
    void twoReceiptsOfOneDocumentDoNotDoubleItsRow();
    void voidDocumentsAreLeftOut();
    void personWithoutRowsIsToldSo();
    void rowShowsItsDocument();
    void closingLineShowsNothing();
    void rights_data();
    void rights();
    void titleNamesThePerson();
    void accountNamesThePersonOfTheReceipt();
    void paperIsOfTheDaysInTheList_data();
    void paperIsOfTheDaysInTheList();
    void paperNeedsTheRightToPrint();
    void paperIsHandedOutByItsButton();
    void datesAreWholeOnEverySize();

private:
    // A document of one person's debit (above 0) or credit against the cash box; its number.
    int write(int person, int month, int dayOfMonth, double amount, const QString &desc);
    void addReceipt(int person, int document, int method, const QString &purpose);
    double sum(const QString &what, int person);

    TestOffice m_office;
    int m_buyer = 0;
    int m_seller = 0;
    int m_stranger = 0;
};

namespace {

enum StatementColumn {
    RowNumber,
    DocumentNumber,
    DocumentDate,
    Purpose,
    RowText,
    DebitSide,
    CreditSide,
    RunningBalance,
    Side
};

QDateTime statementDay(int month, int dayOfMonth)
{
    return QDateTime(ConvertToMiladi(1405, month, dayOfMonth), QTime(0, 0), Qt::UTC);
}

QString lineOf(const CDlgAccountDocs &window, int row)
{
    QStringList cells;
    for (int column = RowNumber; column <= Side; ++column)
        cells.append(window.list()->cellText(row, column));
    return cells.join(u'|');
}

}

int TestPersonStatement::write(int person, int month, int dayOfMonth, double amount, const QString &desc)
{
    ManualDocument document;
    document.date = statementDay(month, dayOfMonth);
    document.desc = desc;
    const double debit = amount > 0 ? amount : 0;
    const double credit = amount < 0 ? -amount : 0;
    document.rows = {{Accounts::persons, person, debit, credit, u"ردیف %1"_s.arg(desc)}, {Accounts::cash, 0, credit, debit, u"صندوق"_s}};
    document.save();
    return m_office.database.value(u"SELECT MAX(iNum) FROM Documents"_s).toInt();
}

void TestPersonStatement::addReceipt(int person, int document, int method, const QString &purpose)
{
    m_office.database.run(u"INSERT INTO Receipts(iPersonID,date,dAmount,iDocNum,iFiscalYear,iMethod,sFor) VALUES(%1,'2026-06-01',1,%2,1405,%3,%4)"_s
                              .arg(person)
                              .arg(document)
                              .arg(method)
                              .arg(purpose.isEmpty() ? u"NULL"_s : u"'%1'"_s.arg(purpose)));
}

double TestPersonStatement::sum(const QString &what, int person)
{
    return m_office
        .database
        .value(u"SELECT COALESCE(SUM(%1),0) FROM Docs WHERE iPersonID=%2 AND (iDocNum,iFiscalYear) IN (SELECT iNum,iFiscalYear FROM Documents WHERE iStatus=0)"_s
                   .arg(what)
                   .arg(person))
        .toDouble();
}

void TestPersonStatement::initTestCase()
{
    GetDBSetting()->SetFiscalYear(1405);
    m_buyer = m_office.addPerson(u"مریم کریمی"_s);
    m_seller = m_office.addPerson(u"رضا احمدی"_s);
    m_stranger = m_office.addPerson(u"علی رضایی"_s);
    m_office.database.run(u"UPDATE Persons SET iCode=41,sNationalCode='0012345679' WHERE iID=%1"_s.arg(m_buyer));
    write(m_buyer, 2, 1, 1000, u"فروش اقساطی ش :12"_s);
    addReceipt(m_buyer, write(m_buyer, 2, 10, -400, u"دریافت"_s), 4, u"قسط 1 قرارداد 12"_s);
    write(m_seller, 2, 11, -700, u"خرید خودرو"_s);
    addReceipt(m_buyer, write(m_buyer, 3, 5, -50, u"دریافت"_s), 0, {});
    addReceipt(m_buyer, write(m_buyer, 3, 6, -60, u"دریافت"_s), 1, {});
}

void TestPersonStatement::init()
{
    GetDBSetting()->Login(m_office.admin);
    g_pDlgWarning->takeShown();
}

void TestPersonStatement::rowsSayWhatTheyAreFor()
{
    const CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), {}, {});
    QCOMPARE(window.list()->count(), 5);
    QCOMPARE(lineOf(window, 0), u"1|1|1405/02/01|فروش اقساطی ش :12|ردیف فروش اقساطی ش :12|1,000||1,000|بد"_s);
    QCOMPARE(lineOf(window, 1), u"2|2|1405/02/10|قسط 1 قرارداد 12 (چک)|ردیف دریافت||400|600|بد"_s);
    QCOMPARE(window.list()->cellText(2, Purpose), u"علی‌الحساب"_s);
    QCOMPARE(window.list()->cellText(3, Purpose), u"علی‌الحساب (نقدی)"_s);
}

void TestPersonStatement::lastLineIsWhatThePersonOwes()
{
    const CDlgAccountDocs buyer(AccountLedger::Scope::person(m_buyer), {}, {});
    QCOMPARE(lineOf(buyer, 4), u"|||مانده نهایی|بدهکار|1,000|510|490|بد"_s);
    // Said once: the foot counts the rows.
    QCOMPARE(buyer.totalsText(), u"تعداد : 4"_s);
    QCOMPARE(buyer.list()->currentRow(), 4);
    const CDlgAccountDocs seller(AccountLedger::Scope::person(m_seller), {}, {});
    QCOMPARE(lineOf(seller, 1), u"|||مانده نهایی|بستانکار||700|700|بس"_s);
}

// On the smallest usual screen, 768 pixels high.
void TestPersonStatement::fourteenRowsAreInSight()
{
    CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), {}, {});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.height() <= 740);
    const KExtListCtrl *list = window.list();
    const int rowHeight = list->visualRect(list->model()->index(0, 0)).height();
    QVERIFY(rowHeight > 0);
    QVERIFY2(list->viewport()->height() >= 14 * rowHeight, qPrintable(u"%1 / %2"_s.arg(list->viewport()->height()).arg(rowHeight)));
}

void TestPersonStatement::rangeBringsTheBalanceForward()
{
    const CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), statementDay(2, 10), statementDay(3, 5));
    QCOMPARE(lineOf(window, 0), u"||||مانده از قبل|||1,000|بد"_s);
    QCOMPARE(window.list()->cellText(2, RunningBalance), u"550"_s);
    QCOMPARE(lineOf(window, 3), u"|||مانده نهایی|بدهکار||450|550|بد"_s);
}

void TestPersonStatement::sumsAreThoseOfTheTables_data()
{
    QTest::addColumn<int>("whose");
    QTest::newRow("buyer") << 0;
    QTest::newRow("seller") << 1;
}

void TestPersonStatement::sumsAreThoseOfTheTables()
{
    QFETCH(int, whose);
    const int person = whose == 0 ? m_buyer : m_seller;
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLedger::Scope::person(person), {}, {});
    QVERIFY(!sheet.rows.isEmpty());
    QCOMPARE(sheet.sum.bed, sum(u"dBed"_s, person));
    QCOMPARE(sheet.sum.bes, sum(u"dBes"_s, person));
    QCOMPARE(sheet.closing(), sum(u"dBed-dBes"_s, person));
    QCOMPARE(sheet.rows.constLast().balance, sheet.closing());
}

void TestPersonStatement::twoReceiptsOfOneDocumentDoNotDoubleItsRow()
{
    addReceipt(m_buyer, 2, 2, u"دومی"_s);
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLedger::Scope::person(m_buyer), {}, {});
    m_office.database.run(u"DELETE FROM Receipts WHERE sFor='دومی'"_s);
    QCOMPARE(sheet.rows.size(), 4);
    QCOMPARE(sheet.rows.at(1).receiptFor, u"قسط 1 قرارداد 12"_s);
}

void TestPersonStatement::voidDocumentsAreLeftOut()
{
    m_office.database.run(u"UPDATE Documents SET iStatus=1 WHERE iNum=4"_s);
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLedger::Scope::person(m_buyer), {}, {});
    const double tables = sum(u"dBed-dBes"_s, m_buyer);
    m_office.database.run(u"UPDATE Documents SET iStatus=0"_s);
    QCOMPARE(sheet.rows.size(), 3);
    QCOMPARE(sheet.closing(), 540.0);
    QCOMPARE(sheet.closing(), tables);
}

void TestPersonStatement::personWithoutRowsIsToldSo()
{
    CDlgAccountDocs window(AccountLedger::Scope::person(m_stranger), {}, {});
    window.show();
    QCOMPARE(window.list()->count(), 0);
    QCOMPARE(window.emptyState()->sentence(), u"هنوز سندی برای این شخص ثبت نشده است."_s);
    const CDlgAccountDocs later(AccountLedger::Scope::person(m_seller), statementDay(5, 1), statementDay(5, 2));
    // What was brought forward is a line by itself.
    QCOMPARE(later.list()->count(), 2);
    const CDlgAccountDocs before(AccountLedger::Scope::person(m_seller), statementDay(1, 1), statementDay(1, 2));
    QCOMPARE(before.emptyState()->sentence(), u"در این تاریخ‌ها سندی برای این شخص ثبت نشده است."_s);
}

void TestPersonStatement::rowShowsItsDocument()
{
    CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), {}, {});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.list()->selectRow(1);
    QString title;
    Hand::inNextWindow([&title](QDialog *dialog) { title = dialog->windowTitle(); });
    QTest::keyClick(window.list(), Qt::Key_Return);
    QCOMPARE(title, u"سند حسابداری شماره 2 سال مالی 1405"_s);
}

void TestPersonStatement::closingLineShowsNothing()
{
    const CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), {}, {});
    window.list()->selectRow(4);
    Q_EMIT window.list()->rowActivated(window.list()->currentKey());
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestPersonStatement::rights_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<bool>("shown");
    QTest::newRow("none") << QString() << false;
    QTest::newRow("documents") << u"Documents"_s << true;
    QTest::newRow("receipts") << u"Receipts"_s << true;
    QTest::newRow("persons") << u"Persons"_s << false;
}

void TestPersonStatement::rights()
{
    QFETCH(QString, form);
    QFETCH(bool, shown);
    if (!form.isEmpty())
        KSecurity::setRights(m_office.clerk, form, KSecurity::Access | KSecurity::Read | KSecurity::PrintList);
    GetDBSetting()->Login(m_office.clerk);
    bool opened = false;
    if (shown)
        Hand::inNextWindow([&opened](QDialog *dialog) { opened = qobject_cast<CDlgAccountDocs *>(dialog) != nullptr; });
    CDlgAccountDocs::ShowPerson(m_buyer, nullptr);
    QCOMPARE(opened, shown);
    QCOMPARE(g_pDlgWarning->takeShown(), shown ? QStringList() : QStringList{KSecurity::refusalText(u"Documents"_s, KSecurity::Read)});
    // The sheet of an account stays with the documents' right.
    if (form == u"Receipts") {
        CDlgAccountDocs::Show(AccountLevel::Moeen, Accounts::cash, {}, {}, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }
    if (!form.isEmpty())
        KSecurity::setRights(m_office.clerk, form, 0);
}

void TestPersonStatement::titleNamesThePerson()
{
    const CDlgAccountDocs buyer(AccountLedger::Scope::person(m_buyer), {}, {});
    QCOMPARE(buyer.windowTitle(), u"صورتحساب مریم کریمی - کد 41 - کد ملی 0012345679"_s);
    const CDlgAccountDocs seller(AccountLedger::Scope::person(m_seller), {}, {});
    QCOMPARE(seller.windowTitle(), u"صورتحساب رضا احمدی - کد 0"_s);
    CDlgAccountDocs::ShowPerson(0, nullptr);
    QVERIFY(!QApplication::activeModalWidget());
}

// The cash box's row of a receipt stands on no person; the receipt says from whom it came.
void TestPersonStatement::accountNamesThePersonOfTheReceipt()
{
    const AccountLedger::Sheet sheet = AccountLedger::read(AccountLevel::Moeen, Accounts::cash, {}, {});
    QCOMPARE(sheet.rows.size(), 5);
    QCOMPARE(sheet.rows.at(0).person, QString());
    QCOMPARE(sheet.rows.at(1).person, u"مریم کریمی"_s);
    QCOMPARE(sheet.rows.at(1).purpose(), u"قسط 1 قرارداد 12 (چک)"_s);
}

void TestPersonStatement::paperIsOfTheDaysInTheList_data()
{
    QTest::addColumn<int>("whose");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::newRow("buyer, all") << 0 << QDate() << QDate();
    QTest::newRow("buyer, brought forward") << 0 << statementDay(2, 10).date() << statementDay(3, 5).date();
    QTest::newRow("seller, all") << 1 << QDate() << QDate();
    QTest::newRow("seller, brought forward alone") << 1 << statementDay(5, 1).date() << statementDay(5, 2).date();
    QTest::newRow("stranger") << 2 << QDate() << QDate();
}

// What it asks for is what the tables say until its last day; what it brings forward, what they say before its first.
void TestPersonStatement::paperIsOfTheDaysInTheList()
{
    QFETCH(int, whose);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    const int person = QList<int>{m_buyer, m_seller, m_stranger}.at(whose);
    const auto net = [&](const QString &condition) {
        return m_office.database.value(u"SELECT COALESCE(SUM(d.dBed-d.dBes),0) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear WHERE h.iStatus=0 AND d.iPersonID=%1 AND %2"_s.arg(person).arg(condition)).toDouble();
    };
    const double before = from.isValid() ? net(u"h.date<'%1'"_s.arg(from.toString(Qt::ISODate))) : 0;
    const double closing = to.isValid() ? net(u"h.date<'%1'"_s.arg(to.addDays(1).toString(Qt::ISODate))) : net(u"1"_s);
    const QDateTime first = from.isValid() ? from.startOfDay(Qt::UTC) : QDateTime();
    const QDateTime last = to.isValid() ? to.startOfDay(Qt::UTC) : QDateTime();
    const PaperSheet sheet = DocumentSheet::statement(AccountLedger::person(person), AccountLedger::read(AccountLedger::Scope::person(person), first, last), from, to, QDate(2026, 11, 20), u"ریال"_s);
    double sides = 0;
    for (const QList<PaperSheet::Cell> &row : sheet.rows)
        sides += row.at(4).amount - row.at(5).amount;
    QCOMPARE(sides, closing);
    const QString side = closing > 0 ? u"بدهکار"_s : closing < 0 ? u"بستانکار"_s
                                                                 : u"تسویه"_s;
    QCOMPARE(sheet.totals.constFirst().text, u"%1 ریال %2"_s.arg(DToMoney(std::abs(closing)), side));
    QCOMPARE(sheet.facts.constFirst().text, m_office.database.value(u"SELECT sName2 FROM Persons WHERE iID=%1"_s.arg(person)));
    QCOMPARE(!sheet.rows.isEmpty() && sheet.rows.constFirst().at(3).text == u"مانده از قبل", before != 0);
    if (before != 0)
        QCOMPARE(sheet.rows.constFirst().at(6).text, DToMoney(std::abs(before)));
    if (!sheet.rows.isEmpty())
        QCOMPARE(sheet.rows.constLast().at(6).text, DToMoney(std::abs(closing)));
}

void TestPersonStatement::paperNeedsTheRightToPrint()
{
    KSecurity::setRights(m_office.clerk, u"Receipts"_s, KSecurity::Access | KSecurity::Read);
    GetDBSetting()->Login(m_office.clerk);
    CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), {}, {});
    captioned<QPushButton>(window, u"برگه صورتحساب"_s)->click();
    KSecurity::setRights(m_office.clerk, u"Receipts"_s, 0);
    const QStringList said = g_pDlgWarning->takeShown();
    QCOMPARE(said.size(), 1);
    // Of the documents' form, because the receipts' gives no right to print.
    QCOMPARE(said.constFirst(), KSecurity::refusalText(u"Documents"_s, KSecurity::PrintList));
}

void TestPersonStatement::paperIsHandedOutByItsButton()
{
    CDlgAccountDocs window(AccountLedger::Scope::person(m_buyer), {}, {});
    window.show();
    const QString path = m_office.folder.filePath(u"statement.pdf"_s);
    QString text;
    Hand::inNextWindow([&](QDialog *dialog) {
        if (auto *paper = qobject_cast<CDlgPaper *>(dialog)) {
            paper->savePdf(path);
            text = PaperProof::textOf(path);
        }
    });
    captioned<QPushButton>(window, u"برگه صورتحساب"_s)->click();
    for (const QString &word : {u"صورتحساب"_s, u"کریمی"_s, u"0012345679"_s, u"1,000"_s, u"510"_s, u"490"_s, u"1405/02/10"_s})
        QVERIFY2(text.contains(word), qPrintable(word + u"\n"_s + text));
}

// A day that is broken in two reads as another one.
void TestPersonStatement::datesAreWholeOnEverySize()
{
    const PaperSheet sheet = DocumentSheet::statement(AccountLedger::person(m_buyer), AccountLedger::read(AccountLedger::Scope::person(m_buyer), {}, {}), {}, {}, QDate(2026, 11, 20), u"ریال"_s);
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const QString text = PaperProof(sheet, size).text();
        for (const QString &day : {u"1405/02/01"_s, u"1405/02/10"_s, u"1405/03/05"_s, u"1405/03/06"_s})
            QVERIFY2(text.contains(day), qPrintable(day + u"\n"_s + text));
    }
}

static const RegisteredTest<TestPersonStatement, QApplication> registeredPersonStatement;
#include "TestPersonStatement.moc"
