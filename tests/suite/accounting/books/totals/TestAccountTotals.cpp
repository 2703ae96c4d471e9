// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/totals/AccountTotals.h"

#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/totals/TotalsCheck.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

class TestAccountTotals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sumsAreThoseOfTheRows_data();
    void sumsAreThoseOfTheRows();
    void daysAreThoseOfTheRows();
    void documentWithoutADateCountsWithoutARangeOnly();
    void accountWhoseRowsAreGoneIsLeftOut();
    void randomWorkKeepsThemRight_data();
    void randomWorkKeepsThemRight();
    void desksBookTheSameAccountAtOnce();
    void documentInWorkIsPassedOver();
    void foldingThatStoppedGoesOn();
    void manyNewRowsAreFoundByKeysBeforeTheServerHasCountedThem();
    void foldingIsSavedOnceWhateverBecomesOfTheLine_data();
    void foldingIsSavedOnceWhateverBecomesOfTheLine();
    void unitThatIsRolledBackLeavesThemAsTheyWere();
    void readingManyNewDocumentsFoldsThem();
    void readingWithinAUnitFoldsNothing();
    void checkNamesWhatDiffersAndMendsIt_data();
    void checkNamesWhatDiffersAndMendsIt();

private:
    QString value(const QString &statement) { return m_office.database.value(statement); }
    void run(const QString &statement) { m_office.database.run(statement); }

    TestOffice m_office;
    int m_person = 0;
};

namespace {

constexpr int year = 1405;
constexpr int rent = 620101;
constexpr int rentOfMay = 620101001;
constexpr int rentOfJune = 620101002;
constexpr int accounts[] = {Accounts::cash, Accounts::bank, Accounts::persons, Accounts::commissionIncome, rentOfMay, rentOfJune};

QDateTime day(const QDate &date, int hour = 0)
{
    return QDateTime(date, QTime(hour, 0), Qt::UTC);
}

DocumentContent content(const QDateTime &date, int debit, int credit, double amount, int person)
{
    const auto of = [person](int account) { return account == Accounts::persons ? person : 0; };
    return {date, u"سند"_s, {{debit, of(debit), amount, 0, {}}, {credit, of(credit), 0, amount, {}}}};
}

int book(const DocumentContent &content)
{
    int num = 0;
    KTransaction::runReplayable([&] {
        CTblDocuments::lockBooks();
        DocumentWriter writer(content);
        if (!writer.add(Accounts::documentKindManual, year))
            throw std::runtime_error("no document");
        writer.writeRows();
        num = writer.num();
    });
    return num;
}

void change(int num, const DocumentContent &content)
{
    KTransaction::runReplayable([&] {
        CTblDocuments::lockBooks();
        DocumentWriter writer(content);
        if (writer.rewrite(num, year))
            writer.writeRows();
    });
}

// As everybody voids one: behind the lock that every unit on documents takes first.
void makeVoid(int num)
{
    KTransaction::runReplayable([num] {
        CTblDocuments::lockBooks();
        CTblDocuments::VoidDoc(num, year);
    });
}

// From the rows alone, past the classes that keep sums.
QString ofRows(TestDatabase &database, AccountLevel level, const QDate &from, const QDate &to)
{
    const QString code = AccountChart::docsColumn(level);
    QString where = u"h.iStatus=0 AND d.%1>0"_s.arg(code);
    if (from.isValid())
        where += u" AND DATE(h.date)>='%1'"_s.arg(from.toString(Qt::ISODate));
    if (to.isValid())
        where += u" AND DATE(h.date)<='%1'"_s.arg(to.toString(Qt::ISODate));
    return database.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',code,bed,bes) ORDER BY code SEPARATOR ' ') FROM (SELECT d.%1 code,ROUND(SUM(d.dBed),4) bed,"
                          "ROUND(SUM(d.dBes),4) bes FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear WHERE %2 GROUP BY 1) s"_s
                              .arg(code, where));
}

