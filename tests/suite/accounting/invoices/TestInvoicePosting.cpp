// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/InvoicePosting.h"

#include "suite/accounting/changes/OpenedRow.h"
#include "suite/accounting/invoices/InvoiceValues.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/BooksAgree.h"

#include <QCoreApplication>
#include <QtTest>

#include <atomic>
#include <functional>
#include <thread>

using namespace Qt::StringLiterals;

class TestInvoicePosting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void saleIsWrittenWithItsLinesAndItsDocument();
    void purchaseStandsOnTheExpenseAccounts();
    void returnedLinesTurnTheDocumentRound_data();
    void returnedLinesTurnTheDocumentRound();
    void loadGivesBackWhatWasSaved();
    void changeRewritesLinesAndDocument();
    void changeKeepsTheType();
    void voidInvoiceKeepsItsNumberAndLosesItsAmounts();
    void voidInvoiceCannotBeChanged();
    void invoiceOfAnotherFiscalYearCannotBeChanged();
    void missingInvoiceCannotBeChanged();
    void refusals_data();
    void refusals();
    void closedDatabaseIsRefused();
    void refusedDocumentLeavesNoInvoice();
    void invoiceThatIsMadeVoidMeanwhileIsNotChanged();
    void changeOfAnotherUserIsNotOverwritten_data();
    void changeOfAnotherUserIsNotOverwritten();
    void changesOfDifferentFieldsAreKept();
    void invoiceThatNobodyElseChangedIsChangedAgain();
    void amountsHaveTheDecimalsOfTheMoneyUnit();
    void largestAmountsBalance_data();
    void largestAmountsBalance();

private:
    Invoice sale();
    QString refusalOf(const std::function<void()> &work);
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    QString documentRows()
    {
        return value("SELECT GROUP_CONCAT(CONCAT_WS('/',iHesabKolCode,iHesabMoeenCode,iPersonID,dBed,dBes) ORDER BY iID "
                     "SEPARATOR ' ') FROM Docs");
    }

    TestOffice m_office;
    int m_person = 0;
    int m_service = 0;
};

namespace {

constexpr int year = 1405;
const QDateTime day(QDate(2026, 5, 1), QTime(0, 0), Qt::UTC);

// What a window keeps that shows the invoice.
OpenedRow opened(const Invoice &seen)
{
    InvoiceValues values;
    values.set(seen);
    return OpenedRow(values, InvoiceValues::groups(), [] {});
}

}

void TestInvoicePosting::init()
{
    for (const char *table : {"Factors", "FactorStuffs", "Services", "Documents", "Docs", "Persons"})
        m_office.database.run(u"TRUNCATE TABLE "_s + QLatin1String(table));
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->SetMoneyDecimals(0);
    GetDBSetting()->SetFiscalYear(year);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC));
    m_person = m_office.addPerson(u"علی رضایی"_s);
    m_service = CTblServices::add(11, u"کارشناسی خودرو"_s);
}

Invoice TestInvoicePosting::sale()
{
    Invoice invoice;
    invoice.personID = m_person;
    invoice.date = day;
    invoice.desc = u"بابت اردیبهشت"_s;
    invoice.lines = {{m_service, {}, 2, 400}, {0, u"کرایه"_s, 1, 200}};
    invoice.discount = 100;
    invoice.tax = 54;
    invoice.duty = 36;
    return invoice;
}

QString TestInvoicePosting::refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

