// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/OfficeKeys.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/records/CTblTemp.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

// Whose alphabetical order is easily got wrong: both kinds of yeh and kaf, blanks, half-spaces, digits of both scripts, both cases.
const QStringList hardTexts{u"علی رضایی"_s, u"علي رضايي"_s, u"علی‌رضایی"_s, u" علی رضایی"_s, u"علی رضایی "_s, u"کاوه"_s, u"كاوه"_s,
                            u"آذر"_s, u"اذر"_s, u"پرویز"_s, u"چنگیز"_s, u"ژاله"_s, u"گیو"_s, u"۱۲ فروردین"_s, u"12 فروردین"_s,
                            u"٤ راه"_s, u""_s, u" "_s, u"ABC"_s, u"abc"_s, u"Zebra"_s, u"-"_s, u"ـ"_s, u"هما"_s, u"وحید"_s, u"ياسر"_s};

}

class TestOfficeKeys : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    // Persons is the suite's own; this one is as the module's tables are, with some of their columns.
    void makeTables(const QString &engine = u"InnoDB"_s)
    {
        SuiteSchema::upgrade();
        m_database.run(u"CREATE TABLE AutomobilDemands (iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY, iCode INT DEFAULT 0, iPersonID INT DEFAULT 0,"
                       " iAutomobilType INT DEFAULT 0, dateReference DATETIME, dAmountFrom DOUBLE DEFAULT 0, iStatus INT DEFAULT 0,"
                       " iArchiveUserID INT DEFAULT 0) ENGINE=%1 DEFAULT CHARSET=utf8mb3"_s.arg(engine));
    }

    void addPersons()
    {
        CTblTemp query;
        const QStringList texts = hardTexts + hostileTexts();
        for (int round = 0; round < 20; ++round) {
            for (const QString &text : texts)
                query.ExecuteQuery(KSql::formatted("INSERT INTO Persons(iCode,iStatus,sName2) VALUES(%1,%2,%3)", round, round % 2, KSql::quoted(text)));
            query.ExecuteQuery("INSERT INTO Persons(iCode,iStatus,sName2) VALUES(0,0,NULL)");
        }
    }

    QString keysOf(const QString &table)
    {
        return m_database.value(u"SELECT GROUP_CONCAT(k ORDER BY k SEPARATOR '; ') FROM (SELECT CONCAT(INDEX_NAME,'=',GROUP_CONCAT(COLUMN_NAME ORDER BY SEQ_IN_INDEX)) k"
                                " FROM information_schema.STATISTICS WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='%1' GROUP BY INDEX_NAME) Each_"_s.arg(table));
    }

    QString rowsIn(const KSql &term, bool isDescending = false)
    {
        const KSql direction = isDescending ? KSql(" DESC") : KSql();
        CTblTemp query;
        query.Open(true, false, true);
        QStringList keys;
        for (query.ExecuteQuery("SELECT iID FROM Persons WHERE iStatus=0 ORDER BY " + term + direction + ",iID" + direction); query.HasResultRow(); query.MoveNextResult())
            keys.append(query.GetTextFieldValue(0));
        return keys.join(u',');
    }