// The same text from the kept sums.
QString kept(TestDatabase &database, AccountLevel level, const QDate &from, const QDate &to)
{
    const auto start = [](const QDate &date) { return date.isValid() ? day(date) : QDateTime(); };
    QMap<int, AccountBalance> sums;
    const QHash<int, AccountBalance> read = AccountTotals::read(level, start(from), start(to), {});
    for (auto sum = read.cbegin(); sum != read.cend(); ++sum)
        sums.insert(sum.key(), *sum);
    QStringList parts;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum)
        parts.append(database.value(u"SELECT CONCAT_WS('/',%1,ROUND(CAST('%2' AS DOUBLE),4),ROUND(CAST('%3' AS DOUBLE),4))"_s.arg(sum.key()).arg(sum->bed, 0, 'g', 17).arg(sum->bes, 0, 'g', 17)));
    return parts.join(u' ');
}

QStringList differences()
{
    QStringList lines;
    for (const TotalsCheck::Difference &difference : TotalsCheck::find())
        lines.append(difference.line());
    return lines;
}

}

#define COMPARE_WITH_ROWS(level, from, to) QCOMPARE(kept(m_office.database, level, from, to), ofRows(m_office.database, level, from, to))

void TestAccountTotals::init()
{
    for (const char *table : {"Docs", "Documents", "AccountTotals", "AccountTotalChanges"})
        run(u"DELETE FROM "_s + QString::fromLatin1(table));
    if (m_person != 0)
        return;
    m_person = m_office.addPerson(u"علی رضایی"_s);
    run(u"INSERT INTO HesabKol(iCode,sName) VALUES(6201,'هزینه‌های اداری')"_s);
    run(u"INSERT INTO HesabMoeen(iCode,sName,iHesabKolCode) VALUES(620101,'اجاره',6201)"_s);
    run(u"INSERT INTO HesabTafsily(iCode,sName,iHesabMoeenCode) VALUES(620101001,'اردیبهشت',620101),(620101002,'خرداد',620101)"_s);
}

// Whatever a test did, sums and rows must agree at its end.
void TestAccountTotals::cleanup()
{
    QCOMPARE(differences(), QStringList());
}

void TestAccountTotals::sumsAreThoseOfTheRows_data()
{
    QTest::addColumn<int>("folded"); // documents in the sums; -1 all
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    const struct
    {
        const char *name;
        QDate from;
        QDate to;
    } ranges[] = {{"everything", {}, {}},
                  {"until a day", {}, {2026, 3, 20}},
                  {"until the end of a month", {}, {2026, 3, 31}},
                  {"from a day on", {2026, 3, 21}, {}},
                  {"from the first of a month on", {2026, 4, 1}, {}},
                  {"a year", {2026, 3, 21}, {2027, 3, 20}},
                  {"days of a month", {2026, 5, 3}, {2026, 5, 9}},
                  {"one day", {2026, 5, 10}, {2026, 5, 10}},
                  {"the wrong way round", {2026, 5, 10}, {2026, 5, 1}}};
    for (const auto &range : ranges) {
        for (const auto &[folded, state] : {std::pair(0, "none in the sums"), std::pair(20, "some in the sums"), std::pair(-1, "all in the sums")})
            QTest::addRow("%s, %s", range.name, state) << folded << range.from << range.to;
    }
}

void TestAccountTotals::sumsAreThoseOfTheRows()
{
    QFETCH(int, folded);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    for (int number = 0; number < 60; ++number) {
        if (number == folded)
            TotalsFolding::fold();
        const int debit = accounts[number % 6];
        const int credit = accounts[(number * 5 + 1) % 6];
        book(content(day(QDate(2026, 2, 25).addDays(number * 7), number % 24), debit, credit == debit ? int(Accounts::cash) : credit, 1000 + number * 0.37, m_person));
    }
    if (folded < 0)
        TotalsFolding::fold();
    QCOMPARE(TotalsFolding::behind(100), folded == 0 ? 60 : folded < 0 ? 0
                                                                       : 60 - folded);
    for (const AccountLevel level : {AccountLevel::Kol, AccountLevel::Moeen, AccountLevel::Tafsily})
        COMPARE_WITH_ROWS(level, from, to);
}

