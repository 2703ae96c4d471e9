// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentWriter.h"

#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestDocumentWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void addedDocumentHasTheNextNumber();
    void rewrittenDocumentKeepsWhatIsItsOwn();
    void rewritingWhatIsNotThereWritesNothing();
    void closedDatabaseIsRefusedByBoth();
    void withoutAFiscalYearNothingIsAdded();
    void unbalancedRowsAreRefusedBeforeAnythingIsWritten();
    void ownersRowStandsBetweenHeaderAndRows();
    void accountOutsideTheChartIsRefused();
    void rowThatMayNotStandIsRefused();
    void rowsThatStoodInTheDocumentCount();

private:
    DocumentContent content(double amount) const;
    QString value(const QString &statement) { return m_office.database.value(statement); }

    TestOffice m_office;
    int m_person = 0;
};

namespace {

constexpr int year = 1405;
const QDateTime day(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
const QString header = u"SELECT GROUP_CONCAT(CONCAT_WS('/',iNum,iFiscalYear,iKind,DATE(date),sDesc,iUserID,iStatus) "
                       "ORDER BY iNum SEPARATOR ' ') FROM Documents"_s;
const QString rows = u"SELECT GROUP_CONCAT(CONCAT_WS('/',iDocNum,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,"
                     "iPersonID,dBed,dBes) ORDER BY iID SEPARATOR ' ') FROM Docs"_s;
const QString everything = u"SELECT CONCAT_WS('/',(SELECT COUNT(*) FROM Documents),(SELECT COUNT(*) FROM Docs))"_s;

}

void TestDocumentWriter::init()
{
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->Login(m_office.admin);
    m_office.database.run(u"DELETE FROM Docs"_s);
    m_office.database.run(u"DELETE FROM Documents"_s);
    if (m_person == 0)
        m_person = m_office.addPerson(u"علی رضایی"_s);
}

DocumentContent TestDocumentWriter::content(double amount) const
{
    return {day,
            u"سند"_s,
            {{Accounts::cash, 0, amount, 0, u"نقد"_s}, {Accounts::persons, m_person, 0, amount, {}}}};
}

void TestDocumentWriter::addedDocumentHasTheNextNumber()
{
    for (const int num : {1, 2}) {
        DocumentWriter writer(content(100));
        QCOMPARE(writer.num(), 0);
        QVERIFY(writer.add(Accounts::documentKindReceipt, year));
        writer.writeRows();
        QCOMPARE(writer.num(), num);
        QCOMPARE(writer.fiscalYear(), year);
    }
    QCOMPARE(value(header), u"1/1405/3/2026-11-20/سند/%1/0 2/1405/3/2026-11-20/سند/%1/0"_s.arg(m_office.admin));
    QCOMPARE(value(rows + u" WHERE iDocNum=2"_s),
             u"2/1101/110101/0/0/100/0 2/1103/110301/0/%1/0/100"_s.arg(m_person));
    QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"2/0/0"_s);
}

