// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/CTblProperties.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// A contract goes as a whole or not at all, and not while money is received for it.
class TestContractDeleting : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PostedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    // Rows of everything that a contract has.
    QString state()
    {
        QStringList counts;
        for (const char *table : {"AutomobilContracts", "Documents", "Docs", "FileDocs", "CustomFieldRecords", "AutomobilPayments"})
            counts << value(u"SELECT COUNT(*) FROM "_s + QLatin1String(table));
        return counts.join(u'/');
    }
    void deleteIt(CTblAutomobilContracts &asked) const { ContractDeleting::run(m_contract->load(asked)); }

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
        m_office->database().run(u"INSERT INTO FileDocs(iTable,iRecordID,sName) VALUES(69,%1,'a')"_s.arg(m_contract->key));
        m_office->database().run(u"INSERT INTO CustomFieldRecords(iTable,iRecordID,iFieldID) VALUES(69,%1,1)"_s.arg(m_contract->key));
        m_office->database().run(u"INSERT INTO AutomobilPayments(iAutomobilContractID) VALUES(%1),(%1)"_s.arg(m_contract->key));
        QCOMPARE(state(), u"1/1/4/1/1/2"_s);
    }

    void withoutMoneyReceivedItGoesWithItsPlan()
    {
        CTblAutomobilContracts asked;
        deleteIt(asked);
        QCOMPARE(state(), u"0/0/0/0/0/0"_s);
    }

    void failureOfAnyStatementLeavesAllAsItWas_data()
    {
        QTest::addColumn<QString>("when");
        for (const char *table : {"AutomobilContracts", "Docs", "Documents", "FileDocs", "CustomFieldRecords", "AutomobilPayments"})
            QTest::newRow(table) << u"DELETE ON "_s + QLatin1String(table);
        QTest::newRow("token of the unit") << u"INSERT ON UnitTokens"_s;
    }

    void failureOfAnyStatementLeavesAllAsItWas()
    {
        QFETCH(QString, when);
        CTblAutomobilContracts asked;
        m_contract->load(asked);
        m_office->database().run(u"CREATE TRIGGER refuse BEFORE %1 FOR EACH ROW SIGNAL SQLSTATE '45000'"_s.arg(when));
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER IF EXISTS refuse"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, ContractDeleting::run(asked));
        QCOMPARE(state(), u"1/1/4/1/1/2"_s);
        m_office->database().run(u"DROP TRIGGER refuse"_s);
        deleteIt(asked);
        QCOMPARE(state(), u"0/0/0/0/0/0"_s);
    }

    // The other desk opens the books of the next year while this one is asked.
    void ofAnotherFiscalYearItIsRefused_data()
    {
        QTest::addColumn<int>("later");
        QTest::newRow("the year before") << 1;
        QTest::newRow("a year that was set back") << -1;
    }

    void ofAnotherFiscalYearItIsRefused()
    {
        QFETCH(int, later);
        CTblAutomobilContracts asked;
        m_contract->load(asked);
        const int year = GetDBSetting()->FiscalYear();
        const auto back = qScopeGuard([year] { GetDBSetting()->SetFiscalYear(year); });
        CTblProperties::DBWriteSetting(u"FiscalYear"_s, u"iFiscalYear"_s, QString::number(year + later));
        const QString before = state();
        const QString binned = value(u"SELECT COUNT(*) FROM Bin"_s);
        QString told;
        try {
            ContractDeleting::run(asked);
        } catch (const KAccountingError &error) {
            told = error.userMessage();
        }
        QVERIFY2(told.contains(u"سال مالی %1 است و در سال مالی %2 حذف نمی‌شود"_s.arg(QString::number(year), QString::number(year + later))), qPrintable(told));
        QCOMPARE(state(), before);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Bin"_s), binned);
        CTblProperties::DBWriteSetting(u"FiscalYear"_s, u"iFiscalYear"_s, QString::number(year));
        deleteIt(asked);
        QCOMPARE(state(), u"0/0/0/0/0/0"_s);
    }

    void withMoneyReceivedItIsRefusedWithTheSum()
    {
        CTblAutomobilContracts asked;
        m_contract->load(asked);
        // The other desk receives while this one is asked.
        m_contract->receive(m_contract->seller, 1500, u"a"_s, ContractReceipts::commission(asked, 1));
        const QString before = state();
        QString told;
        try {
            ContractDeleting::run(asked);
        } catch (const ContractDeleting::MoneyReceived &received) {
            told = received.userMessage();
        }
        QVERIFY2(told.contains(u"1,500 "_s), qPrintable(told));
        QCOMPARE(state(), before);
    }

    // What keeps it: money paid for it as much as money received, and a cheque in the register, also one that bounced.
    void withMoneyPaidOrAChequeItIsRefused_data()
    {
        QTest::addColumn<QString>("statement"); // %1: the contract
        QTest::addColumn<QString>("told");      // empty: it goes
        const QString receipt = u"INSERT INTO Receipts(iTable,iRecordID,iKind,dAmount,iStatus) VALUES(69,%1,1,700,"_s;
        const QString cheque = u"INSERT INTO Cheques(iTable,iRecordID,dAmount,iState) VALUES(69,%1,700,"_s;
        QTest::newRow("paid") << receipt + u"0)"_s << u"700 ریال پرداخت شده"_s;
        QTest::newRow("paid and void") << receipt + u"1)"_s << QString();
        QTest::newRow("cheque in hand") << cheque + u"0)"_s << u" 1 چک "_s;
        QTest::newRow("cheque bounced") << cheque + u"3)"_s << u" 1 چک "_s;
        QTest::newRow("cheque given back") << cheque + u"4)"_s << QString();
        QTest::newRow("cheque void") << cheque + u"6)"_s << QString();
        QTest::newRow("cheque of another record") << QString(cheque + u"0)"_s).replace(u"69"_s, u"7"_s) << QString();
    }

    void withMoneyPaidOrAChequeItIsRefused()
    {
        QFETCH(QString, statement);
        QFETCH(QString, told);
        CTblAutomobilContracts asked;
        m_contract->load(asked);
        m_office->database().run(statement.arg(m_contract->key));
        QString refusal;
        try {
            ContractDeleting::run(asked);
        } catch (const ContractDeleting::MoneyReceived &received) {
            refusal = received.userMessage();
        }
        QVERIFY2(told.isEmpty() ? refusal.isEmpty() : refusal.contains(told), qPrintable(refusal));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), told.isEmpty() ? u"0"_s : u"1"_s);
    }

    void withItsReceiptsVoidItGoesAndTheyStay()
    {
        CTblAutomobilContracts asked;
        m_contract->load(asked);
        m_contract->receive(m_contract->seller, 1500, u"a"_s, ContractReceipts::commission(asked, 1));
        ContractReceipts::makeVoid(m_contract->key, ContractReceipts::list(asked).constFirst(), u"اشتباه"_s);
        deleteIt(asked);
        QCOMPARE(state(), u"0/1/0/0/0/0"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"1"_s);
    }

    // The document was the newest, so that its number is given again.
    void questionLeftOpenDoesNotHarmTheContractThatGotTheNumber()
    {
        CTblAutomobilContracts asked;
        const int num = m_contract->load(asked).m_iDocNum;
        CTblAutomobilContracts elsewhere;
        deleteIt(elsewhere);
        const PostedContract other(*m_office);
        CTblAutomobilContracts stands;
        QCOMPARE(other.load(stands).m_iDocNum, num);
        QVERIFY_THROWS_EXCEPTION(RowDeleting::Refused, ContractDeleting::run(asked));
        QCOMPARE(state(), u"1/1/4/0/0/0"_s);
    }

    void contractSavedMeanwhileForTheFirstTimeStays()
    {
        const int key = m_office->addContract();
        CTblAutomobilContracts asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, key));
        QVERIFY(ContractSaving::save({key, 0, [](CTblAutomobilContracts &) {}}).docNum != 0);
        QVERIFY_THROWS_EXCEPTION(RowDeleting::Refused, ContractDeleting::run(asked));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"2"_s);
    }
};

static const RegisteredTest<TestContractDeleting, QApplication> registeredContractDeleting;
#include "TestContractDeleting.moc"
