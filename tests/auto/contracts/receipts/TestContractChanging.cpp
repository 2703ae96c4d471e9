// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/receipts/ContractChanging.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What money received for a contract keeps from being changed in it, and what an inactive contract leaves in the books.
class TestContractChanging : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString stored() { return value(u"SELECT CONCAT_WS('/',iStatus,iPersonFirstID,iPersonSecondID) FROM AutomobilContracts"_s); }
    void begin(bool posted = true) { m_contract = std::make_unique<PlannedContract>(*m_office, posted); }

    // What the save was refused with; empty where it was done.
    QString saved(
        int status, const std::function<void(CTblAutomobilContracts &)> &write = [](CTblAutomobilContracts &) {}) const
    {
        try {
            (void)ContractSaving::save({m_contract->key, status, write}, {}, {ContractChanging::requireAllowed});
        } catch (const ContractDeleting::MoneyReceived &received) {
            return received.userMessage();
        }
        return {};
    }

    ReceiptPurpose commission(int side) const
    {
        CTblAutomobilContracts contract;
        contract.IsRecordExist(u"iID"_s, m_contract->key);
        return ContractReceipts::commission(contract, side);
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        m_contract.reset();
        m_office.reset();
    }
    void init() { m_office->clear(); }

    void inactiveOnlyWithoutMoneyOrCheques_data()
    {
        QTest::addColumn<QString>("statement"); // %1: the contract
        QTest::addColumn<QString>("told");      // empty: it is saved
        const QString receipt = u"INSERT INTO Receipts(iTable,iRecordID,iPersonID,dAmount,iKind,iStatus) VALUES(69,%1,1,700,"_s;
        const QString cheque = u"INSERT INTO Cheques(iTable,iRecordID,dAmount,iState) VALUES(69,%1,700,"_s;
        QTest::newRow("nothing") << u"SELECT 1"_s << QString();
        QTest::newRow("received") << receipt + u"0,0)"_s << u"700 ریال دریافت شده"_s;
        QTest::newRow("paid") << receipt + u"1,0)"_s << u"700 ریال پرداخت شده"_s;
        QTest::newRow("received and void") << receipt + u"0,1)"_s << QString();
        QTest::newRow("cheque in hand") << cheque + u"0)"_s << u" 1 چک "_s;
        QTest::newRow("cheque given back") << cheque + u"4)"_s << QString();
        QTest::newRow("instalment marked as paid") << u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=1 AND iAutomobilContractID=%1"_s << u"112 ریال دریافت شده"_s;
    }

    void inactiveOnlyWithoutMoneyOrCheques()
    {
        QFETCH(QString, statement);
        QFETCH(QString, told);
        begin();
        m_office->database().run(statement.contains(u"%1"_s) ? statement.arg(m_contract->key) : statement);
        const QString refusal = saved(1);
        QVERIFY2(told.isEmpty() ? refusal.isEmpty() : refusal.contains(told), qPrintable(refusal));
        QVERIFY2(told.isEmpty() || refusal.contains(u"غیرفعال نمی‌شود"_s), qPrintable(refusal));
        QCOMPARE(stored().at(0), told.isEmpty() ? u'1' : u'0');
        QCOMPARE(m_contract->owes(m_contract->buyer), told.isEmpty() ? 100.0 : 2244.0);
    }

    // Already inactive, by an earlier release: whatever else is changed is saved.
    void inactiveOneWithMoneyIsSavedAsOne()
    {
        begin();
        m_contract->receive(1, 112);
        m_office->database().run(u"UPDATE AutomobilContracts SET iStatus=1"_s);
        QCOMPARE(saved(1), QString());
    }

    void inactiveContractHasSoldNothingUntilItIsActiveAgain()
    {
        begin();
        const QString document = value(u"SELECT CONCAT_WS('/',iDocNum,iFiscalYear) FROM AutomobilContracts"_s);
        QCOMPARE(saved(1), QString());
        QCOMPARE(m_contract->owes(m_contract->buyer), 100.0);
        QCOMPARE(m_contract->owes(m_contract->seller), 100.0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs WHERE iHesabMoeenCode IN (210681,410281,410381)"_s), u"0"_s);
        QCOMPARE(value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
        QCOMPARE(saved(0), QString());
        QCOMPARE(m_contract->owes(m_contract->buyer), 2244.0);
        QCOMPARE(m_contract->owes(m_contract->seller), 100.0 - 2000);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iDocNum,iFiscalYear) FROM AutomobilContracts"_s), document);
        QCOMPARE(value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
    }

    void sideWithMoneyKeepsItsPerson_data()
    {
        QTest::addColumn<QString>("columns"); // of the buyer's receipt of 60
        QTest::addColumn<int>("side");        // that gets another person
        QTest::addColumn<bool>("refused");
        QTest::newRow("commission") << u"iFor=1"_s << 2 << true;
        QTest::newRow("instalment") << u"iFor=2"_s << 2 << true;
        QTest::newRow("price") << u"iFor=3"_s << 2 << true;
        QTest::newRow("paid back") << u"iKind=1"_s << 2 << true;
        QTest::newRow("older, without a side") << u"iSide=0"_s << 2 << true;
        QTest::newRow("void") << u"iStatus=1"_s << 2 << false;
        QTest::newRow("on account") << u"iFor=0"_s << 2 << false;
        QTest::newRow("of another contract") << u"iRecordID=iRecordID+1"_s << 2 << false;
        QTest::newRow("the other side") << u"iFor=1"_s << 1 << false;
        QTest::newRow("already from the new person") << u"iPersonID=(SELECT MAX(iID) FROM Persons)"_s << 2 << false;
    }

    void sideWithMoneyKeepsItsPerson()
    {
        QFETCH(QString, columns);
        QFETCH(int, side);
        QFETCH(bool, refused);
        begin();
        const int receipt = m_contract->receive(1, 60, commission(2));
        const int other = m_office->addPerson(u"نادر"_s, u"نوری"_s);
        m_office->database().run(u"UPDATE Receipts SET %1 WHERE iID=%2"_s.arg(columns).arg(receipt));
        const QString before = stored();
        const QString refusal = saved(0, [side, other](CTblAutomobilContracts &contract) { contract.*(ContractSide::of(side).personID) = other; });
        QCOMPARE(!refusal.isEmpty(), refused);
        QCOMPARE(stored() == before, refused);
        for (const QString &said : {u"مریم کریمی"_s, u"60 ریال"_s, u"خریدار قرارداد"_s})
            QVERIFY2(!refused || refusal.contains(said), qPrintable(refusal));
    }

    void whatIsNoPersonOrStateIsSavedWithMoneyToo()
    {
        begin();
        m_contract->receive(1, 60, commission(2));
        QCOMPARE(saved(0, [](CTblAutomobilContracts &contract) { contract.m_dCommission = 200; }), QString());
        QCOMPARE(value(u"SELECT dCommission FROM AutomobilContracts"_s), u"200"_s);
    }

    void voidReceiptLetsThePersonGo()
    {
        begin();
        const int receipt = m_contract->receive(1, 60, commission(2));
        const auto typedByHand = [](CTblAutomobilContracts &contract) { contract.m_iPersonSecondID = 0; };
        QVERIFY(!saved(0, typedByHand).isEmpty());
        ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
        QCOMPARE(saved(0, typedByHand), QString());
    }

    void typeOfASaleInTheBooksStaysWhileItsMoneyStands_data()
    {
        QTest::addColumn<bool>("posted");
        QTest::addColumn<bool>("received"); // or only the commission
        QTest::addColumn<bool>("refused");
        QTest::newRow("an instalment was received") << true << true << true;
        QTest::newRow("only a commission was received") << true << false << false;
        QTest::newRow("the books do not hold the sale") << false << true << false;
    }

    void typeOfASaleInTheBooksStaysWhileItsMoneyStands()
    {
        QFETCH(bool, posted);
        QFETCH(bool, received);
        QFETCH(bool, refused);
        begin(posted);
        const int receipt = m_contract->receive(1, 50, received ? m_contract->purpose(1) : commission(2));
        const auto sale = [](CTblAutomobilContracts &contract) { contract.m_iContractType = 0; };
        const double owed = m_contract->owes(m_contract->buyer);
        QCOMPARE(!saved(0, sale).isEmpty(), refused);
        if (refused) {
            QCOMPARE(m_contract->owes(m_contract->buyer), owed);
            ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
            QCOMPARE(saved(0, sale), QString());
        }
        QCOMPARE(value(u"SELECT iContractType FROM AutomobilContracts"_s), u"0"_s);
        QCOMPARE(m_contract->balance(Accounts::carSaleClearing), 0.0);
    }
};

static const RegisteredTest<TestContractChanging, KApplication> registeredContractChanging;
#include "TestContractChanging.moc"