void TestDocumentWriter::rewrittenDocumentKeepsWhatIsItsOwn()
{
    DocumentWriter first(content(100));
    QVERIFY(first.add(Accounts::documentKindContract, year));
    first.writeRows();
    GetDBSetting()->Login(m_office.clerk);
    DocumentContent other = content(70);
    other.date = day.addDays(2);
    other.description = u"سند دیگر"_s;
    DocumentWriter second(other);
    QVERIFY(second.rewrite(1, year));
    QCOMPARE(value(everything), u"1/0"_s);
    second.writeRows();
    QCOMPARE(second.num(), 1);
    QCOMPARE(value(header), u"1/1405/28/2026-11-22/سند دیگر/%1/0"_s.arg(m_office.admin));
    QCOMPARE(value(rows), u"1/1101/110101/0/0/70/0 1/1103/110301/0/%1/0/70"_s.arg(m_person));
    QCOMPARE(value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
}

void TestDocumentWriter::rewritingWhatIsNotThereWritesNothing()
{
    DocumentWriter writer(content(100));
    for (const int num : {0, 9})
        QVERIFY(!writer.rewrite(num, year));
    QCOMPARE(writer.num(), 0);
    QVERIFY(writer.add(Accounts::documentKindContract, year));
    QVERIFY(!DocumentWriter(content(1)).rewrite(writer.num(), year + 1));
    writer.writeRows();
    QCOMPARE(value(everything), u"1/2"_s);
}

void TestDocumentWriter::closedDatabaseIsRefusedByBoth()
{
    DocumentWriter stored(content(100));
    QVERIFY(stored.add(Accounts::documentKindContract, year));
    stored.writeRows();
    GetDBSetting()->SetClosedDB(true);
    DocumentWriter writer(content(70));
    QVERIFY(!writer.rewrite(1, year));
    QVERIFY(!writer.add(Accounts::documentKindContract, year));
    QCOMPARE(value(everything), u"1/2"_s);
    QCOMPARE(value(u"SELECT SUM(dBed) FROM Docs"_s), u"100"_s);
}

void TestDocumentWriter::withoutAFiscalYearNothingIsAdded()
{
    QVERIFY(!DocumentWriter(content(100)).add(Accounts::documentKindContract, 0));
    QCOMPARE(value(everything), u"0/0"_s);
}

void TestDocumentWriter::unbalancedRowsAreRefusedBeforeAnythingIsWritten()
{
    DocumentContent wrong = content(100);
    wrong.rows[1].credit = 99;
    int statements = 0;
    KConnection::setStatementObserver([&statements](const QString &) { ++statements; });
    QString refusal;
    try {
        DocumentWriter writer(wrong);
        (void)writer.add(Accounts::documentKindManual, year);
    } catch (const KAccountingError &error) {
        refusal = error.userMessage();
    }
    KConnection::setStatementObserver({});
    QCOMPARE(refusal, u"سند تراز نیست: بدهکار 100، بستانکار 99."_s);
    QCOMPARE(statements, 0);
}

// The number is drawn under the lock before anything else, and the rows are looked at last.
void TestDocumentWriter::ownersRowStandsBetweenHeaderAndRows()
{
    const auto shortened = [](const QStringList &statements) {
        QStringList starts;
        for (const QString &statement : statements)
            starts.append(statement.section(u'(', 0, 0).section(u' ', 0, 2));
        return starts.join(u'|');
    };
    const QStringList words{u"SELECT iID FROM Properties"_s, u"SELECT MAX"_s, u"SELECT SUM"_s,
                            u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s};
    // Loads what the record sets ask of the tables' columns once.
    DocumentWriter before(content(5));
    QVERIFY(before.add(Accounts::documentKindReceipt, year));
    before.writeRows();
    {
        const ObservedStatements observed(words);
        KTransaction unit;
        DocumentWriter writer(content(100));
        QVERIFY(writer.add(Accounts::documentKindReceipt, year));
        m_office.database.run(u"UPDATE Receipts SET iDocNum=1 WHERE iID=0"_s);
        writer.writeRows();
        unit.commit();
        QCOMPARE(shortened(observed.taken()), u"SELECT iID FROM|SELECT MAX|INSERT INTO Documents|INSERT INTO Changes|UPDATE Receipts SET|"
                                              "INSERT INTO Docs|SELECT SUM"_s);
    }
    // The first takes the document out of the sums of its accounts, where it is in them.
    {
        const ObservedStatements observed(words);
        KTransaction unit;
        DocumentWriter writer({day.addDays(1), u"دیگر"_s, content(70).rows});
        QVERIFY(writer.rewrite(1, year));
        writer.writeRows();
        unit.commit();
        QCOMPARE(shortened(observed.taken()),
                 u"UPDATE Documents FORCE|INSERT INTO AccountTotalChanges|UPDATE Documents SET|INSERT INTO Changes|DELETE FROM Docs|INSERT INTO Docs|SELECT SUM|INSERT INTO Changes"_s);
    }
}

void TestDocumentWriter::accountOutsideTheChartIsRefused()
{
    {
        const KTransaction transaction;
        DocumentContent wrong = content(100);
        wrong.rows[0].account = 999901;
        DocumentWriter writer(wrong);
        QVERIFY(writer.add(Accounts::documentKindManual, year));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, writer.writeRows());
    }
    QCOMPARE(value(everything), u"0/0"_s);
}

void TestDocumentWriter::rowThatMayNotStandIsRefused()
{
    {
        const KTransaction transaction;
        DocumentWriter writer({day, {}, {{Accounts::cash, 0, -5, 0, {}}, {Accounts::bank, 0, 0, -5, {}}}});
        QVERIFY(writer.add(Accounts::documentKindManual, year));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, writer.writeRows());
    }
    QCOMPARE(value(everything), u"0/0"_s);
}

void TestDocumentWriter::rowsThatStoodInTheDocumentCount()
{
    const KTransaction transaction;
    DocumentWriter writer(content(100));
    QVERIFY(writer.add(Accounts::documentKindManual, year));
    m_office.database.run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed) "
                          "VALUES(1,%1,1101,110101,3)"_s
                              .arg(year));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, writer.writeRows());
}

static const RegisteredTest<TestDocumentWriter, QCoreApplication> registeredDocumentWriter;
#include "TestDocumentWriter.moc"
