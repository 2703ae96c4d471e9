// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// What counts as received for a contract, and how it is undone.
class TestContractReceipts : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PostedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    QList<ContractReceipts::Entry> entries() const
    {
        CTblAutomobilContracts contract;
        return ContractReceipts::list(m_contract->load(contract));
    }
    double sum() const { return ContractReceipts::sum(entries()); }

    ReceiptPurpose commissionOf(int person) const
    {
        CTblAutomobilContracts contract;
        return ContractReceipts::commission(m_contract->load(contract), person == m_contract->seller ? 1 : 2);
    }

    int addInstalment(int number, double amount, bool paid)
    {
        m_office->database().run(u"INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,dAmount,iStatus,date) "
                                 "VALUES(%1,%2,%3,%4,%5,%6,NOW())"_s.arg(GetDBSetting()->GetDepartmentID())
                                     .arg(m_contract->key)
                                     .arg(m_contract->buyer)
                                     .arg(number)
                                     .arg(amount)
                                     .arg(paid ? 1 : 0));
        return value(u"SELECT MAX(iID) FROM AutomobilPayments"_s).toInt();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        m_contract.reset();
        m_office.reset();
    }
    void init()
    {
        m_office->clear();
        m_contract = std::make_unique<PostedContract>(*m_office);
    }

    void nothingIsReceivedAtFirst() { QVERIFY(entries().isEmpty()); }

    void commissionOfBothPartiesCounts()
    {
        m_contract->receive(m_contract->seller, 500, u"a"_s, commissionOf(m_contract->seller));
        m_contract->receive(m_contract->buyer, 300, u"b"_s, commissionOf(m_contract->buyer));
        QCOMPARE(entries().size(), 2);
        QCOMPARE(sum(), 800.0);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(DISTINCT CONCAT_WS('/',iTable,iRecordID,iPaymentID)) FROM Receipts"_s),
                 u"69/%1/0"_s.arg(m_contract->key));
    }

    // What names no record is on account, whatever its text says.
    void receiptOnAccountDoesNotCount()
    {
        m_contract->receive(m_contract->seller, 500, u"بابت کمسیون قرارداد شماره 1"_s);
        QVERIFY(entries().isEmpty());
    }

    void receiptSaysForWhatAndOfWhichSideItIs_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<QString>("stored");
        QTest::newRow("seller") << 1 << u"1/1/کمیسیون قرارداد 45، فروشنده"_s;
        QTest::newRow("buyer") << 2 << u"1/2/کمیسیون قرارداد 45، خریدار"_s;
    }

    void receiptSaysForWhatAndOfWhichSideItIs()
    {
        QFETCH(int, side);
        QFETCH(QString, stored);
        m_office->database().run(u"UPDATE AutomobilContracts SET iNum=45"_s);
        const int person = side == 1 ? m_contract->seller : m_contract->buyer;
        m_contract->receive(person, 500, u"a"_s, commissionOf(person));
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iFor,iSide,sFor) FROM Receipts"_s), stored);
        const ContractReceipts::Entry entry = entries().constFirst();
        QCOMPARE(entry.side, side);
        QCOMPARE(entry.method, int(CTblReceipts::cash));
        QVERIFY(entry.counts());
    }

    // Neither a payment nor what a bounced cheque no longer pays is money received.
    void whatIsReceivedIsToldFromWhatIsPaid()
    {
        for (const double amount : {500.0, 300.0, 200.0})
            m_contract->receive(m_contract->seller, amount, u"a"_s, commissionOf(m_contract->seller));
        m_office->database().run(u"UPDATE Receipts SET iKind=1 WHERE dAmount=300"_s);
        m_office->database().run(u"UPDATE Receipts SET iStatus=2 WHERE dAmount=200"_s);
        QCOMPARE(entries().size(), 3);
        QCOMPARE(sum(), 500.0);
        QCOMPARE(ContractReceipts::sum(entries(), CTblReceipts::paid), 300.0);
    }

    void paidInstalmentWithoutAReceiptCountsOnce()
    {
        addInstalment(1, 112, true);
        const int second = addInstalment(2, 112, false);
        addInstalment(3, 112, false);
        m_contract->receive(m_contract->buyer, 100, u"a"_s, InstalmentReceiving::purpose(m_contract->key, second, 2));
        QCOMPARE(entries().size(), 2);
        QCOMPARE(sum(), 212.0);
    }

    // --- Void ---

    void voidReceiptKeepsItsRowAndNumberAndIsNotReceived()
    {
        const int num = m_contract->receive(m_contract->seller, 500, u"a"_s, commissionOf(m_contract->seller));
        ContractReceipts::makeVoid(m_contract->key, entries().constFirst(), u" دوبار ثبت شده "_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iDocNum,dAmount,iStatus,iVoidUserID,sVoidReason,dateVoid IS NULL) FROM Receipts"_s),
                 u"%1/500/1/%2/دوبار ثبت شده/0"_s.arg(num).arg(m_office->adminID()));
        QCOMPARE(value(u"SELECT CONCAT_WS('/',h.iStatus,(SELECT COUNT(*) FROM Docs d WHERE d.iDocNum=h.iNum)) FROM Documents h WHERE h.iNum=%1"_s.arg(num)),
                 u"1/0"_s);
        QCOMPARE(sum(), 0.0);
        QCOMPARE(entries().size(), 1);
        QVERIFY(entries().constFirst().isVoid());
    }

    void voidReceiptMakesItsInstalmentUnpaid()
    {
        const int payment = addInstalment(1, 112, false);
        m_contract->receive(m_contract->buyer, 112, u"a"_s, InstalmentReceiving::purpose(m_contract->key, payment, 1));
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments"_s), u"1"_s);
        ContractReceipts::makeVoid(m_contract->key, entries().constFirst(), u"اشتباه"_s);
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments"_s), u"0"_s);
        // It can be received anew.
        m_contract->receive(m_contract->buyer, 112, u"a"_s, InstalmentReceiving::purpose(m_contract->key, payment, 1));
        QCOMPARE(sum(), 112.0);
    }

    void paidInstalmentWithoutAReceiptBecomesUnpaid()
    {
        addInstalment(1, 112, true);
        const auto entry = entries().constFirst();
        ContractReceipts::makeVoid(m_contract->key, entry, u"اشتباه"_s);
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments"_s), u"0"_s);
        QVERIFY(!refusalOf([&] { ContractReceipts::makeVoid(m_contract->key, entry, u"اشتباه"_s); }).isEmpty());
        // Why, by whom and when is known, once.
        const QString note = value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iTable,iRecordID,iPaymentID=(SELECT iID FROM AutomobilPayments),iUserID,date IS NULL,sNote)) FROM FollowUps WHERE iRecordID=%1"_s.arg(m_contract->key));
        QCOMPARE(note, u"69/%1/1/%2/0/پرداخت بدون رسید باطل شد: اشتباه"_s.arg(m_contract->key).arg(GetDBSetting()->GetUserID()));
    }

    void paidInstalmentWithoutAReceiptStaysSoWithoutReasonOrRight_data()
    {
        QTest::addColumn<QString>("reason");
        QTest::addColumn<bool>("may");
        QTest::newRow("no reason") << u" "_s << true;
        QTest::newRow("no right") << u"اشتباه"_s << false;
    }

    void paidInstalmentWithoutAReceiptStaysSoWithoutReasonOrRight()
    {
        QFETCH(QString, reason);
        QFETCH(bool, may);
        addInstalment(1, 112, true);
        const auto entry = entries().constFirst();
        if (!may)
            m_office->logInAs(u"clerk"_s, u"Receipts"_s, KSecurity::allRights & ~KSecurity::Delete);
        const QString refusal = refusalOf([&] { ContractReceipts::makeVoid(m_contract->key, entry, reason); });
        QVERIFY2(may ? refusal.contains(u"دلیل"_s) : refusal == KSecurity::refusalText(u"Receipts"_s, KSecurity::Delete), qPrintable(refusal));
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments"_s), u"1"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps WHERE iRecordID=%1"_s.arg(m_contract->key)), u"0"_s);
    }

    // A list that shows it as paid without a receipt may be older than the receipt.
    void instalmentReceivedMeanwhileStaysPaid()
    {
        const int payment = addInstalment(1, 112, true);
        const auto entry = entries().constFirst();
        ContractReceipts::makeVoid(m_contract->key, entry, u"اشتباه"_s);
        m_contract->receive(m_contract->buyer, 112, u"a"_s, InstalmentReceiving::purpose(m_contract->key, payment, 1));
        QVERIFY(!refusalOf([&] { ContractReceipts::makeVoid(m_contract->key, entry, u"اشتباه"_s); }).isEmpty());
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments"_s), u"1"_s);
    }

    void instalmentOfAVoidContractIsNotReceived()
    {
        const int payment = addInstalment(1, 112, false);
        m_office->database().run(u"UPDATE AutomobilContracts SET iStatus=1 WHERE iID=%1"_s.arg(m_contract->key));
        const auto receive = [&] { m_contract->receive(m_contract->buyer, 112, u"a"_s, InstalmentReceiving::purpose(m_contract->key, payment, 1)); };
        QVERIFY(!refusalOf(receive).isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }

    void twiceIsOnceAndSaysWhoWasFirst()
    {
        m_contract->receive(m_contract->seller, 500, u"a"_s, commissionOf(m_contract->seller));
        const auto entry = entries().constFirst();
        ContractReceipts::makeVoid(m_contract->key, entry, u"اول"_s);
        const QString told = refusalOf([&] { ContractReceipts::makeVoid(m_contract->key, entry, u"دوم"_s); });
        QVERIFY2(told.contains(u"«مدیر»"_s), qPrintable(told));
        QCOMPARE(value(u"SELECT sVoidReason FROM Receipts"_s), u"اول"_s);
    }

    void whatIsNotToBeVoidIsRefusedAndStays_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no reason") << u"DO 0"_s << u" "_s;
        QTest::newRow("in a closed database") << u"INSERT INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s << u"اشتباه"_s;
    }

    void whatIsNotToBeVoidIsRefusedAndStays()
    {
        QFETCH(QString, statement);
        QFETCH(QString, reason);
        m_contract->receive(m_contract->seller, 500, u"a"_s, commissionOf(m_contract->seller));
        const auto entry = entries().constFirst();
        m_office->database().run(statement);
        QVERIFY(!refusalOf([&] { ContractReceipts::makeVoid(m_contract->key, entry, reason); }).isEmpty());
        QCOMPARE(value(u"SELECT SUM(iStatus) FROM Receipts"_s), u"0"_s);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
    }

    void failureWhileVoidingLeavesReceiptDocumentAndInstalment()
    {
        const int payment = addInstalment(1, 112, false);
        m_contract->receive(m_contract->buyer, 112, u"a"_s, InstalmentReceiving::purpose(m_contract->key, payment, 1));
        m_office->database().run(u"CREATE TRIGGER refuseUnpaid BEFORE UPDATE ON AutomobilPayments FOR EACH ROW SIGNAL SQLSTATE '45000'"_s);
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER refuseUnpaid"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, ContractReceipts::makeVoid(m_contract->key, entries().constFirst(), u"اشتباه"_s));
        QCOMPARE(sum(), 112.0);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
    }

    // --- Commission received at two desks ---

    void commissionThatAnotherDeskReceivedMeanwhileIsToldOnce()
    {
        const ReceiptPurpose here = commissionOf(m_contract->seller);
        m_contract->receive(m_contract->seller, 500, u"a"_s, commissionOf(m_contract->seller));
        const QString told = refusalOf([&] { m_contract->receive(m_contract->seller, 500, u"a"_s, here); });
        QVERIFY2(told.contains(u"«مدیر»"_s) && told.contains(u"500"_s), qPrintable(told));
        QCOMPARE(sum(), 500.0);
        // The user knows and means a second one.
        m_contract->receive(m_contract->seller, 200, u"b"_s, here);
        QCOMPARE(sum(), 700.0);
    }

    // The amount that this desk proposed may be wrong by now.
    void chargeThatAnotherDeskChangedMeanwhileIsToldOnce_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<bool>("told");
        QTest::newRow("commission") << u"dCommission=2000"_s << true;
        QTest::newRow("discount") << u"dDiscountFirst=50"_s << true;
        QTest::newRow("what it is stated to pay") << u"dPayFirst=50"_s << true;
        QTest::newRow("the other side's discount") << u"dDiscountSecond=50"_s << false;
        QTest::newRow("a note") << u"sNote1='x'"_s << false;
    }

    void chargeThatAnotherDeskChangedMeanwhileIsToldOnce()
    {
        QFETCH(QString, columns);
        QFETCH(bool, told);
        const ReceiptPurpose here = commissionOf(m_contract->seller);
        m_office->database().run(u"UPDATE AutomobilContracts SET "_s + columns);
        const auto receive = [&] { m_contract->receive(m_contract->seller, 500, u"a"_s, here); };
        const QString refusal = refusalOf(receive);
        QVERIFY2(refusal.contains(u"تغییر داده است"_s) == told, qPrintable(refusal));
        QCOMPARE(sum(), told ? 0.0 : 500.0);
        if (told)
            receive();
        QCOMPARE(sum(), 500.0);
    }

    void sideThatIsSomebodyElseByNowIsNotReceivedFrom()
    {
        const ReceiptPurpose here = commissionOf(m_contract->seller);
        m_office->database().run(u"UPDATE AutomobilContracts SET iPersonFirstID=%1"_s.arg(m_office->addPerson(u"سارا"_s, u"نوری"_s)));
        QVERIFY(!refusalOf([&] { m_contract->receive(m_contract->seller, 500, u"a"_s, here); }).isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }

    void theOtherPartysCommissionIsNobodysConcern()
    {
        const ReceiptPurpose here = commissionOf(m_contract->seller);
        m_contract->receive(m_contract->buyer, 500, u"a"_s, commissionOf(m_contract->buyer));
        m_contract->receive(m_contract->seller, 500, u"a"_s, here);
        QCOMPARE(sum(), 1000.0);
    }

    void commissionOfAContractThatIsGoneOrVoidIsNotReceived_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::newRow("gone") << u"DELETE FROM AutomobilContracts"_s;
        QTest::newRow("void") << u"UPDATE AutomobilContracts SET iStatus=1"_s;
    }

    void commissionOfAContractThatIsGoneOrVoidIsNotReceived()
    {
        QFETCH(QString, statement);
        const ReceiptPurpose here = commissionOf(m_contract->seller);
        m_office->database().run(statement);
        QVERIFY(!refusalOf([&] { m_contract->receive(m_contract->seller, 500, u"a"_s, here); }).isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }
};

static const RegisteredTest<TestContractReceipts, QApplication> registeredContractReceipts;
#include "TestContractReceipts.moc"
