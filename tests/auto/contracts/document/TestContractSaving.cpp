// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractSaving.h"

#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/CMySQLException.h"
#include "suite/utility/values/Money.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using Decision = RecordSaving::Decision<CTblAutomobilContracts>;

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
                    contract.m_sName1 = QStringLiteral("علی");
                    contract.m_sName2 = QStringLiteral("رضا");
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
        m_database.run(QStringLiteral("INSERT INTO AutomobilContracts(iCode,sSerial) VALUES(3,'الف')"));
        m_key = m_database.value(QStringLiteral("SELECT MAX(iID) FROM AutomobilContracts")).toInt();
    }

    void rowDocumentAndCustomFieldsAreWritten()
    {
        const auto posted = ContractSaving::save(decision(), {{{5, QStringLiteral("ب")}}});
        QVERIFY(posted);
        QCOMPARE(posted->docNum, 1);
        QCOMPARE(posted->fiscalYear, 1405);
        QCOMPARE(value("SELECT CONCAT_WS('/',iCode,sSerial,iStatus,sName1,dCommission,iDocNum,iFiscalYear) FROM AutomobilContracts"),
                 QStringLiteral("3/الف/1/علی/1000/1/1405"));
        QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iFiscalYear,iKind,sDesc) FROM Documents"),
                 QStringLiteral("1/1405/28/مبایعه نامه ش :3"));
        QCOMPARE(value("SELECT GROUP_CONCAT(dBed+dBes ORDER BY iID) FROM Docs"), QStringLiteral("1000,1000,90,90"));
        QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), QStringLiteral("1/0/0"));
        QCOMPARE(CTblCustomFieldRecords::values(CTblAutomobilContracts::recordKind, m_key),
                 (QHash<int, QString>{{5, QStringLiteral("ب")}}));
    }

    void savingAgainKeepsTheDocumentAndWhatWasLeftAlone()
    {
        QVERIFY(ContractSaving::save(decision(), {{{5, QStringLiteral("ب")}}}));
        GetDBSetting()->SetFiscalYear(1406);
        const auto posted = ContractSaving::save(decision(2000), std::nullopt);
        QVERIFY(posted);
        QCOMPARE(posted->docNum, 1);
        QCOMPARE(posted->fiscalYear, 1405);
        QCOMPARE(value("SELECT COUNT(*) FROM Documents"), QStringLiteral("1"));
        QCOMPARE(value("SELECT GROUP_CONCAT(dBed+dBes ORDER BY iID) FROM Docs"), QStringLiteral("2000,2000,90,90"));
        QCOMPARE(m_database.value(booksAgree(Accounts::documentKindContract)), QStringLiteral("1/0/0"));
        QCOMPARE(value("SELECT GROUP_CONCAT(sValue) FROM CustomFieldRecords"), QStringLiteral("ب"));
    }

    void documentStandsBeforeTheRowAndTheCustomFieldsBehindIt()
    {
        QVERIFY(ContractSaving::save(decision(), std::nullopt));
        const ObservedStatements observed(
            {QStringLiteral("START"), QStringLiteral("INSERT"), QStringLiteral("UPDATE"), QStringLiteral("DELETE"), QStringLiteral("COMMIT")});
        QVERIFY(ContractSaving::save(decision(2000), {{{5, QStringLiteral("ب")}}}));
        QStringList tables;
        for (const QString &statement : observed.taken())
            tables.append(statement.section(QRegularExpression(QStringLiteral("[ (]")), 0, 2));
        QCOMPARE(tables.join(u'|'),
                 QStringLiteral("START TRANSACTION|DELETE FROM Docs|INSERT INTO Docs|INSERT INTO Docs|INSERT INTO Docs|"
                                "INSERT INTO Docs|UPDATE AutomobilContracts SET|DELETE FROM CustomFieldRecords|"
                                "INSERT INTO CustomFieldRecords|COMMIT"));
    }

    void contractThatIsGoneIsNotSaved()
    {
        m_database.run(QStringLiteral("DELETE FROM AutomobilContracts"));
        QVERIFY(!ContractSaving::save(decision(), {{{5, QStringLiteral("ب")}}}));
        QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM CustomFieldRecords)"), QStringLiteral("0"));
    }

    void withoutADocumentNothingIsSaved()
    {
        GetDBSetting()->SetClosedDB(true);
        QString refusal;
        try {
            (void)ContractSaving::save(decision(), std::nullopt);
        } catch (const KAccountingError &error) {
            refusal = error.userMessage();
        }
        QCOMPARE(refusal, QStringLiteral("سند حسابداری قرارداد ایجاد نشد؛ چیزی ذخیره نشد."));
        QCOMPARE(value("SELECT CONCAT_WS('/',sName1,iStatus,iDocNum) FROM AutomobilContracts"), QStringLiteral("0/0"));
        QCOMPARE(value("SELECT COUNT(*) FROM Documents"), QStringLiteral("0"));
    }

    void whatFailsBehindTheRowTakesRowAndDocumentBack()
    {
        m_database.run(QStringLiteral("CREATE TRIGGER full BEFORE INSERT ON CustomFieldRecords FOR EACH ROW "
                                      "SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='full'"));
        QVERIFY_THROWS_EXCEPTION(CMySQLException, (void)ContractSaving::save(decision(), {{{5, QStringLiteral("ب")}}}));
        QCOMPARE(value("SELECT CONCAT_WS('/',sName1,iStatus,iDocNum) FROM AutomobilContracts"), QStringLiteral("0/0"));
        QCOMPARE(value("SELECT (SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM Docs)"), QStringLiteral("0"));
    }
};

static const RegisteredTest<TestContractSaving, QCoreApplication> registered;
#include "TestContractSaving.moc"
