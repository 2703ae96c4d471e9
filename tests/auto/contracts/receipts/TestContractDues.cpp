// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractPosting.h"
#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// What the parties of a contract owe for the commission, and what was received of it.
class TestContractDues : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PostedContract> m_contract;

    void run(const QString &statement) { m_office->database().run(statement); }

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

    void chargedIsWhatTheDocumentCharges_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<int>("side");
        QTest::addColumn<bool>("separate");
        QTest::addColumn<double>("charged");
        QTest::newRow("commission") << u"dCommission=1000"_s << 1 << false << 1000.0;
        QTest::newRow("less discount") << u"dCommission=1000,dDiscountFirst=150"_s << 1 << false << 850.0;
        QTest::newRow("with tax and duty") << u"dCommission=1000,dTax2=90,dImposition2=10"_s << 2 << false << 1100.0;
        QTest::newRow("the other side's figures do not count") << u"dCommission=1000,dTax2=90,dDiscountSecond=5"_s << 1 << false << 1000.0;
        QTest::newRow("what is stated does not count") << u"dCommission=1000,dPayFirst=7"_s << 1 << false << 1000.0;
        QTest::newRow("the showroom") << u"dCommission=1000,iPersonFirstID=0,iPersonContract1=1,dTax=50"_s << 1 << false << 0.0;
        QTest::newRow("typed by hand") << u"dCommission=1000,iPersonSecondID=0,iPersonContract2=2,dTax2=50"_s << 2 << false << 0.0;
        QTest::newRow("nothing") << u"dCommission=0"_s << 1 << false << 0.0;
        QTest::newRow("levies besides") << u"dPayFirst=900,dTax=90,dImposition=10"_s << 1 << true << 1000.0;
        QTest::newRow("levies besides, typed by hand") << u"dPayFirst=900,iPersonFirstID=0"_s << 1 << true << 0.0;
    }

    void chargedIsWhatTheDocumentCharges()
    {
        QFETCH(QString, columns);
        QFETCH(int, side);
        QFETCH(bool, separate);
        QFETCH(double, charged);
        run(u"UPDATE AutomobilContracts SET "_s + columns);
        CTblAutomobilContracts contract;
        contract.SetColumns(ContractDues::chargedColumns());
        QCOMPARE(ContractDues::charged(m_contract->load(contract), side, separate), charged);
        if (separate || charged <= 0)
            return;
        // The same as the rows of the document say.
        CTblAutomobilContracts whole;
        double ofRows = 0;
        const int person = side == 1 ? m_contract->seller : m_contract->buyer;
        for (const DocumentRow &row : ContractPosting::documentOf(m_contract->load(whole)).rows)
            ofRows += row.personID == person ? row.debit - row.credit : 0;
        QCOMPARE(ofRows, charged);
    }

    void receivedIsWhatCounts_data()
    {
        QTest::addColumn<QString>("columns"); // of the seller's receipt of 300
        QTest::addColumn<double>("seller");
        QTest::addColumn<double>("buyer");
        QTest::newRow("valid") << u"iStatus=0"_s << 300.0 << 0.0;
        QTest::newRow("void") << u"iStatus=1"_s << 0.0 << 0.0;
        QTest::newRow("its cheque bounced") << u"iStatus=2"_s << 0.0 << 0.0;
        QTest::newRow("paid back") << u"iKind=1"_s << -300.0 << 0.0;
        QTest::newRow("an instalment") << u"iFor=2,iPaymentID=9"_s << 0.0 << 0.0;
        QTest::newRow("the price") << u"iFor=3"_s << 0.0 << 0.0;
        QTest::newRow("of another contract") << u"iRecordID=iRecordID+1"_s << 0.0 << 0.0;
        QTest::newRow("of another kind of record") << u"iTable=7"_s << 0.0 << 0.0;
        QTest::newRow("without a side: by the person") << u"iSide=0"_s << 300.0 << 0.0;
        QTest::newRow("of the other side, from somebody else") << u"iSide=2"_s << 0.0 << 0.0;
        QTest::newRow("from whoever was that side before") << u"iPersonID=iPersonID+99"_s << 0.0 << 0.0;
        QTest::newRow("neither side nor party") << u"iSide=0,iPersonID=iPersonID+99"_s << 0.0 << 0.0;
    }

    void receivedIsWhatCounts()
    {
        QFETCH(QString, columns);
        CTblAutomobilContracts contract;
        m_contract->receive(m_contract->seller, 300, u"a"_s, ContractReceipts::commission(m_contract->load(contract), 1));
        run(u"UPDATE Receipts SET "_s + columns);
        QTEST(ContractDues::commission(contract, 1, false).received, "seller");
        QTEST(ContractDues::commission(contract, 2, false).received, "buyer");
        QCOMPARE(ContractDues::commission(contract, 1, false).charged, 1000.0);
    }

    void ofManyContractsOnlyThoseWithReceiptsAreThere()
    {
        CTblAutomobilContracts contract;
        m_contract->receive(m_contract->buyer, 300, u"a"_s, ContractReceipts::commission(m_contract->load(contract), 2));
        const PostedContract other(*m_office);
        QVERIFY(ContractDues::received({}).isEmpty());
        const auto received = ContractDues::received({m_contract->key, other.key});
        QCOMPARE(received.keys(), QList<int>{m_contract->key});
        QCOMPARE(received.value(m_contract->key), (ContractDues::Sides{0.0, 300.0}));
    }
};

static const RegisteredTest<TestContractDues, QApplication> registeredContractDues;
#include "TestContractDues.moc"