void TestAccountTotals::daysAreThoseOfTheRows()
{
    for (const int date : {1, 1, 2, 15, 28, 29}) {
        if (date == 15)
            TotalsFolding::fold();
        book(content(day(QDate(2026, 6, date)), Accounts::cash, Accounts::commissionIncome, 100 + date, m_person));
    }
    change(2, content(day(QDate(2026, 6, 1)), Accounts::cash, Accounts::commissionIncome, 7, m_person));
    const QString expected = u"20260602/102.0000/1 20260615/115.0000/1 20260628/128.0000/1"_s;
    const QString summed = u"SELECT GROUP_CONCAT(CONCAT_WS('/',iDate,amount,found) ORDER BY iDate SEPARATOR ' ') FROM (SELECT iDate,ROUND(SUM(dBes),4) amount,"
                           "SUM(iRows) found FROM (%1) rows_of_days WHERE iHesabKolCode=4102 GROUP BY iDate) s"_s;
    const auto days = [&] { return value(summed.arg(AccountTotals::days(QDate(2026, 6, 2), QDate(2026, 6, 28)).text())).replace(QRegularExpression(u"/(\\d+)/"_s), u"/\\1.0000/"_s); };
    QCOMPARE(days(), expected);
    TotalsFolding::fold();
    QCOMPARE(days(), expected);
}

void TestAccountTotals::documentWithoutADateCountsWithoutARangeOnly()
{
    const int num = book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::bank, 100, m_person));
    run(u"UPDATE Documents SET date=NULL WHERE iNum=%1"_s.arg(num));
    for (const bool folded : {false, true}) {
        if (folded)
            TotalsFolding::fold();
        QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 100.0);
        QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash, day(QDate(2000, 1, 1))).bed, 0.0);
        QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash, {}, day(QDate(2030, 1, 1))).bed, 0.0);
    }
    CTblDocuments::EmptyDoc(num, year);
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 0.0);
}

void TestAccountTotals::accountWhoseRowsAreGoneIsLeftOut()
{
    const int num = book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::bank, 0.1, m_person));
    book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::persons, 0.2, m_person));
    TotalsFolding::fold();
    CTblDocuments::VoidDoc(num, year);
    for (int again = 0; again < 2; ++again) {
        QVERIFY(!CTblDocs::balances(AccountLevel::Moeen).contains(Accounts::bank));
        // To the last digit: nothing of what came and went is left of it.
        QCOMPARE(CTblDocs::balances(AccountLevel::Moeen).value(Accounts::cash).bed, 0.2);
        TotalsFolding::fold();
    }
}

void TestAccountTotals::randomWorkKeepsThemRight_data()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 3U, 4U})
        QTest::addRow("%u", seed) << seed;
}

