// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptPosting.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/treasury/records/ReceiptOwners.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int ownedKind = 77;
constexpr int firstYear = 1405;

// Owns records that are in no table, and notes what it is asked.
class NotingOwner final : public ReceiptOwner
{
public:
    NotingOwner() { ReceiptOwners::enter(ownedKind, *this); }
    ~NotingOwner() override { ReceiptOwners::remove(ownedKind); }

    QList<OpenItem> openItems(int, CTblReceipts::Kind) const override { return {}; }
    void lock(int recordID, bool mustExist) const override
    {
        if (mustExist && recordID == gone)
            throw KAccountingError(u"رفته است."_s);
        m_asked.append(u"lock %1"_s.arg(recordID));
    }
    void recount(const CTblReceipts &receipt) const override
    {
        m_asked.append(u"%1 of %2 is %3"_s.arg(receipt.m_dAmount).arg(receipt.m_iRecordID).arg(CTblReceipts::statusName(receipt.m_iStatus)));
    }
    QStringList take() const { return std::exchange(m_asked, {}); }

    int gone = 0;

private:
    mutable QStringList m_asked;
};

QDateTime day(int year, int month, int dayOfMonth)
{
    return {QDate(year, month, dayOfMonth), QTime(0, 0), Qt::UTC};
}

}

class TestReceiptPosting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void receiptAndPaymentAreBookedTheirWay();
    void partsOfOneHandoverAreReceiptsOfTheirOwn();
    void onePartThatMayNotBeKeepsAllOut();
    void chequeStandsInTheRegisterAndOnItsAccount();
    void sameSayadNumberIsRefusedWhileTheChequeLives();
    void recordsAreLockedInOneOrderAndCountedAnew();
    void voidReceiptKeepsItsRowAndEmptiesItsDocument();
    void secondDeskIsToldWhoMadeItVoid();
    void whatCameWithOneChequeIsMadeVoidTogether();
    void chequeOnItsWayKeepsItsReceipt();
    void receiptOfAnEarlierYearIsReversed();
    void receiptWithoutDocumentIsTakenBackWithoutOne();
    void chequeThatDoesNotFitIsRefusedByField_data();
    void chequeThatDoesNotFitIsRefusedByField();
    void severalAreMadeVoidAllOrNone();
    void withoutItsOwnerNothingIsMadeVoid();
    void reasonRightAndOpenBooksAreNeeded();
    void deactivatedAccountIsRefused();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    ReceiptPosting::Handover handover(double amount) const
    {
        return {.personID = m_person, .date = day(2026, 11, 20), .account = Accounts::cash, .parts = {{amount, u"شرح"_s}}};
    }
    ReceiptPosting::Handover byCheque(const QString &sayad) const
    {
        ReceiptPosting::Handover handover = this->handover(500);
        handover.method = CTblReceipts::cheque;
        handover.cheque = Cheque{.sayad = sayad, .number = u"۱۲۳"_s, .bank = u"ملت"_s, .due = day(2027, 1, 5)};
        return handover;
    }
    static ReceiptPosting::Part part(double amount, int record)
    {
        return {amount, u"بابت"_s, {.recordKind = ownedKind, .recordID = record, .what = ReceiptPurpose::Price, .text = u"رکورد"_s}};
    }
    QString refusal(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const KAccountingError &error) {
            return error.userMessage();
        }
        return {};
    }
    // Debit less credit of an account, over valid documents.
    double balance(int account)
    {
        return m_office.database
            .value(u"SELECT IFNULL(SUM(d.dBed-d.dBes),0) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear WHERE "
                   "h.iStatus=0 AND d.iHesabMoeenCode=%1"_s.arg(account))
            .toDouble();
    }

    TestOffice m_office;
    NotingOwner m_owner;
    int m_person = 0;
};

void TestReceiptPosting::initTestCase()
{
    m_person = m_office.addPerson(u"مریم احمدی"_s);
}

void TestReceiptPosting::init()
{
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->SetFiscalYear(firstYear);
    GetDBSetting()->SetFiscalYearOpeningDate(day(2000, 1, 1));
    GetDBSetting()->SetFiscalYearClosingDate(day(2100, 1, 1));
    GetDBSetting()->Login(m_office.admin);
    for (const char *table : {"Receipts", "Documents", "Docs", "Cheques"})
        m_office.database.run(u"DELETE FROM %1"_s.arg(QLatin1String(table)));
    m_office.database.run(u"UPDATE HesabMoeen SET iStatus=0"_s);
    m_owner.gone = 0;
    m_owner.take();
}

