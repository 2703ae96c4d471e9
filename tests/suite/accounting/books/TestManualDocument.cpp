// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/ManualDocument.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentValues.h"
#include "suite/accounting/changes/OpenedRow.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/BooksAgree.h"

#include <QCoreApplication>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

using What = ManualDocument::Problem::What;

class TestManualDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void problems_data();
    void problems();
    void newDocumentGetsTheNextNumber();
    void detailAccountStandsWithThoseAboveIt();
    void changeKeepsTheNumberAndRewritesTheRows();
    void changeOfAnotherUserIsNotOverwritten();
    void changesOfDifferentFieldsAreKept();
    void numberThatWentToAnotherDocumentIsNotTheOneThatWasRead();
    void refusals_data();
    void refusals();
    void documentsOfTheProgramRefuse_data();
    void documentsOfTheProgramRefuse();
    void documentOfAnotherFiscalYearRefuses();
    void missingDocumentRefuses();
    void removeTakesHeaderAndRows();
    void closedDatabaseIsRefused();

private:
    ManualDocument good() const;
    static QString refusalOf(const std::function<void()> &work);
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }

    TestOffice m_office;
    int m_person = 0;
};

namespace {

constexpr int year = 1405;
constexpr int water = 620101001;

// What a window keeps that shows the document.
OpenedRow opened(const ManualDocument &seen)
{
    CTblDocuments header;
    header.IsRecordExist(u"iNum"_s, seen.num);
    DocumentValues values;
    values.set(seen.content(), header.m_iID);
    return OpenedRow(values, {}, [] {});
}
const QDateTime day(QDate(2026, 5, 1), QTime(0, 0), Qt::UTC);
const QSet<int> accounts{Accounts::cash, Accounts::persons, water};

}

void TestManualDocument::initTestCase()
{
    m_person = m_office.addPerson(u"علی رضایی"_s);
    AccountChart::add(AccountLevel::Kol, 6201, u"هزینه‌های اداری"_s, 0);
    AccountChart::add(AccountLevel::Moeen, 620101, u"قبض‌ها"_s, 6201);
    AccountChart::add(AccountLevel::Tafsily, water, u"آب"_s, 620101);
}

void TestManualDocument::init()
{
    m_office.database.run(u"DELETE FROM Docs"_s);
    m_office.database.run(u"DELETE FROM Documents"_s);
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->SetFiscalYear(year);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC));
}

ManualDocument TestManualDocument::good() const
{
    ManualDocument document;
    document.date = day;
    document.desc = u"پرداخت قبض"_s;
    document.rows = {{water, 0, 300, 0, u"قبض آب"_s},
                     {Accounts::cash, 0, 0, 100, u"نقد"_s},
                     {Accounts::persons, m_person, 0, 200, u"از طرف علی"_s}};
    return document;
}

QString TestManualDocument::refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

void TestManualDocument::problems_data()
{
    QTest::addColumn<std::function<void(ManualDocument &)>>("spoil");
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("row");
    const auto row = [](const char *name, const std::function<void(ManualDocument &)> &spoil, What what, int at = -1) {
        QTest::newRow(name) << spoil << static_cast<int>(what) << at;
    };
    row(
        "no date", [](ManualDocument &d) { d.date = {}; }, What::NoDate);
    row(
        "no rows", [](ManualDocument &d) { d.rows.clear(); }, What::NoRows);
    row(
        "no account", [](ManualDocument &d) { d.rows[1].account = 0; }, What::NoAccount, 1);
    row(
        "account that is divided", [](ManualDocument &d) { d.rows[0].account = 620101; }, What::NoAccount, 0);
    row(
        "nobody on the persons account", [](ManualDocument &d) { d.rows[2].personID = 0; }, What::NoPerson, 2);
    row(
        "a person on another account", [](ManualDocument &d) { d.rows[1].personID = 5; }, What::NeedlessPerson, 1);
    row(
        "no amount", [](ManualDocument &d) { d.rows.append({Accounts::cash, 0, 0, 0, {}}); }, What::NoAmount, 3);
    row(
        "both sides", [](ManualDocument &d) { d.rows[0].credit = d.rows[1].credit = 50; d.rows[2].credit = 200; },
        What::BothSides, 0);
    row(
        "a negative amount, though it balances", [](ManualDocument &d) { d.rows[1].credit = -100; d.rows[2].credit = 400; },
        What::NoAmount, 1);
    row(
        "an amount that the books cannot hold", [](ManualDocument &d) { d.rows[0].debit = 1.2e15; d.rows[1].credit = d.rows[2].credit = 6e14; },
        What::AmountTooLarge, 0);
    row(
        "does not balance", [](ManualDocument &d) { d.rows[0].debit = 301; }, What::NotBalanced);
    row(
        "one row alone", [](ManualDocument &d) { d.rows.resize(1); }, What::NotBalanced);
}