// Book, change, void, delete, empty, undo (a unit that is rolled back), fold, and stop folding, in any order.
void TestAccountTotals::randomWorkKeepsThemRight()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const auto date = [&] { return day(QDate(2026, 1, 15).addDays(random.bounded(100)), random.bounded(24)); };
    const auto entered = [&] {
        const int debit = accounts[random.bounded(6)];
        const int credit = accounts[random.bounded(6)];
        return content(date(), debit, credit == debit ? int(Accounts::serviceIncome) : credit, random.bounded(1, 2'000'000'000) * (random.bounded(2) == 0 ? 1 : 0.01), m_person);
    };
    int highest = 0;
    for (int step = 0; step < 150; ++step) {
        const int num = random.bounded(1, highest + 2);
        switch (random.bounded(9)) {
        case 0:
        case 1:
        case 2:
            highest = std::max(highest, book(entered()));
            break;
        case 3:
            change(num, entered());
            break;
        case 4:
            CTblDocuments::VoidDoc(num, year);
            break;
        case 5:
            CTblDocuments::DeleteDoc(num, year, 0, 0, {});
            break;
        case 6: {
            KTransaction undone;
            CTblDocuments::EmptyDoc(num, year);
            CTblDocuments::EditDoc(num, year, date(), u"دیگر"_s);
            break;
        }
        case 7:
            TotalsFolding::fold();
            break;
        case 8:
            CTblDocuments::EmptyDoc(num, year);
            break;
        }
        const QDate from = random.bounded(3) == 0 ? QDate() : date().date();
        const QDate to = random.bounded(3) == 0 ? QDate() : date().date();
        for (const AccountLevel level : {AccountLevel::Kol, AccountLevel::Moeen, AccountLevel::Tafsily})
            COMPARE_WITH_ROWS(level, from, to);
    }
    QVERIFY(value(u"SELECT COUNT(*) FROM Docs"_s).toInt() > 0);
    QCOMPARE(differences(), QStringList());
}

// Four desks, of which one folds all the time and one reads: each reading sees whole documents only, so debit and credit of all accounts agree.
void TestAccountTotals::desksBookTheSameAccountAtOnce()
{
    constexpr int documents = 40;
    std::atomic<int> failures = 0;
    std::atomic<int> unbalanced = 0;
    std::atomic<int> readings = 0;
    std::atomic<bool> done = false;
    const auto desk = [&](const std::function<void()> &work) {
        return std::thread([&failures, work] {
            try {
                work();
            } catch (const std::exception &error) {
                qWarning("%s", error.what());
                ++failures;
            }
            KConnection::closeThreadConnections();
        });
    };
    const auto clerk = [this] {
        for (int number = 0; number < documents; ++number) {
            const int num = book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::commissionIncome, 10, m_person));
            change(num, content(day(QDate(2026, 5, 5 + number % 3)), Accounts::cash, Accounts::commissionIncome, 3, m_person));
            if (number % 4 == 0)
                makeVoid(num);
        }
    };
    std::vector<std::thread> clerks;
    clerks.push_back(desk(clerk));
    clerks.push_back(desk(clerk));
    std::thread folder = desk([&done] {
        while (!done)
            TotalsFolding::fold();
    });
    std::thread reader = desk([&] {
        while (!done) {
            double net = 0;
            const QHash<int, AccountBalance> balances = CTblDocs::balances(AccountLevel::Moeen, {}, day(QDate(2026, 5, 31)));
            for (const AccountBalance &balance : balances)
                net += balance.net();
            unbalanced += std::abs(net) > 0.0001;
            ++readings;
        }
    });
    for (std::thread &thread : clerks)
        thread.join();
    done = true;
    folder.join();
    reader.join();
    QCOMPARE(failures.load(), 0);
    QVERIFY(readings > 0);
    QCOMPARE(unbalanced.load(), 0);
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 2 * documents * 3.0 / 4 * 3);
    COMPARE_WITH_ROWS(AccountLevel::Moeen, QDate(), QDate());
}

// Whoever waited for it would wait until the end of the test.
void TestAccountTotals::documentInWorkIsPassedOver()
{
    const int first = book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::bank, 100, m_person));
    const int second = book(content(day(QDate(2026, 5, 6)), Accounts::cash, Accounts::bank, 20, m_person));
    TotalsFolding::fold();
    for (int number = 0; number < 10; ++number)
        book(content(day(QDate(2026, 5, 7)), Accounts::cash, Accounts::bank, 1, m_person));
    {
        KTransaction atWork;
        AccountTotals::release(first, year);
        AccountTotals::release(12, year);
        std::thread([second] {
            // While this one changes a document that is in the sums, and the other one as well.
            AccountTotals::release(second, year);
            TotalsFolding::fold();
            KConnection::closeThreadConnections();
        }).join();
        atWork.commit();
    }
    QCOMPARE(value(u"SELECT GROUP_CONCAT(bSummed ORDER BY iNum SEPARATOR '') FROM Documents"_s), u"011111111110"_s);
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 130.0);
}