void TestReceiptPosting::receiptAndPaymentAreBookedTheirWay()
{
    ReceiptPosting::save(handover(700));
    ReceiptPosting::Handover paid = handover(200);
    paid.kind = CTblReceipts::paid;
    ReceiptPosting::save(paid);
    QCOMPARE(balance(Accounts::cash), 500.0);
    QCOMPARE(balance(Accounts::persons), -500.0);
    QCOMPARE(value("SELECT GROUP_CONCAT(iKind ORDER BY iNum) FROM Documents"),
             u"%1,%2"_s.arg(Accounts::documentKindReceipt).arg(Accounts::documentKindPayment));
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindPayment)), u"1/0/0"_s);
}

void TestReceiptPosting::partsOfOneHandoverAreReceiptsOfTheirOwn()
{
    ReceiptPosting::Handover handover = this->handover(0);
    handover.parts = {part(300, 5), {200, u"بقیه"_s}};
    const QList<ReceiptPosting::Posted> posted = ReceiptPosting::save(handover);
    QCOMPARE(posted.size(), 2);
    QVERIFY(posted.at(0).docNum != posted.at(1).docNum);
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',dAmount,iTable,iRecordID,iFor,IFNULL(sFor,'')) ORDER BY iID) FROM Receipts"),
             u"300/77/5/3/رکورد,200/0/0/0/"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"2/0/0"_s);
}

void TestReceiptPosting::onePartThatMayNotBeKeepsAllOut()
{
    ReceiptPosting::Handover handover = byCheque(u"1234567890123456"_s);
    handover.parts = {part(300, 5), part(200, 6)};
    m_owner.gone = 6;
    QCOMPARE(refusal([&] { ReceiptPosting::save(handover); }), u"رفته است."_s);
    handover.parts = {part(300, 5), {200, QString(), {.require = [] { throw KAccountingError(u"نه"_s); }}}};
    QCOMPARE(refusal([&] { ReceiptPosting::save(handover); }), u"نه"_s);
    QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Receipts)+(SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM Cheques)"), u"0"_s);
}

void TestReceiptPosting::chequeStandsInTheRegisterAndOnItsAccount()
{
    const ReceiptPosting::Posted posted = ReceiptPosting::save(byCheque(u"۱۲۳۴ ۵۶۷۸ ۹۰۱۲ ۳۴۵۶"_s)).constFirst();
    QVERIFY(posted.chequeID > 0);
    QCOMPARE(value("SELECT CONCAT_WS('/',sSayad,sNumber,sBank,dAmount,iState,iKind) FROM Cheques"), u"1234567890123456/123/ملت/500/0/0"_s);
    QCOMPARE(balance(Accounts::chequesInHand), 500.0);
    QCOMPARE(balance(Accounts::persons), -500.0);
    ReceiptPosting::Handover given = byCheque(u"1234567890123457"_s);
    given.kind = CTblReceipts::paid;
    ReceiptPosting::save(given);
    QCOMPARE(balance(Accounts::chequesPayable), -500.0);
    QCOMPARE(balance(Accounts::persons), 0.0);
}

void TestReceiptPosting::sameSayadNumberIsRefusedWhileTheChequeLives()
{
    const int first = ReceiptPosting::save(byCheque(u"1234567890123456"_s)).constFirst().receiptID;
    const QString refused = refusal([&] { ReceiptPosting::save(byCheque(u"1234567890123456"_s)); });
    QVERIFY2(refused.contains(u"مریم احمدی"_s), qPrintable(refused));
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"1"_s);
    ReceiptPosting::makeVoid(first, u"اشتباه"_s);
    QCOMPARE(refusal([&] { ReceiptPosting::save(byCheque(u"1234567890123456"_s)); }), QString());
}

void TestReceiptPosting::recordsAreLockedInOneOrderAndCountedAnew()
{
    ReceiptPosting::Handover handover = this->handover(0);
    handover.parts = {part(300, 9), part(200, 4)};
    const int first = ReceiptPosting::save(handover).constFirst().receiptID;
    QCOMPARE(m_owner.take(), (QStringList{u"lock 4"_s, u"lock 9"_s, u"300 of 9 is معتبر"_s, u"200 of 4 is معتبر"_s}));
    m_owner.gone = 9;
    ReceiptPosting::makeVoid(first, u"اشتباه"_s);
    QCOMPARE(m_owner.take(), (QStringList{u"lock 9"_s, u"300 of 9 is باطل"_s}));
}