void TestInvoicePosting::saleIsWrittenWithItsLinesAndItsDocument()
{
    const InvoicePosting::Saved saved = InvoicePosting::save(sale());
    QCOMPARE(saved.num, 1);
    QCOMPARE(saved.docNum, 1);
    QCOMPARE(saved.fiscalYear, year);
    QCOMPARE(value("SELECT CONCAT_WS('/',iID,iType,iStatus,iPersonID,iDepartmentID,DATE(date),sDesc,dAmount,dDiscount,dTax,"
                   "dImposition,iDocNum,iFiscalYear,iUserID) FROM Factors"),
             u"1/7/0/%1/1/2026-05-01/بابت اردیبهشت/1000/100/54/36/1/1405/%2"_s.arg(m_person).arg(m_office.admin));
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',iFactorNum,iType,iKind,iServiceID,IFNULL(sDesc,''),dCount,dPrice,dAmount,"
                   "iDepartmentID) ORDER BY iID SEPARATOR ' ') FROM FactorStuffs"),
             u"1/7/0/%1//2/400/800/1 1/7/0/0/کرایه/1/200/200/1"_s.arg(m_service));
    QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iFiscalYear,iKind,DATE(date),sDesc,iStatus) FROM Documents"),
             u"1/1405/7/2026-05-01/فاکتور فروش ش :1/0"_s);
    QCOMPARE(documentRows(), u"1103/110301/%1/990/0 4101/410102/0/100/0 4101/410101/0/0/1000 2105/210501/0/0/54 "
                             "2105/210502/0/0/36"_s.arg(m_person));
}

void TestInvoicePosting::purchaseStandsOnTheExpenseAccounts()
{
    Invoice invoice = sale();
    invoice.type = CTblFactors::purchase;
    InvoicePosting::save(invoice);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindPurchase)), u"1/0/0"_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',iType,iKind) FROM FactorStuffs LIMIT 1"), u"8/0"_s);
    QCOMPARE(value("SELECT iKind FROM Documents"), QString::number(Accounts::documentKindPurchase));
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::serviceExpense).bed, 1000.0);
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::persons).bes, 990.0);
    QCOMPARE(CTblDocs::GetBedBesHesabKol1(Accounts::taxExpenseKol).bed, 90.0);
}

void TestInvoicePosting::returnedLinesTurnTheDocumentRound_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("kinds");
    QTest::addColumn<double>("personBed");
    QTest::addColumn<double>("personBes");
    QTest::newRow("sale") << int(CTblFactors::sale) << "3" << 0.0 << 990.0;
    QTest::newRow("purchase") << int(CTblFactors::purchase) << "4" << 990.0 << 0.0;
}

void TestInvoicePosting::returnedLinesTurnTheDocumentRound()
{
    QFETCH(int, type);
    Invoice invoice = sale();
    invoice.type = type;
    invoice.returned = true;
    const int num = InvoicePosting::save(invoice).num;
    QTEST(value("SELECT GROUP_CONCAT(DISTINCT iKind) FROM FactorStuffs"), "kinds");
    const AccountBalance person = CTblDocs::GetBedBesHesabMoeen1(Accounts::persons);
    QTEST(person.bed, "personBed");
    QTEST(person.bes, "personBes");
    QVERIFY(InvoicePosting::load(num).returned);
}

void TestInvoicePosting::loadGivesBackWhatWasSaved()
{
    const Invoice before = sale();
    const Invoice after = InvoicePosting::load(InvoicePosting::save(before).num);
    QCOMPARE(after.num, 1);
    QCOMPARE(after.type, before.type);
    QVERIFY(!after.returned);
    QCOMPARE(after.personID, before.personID);
    QCOMPARE(after.date, before.date);
    QCOMPARE(after.desc, before.desc);
    QCOMPARE(after.lines, before.lines);
    QCOMPARE(after.discount, before.discount);
    QCOMPARE(after.tax, before.tax);
    QCOMPARE(after.duty, before.duty);
    QCOMPARE(InvoicePosting::load(2).num, 0);
}

void TestInvoicePosting::changeRewritesLinesAndDocument()
{
    Invoice invoice = sale();
    invoice.num = InvoicePosting::save(invoice).num;
    InvoicePosting::save(sale());
    invoice.lines = {{m_service, {}, 1, 5000}};
    invoice.discount = invoice.tax = invoice.duty = 0;
    invoice.date = day.addDays(3);
    const InvoicePosting::Saved saved = InvoicePosting::save(invoice);
    QCOMPARE(saved.num, 1);
    QCOMPARE(saved.docNum, 1);
    QCOMPARE(value("SELECT COUNT(*) FROM Factors"), u"2"_s);
    QCOMPARE(value("SELECT GROUP_CONCAT(dAmount) FROM FactorStuffs WHERE iFactorNum=1"), u"5000"_s);
    QCOMPARE(value("SELECT GROUP_CONCAT(dBed+dBes) FROM Docs WHERE iDocNum=1"), u"5000,5000"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs WHERE iDocNum=2"), u"5"_s);
    QCOMPARE(value("SELECT DATE(date) FROM Documents WHERE iNum=1"), u"2026-05-04"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"2"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindSale)), u"2/0/0"_s);
}