void TestAccountTotals::foldingThatStoppedGoesOn()
{
    // More than one unit takes.
    run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT seq,1405,3,'2026-05-05' + INTERVAL seq DIV 100 DAY FROM seq_1_to_9000"_s);
    run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) SELECT seq,1405,1101,110101,seq,0 FROM seq_1_to_9000"_s);
    run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) SELECT seq,1405,1102,110201,0,seq FROM seq_1_to_9000"_s);
    QList<int> steps;
    TotalsFolding::fold([&steps](int done) {
        steps.append(done);
        return false;
    });
    QCOMPARE(steps.size(), 1);
    QVERIFY(steps.constFirst() > 0 && steps.constFirst() < 9000);
    QCOMPARE(TotalsFolding::behind(10000), 9000 - steps.constFirst());
    COMPARE_WITH_ROWS(AccountLevel::Moeen, QDate(), QDate());
    QCOMPARE(differences(), QStringList());
    TotalsFolding::fold();
    QCOMPARE(TotalsFolding::behind(10000), 0);
    COMPARE_WITH_ROWS(AccountLevel::Moeen, QDate(2026, 6, 1), QDate());
}

// As after a filling or an import: the server counts its rows some seconds later.
void TestAccountTotals::manyNewRowsAreFoundByKeysBeforeTheServerHasCountedThem()
{
    run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT seq,1405,3,'2026-05-05' FROM seq_1_to_2000"_s);
    run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) SELECT seq,1405,1101,110101,seq,0 FROM seq_1_to_2000"_s);
    const auto forgetCounts = [this] {
        run(u"UPDATE mysql.innodb_table_stats SET n_rows=0,clustered_index_size=1,sum_of_other_index_sizes=1 WHERE database_name=DATABASE() AND table_name IN('Docs','Documents')"_s);
        run(u"FLUSH TABLES Docs,Documents"_s);
    };
    QStringList asked;
    {
        const ObservedStatements observed({u"SELECT iMonth"_s, u"SELECT code"_s});
        forgetCounts();
        AccountTotals::read(AccountLevel::Moeen, {}, {}, {});
        TotalsFolding::fold();
        asked = observed.taken().filter(u"JOIN Docs d"_s);
    }
    QVERIFY(asked.size() >= 2);
    for (const QString &statement : std::as_const(asked)) {
        forgetCounts();
        static const QRegularExpression ofRows(u"\"table_name\": \"d\",\\s*\"access_type\": \"ref\",\\s*\"possible_keys\": \\[[^]]*\\],\\s*\"key\": \"document\""_s);
        const QString plan = value(u"EXPLAIN FORMAT=JSON "_s + statement);
        QVERIFY2(plan.contains(ofRows), qPrintable(plan));
    }
}

void TestAccountTotals::foldingIsSavedOnceWhateverBecomesOfTheLine_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("cut before COMMIT") << int(FaultProxy::Fault::CutBeforeCommit);
    QTest::newRow("cut after COMMIT") << int(FaultProxy::Fault::CutAfterCommit);
}

void TestAccountTotals::foldingIsSavedOnceWhateverBecomesOfTheLine()
{
    QFETCH(int, fault);
    for (int number = 1; number <= 5; ++number)
        book(content(day(QDate(2026, 5, number)), Accounts::cash, Accounts::bank, number, m_person));
    {
        FaultProxy proxy(m_office.database.settings());
        KConnection::configure(0, proxy.settings());
        proxy.failAtCommit(FaultProxy::Fault(fault));
        try {
            TotalsFolding::fold();
        } catch (const CMySQLException &error) {
            QVERIFY(FaultProxy::Fault(fault) == FaultProxy::Fault::CutBeforeCommit);
        }
        KConnection::configure(0, m_office.database.settings());
    }
    QCOMPARE(TotalsFolding::behind(10), FaultProxy::Fault(fault) == FaultProxy::Fault::CutBeforeCommit ? 5 : 0);
    COMPARE_WITH_ROWS(AccountLevel::Moeen, QDate(), QDate());
    QCOMPARE(differences(), QStringList());
    TotalsFolding::fold();
    QCOMPARE(TotalsFolding::behind(10), 0);
    COMPARE_WITH_ROWS(AccountLevel::Moeen, QDate(), QDate());
}

