// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/CTblDueInstalments.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/subjects/ContractStory.h"
#include "suite/accounting/books/AccountLedger.h"
#include "suite/treasury/receiving/MoneyOnAccount.h"
#include "suite/treasury/records/ReceiptOwners.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

#include <memory>
#include <mysql.h>

using namespace Qt::StringLiterals;

// What belongs to one person is found by that person's key among thousands of others': who has five contracts waits for five.
class TestPersonReading : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static constexpr int records = 6000;
    static constexpr int persons = 3000;
    static constexpr int person = 777; // first party of two contracts, second party of two others

    using Work = std::function<void()>;

    void run(const QString &statement) { m_office->database().run(statement); }

    // Rows that the session's statements have read until now.
    static qint64 rowsRead()
    {
        const KConnection::Result status = KConnection::forThread().run(QByteArrayLiteral("SHOW SESSION STATUS LIKE 'Rows_read'"));
        return QByteArray(mysql_fetch_row(status.get())[1]).toLongLong();
    }

    static qint64 rowsReadBy(const QString &statement, qint64 *returned)
    {
        const qint64 ofAsking = -(rowsRead() - rowsRead());
        const qint64 before = rowsRead();
        const KConnection::Result rows = KConnection::forThread().run(statement.toUtf8());
        *returned = rows ? qint64(mysql_num_rows(rows.get())) : 0;
        return rowsRead() - before - ofAsking;
    }

    template <class Records>
    static Work listed(const KSql &filter, const KSql &sort)
    {
        return [=] {
            Records set;
            set.m_filter = filter;
            set.m_sort = sort;
            set.SetLimit(1001);
            int found = 0;
            for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
                ++found;
            QVERIFY(found > 0);
        };
    }

private Q_SLOTS:
    void initTestCase()
    {
        ContractReceiptOwner::enter();
        m_office = std::make_unique<TestOffice>();
        run(u"INSERT INTO Persons(iID,iCode,sName2) SELECT seq,seq,CONCAT('شخص ',seq) FROM seq_1_to_%1"_s.arg(persons));
        run(u"INSERT INTO AutomobilContracts(iID,iCode,iPersonFirstID,iPersonSecondID,iStatus,bReturn,iArchiveUserID,iDocNum,iFiscalYear,dateContract,dCommission) SELECT "
            "seq,seq,1+(seq %% %2),1+((seq+1500) %% %2),0,0,0,seq,1405,'2026-04-01' + INTERVAL (seq %% 200) DAY,1000 FROM seq_1_to_%1"_s.replace(u"%%"_s, u"%"_s)
                .arg(records)
                .arg(persons));
        run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT iDocNum,1405,28,dateContract FROM AutomobilContracts"_s);
        run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,iPersonID,dBed,dBes) SELECT iDocNum,1405,1103,110301,iPersonFirstID,500,0 FROM AutomobilContracts "
            "UNION ALL SELECT iDocNum,1405,1103,110301,iPersonSecondID,500,0 FROM AutomobilContracts UNION ALL SELECT iDocNum,1405,4102,410202,0,0,1000 FROM AutomobilContracts"_s);
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,date,dAmount,iStatus) SELECT iID,iPersonSecondID,1,dateContract,5000,0 FROM AutomobilContracts"_s);
        run(u"INSERT INTO Receipts(iPersonID,date,dAmount,iDocNum,iFiscalYear,iTable,iRecordID) SELECT iPersonFirstID,dateContract,10,iDocNum,1405,0,0 FROM AutomobilContracts"_s);
        for (const char *table : {"Persons", "AutomobilContracts", "Documents", "Docs", "AutomobilPayments", "Receipts"})
            run(u"ANALYZE TABLE "_s + QString::fromLatin1(table));
    }
    void cleanupTestCase() { m_office.reset(); }

    void onePersonIsReadByTheKey_data()
    {
        QTest::addColumn<Work>("work");
        const QDateTime day(QDate(2026, 7, 1), QTime(0, 0), Qt::UTC);
        const KSql shown = "iStatus=0 AND bReturn=0 AND iArchiveUserID=0";
        QTest::newRow("what a person owes") << Work([] { QVERIFY(!ReceiptOwners::openItems(person, CTblReceipts::received).isEmpty()); });
        QTest::newRow("what is owed to a person") << Work([] { static_cast<void>(ReceiptOwners::openItems(person, CTblReceipts::paid)); });
        QTest::newRow("contracts of either side") << listed<CTblAutomobilContracts>(shown + KSql::formatted(" AND (iPersonFirstID=%1 OR iPersonSecondID=%1)", person), "dateContract DESC");
        QTest::newRow("contracts of the first party") << listed<CTblAutomobilContracts>(shown + KSql::formatted(" AND iPersonFirstID=%1", person), "dateContract DESC");
        QTest::newRow("contracts of the second party by code") << listed<CTblAutomobilContracts>(shown + KSql::formatted(" AND iPersonSecondID=%1", person), "iCode DESC");
        QTest::newRow("instalments of a person") << listed<CTblDueInstalments>(KSql::formatted("ap.iStatus=0 AND ap.iPersonID=%1", person), "ap.date");
        QTest::newRow("receipts of a person") << listed<CTblReceipts>(KSql::formatted("iPersonID=%1", person), "date DESC");
        QTest::newRow("statement of a person") << Work([] { QCOMPARE(AccountLedger::read(AccountLedger::Scope::person(person), {}, {}).rows.size(), 4); });
        QTest::newRow("statement of a person from a day on") << Work([day] { static_cast<void>(AccountLedger::read(AccountLedger::Scope::person(person), day, {})); });
        QTest::newRow("contracts in the story of a person") << Work([] {
            StoryScope scope{.table = u"Persons"_s, .key = person};
            ContractStory::addOfPerson(scope, 50, 0);
            QCOMPARE(scope.of(CTblAutomobilContracts::recordKind).size(), 4);
        });
        QTest::newRow("money on account") << Work([] { static_cast<void>(MoneyOnAccount::of(person)); });
    }

    // A table that a statement reads whole shows at once: each has thousands of rows.
    void onePersonIsReadByTheKey()
    {
        QFETCH(Work, work);
        QStringList statements;
        {
            const ObservedStatements observed({u"SELECT"_s});
            work();
            statements = observed.taken();
        }
        QVERIFY(!statements.isEmpty());
        for (const QString &statement : std::as_const(statements)) {
            qint64 returned = 0;
            const qint64 read = rowsReadBy(statement, &returned);
            QVERIFY2(read <= std::max<qint64>(10 * returned, 100), qPrintable(u"%1 rows read for %2: %3"_s.arg(read).arg(returned).arg(statement)));
        }
    }
};

Q_DECLARE_METATYPE(std::function<void()>)

static const RegisteredTest<TestPersonReading, QApplication> registeredPersonReading;
#include "TestPersonReading.moc"
