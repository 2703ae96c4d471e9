// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ReceiptLinking.h"

#include "auto/contracts/receipts/ContractReceipts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/CMySQLException.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/RegisteredTest.h"

#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// The upgrade of receipts that do not say what they are for.
class TestReceiptLinking : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void run(const QString &statement) { m_office->database().run(statement); }

    // As the programs before received: on account, and the instalment marked.
    int receivedOnAccount(int person, double amount, const QString &text)
    {
        return ReceiptPosting::save({.personID = person, .date = GetDBSetting()->GetDBServerDate(), .account = 110101, .parts = {{amount, text, {}}}})
            .constFirst()
            .receiptID;
    }
    int receivedInstalment(int number, double amount)
    {
        run(u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=%1"_s.arg(number));
        return receivedOnAccount(m_contract->buyer, amount, u"بابت قسط شماره %1 قرارداد شماره 1"_s.arg(number));
    }

    void upgrade()
    {
        run(u"DELETE FROM Properties WHERE sSection='Schema' AND sKey='ReceiptsLinked'"_s);
        ReceiptLinking::run();
    }
    QString stored(int receipt)
    {
        return value(u"SELECT CONCAT_WS('|',iTable,iPaymentID,iFor,iSide,IFNULL(sFor,'')) FROM Receipts WHERE iID=%1"_s.arg(receipt));
    }
    QString mark(int number) { return value(u"SELECT iStatus FROM AutomobilPayments WHERE iNum=%1"_s.arg(number)); }

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
        m_contract = std::make_unique<PlannedContract>(*m_office);
    }

    void freshOfficeIsMarkedAtOnce()
    {
        QCOMPARE(value(u"SELECT sValue FROM Properties WHERE sSection='Schema' AND sKey='ReceiptsLinked'"_s), u"1"_s);
    }

    void commissionIsLinkedWithItsSide()
    {
        run(u"UPDATE AutomobilContracts SET iNum=45"_s);
        const int seller = receivedOnAccount(m_contract->seller, 60, u"بابت کمسیون قرارداد شماره 45"_s);
        const int buyer = receivedOnAccount(m_contract->buyer, 70, u"بابت کمسیون قرارداد شماره 45"_s);
        const int code = receivedOnAccount(m_contract->buyer, 80, u"بابت کمسیون قرارداد شماره 1"_s);
        upgrade();
        QCOMPARE(stored(seller), u"69|0|1|1|کمیسیون قرارداد 45، فروشنده"_s);
        QCOMPARE(stored(buyer), u"69|0|1|2|کمیسیون قرارداد 45، خریدار"_s);
        QCOMPARE(stored(code), u"0|0|0|0|"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts WHERE iRecordID=%1"_s.arg(m_contract->key)), u"2"_s);
    }

    void instalmentIsLinkedAndStaysPaid()
    {
        const int receipt = receivedInstalment(3, 112);
        upgrade();
        QCOMPARE(stored(receipt), u"69|%1|2|2|قسط 3 قرارداد 1"_s.arg(m_contract->row(3).id));
        QCOMPARE(mark(3), u"1"_s);
        QCOMPARE(m_contract->row(3).received, 112.0);
        // From now on its receipt decides.
        ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
        QCOMPARE(mark(3), u"0"_s);
    }

    void whatIsInDoubtStaysOnAccount_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<double>("amount");
        QTest::newRow("another amount") << QString() << 100.;
        QTest::newRow("its document is no receipt's") << u"UPDATE Documents SET iKind=1"_s << 112.;
        QTest::newRow("its document is of another amount") << u"UPDATE Docs SET dBed=dBed*2,dBes=dBes*2"_s << 112.;
        QTest::newRow("its document is gone") << u"DELETE FROM Documents"_s << 112.;
        QTest::newRow("it is void") << u"UPDATE Receipts SET iStatus=1"_s << 112.;
        QTest::newRow("the instalment is not marked") << u"UPDATE AutomobilPayments SET iStatus=0"_s << 112.;
        QTest::newRow("two contracts have the code") << u"UPDATE AutomobilContracts SET iCode=1"_s << 112.;
        QTest::newRow("the contract was never confirmed") << u"UPDATE AutomobilContracts SET iDocNum=0"_s << 112.;
        QTest::newRow("somebody else buys") << u"UPDATE AutomobilContracts SET iPersonSecondID=iPersonFirstID"_s << 112.;
    }

    void whatIsInDoubtStaysOnAccount()
    {
        QFETCH(QString, change);
        QFETCH(double, amount);
        if (change.contains(u"iCode"_s)) {
            const int other = m_office->addContract([this](CTblAutomobilContracts &contract) {
                contract.m_iCode = 2;
                contract.m_iDocNum = 99;
                contract.m_iPersonSecondID = m_contract->buyer;
            });
            run(u"INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,dAmount,iStatus) VALUES(0,%1,%2,3,112,1)"_s.arg(other).arg(m_contract->buyer));
        }
        const int receipt = receivedInstalment(3, amount);
        if (!change.isEmpty())
            run(change);
        const QString before = m_contract->plan();
        upgrade();
        QCOMPARE(stored(receipt), u"0|0|0|0|"_s);
        QCOMPARE(m_contract->plan(), before);
    }

    void receiptsThatNamedTheirContractGetSideAndWords()
    {
        const int part = m_contract->receive(3, 50);
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, m_contract->key));
        const int commission = ReceiptPosting::save({.personID = m_contract->seller,
                                                     .date = GetDBSetting()->GetDBServerDate(),
                                                     .account = 110101,
                                                     .parts = {{60, u"a"_s, ContractReceipts::commission(contract, 1)}}})
                                   .constFirst()
                                   .receiptID;
        const QString parts = stored(part);
        const QString commissions = stored(commission);
        run(u"UPDATE Receipts SET iSide=0,sFor=NULL,iFor=IF(iPaymentID>0,2,1)"_s);
        run(u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=3"_s);
        upgrade();
        QCOMPARE(stored(part), parts);
        QCOMPARE(stored(commission), commissions);
        // A receipt of a part used to mark the whole.
        QCOMPARE(mark(3), u"0"_s);
        QCOMPARE(m_contract->row(3).state().rest, 62.0);
    }

    void secondRunChangesNothing()
    {
        receivedInstalment(3, 112);
        upgrade();
        const int later = receivedOnAccount(m_contract->seller, 60, u"بابت کمسیون قرارداد شماره 1"_s);
        ReceiptLinking::run();
        QCOMPARE(stored(later), u"0|0|0|0|"_s);
        const QString all = value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',iID,iTable,iRecordID,iPaymentID,iFor,iSide,IFNULL(sFor,'')) ORDER BY iID) FROM Receipts WHERE iTable>0"_s);
        upgrade();
        QCOMPARE(value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',iID,iTable,iRecordID,iPaymentID,iFor,iSide,IFNULL(sFor,'')) ORDER BY iID) FROM Receipts WHERE iPaymentID>0"_s), all);
    }

    void runThatIsCutOffIsMadeAgain()
    {
        const int first = receivedInstalment(3, 112);
        const int second = receivedInstalment(4, 112);
        run(u"CREATE TRIGGER refuseLink BEFORE UPDATE ON Receipts FOR EACH ROW IF NEW.iID=%1 THEN SIGNAL SQLSTATE '45000'; END IF"_s.arg(second));
        {
            const auto drop = qScopeGuard([this] { run(u"DROP TRIGGER refuseLink"_s); });
            QVERIFY_THROWS_EXCEPTION(CMySQLException, upgrade());
        }
        QCOMPARE(stored(first), u"0|0|0|0|"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Properties WHERE sKey='ReceiptsLinked'"_s), u"0"_s);
        ReceiptLinking::run();
        QVERIFY(stored(first).startsWith(u"69|"_s) && stored(second).startsWith(u"69|"_s));
    }
};

static const RegisteredTest<TestReceiptLinking, KApplication> registeredReceiptLinking;
#include "TestReceiptLinking.moc"