void TestManualDocument::problems()
{
    QFETCH(std::function<void(ManualDocument &)>, spoil);
    ManualDocument document = good();
    QVERIFY(document.problems(accounts).isEmpty());
    spoil(document);
    const QList<ManualDocument::Problem> found = document.problems(accounts);
    QCOMPARE(found.size(), 1);
    QTEST(static_cast<int>(found.constFirst().what), "what");
    QTEST(found.constFirst().row, "row");
    QVERIFY(!document.message(found.constFirst()).isEmpty());
}

void TestManualDocument::newDocumentGetsTheNextNumber()
{
    ManualDocument first = good();
    first.save();
    ManualDocument second = good();
    second.save();
    QCOMPARE(first.num, 1);
    QCOMPARE(second.num, 2);
    QCOMPARE(second.fiscalYear, year);
    QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iFiscalYear,iKind,DATE(date),sDesc,iUserID) FROM Documents WHERE iNum=1"),
             u"1/1405/1/2026-05-01/پرداخت قبض/%1"_s.arg(m_office.admin));
    const ManualDocument loaded = ManualDocument::load(1, year);
    QCOMPARE(loaded.rows, first.rows);
    QCOMPARE(loaded.desc, first.desc);
    QCOMPARE(loaded.date, first.date);
    QCOMPARE(ManualDocument::load(3, year).num, 0);
}

void TestManualDocument::detailAccountStandsWithThoseAboveIt()
{
    good().save();
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,iPersonID,dBed,dBes) "
                   "ORDER BY iID SEPARATOR ' ') FROM Docs"),
             u"6201/620101/620101001/0/300/0 1101/110101/0/0/0/100 1103/110301/0/%1/0/200"_s.arg(m_person));
}

void TestManualDocument::changeKeepsTheNumberAndRewritesTheRows()
{
    ManualDocument document = good();
    document.save();
    good().save();
    document.rows = {{Accounts::cash, 0, 70, 0, {}}, {water, 0, 0, 70, {}}};
    document.desc = u"اصلاح"_s;
    document.date = day.addDays(2);
    document.save();
    QCOMPARE(document.num, 1);
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',dBed,dBes) ORDER BY iID SEPARATOR ' ') FROM Docs WHERE iDocNum=1"),
             u"70/0 0/70"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs WHERE iDocNum=2"), u"3"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindManual)), u"2/0/0"_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',sDesc,DATE(date)) FROM Documents WHERE iNum=1"), u"اصلاح/2026-05-03"_s);
}

// Both opened the document and changed its rows; nothing is written, and the one who saves later is told.
void TestManualDocument::changeOfAnotherUserIsNotOverwritten()
{
    good().save();
    const ManualDocument seen = ManualDocument::load(1, year);
    ManualDocument theirs = seen;
    theirs.rows[0].description = u"قبض برق"_s;
    theirs.save(opened(seen));
    ManualDocument mine = seen;
    mine.rows[1].description = u"پرداخت دو قبض"_s;
    OpenedRow mineOpened = opened(seen);
    QList<RowConflict> conflicts;
    try {
        mine.save(mineOpened);
    } catch (const RowChanged &changed) {
        QVERIFY(changed.userMessage().contains(u"«admin»"_s));
        conflicts = changed.conflicts();
    }
    QCOMPARE(conflicts.size(), 1);
    QCOMPARE(ManualDocument::load(1, year), theirs);
    mineOpened.answer(conflicts, false);
    mine.save(mineOpened);
    QCOMPARE(ManualDocument::load(1, year).rows, mine.rows);
}

void TestManualDocument::changesOfDifferentFieldsAreKept()
{
    good().save();
    const ManualDocument seen = ManualDocument::load(1, year);
    ManualDocument theirs = seen;
    theirs.rows[0].description = u"قبض برق"_s;
    theirs.save(opened(seen));
    ManualDocument mine = seen;
    mine.desc = u"پرداخت دو قبض"_s;
    mine.save(opened(seen));
    theirs.desc = mine.desc;
    QCOMPARE(ManualDocument::load(1, year), theirs);
}

// The number of the last document goes to the next one.
void TestManualDocument::numberThatWentToAnotherDocumentIsNotTheOneThatWasRead()
{
    good().save();
    const ManualDocument seen = ManualDocument::load(1, year);
    const OpenedRow before = opened(seen);
    const int header = value("SELECT iID FROM Documents").toInt();
    ManualDocument::remove(1, year);
    ManualDocument another = good();
    another.desc = u"سند دیگر"_s;
    another.save();
    QCOMPARE(another.num, 1);
    ManualDocument mine = seen;
    mine.rows[0].description = u"قبض برق"_s;
    QVERIFY(refusalOf([&] { mine.save(before); }).contains(u"حذف کرده است"_s));
    QVERIFY(refusalOf([&] { ManualDocument::remove(1, year, header); }).contains(u"حذف کرده است"_s));
    QCOMPARE(ManualDocument::load(1, year).desc, u"سند دیگر"_s);
}

