// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractSaving.h"

#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/values/Money.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <array>
#include <barrier>
#include <thread>

using namespace Qt::StringLiterals;

using ContractSaving::Decision;

// The unit that saves a contract, without a window.
class TestContractSaving : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    int m_key = 0;

    QString value(const char *statement) { return m_database.value(QString::fromUtf8(statement)); }

    Decision decision(double commission = 1000) const
    {
        return {m_key, 1, [commission](CTblAutomobilContracts &contract) {
                    contract.m_dateContract = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
                    contract.m_iPersonFirstID = 1;
                    contract.m_sName1 = u"علی"_s;
                    contract.m_sName2 = u"رضا"_s;
                    contract.m_dCommission = commission;
                    contract.m_dTax2 = 90;
                }};
    }

private Q_SLOTS:
    void init()
    {
        prepareModuleTables(m_database);
        setDefaultMoneyDecimals(0);
        GetDBSetting()->SetFiscalYear(1405);
        GetDBSetting()->SetClosedDB(false);
        m_database.run(u"INSERT INTO AutomobilContracts(iCode,sSerial) VALUES(3,'الف')"_s);
        m_key = m_database.value(u"SELECT MAX(iID) FROM AutomobilContracts"_s).toInt();
    }

    void rowDocumentAndCustomFieldsAreWritten()
    {
        const auto posted = ContractSaving::save(decision(), {{}, {{5, u"ب"_s}}});
        QCOMPARE(posted.docNum, 1);
        QCOMPARE(posted.fiscalYear, 1405);
        QCOMPARE(value("SELECT CONCAT_WS('/',iCode,sSerial,iStatus,sName1,dCommission,iDocNum,iFiscalYear) FROM AutomobilContracts"),
                 u"3/الف/1/علی/1000/1/1405"_s);
        QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iFiscalYear,iKind,sDesc) FROM Documents"),
                 u"1/1405/28/مبایعه نامه ش :3"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(dBed+dBes ORDER BY iID) FROM Docs"), u"1000,1000,90,90"_s);
        QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
        QCOMPARE(CTblCustomFieldRecords::values(CTblAutomobilContracts::recordKind, m_key),
                 (QHash<int, QString>{{5, u"ب"_s}}));
    }

    void savingAgainKeepsTheDocumentAndWhatWasLeftAlone()
    {
        (void)ContractSaving::save(decision(), {{}, {{5, u"ب"_s}}});
        GetDBSetting()->SetFiscalYear(1406);
        const auto posted = ContractSaving::save(decision(2000));
        QCOMPARE(posted.docNum, 1);
        QCOMPARE(posted.fiscalYear, 1405);
        QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"1"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(dBed+dBes ORDER BY iID) FROM Docs"), u"2000,2000,90,90"_s);
        QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(sValue) FROM CustomFieldRecords"), u"ب"_s);
    }

    void documentStandsBeforeTheRowAndTheCustomFieldsBehindIt()
    {
        (void)ContractSaving::save(decision());
        const ObservedStatements observed(
            {u"START"_s, u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s, u"COMMIT"_s});
        (void)ContractSaving::save(decision(2000), {{}, {{5, u"ب"_s}}});
        QStringList tables;
        for (const QString &statement : observed.taken())
            tables.append(statement.section(QRegularExpression(u"[ (]"_s), 0, 2));
        QCOMPARE(tables.join(u'|'),
                 u"START TRANSACTION|UPDATE Documents FORCE|INSERT INTO AccountTotalChanges|DELETE FROM Docs|INSERT INTO Docs|"
                 "INSERT INTO Changes|UPDATE AutomobilContracts SET|INSERT INTO Changes|DELETE FROM CustomFieldRecords|"
                 "INSERT INTO CustomFieldRecords|INSERT INTO Changes|COMMIT"_s);
    }

    // Two desks save the same contract at the same moment: the one that comes second is asked, and the document is always of the row.
    void twoDesksAtOnceNeverPartRowAndDocument()
    {
        (void)ContractSaving::save(decision());
        constexpr int rounds = 12;
        for (int round = 0; round < rounds; ++round) {
            std::barrier start(2);
            std::array<int, 2> refused{};
            const auto desk = [&](int number) {
                const double commission = 5000 + 10 * round + number;
                Decision mine = decision(commission);
                CTblAutomobilContracts row;
                if (!row.IsRecordExist(u"iID"_s, m_key))
                    qFatal("the contract is gone");
                mine.opened = OpenedRow(row, CTblAutomobilContracts::fieldGroups(), [] {});
                start.arrive_and_wait();
                try {
                    (void)ContractSaving::save(mine);
                } catch (const RowChanged &) {
                    refused[std::size_t(number)] = 1;
                }
            };
            std::thread first(desk, 0);
            std::thread second(desk, 1);
            first.join();
            second.join();
            QCOMPARE(refused[0] + refused[1], 1);
            const int saved = refused[0] ? 1 : 0;
            QCOMPARE(value("SELECT dCommission FROM AutomobilContracts").toDouble(), 5000.0 + 10 * round + saved);
            QCOMPARE(value("SELECT MAX(dBed)=(SELECT dCommission FROM AutomobilContracts) FROM Docs"), u"1"_s);
            QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
        }
    }

    void contractThatIsGoneIsNotSaved()
    {
        m_database.run(u"DELETE FROM AutomobilContracts"_s);
        auto kind = RowChanged::Kind::Conflict;
        try {
            (void)ContractSaving::save(decision(), {{}, {{5, u"ب"_s}}});
        } catch (const RowChanged &changed) {
            kind = changed.kind();
        }
        QCOMPARE(kind, RowChanged::Kind::Gone);
        QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM CustomFieldRecords)"), u"0"_s);
    }

    void inAClosedDatabaseNothingIsSaved()
    {
        GetDBSetting()->SetClosedDB(true);
        QString refusal;
        try {
            (void)ContractSaving::save(decision());
        } catch (const KAccountingError &error) {
            refusal = error.userMessage();
        }
        QCOMPARE(refusal, OfficeSettings::closedMessage());
        QCOMPARE(value("SELECT CONCAT_WS('/',sName1,iStatus,iDocNum) FROM AutomobilContracts"), u"0/0"_s);
        QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"0"_s);
    }

    void whatFailsBehindTheRowTakesRowAndDocumentBack()
    {
        m_database.run(u"CREATE TRIGGER full BEFORE INSERT ON CustomFieldRecords FOR EACH ROW "
                       "SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='full'"_s);
        QVERIFY_THROWS_EXCEPTION(CMySQLException, (void)ContractSaving::save(decision(), {{}, {{5, u"ب"_s}}}));
        QCOMPARE(value("SELECT CONCAT_WS('/',sName1,iStatus,iDocNum) FROM AutomobilContracts"), u"0/0"_s);
        QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM Docs)"), u"0"_s);
    }
};

static const RegisteredTest<TestContractSaving, QCoreApplication> registeredContractSaving;
#include "TestContractSaving.moc"