void TestInvoicePosting::changeKeepsTheType()
{
    Invoice invoice = sale();
    invoice.num = InvoicePosting::save(invoice).num;
    invoice.type = CTblFactors::purchase;
    InvoicePosting::save(invoice);
    QCOMPARE(value("SELECT CONCAT_WS('/',f.iType,s.iType) FROM Factors f JOIN FactorStuffs s ON s.iFactorNum=f.iID LIMIT 1"),
             u"7/7"_s);
    QVERIFY(CTblDocs::GetBedBesHesabMoeen1(Accounts::serviceIncome).bes > 0);
}

void TestInvoicePosting::voidInvoiceKeepsItsNumberAndLosesItsAmounts()
{
    InvoicePosting::save(sale());
    InvoicePosting::makeVoid(1);
    QCOMPARE(value("SELECT CONCAT_WS('/',iID,iStatus,dAmount,iDocNum) FROM Factors"), u"1/1/1000/1"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM FactorStuffs"), u"2"_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iStatus) FROM Documents"), u"1/1"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
    QVERIFY(CTblDocs::balances(AccountLevel::Moeen).isEmpty());
    // Its number is not reused.
    QCOMPARE(InvoicePosting::save(sale()).num, 2);
    QCOMPARE(value("SELECT MAX(iNum) FROM Documents"), u"2"_s);
}

void TestInvoicePosting::voidInvoiceCannotBeChanged()
{
    Invoice invoice = sale();
    invoice.num = InvoicePosting::save(invoice).num;
    QVERIFY(InvoicePosting::changeRefusal(1).isEmpty());
    InvoicePosting::makeVoid(1);
    const QString refusal = InvoicePosting::changeRefusal(1);
    QVERIFY2(refusal.startsWith(u"فاکتور شماره 1 باطل شده است و تغییر نمی‌کند. (کاربر «admin» در "_s), qPrintable(refusal));
    QCOMPARE(refusalOf([&] { InvoicePosting::save(invoice); }), refusal);
    QCOMPARE(refusalOf([] { InvoicePosting::makeVoid(1); }), refusal);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
}

void TestInvoicePosting::invoiceOfAnotherFiscalYearCannotBeChanged()
{
    Invoice invoice = sale();
    invoice.num = InvoicePosting::save(invoice).num;
    GetDBSetting()->SetFiscalYear(year + 1);
    QVERIFY(refusalOf([&] { InvoicePosting::save(invoice); }).contains(u"1406"_s));
    QVERIFY(refusalOf([] { InvoicePosting::makeVoid(1); }).contains(u"1405"_s));
    QCOMPARE(value("SELECT CONCAT_WS('/',iStatus,iFiscalYear) FROM Factors"), u"0/1405"_s);
}

void TestInvoicePosting::missingInvoiceCannotBeChanged()
{
    Invoice invoice = sale();
    invoice.num = 77;
    QVERIFY(refusalOf([&] { InvoicePosting::save(invoice); }).contains(u"حذف کرده است"_s));
    QVERIFY(refusalOf([] { InvoicePosting::makeVoid(77); }).contains(u"حذف کرده است"_s));
    QCOMPARE(InvoicePosting::changeRefusal(77), u"این فاکتور دیگر وجود ندارد."_s);
    QCOMPARE(value("SELECT COUNT(*) FROM FactorStuffs"), u"0"_s);
}