void TestAccountTotals::unitThatIsRolledBackLeavesThemAsTheyWere()
{
    const int num = book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::bank, 100, m_person));
    TotalsFolding::fold();
    {
        KTransaction lost;
        DocumentWriter writer(content(day(QDate(2026, 6, 6)), Accounts::cash, Accounts::bank, 7, m_person));
        QVERIFY(writer.rewrite(num, year));
        writer.writeRows();
        QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 7.0);
    }
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 100.0);
    QCOMPARE(value(u"SELECT COUNT(*) FROM AccountTotalChanges"_s), u"0"_s);
}

void TestAccountTotals::readingManyNewDocumentsFoldsThem()
{
    run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT seq,1405,3,'2026-05-05' FROM seq_1_to_6000"_s);
    run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) SELECT seq,1405,1101,110101,2,0 FROM seq_1_to_6000"_s);
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 12000.0);
    QCOMPARE(TotalsFolding::behind(10), 0);
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 12000.0);
}

void TestAccountTotals::readingWithinAUnitFoldsNothing()
{
    run(u"INSERT INTO Documents(iNum,iFiscalYear,iKind,date) SELECT seq,1405,3,'2026-05-05' FROM seq_1_to_6000"_s);
    run(u"INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) SELECT seq,1405,1101,110101,2,0 FROM seq_1_to_6000"_s);
    const KTransaction unit;
    QCOMPARE(CTblDocs::GetBedBesHesabMoeen1(Accounts::cash).bed, 12000.0);
    QCOMPARE(TotalsFolding::behind(10), 10);
}

void TestAccountTotals::checkNamesWhatDiffersAndMendsIt_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("lines");
    const QString cash = u"account 110101, %1: kept %2 debit, 0.00 credit of %3 rows; the documents say %4 debit, 0.00 credit of %5 rows"_s;
    QTest::newRow("a month") << u"UPDATE AccountTotals SET dBed=dBed+1 WHERE iDay=0 AND iMonth=202605 AND iHesabMoeenCode=110101"_s
                             << QStringList{cash.arg(u"2026-05"_s, u"121.00"_s).arg(2).arg(u"120.00"_s).arg(2)};
    QTest::newRow("a day") << u"DELETE FROM AccountTotals WHERE iDay=6 AND iHesabMoeenCode=110101"_s
                           << QStringList{cash.arg(u"2026-05-06"_s, u"0.00"_s).arg(0).arg(u"20.00"_s).arg(1)};
    QTest::newRow("a row past the program") << u"DELETE FROM Docs WHERE dBed=20"_s
                                            << QStringList{cash.arg(u"2026-05"_s, u"120.00"_s).arg(2).arg(u"100.00"_s).arg(1),
                                                           cash.arg(u"2026-05-06"_s, u"20.00"_s).arg(1).arg(u"0.00"_s).arg(0)};
    QTest::newRow("a change that was lost") << u"INSERT INTO AccountTotalChanges(iMonth,iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed,iRows) VALUES(0,0,1101,110101,0,-5,-1)"_s
                                            << QStringList{cash.arg(u"without a date"_s, u"-5.00"_s).arg(-1).arg(u"0.00"_s).arg(0)};
}

void TestAccountTotals::checkNamesWhatDiffersAndMendsIt()
{
    QFETCH(QString, fault);
    QFETCH(QStringList, lines);
    book(content(day(QDate(2026, 5, 5)), Accounts::cash, Accounts::bank, 100, m_person));
    book(content(day(QDate(2026, 5, 6)), Accounts::cash, Accounts::bank, 20, m_person));
    TotalsFolding::fold();
    book(content(day(QDate(2026, 5, 7)), Accounts::cash, Accounts::bank, 3, m_person));
    QCOMPARE(differences(), QStringList());
    run(fault);
    QCOMPARE(differences(), lines);
    QCOMPARE(TotalsCheck::mend().size(), lines.size());
    QCOMPARE(differences(), QStringList());
    QCOMPARE(TotalsCheck::mend().size(), 0);
    COMPARE_WITH_ROWS(AccountLevel::Moeen, QDate(), QDate());
    COMPARE_WITH_ROWS(AccountLevel::Kol, QDate(2026, 5, 6), QDate(2026, 5, 31));
}

static const RegisteredTest<TestAccountTotals, QCoreApplication> registeredAccountTotals;
#include "TestAccountTotals.moc"