void TestReceiptPosting::voidReceiptKeepsItsRowAndEmptiesItsDocument()
{
    const int receipt = ReceiptPosting::save(handover(700)).constFirst().receiptID;
    ReceiptPosting::makeVoid(receipt, u"  مبلغ اشتباه بود "_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',iStatus,sVoidReason,dAmount,iVoidUserID>0,dateVoid IS NOT NULL,iVoidDocNum) FROM Receipts"),
             u"1/مبلغ اشتباه بود/700/1/1/0"_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',COUNT(*),MAX(iStatus),(SELECT COUNT(*) FROM Docs)) FROM Documents"), u"1/1/0"_s);
}

void TestReceiptPosting::secondDeskIsToldWhoMadeItVoid()
{
    const int receipt = ReceiptPosting::save(handover(700)).constFirst().receiptID;
    ReceiptPosting::makeVoid(receipt, u"اول"_s);
    const QString told = refusal([&] { ReceiptPosting::makeVoid(receipt, u"دوم"_s); });
    QVERIFY2(told.contains(u"admin"_s) || told.contains(u"مدیر"_s), qPrintable(told));
    QCOMPARE(value("SELECT sVoidReason FROM Receipts"), u"اول"_s);
    QVERIFY(!refusal([&] { ReceiptPosting::makeVoid(receipt + 1000, u"نیست"_s); }).isEmpty());
}

void TestReceiptPosting::whatCameWithOneChequeIsMadeVoidTogether()
{
    ReceiptPosting::Handover handover = byCheque(u"1234567890123456"_s);
    handover.parts = {part(300, 5), part(200, 6)};
    const QList<ReceiptPosting::Posted> posted = ReceiptPosting::save(handover);
    m_owner.take();
    ReceiptPosting::makeVoid(posted.at(1).receiptID, u"اشتباه"_s);
    QCOMPARE(m_owner.take(), (QStringList{u"lock 5"_s, u"lock 6"_s, u"300 of 5 is باطل"_s, u"200 of 6 is باطل"_s}));
    QCOMPARE(value("SELECT CONCAT_WS('/',SUM(iStatus=1),COUNT(*),(SELECT iState FROM Cheques)) FROM Receipts"), u"2/2/6"_s);
    QCOMPARE(balance(Accounts::chequesInHand), 0.0);
}

void TestReceiptPosting::chequeOnItsWayKeepsItsReceipt()
{
    const int receipt = ReceiptPosting::save(byCheque(u"1234567890123456"_s)).constFirst().receiptID;
    m_office.database.run(u"UPDATE Cheques SET iState=1"_s);
    const QString told = refusal([&] { ReceiptPosting::makeVoid(receipt, u"اشتباه"_s); });
    QVERIFY2(told.contains(u"در جریان وصول"_s), qPrintable(told));
    QCOMPARE(value("SELECT iStatus FROM Receipts"), u"0"_s);
}

void TestReceiptPosting::receiptOfAnEarlierYearIsReversed()
{
    const int receipt = ReceiptPosting::save(handover(700)).constFirst().receiptID;
    GetDBSetting()->SetFiscalYear(firstYear + 1);
    GetDBSetting()->SetFiscalYearOpeningDate(day(2027, 3, 21));
    GetDBSetting()->SetFiscalYearClosingDate(day(2028, 3, 19));
    ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
    // The closed year is as it was; the new one takes the money back on its nearest day.
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
    QCOMPARE(m_office.database.value(booksAgree(Accounts::documentKindReversal)), u"1/0/0"_s);
    QCOMPARE(balance(Accounts::cash), 0.0);
    QCOMPARE(balance(Accounts::persons), 0.0);
    QCOMPARE(value("SELECT CONCAT_WS('/',r.iStatus,r.iVoidFiscalYear,DATE(h.date)) FROM Receipts r JOIN Documents h ON h.iNum=r.iVoidDocNum AND "
                   "h.iFiscalYear=r.iVoidFiscalYear"),
             u"1/1406/2027-03-21"_s);
}

// From before each receipt had a document.
void TestReceiptPosting::receiptWithoutDocumentIsTakenBackWithoutOne()
{
    const int receipt = ReceiptPosting::save(handover(700)).constFirst().receiptID;
    m_office.database.run(u"UPDATE Receipts SET iDocNum=0,iFiscalYear=%1"_s.arg(firstYear - 1));
    ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',iStatus,iVoidDocNum) FROM Receipts"), u"1/0"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"1"_s);
}

void TestReceiptPosting::chequeThatDoesNotFitIsRefusedByField_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("isRefused");
    for (const auto &[field, longest] : {std::pair(u"sNumber"_s, 30), std::pair(u"sBank"_s, 100), std::pair(u"sBranch"_s, 100), std::pair(u"sBranchCode"_s, 20), std::pair(u"sDrawer"_s, 200)}) {
        QTest::addRow("%s that fits", qPrintable(field)) << field << longest << false;
        QTest::addRow("%s one longer", qPrintable(field)) << field << longest + 1 << true;
    }
}