void TestInvoicePosting::refusals_data()
{
    QTest::addColumn<std::function<void(Invoice &)>>("spoil");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const std::function<void(Invoice &)> &spoil, const QString &message) {
        QTest::newRow(name) << spoil << message;
    };
    row(
        "nobody", [](Invoice &i) { i.personID = 0; }, u"لطفا شخص را انتخاب نمایید."_s);
    row(
        "person is gone", [](Invoice &i) { i.personID = 999; }, u"این شخص دیگر وجود ندارد."_s);
    row(
        "no lines", [](Invoice &i) { i.lines.clear(); }, u"لطفا دست‌کم یک ردیف وارد نمایید."_s);
    row(
        "service is gone", [](Invoice &i) { i.lines[1].serviceID = 999; }, u"خدمت ردیف 2 دیگر وجود ندارد."_s);
    row(
        "before the fiscal year", [](Invoice &i) { i.date = QDateTime(QDate(2026, 3, 20), QTime(0, 0), Qt::UTC); },
        u"تاریخ فاکتور پیش از تاریخ افتتاحیه سال مالی است."_s);
    row(
        "after the fiscal year", [](Invoice &i) { i.date = QDateTime(QDate(2027, 3, 21), QTime(0, 0), Qt::UTC); },
        u"تاریخ فاکتور پس از پایان سال مالی 1405 (1405/12/29) است."_s);
    row(
        "discount above the sum", [](Invoice &i) { i.discount = 1001; }, u"تخفیف از جمع ردیف‌ها بیشتر است."_s);
}

void TestInvoicePosting::refusals()
{
    QFETCH(std::function<void(Invoice &)>, spoil);
    Invoice invoice = sale();
    spoil(invoice);
    QTEST(refusalOf([&] { InvoicePosting::save(invoice); }), "message");
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Factors)+(SELECT COUNT(*) FROM FactorStuffs)+(SELECT COUNT(*) FROM Documents)"),
             u"0"_s);
}

void TestInvoicePosting::closedDatabaseIsRefused()
{
    InvoicePosting::save(sale());
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!refusalOf([this] { InvoicePosting::save(sale()); }).isEmpty());
    QVERIFY(!refusalOf([] { InvoicePosting::makeVoid(1); }).isEmpty());
    QCOMPARE(value("SELECT GROUP_CONCAT(iStatus) FROM Factors"), u"0"_s);
}

void TestInvoicePosting::refusedDocumentLeavesNoInvoice()
{
    m_office.database.run(u"UPDATE HesabMoeen SET iCode=410199 WHERE iCode=410101"_s);
    const QString refusal = refusalOf([this] { InvoicePosting::save(sale()); });
    m_office.database.run(u"UPDATE HesabMoeen SET iCode=410101 WHERE iCode=410199"_s);
    QVERIFY(!refusal.isEmpty());
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Factors)+(SELECT COUNT(*) FROM FactorStuffs)+(SELECT COUNT(*) FROM Documents)"),
             u"0"_s);
}

// The other user's change is committed while this one waits for the lock; what is read afterwards must be the new state.
void TestInvoicePosting::invoiceThatIsMadeVoidMeanwhileIsNotChanged()
{
    Invoice invoice = sale();
    invoice.num = InvoicePosting::save(invoice).num;
    QString refusal;
    std::atomic<bool> done{false};
    std::thread other;
    {
        KTransaction transaction;
        InvoicePosting::makeVoid(1);
        other = std::thread([&] {
            refusal = refusalOf([&] { InvoicePosting::save(invoice); });
            done = true;
        });
        QTest::qWait(300);
        QVERIFY(!done);
        transaction.commit();
    }
    other.join();
    QVERIFY(refusal.startsWith(u"فاکتور شماره 1 باطل شده است و تغییر نمی‌کند."_s));
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"0"_s);
}

void TestInvoicePosting::changeOfAnotherUserIsNotOverwritten_data()
{
    QTest::addColumn<std::function<void(Invoice &)>>("change");
    const auto row = [](const char *name, const std::function<void(Invoice &)> &change) { QTest::newRow(name) << change; };
    row("another price", [](Invoice &i) { i.lines[0].price = 500; });
    row("another description of a line", [](Invoice &i) { i.lines[1].desc = u"اجاره"_s; });
    row("a line more", [](Invoice &i) { i.lines.append({0, u"حمل"_s, 1, 70}); });
    row("another discount", [](Invoice &i) { i.discount = 0; });
    row("returned", [](Invoice &i) { i.returned = true; });
}