private Q_SLOTS:
    void init()
    {
        m_database.recreate();
        KTableSchema::forgetAll();
    }

    void tablesGetTheirKeysOnce()
    {
        makeTables();
        QVERIFY(OfficeKeys::areLacking());
        OfficeKeys::add();
        QCOMPARE(keysOf(u"AutomobilDemands"_s), u"code=iCode; listAmount=iArchiveUserID,iStatus,dAmountFrom; listCode=iArchiveUserID,iStatus,iCode;"
                                                " listReference=iArchiveUserID,iStatus,dateReference; listType=iArchiveUserID,iStatus,iAutomobilType;"
                                                " person=iPersonID; PRIMARY=iID"_s);
        const QString persons = keysOf(u"Persons"_s);
        QVERIFY2(persons.contains(u"listName=iStatus,orderOf_sName2;"_s), qPrintable(persons));
        QVERIFY(!OfficeKeys::areLacking());
        const ObservedStatements changes({u"ALTER"_s});
        OfficeKeys::add();
        QCOMPARE(changes.taken(), QStringList());
    }

    // A table that the module has not brought up yet gets what it has the columns for, and the rest later.
    void columnThatIsNotThereYetIsWaitedFor()
    {
        makeTables();
        m_database.run(u"ALTER TABLE AutomobilDemands DROP COLUMN dateReference"_s);
        OfficeKeys::add();
        QVERIFY(!keysOf(u"AutomobilDemands"_s).contains(u"listReference"_s));
        QVERIFY(!OfficeKeys::areLacking());
        m_database.run(u"ALTER TABLE AutomobilDemands ADD COLUMN dateReference DATETIME"_s);
        QVERIFY(OfficeKeys::areLacking());
        OfficeKeys::add();
        QVERIFY(keysOf(u"AutomobilDemands"_s).contains(u"listReference"_s));
    }

    void brokenOffRunIsGoneOnWith_data()
    {
        QTest::addColumn<QString>("done");
        QTest::newRow("behind the columns") << u"ALTER TABLE Persons ADD COLUMN orderOf_sName2 VARCHAR(200) CHARACTER SET utf8mb4 COLLATE"
                                               " utf8mb4_persian_ci AS (CONVERT(sName2 USING utf8mb4)) VIRTUAL INVISIBLE"_s;
        QTest::newRow("behind one table") << u"ALTER TABLE AutomobilDemands ADD KEY person (iPersonID), ADD KEY code (iCode)"_s;
    }

    void brokenOffRunIsGoneOnWith()
    {
        QFETCH(QString, done);
        makeTables();
        OfficeKeys::add();
        const QString demands = keysOf(u"AutomobilDemands"_s);
        const QString persons = keysOf(u"Persons"_s);
        m_database.recreate();
        makeTables();
        m_database.run(done);
        OfficeKeys::add();
        QCOMPARE(keysOf(u"AutomobilDemands"_s), demands);
        QCOMPARE(keysOf(u"Persons"_s), persons);
    }

    void progressNamesTheTables()
    {
        makeTables();
        QStringList told;
        OfficeKeys::add([&](const QString &table, int number, int count) { told.append(u"%1 %2/%3"_s.arg(table).arg(number).arg(count)); });
        QCOMPARE(told, QStringList({u"AutomobilDemands 1/3"_s, u"Documents 2/3"_s, u"Persons 3/3"_s}));
    }

    // The server refuses these words where it could not keep to them.
    void othersGoOnMeanwhile()
    {
        makeTables();
        addPersons();
        const ObservedStatements changes({u"ALTER"_s});
        OfficeKeys::add();
        QCOMPARE(changes.taken().size(), 4); // the columns of the texts, the keys of each table
        for (const QString &change : changes.taken())
            QVERIFY2(change.endsWith(u",ALGORITHM=INSTANT"_s) || change.endsWith(u",ALGORITHM=INPLACE,LOCK=NONE"_s), qPrintable(change));
    }

    void anotherDeskWritesWhileKeysAreBuilt()
    {
        makeTables();
        m_database.run(u"INSERT INTO AutomobilDemands(iCode,iPersonID) SELECT seq,seq%977 FROM seq_1_to_150000"_s);
        std::atomic<bool> isOver = false;
        std::atomic<int> written = 0;
        std::atomic<bool> isBegun = false;
        std::thread other([&, settings = m_database.settings()] {
            KConnection connection(settings);
            while (!isOver) {
                connection.run(QByteArrayLiteral("INSERT INTO AutomobilDemands(iCode,iPersonID) VALUES(1,1)"));
                ++written;
                isBegun = true;
            }
        });
        while (!isBegun)
            std::this_thread::yield();
        const int before = written;
        OfficeKeys::add();
        const int meanwhile = written - before;
        isOver = true;
        other.join();
        QVERIFY2(meanwhile > 1, "the other desk waited until all keys were there");
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands FORCE INDEX(person) WHERE iPersonID>=0"_s).toInt(), 150000 + written);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands FORCE INDEX(listCode) WHERE iArchiveUserID=0 AND iStatus=0"_s).toInt(), 150000 + written);
    }

    void tableThatCannotBeWrittenMeanwhileGetsItsKeysToo()
    {
        makeTables(u"MyISAM"_s);
        OfficeKeys::add();
        QVERIFY(keysOf(u"AutomobilDemands"_s).contains(u"person=iPersonID"_s));
    }

    void orderOfATextIsThatOfThePersianAlphabet()
    {
        makeTables();
        addPersons();
        const KSql stated = KSql::alphabetical(KSql::name(u"sName2"_s));
        const QString up = rowsIn(stated);
        const QString down = rowsIn(stated, true);
        QCOMPARE(up.count(u','), 10 * (hardTexts + hostileTexts()).size() + 20 - 1);
        OfficeKeys::add();
        QCOMPARE(KTableSchema::of(u"Persons"_s).orderColumn(u"sName2"_s), u"orderOf_sName2"_s);
        const KSql kept = KSql::name(u"orderOf_sName2"_s);
        QCOMPARE(rowsIn(kept), up);
        QCOMPARE(rowsIn(kept, true), down);
        m_database.run(u"UPDATE Persons SET sName2=CONCAT('ک',sName2) WHERE iID%3=0"_s);
        QVERIFY(rowsIn(kept) != up);
        QCOMPARE(rowsIn(kept), rowsIn(stated));
    }

    void listIsReadInTheOrderOfItsKey()
    {
        makeTables();
        addPersons();
        OfficeKeys::add();
        m_database.run(u"ANALYZE TABLE Persons"_s);
        CTblTemp query;
        query.Open(true, false, true);
        query.ExecuteQuery("EXPLAIN SELECT * FROM Persons WHERE iStatus=0 ORDER BY orderOf_sName2,iID LIMIT 10");
        QVERIFY(query.HasResultRow());
        QCOMPARE(query.GetTextFieldValue(5), u"listName"_s);
        QVERIFY2(!query.GetTextFieldValue(9).contains(u"filesort"_s), qPrintable(query.GetTextFieldValue(9)));
    }

    // Whoever reads or writes the whole row does not meet it.
    void columnOfAnOrderIsSeenByNobody()
    {
        makeTables();
        OfficeKeys::add();
        QVERIFY(!KTableSchema::of(u"Persons"_s).column(u"orderOf_sName2"_s));
        QVERIFY(KTableSchema::of(u"Persons"_s).column(u"sName2"_s));
        m_database.run(u"CREATE TABLE Copy AS SELECT * FROM Persons"_s);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='Copy' AND COLUMN_NAME LIKE 'orderOf%'"_s),
                 u"0"_s);
    }
};

static const RegisteredTest<TestOfficeKeys, QCoreApplication> registeredOfficeKeys;
#include "TestOfficeKeys.moc"