void TestReceiptPosting::chequeThatDoesNotFitIsRefusedByField()
{
    QFETCH(QString, field);
    QFETCH(int, length);
    QFETCH(bool, isRefused);
    ReceiptPosting::Handover handover = byCheque(u"1234567890123456"_s);
    const QString text(length, u'7');
    const std::pair<QString, QString *> fields[] = {{u"sNumber"_s, &handover.cheque->number}, {u"sBank"_s, &handover.cheque->bank}, {u"sBranch"_s, &handover.cheque->branch}, {u"sBranchCode"_s, &handover.cheque->branchCode}, {u"sDrawer"_s, &handover.cheque->drawer}};
    for (const auto &[name, value] : fields) {
        if (name == field)
            *value = text;
    }
    QString column;
    try {
        ReceiptPosting::save(handover);
    } catch (const FieldRefused &refused) {
        column = refused.column();
    }
    QCOMPARE(column, isRefused ? field : QString());
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Cheques WHERE %1='%2'"_s.arg(field, text)), isRefused ? u"0"_s : u"1"_s);
}

void TestReceiptPosting::severalAreMadeVoidAllOrNone()
{
    const int first = ReceiptPosting::save(handover(300)).constFirst().receiptID;
    const int second = ReceiptPosting::save(handover(200)).constFirst().receiptID;
    ReceiptPosting::makeVoid(second, u"اشتباه"_s);
    QVERIFY(!refusal([&] { ReceiptPosting::makeVoid(QList<int>{first, second}, u"با هم"_s); }).isEmpty());
    QCOMPARE(balance(Accounts::cash), 300.0);
    const int third = ReceiptPosting::save(handover(50)).constFirst().receiptID;
    ReceiptPosting::makeVoid(QList<int>{third, first}, u"با هم"_s);
    QCOMPARE(value("SELECT CONCAT_WS('/',SUM(iStatus=1),COUNT(*)) FROM Receipts"), u"3/3"_s);
    QCOMPARE(balance(Accounts::cash), 0.0);
}

void TestReceiptPosting::withoutItsOwnerNothingIsMadeVoid()
{
    ReceiptPosting::Handover handover = this->handover(0);
    handover.parts = {part(300, 9)};
    const int receipt = ReceiptPosting::save(handover).constFirst().receiptID;
    ReceiptOwners::remove(ownedKind);
    QVERIFY(!refusal([&] { ReceiptPosting::makeVoid(receipt, u"اشتباه"_s); }).isEmpty());
    ReceiptOwners::enter(ownedKind, m_owner);
    QCOMPARE(value("SELECT iStatus FROM Receipts"), u"0"_s);
}

void TestReceiptPosting::reasonRightAndOpenBooksAreNeeded()
{
    const int receipt = ReceiptPosting::save(handover(700)).constFirst().receiptID;
    QVERIFY(!refusal([&] { ReceiptPosting::makeVoid(receipt, u"  "_s); }).isEmpty());
    GetDBSetting()->Login(m_office.clerk);
    QCOMPARE(refusal([&] { ReceiptPosting::save(handover(1)); }), KSecurity::refusalText(u"Receipts"_s, KSecurity::Write));
    QCOMPARE(refusal([&] { ReceiptPosting::makeVoid(receipt, u"اشتباه"_s); }), KSecurity::refusalText(u"Receipts"_s, KSecurity::Delete));
    GetDBSetting()->Login(m_office.admin);
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!refusal([&] { ReceiptPosting::save(handover(1)); }).isEmpty());
    QVERIFY(!refusal([&] { ReceiptPosting::makeVoid(receipt, u"اشتباه"_s); }).isEmpty());
    QCOMPARE(value("SELECT CONCAT_WS('/',COUNT(*),SUM(iStatus)) FROM Receipts"), u"1/0"_s);
}

void TestReceiptPosting::deactivatedAccountIsRefused()
{
    m_office.database.run(u"UPDATE HesabMoeen SET iStatus=1 WHERE iCode=110101"_s);
    QString column;
    try {
        ReceiptPosting::save(handover(1));
    } catch (const FieldRefused &refused) {
        column = refused.column();
    }
    QCOMPARE(column, u"iAccount"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Receipts"), u"0"_s);
}

static const RegisteredTest<TestReceiptPosting, QCoreApplication> registeredReceiptPosting;
#include "TestReceiptPosting.moc"