// Both opened the invoice and changed its lines or figures; nothing is written, and the one who saves later is told.
void TestInvoicePosting::changeOfAnotherUserIsNotOverwritten()
{
    QFETCH(std::function<void(Invoice &)>, change);
    const int num = InvoicePosting::save(sale()).num;
    const Invoice seen = InvoicePosting::load(num);
    Invoice theirs = seen;
    change(theirs);
    InvoicePosting::save(theirs, opened(seen));
    const QString after = documentRows();
    Invoice mine = seen;
    mine.lines[0].count = 7;
    OpenedRow mineOpened = opened(seen);
    QList<RowConflict> conflicts;
    try {
        InvoicePosting::save(mine, mineOpened);
    } catch (const RowChanged &changed) {
        QCOMPARE(changed.kind(), RowChanged::Kind::Conflict);
        QVERIFY(changed.userMessage().contains(u"«admin»"_s));
        conflicts = changed.conflicts();
    }
    QVERIFY(!conflicts.isEmpty());
    QCOMPARE(InvoicePosting::load(num), theirs);
    QCOMPARE(documentRows(), after);
    // The answer is about what was shown: the figures of one side, whole.
    mineOpened.answer(conflicts, false);
    InvoicePosting::save(mine, mineOpened);
    QCOMPARE(InvoicePosting::load(num), mine);
}

void TestInvoicePosting::changesOfDifferentFieldsAreKept()
{
    const int num = InvoicePosting::save(sale()).num;
    const Invoice seen = InvoicePosting::load(num);
    Invoice theirs = seen;
    theirs.date = seen.date.addDays(1);
    theirs.lines[0].price = 500;
    InvoicePosting::save(theirs, opened(seen));
    Invoice mine = seen;
    mine.desc = u"نقدی"_s;
    InvoicePosting::save(mine, opened(seen));
    Invoice both = theirs;
    both.desc = mine.desc;
    QCOMPARE(InvoicePosting::load(num), both);
    QCOMPARE(value("SELECT DATE(date) FROM Documents"), both.date.date().toString(Qt::ISODate));
}

void TestInvoicePosting::invoiceThatNobodyElseChangedIsChangedAgain()
{
    const int num = InvoicePosting::save(sale()).num;
    for (const double count : {3.0, 4.0}) {
        const Invoice seen = InvoicePosting::load(num);
        Invoice changed = seen;
        changed.lines[0].count = count;
        InvoicePosting::save(changed, opened(seen));
        QCOMPARE(InvoicePosting::load(num), changed);
    }
}

void TestInvoicePosting::amountsHaveTheDecimalsOfTheMoneyUnit()
{
    Invoice invoice = sale();
    invoice.lines = {{m_service, {}, 1.5, 33.33}};
    invoice.discount = invoice.tax = invoice.duty = 0;
    InvoicePosting::save(invoice);
    GetDBSetting()->SetMoneyDecimals(2);
    InvoicePosting::save(invoice);
    QCOMPARE(value("SELECT GROUP_CONCAT(dAmount ORDER BY iID SEPARATOR '/') FROM Factors"), u"50/50"_s);
    invoice.lines = {{m_service, {}, 3, 33.33}};
    InvoicePosting::save(invoice);
    QCOMPARE(value("SELECT dAmount FROM Factors WHERE iID=3"), u"99.99"_s);
}

void TestInvoicePosting::largestAmountsBalance_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("price");
    QTest::addColumn<double>("levy");
    QTest::newRow("whole") << 0 << 890000000000000.0 << 33333333333333.0;
    QTest::newRow("with decimals") << 2 << 88999999999.37 << 3333333333.11;
}

void TestInvoicePosting::largestAmountsBalance()
{
    QFETCH(int, decimals);
    QFETCH(double, price);
    QFETCH(double, levy);
    GetDBSetting()->SetMoneyDecimals(decimals);
    Invoice invoice = sale();
    invoice.lines = {{m_service, {}, 1, price}, {m_service, {}, 3, 0.33 + 1}, {m_service, {}, 1, 1.01}};
    invoice.discount = levy;
    invoice.tax = levy;
    invoice.duty = 2 * levy;
    const int num = InvoicePosting::save(invoice).num;
    QCOMPARE(InvoicePosting::load(num).lines.at(0).price, price);
}

static const RegisteredTest<TestInvoicePosting, QCoreApplication> registeredInvoicePosting;
#include "TestInvoicePosting.moc"