void TestManualDocument::refusals_data()
{
    QTest::addColumn<std::function<void(ManualDocument &)>>("spoil");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const std::function<void(ManualDocument &)> &spoil, const QString &message) {
        QTest::newRow(name) << spoil << message;
    };
    row(
        "does not balance", [](ManualDocument &d) { d.rows[0].debit = 301; },
        u"سند تراز نیست: بدهکار 301، بستانکار 300."_s);
    row(
        "account that is not in the chart", [](ManualDocument &d) { d.rows[0].account = 999901; },
        u"لطفا حساب ردیف 1 را انتخاب نمایید."_s);
    row(
        "person is gone", [](ManualDocument &d) { d.rows[2].personID = 999; }, u"شخص ردیف 3 دیگر وجود ندارد."_s);
    row(
        "before the fiscal year", [](ManualDocument &d) { d.date = QDateTime(QDate(2026, 3, 20), QTime(0, 0), Qt::UTC); },
        u"تاریخ سند پیش از تاریخ افتتاحیه سال مالی است."_s);
    row(
        "after the fiscal year", [](ManualDocument &d) { d.date = QDateTime(QDate(2027, 3, 21), QTime(0, 0), Qt::UTC); },
        u"تاریخ سند پس از پایان سال مالی 1405 (1405/12/29) است."_s);
}

void TestManualDocument::refusals()
{
    QFETCH(std::function<void(ManualDocument &)>, spoil);
    ManualDocument document = good();
    spoil(document);
    QTEST(refusalOf([&] { document.save(); }), "message");
    QCOMPARE(document.num, 0);
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Docs)+(SELECT COUNT(*) FROM Documents)"), u"0"_s);
}

void TestManualDocument::documentsOfTheProgramRefuse_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("word");
    QTest::newRow("contract") << int(Accounts::documentKindContract) << u"«قرارداد»"_s;
    QTest::newRow("receipt") << int(Accounts::documentKindReceipt) << u"«دریافت‌ها و پرداخت‌ها»"_s;
    QTest::newRow("sale") << int(Accounts::documentKindSale) << u"«فاکتور فروش»"_s;
    QTest::newRow("purchase") << int(Accounts::documentKindPurchase) << u"«فاکتور خرید»"_s;
    QTest::newRow("another program's") << 55 << u"برنامه"_s;
}

void TestManualDocument::documentsOfTheProgramRefuse()
{
    QFETCH(int, kind);
    QFETCH(QString, word);
    const int num = CTblDocuments::AddDoc(kind, day, u"سند"_s, year);
    ManualDocument document = good();
    document.num = num;
    document.fiscalYear = year;
    const QString refusal = ManualDocument::changeRefusal(num, year);
    QVERIFY2(refusal.contains(word), qPrintable(refusal));
    QCOMPARE(refusalOf([&] { document.save(); }), refusal);
    QCOMPARE(refusalOf([&] { ManualDocument::remove(num, year); }), refusal);
    QCOMPARE(value("SELECT CONCAT((SELECT COUNT(*) FROM Docs),(SELECT sDesc FROM Documents))"), u"0سند"_s);
}

void TestManualDocument::documentOfAnotherFiscalYearRefuses()
{
    ManualDocument document = good();
    document.save();
    GetDBSetting()->SetFiscalYear(year + 1);
    document.rows[0].debit = document.rows[1].credit = 0;
    document.rows = {{Accounts::cash, 0, 70, 0, {}}, {water, 0, 0, 70, {}}};
    QVERIFY(refusalOf([&] { document.save(); }).contains(u"1405"_s));
    QVERIFY(refusalOf([] { ManualDocument::remove(1, year); }).contains(u"1406"_s));
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"3"_s);
}

void TestManualDocument::missingDocumentRefuses()
{
    ManualDocument document = good();
    document.num = 9;
    document.fiscalYear = year;
    QVERIFY(refusalOf([&] { document.save(); }).contains(u"حذف کرده است"_s));
    QVERIFY(refusalOf([] { ManualDocument::remove(9, year); }).contains(u"حذف کرده است"_s));
}

void TestManualDocument::removeTakesHeaderAndRows()
{
    good().save();
    good().save();
    ManualDocument::remove(1, year);
    QCOMPARE(value("SELECT GROUP_CONCAT(iNum) FROM Documents"), u"2"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs WHERE iDocNum=1"), u"0"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Docs"), u"3"_s);
}

void TestManualDocument::closedDatabaseIsRefused()
{
    good().save();
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!refusalOf([this] { good().save(); }).isEmpty());
    QVERIFY(!refusalOf([] { ManualDocument::remove(1, year); }).isEmpty());
    GetDBSetting()->SetClosedDB(false);
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"1"_s);
}

static const RegisteredTest<TestManualDocument, QCoreApplication> registeredManualDocument;
#include "TestManualDocument.moc"
