// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/TestDatabase.h"

#include "suite/db/records/KLookup.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <limits>
#include <mysql.h>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

QStringList observed(const std::function<void()> &work)
{
    QStringList statements;
    KConnection::setStatementObserver([&](const QString &statement) { statements << statement; });
    work();
    KConnection::setStatementObserver({});
    return statements;
}

const QDateTime someDate(QDate(2021, 3, 22), QTime(0, 0), Qt::UTC);

}

class TestKMySQL : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

private Q_SLOTS:
    void init() { SampleRecord::createTable(); }
    void cleanup() { KConnection::setStatementObserver({}); }

    void manyRowsAreAddedByOneStatement()
    {
        const QStringList names{u"پژو 'O\\x"_s, {}, u"a"_s, u"');DROP"_s};
        QStringList statements;
        SampleRecord record;
        record.Open(true, false, true);
        // What is known of the tables' columns is asked beside it.
        KConnection::setStatementObserver([&](const QString &statement) {
            if (!statement.startsWith(u"SELECT"))
                statements.append(statement.section(u'(', 0, 0));
        });
        record.AddRows(names.size(), [&](qsizetype index) {
            record.m_sName = names.at(index);
            if (index == 1) {
                record.m_date = someDate;
                record.m_dAmount = -0.5;
            }
        });
        KConnection::setStatementObserver({});
        QCOMPARE(statements, (QStringList{u"START TRANSACTION"_s, u"INSERT INTO Samples"_s, u"COMMIT"_s}));
        record.m_sort = "iID";
        record.Open(true, true, true);
        for (const QString &name : names) {
            QCOMPARE(record.m_sName, name);
            QCOMPARE(record.m_date, name.isEmpty() ? someDate : QDateTime());
            QCOMPARE(record.m_dAmount, name.isEmpty() ? -0.5 : 0);
            record.MoveNext();
        }
        QVERIFY(record.IsEOF());
        // A value that was not set is the column's default, as of a single row.
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples WHERE sName IS NULL AND sNote IS NULL AND bFlag=0"_s), u"1"_s);
    }

    void ofManyRowsNoneIsAddedWhereOneIsWrong()
    {
        SampleRecord record;
        record.Open(true, false, true);
        record.AddRows(0, [](qsizetype) { QFAIL("there is none"); });
        const auto add = [&](const QStringList &names) {
            record.AddRows(names.size(), [&](qsizetype index) { record.m_sName = names.at(index); });
        };
        QVERIFY_THROWS_EXCEPTION(CMySQLException, add({u"a"_s, u"longer than it may be"_s}));
        QVERIFY_THROWS_EXCEPTION(CMySQLException, add({u"a"_s, u"b"_s, u"a"_s}));
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, record.AddRows(2, [](qsizetype index) {
            if (index == 1)
                throw std::runtime_error("refused");
        }));
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples"_s), u"0"_s);
        add({u"a"_s});
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples"_s), u"1"_s);
    }

    void everyKindOfColumnComesBackAsItWentIn()
    {
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_sName = u"پژو 'O\\x"_s;
        record.m_date = someDate;
        record.m_dAmount = 12345678901.123;
        record.m_bFlag = 1;
        record.m_oPicture.data = QByteArray("\0\x01'\\\xff", 5);
        record.m_iUserID = -7;
        QVERIFY(record.Update(true));
        QVERIFY(record.GetLastInsertedID() > 0);

        SampleRecord again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(record.GetLastInsertedID())));
        QCOMPARE(again.m_sName, record.m_sName);
        QCOMPARE(again.m_date, someDate);
        QCOMPARE(again.m_dAmount, 12345678901.123);
        QCOMPARE(again.m_bFlag, 1);
        QCOMPARE(again.m_oPicture.data, record.m_oPicture.data);
        QCOMPARE(again.m_iUserID, -7);
    }

    void nullAndTheEmptyDateAreOneThingInBothDirections()
    {
        const qint32 key = addSample(u"a"_s);
        SampleRecord record;
        QVERIFY(record.IsRecordExist(u"iID"_s, key));
        QVERIFY(!record.m_date.isValid());
        record.Edit();
        record.m_date = someDate;
        record.Update(true);
        record.Edit();
        record.m_date = QDateTime();
        record.Update(true);
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT COUNT(*) FROM Samples WHERE date IS NULL", true, true);
        QCOMPARE(temp.GetLongFieldValue(0), 1);
    }

    void nullsOfEveryKindAreReadAsConstructed()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("INSERT INTO Samples(sName,sNote,date,dAmount,bFlag,oPicture,iUserID) VALUES(NULL,NULL,NULL,NULL,NULL,NULL,NULL)",
                          true, true);
        // What an earlier row left in the members must not show through.
        addSample(u"full"_s, 9);
        SampleRecord record;
        record.m_sort = "iID DESC";
        record.Open(true, true, true);
        QCOMPARE(record.m_dAmount, 9.0);
        record.m_oPicture.data = QByteArray("x");
        QVERIFY(record.MoveNext());
        QVERIFY(record.m_sName.isEmpty());
        QVERIFY(record.m_sNote.isEmpty());
        QVERIFY(!record.m_date.isValid());
        QCOMPARE(record.m_dAmount, 0.0);
        QCOMPARE(record.m_bFlag, 0);
        QVERIFY(record.m_oPicture.isEmpty());
        QCOMPARE(record.m_iUserID, 0);
    }

    void emptyTextAndEmptyPictureAreWrittenOverWhatWasThere()
    {
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_sNote = u"متن"_s;
        record.m_oPicture.data = QByteArray("picture");
        record.Update(true);
        record.Edit();
        record.m_sNote.clear();
        record.m_oPicture.data.clear();
        record.Update(true);
        SampleRecord again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(record.GetLastInsertedID())));
        QVERIFY(again.m_sNote.isEmpty());
        QVERIFY(again.m_oPicture.isEmpty());
    }

    void zeroDateOfTheDatabaseIsTheEmptyDate()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SET SESSION sql_mode=''", true, true);
        temp.ExecuteQuery("INSERT INTO Samples(date) VALUES('0000-00-00')", true, true);
        KConnection::closeThreadConnections();
        SampleRecord record;
        record.Open(true, true, true);
        QVERIFY(!record.IsEOF());
        QVERIFY(!record.m_date.isValid());
    }

    void rowsComeFilteredSortedAndLimited()
    {
        for (int i = 1; i <= 5; ++i)
            addSample(u"n%1"_s.arg(i), i);
        SampleRecord record;
        record.m_filter = "dAmount>1";
        record.m_sort = "dAmount DESC";
        record.SetLimit(3);
        QVERIFY(record.Open(true, true, true));
        QCOMPARE(record.GetRecordsCount(), 3);
        QList<double> seen;
        while (!record.IsEOF()) {
            seen << record.m_dAmount;
            record.MoveNext();
        }
        QCOMPARE(seen, (QList<double>{5, 4, 3}));
        record.MoveLast();
        QCOMPARE(record.m_dAmount, 3.0);
        QVERIFY(!record.IsEOF());
        record.m_filter = {};
        record.SetLimit(0);
        QVERIFY(record.Requery());
        QCOMPARE(record.GetRecordsCount(), 5);
    }

    void rowsAreCountedWhateverTheLimit_data()
    {
        QTest::addColumn<KSql>("filter");
        QTest::addColumn<qint64>("rows");
        QTest::newRow("all") << KSql() << qint64(5);
        QTest::newRow("some") << KSql("dAmount>1") << qint64(4);
        QTest::newRow("none") << KSql("dAmount>9") << qint64(0);
        QTest::newRow("grouped") << KSql("dAmount>0 GROUP BY dAmount>2") << qint64(2);
    }

    void rowsAreCountedWhateverTheLimit()
    {
        QFETCH(KSql, filter);
        for (int i = 1; i <= 5; ++i)
            addSample(u"n%1"_s.arg(i), i);
        SampleRecord record;
        record.m_filter = filter;
        record.SetLimit(1);
        QVERIFY(record.Open(true, true, true));
        QTEST(record.CountMatching(), "rows");
    }

    void rowsAreCountedUpToABound()
    {
        for (int i = 1; i <= 5; ++i)
            addSample(u"n%1"_s.arg(i), i);
        SampleRecord record;
        QCOMPARE(record.CountMatching(3), 3);
        QCOMPARE(record.CountMatching(9), 5);
    }

    void aListingReadInPartsIsTheListingReadAtOnce_data()
    {
        QTest::addColumn<KSql>("sort");
        for (const char *sort : {"", "iID", "iID DESC", "sNote", "sNote DESC", "date", "date DESC", "dAmount", "dAmount DESC", "sNote,date DESC", "date DESC,sNote", "dAmount-iUserID DESC", "bFlag,sNote DESC,dAmount"})
            QTest::newRow(*sort ? sort : "none") << KSql::order(QLatin1String(sort));
    }

    // Many are alike, many are NULL, and the letters are those that people mix up.
    void aListingReadInPartsIsTheListingReadAtOnce()
    {
        QFETCH(KSql, sort);
        CTblTemp fill;
        fill.ExecuteQuery("INSERT INTO Samples(sName,sNote,date,dAmount,bFlag,iUserID) SELECT seq,"
                          "ELT(1+MOD(seq*7,9),'ي','ی','ک','ك','','آ\\'','ا  ب',NULL,'ا‌ب'),"
                          "IF(MOD(seq,4)=0,NULL,'2024-03-20'+INTERVAL MOD(seq*5,6) DAY),IF(MOD(seq,11)=0,NULL,MOD(seq*13,7)/3),MOD(seq,3),MOD(seq,5) FROM seq_1_to_97",
                          true, true);
        const auto readAll = [&sort](int part) {
            QList<int> keys;
            SampleRecord record;
            record.SetListing(true);
            record.m_filter = "iID<>50 AND iUserID<4";
            record.m_sort = sort;
            record.SetLimit(part);
            for (;;) {
                record.Open(true, true, true);
                const qint64 read = record.GetRecordsCount();
                for (; !record.IsEOF(); record.MoveNext())
                    keys.append(record.m_iID);
                if (read < part)
                    return keys;
                record.SetBehind(record.LastRow());
            }
        };
        const QList<int> atOnce = readAll(1000);
        QVERIFY(atOnce.size() > 70);
        for (const int part : {1, 2, 7, 30})
            QCOMPARE(readAll(part), atOnce);
        // The order that was asked for is kept.
        SampleRecord record;
        record.m_sort = sort;
        record.m_filter = "iID<>50 AND iUserID<4";
        record.Open(true, true, true);
        const auto termsOf = [&](int key) {
            CTblTemp value;
            value.ExecuteQuery(KSql::formatted("SELECT IFNULL(%1,'none') FROM Samples WHERE iID=%2", sort == KSql("dAmount DESC") ? KSql("dAmount") : sort, key));
            return value.GetTextFieldValue(0);
        };
        if (sort != KSql("date") && sort != KSql("dAmount DESC") && sort != KSql("sNote"))
            return;
        for (const int key : atOnce) {
            QCOMPARE(termsOf(key).isEmpty(), termsOf(record.m_iID).isEmpty());
            if (sort != KSql("sNote")) // in which several letters are one
                QCOMPARE(termsOf(key), termsOf(record.m_iID));
            record.MoveNext();
        }
    }

    // A table that has a column for the order of a text is read by that, and gives the same rows.
    void orderOfATextIsReadFromItsColumn_data()
    {
        QTest::addColumn<KSql>("sort");
        QTest::newRow("up") << KSql("sNote");
        QTest::newRow("down") << KSql("sNote DESC");
        QTest::newRow("with another") << KSql("sNote,date DESC");
        QTest::newRow("behind another") << KSql("date DESC,sNote");
    }

    void orderOfATextIsReadFromItsColumn()
    {
        QFETCH(KSql, sort);
        CTblTemp fill;
        fill.ExecuteQuery("INSERT INTO Samples(sName,sNote,date) SELECT seq,ELT(1+MOD(seq*7,9),'ي','ی','ک','ك','','آ\\'','ا  ب',NULL,'ا‌ب'),"
                          "IF(MOD(seq,4)=0,NULL,'2024-03-20'+INTERVAL MOD(seq*5,6) DAY) FROM seq_1_to_97",
                          true, true);
        const auto readInParts = [&sort] {
            QList<int> keys;
            SampleRecord record;
            record.SetListing(true);
            record.m_sort = sort;
            record.SetLimit(10);
            for (;;) {
                record.Open(true, true, true);
                const qint64 read = record.GetRecordsCount();
                for (; !record.IsEOF(); record.MoveNext())
                    keys.append(record.m_iID);
                if (read < 10)
                    return keys;
                record.SetBehind(record.LastRow());
            }
        };
        const QList<int> computed = readInParts();
        QCOMPARE(computed.size(), 97);
        fill.ExecuteQuery("ALTER TABLE Samples ADD COLUMN orderOf_sNote VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_persian_ci AS (CONVERT(sNote USING utf8mb4))"
                          " VIRTUAL INVISIBLE,ADD KEY note (orderOf_sNote)",
                          true, true);
        KTableSchema::forgetAll();
        QList<int> kept;
        const QStringList statements = observed([&] { kept = readInParts(); });
        QCOMPARE(kept, computed);
        const QStringList reads = statements.filter(u"FROM Samples"_s);
        QVERIFY(reads.size() >= 10);
        for (const QString &read : reads)
            QVERIFY2(read.contains(u"orderOf_sNote"_s) && !read.contains(u"CONVERT"_s), qPrintable(read));
        // Its own table's alone: the member is not looked for under that name.
        SampleRecord record;
        record.m_sName = u"new"_s;
        record.AddNew();
        record.m_sNote = u"ب"_s;
        QVERIFY(record.Update(true));
    }

    void rowsBehindOneThatIsGoneAreFound()
    {
        for (int i = 1; i <= 6; ++i)
            addSample(u"n%1"_s.arg(i), 7 - i);
        SampleRecord record;
        record.SetListing(true);
        record.m_sort = "dAmount";
        record.SetLimit(2);
        record.Open(true, true, true);
        record.SetBehind(record.LastRow());
        CTblTemp other;
        other.ExecuteQuery("DELETE FROM Samples WHERE sName='n5'");
        other.ExecuteQuery("UPDATE Samples SET dAmount=100 WHERE sName='n4'");
        record.Open(true, true, true);
        QCOMPARE(record.m_sName, u"n3"_s);
        record.MoveNext();
        QCOMPARE(record.m_sName, u"n2"_s);
        // All are counted, not only those behind.
        QCOMPARE(record.CountMatching(), 5);
    }

    void keyThatIsNotThereLeavesTheMembersAsConstructed()
    {
        const qint32 key = addSample(u"a"_s, 4);
        SampleRecord record;
        QVERIFY(record.IsRecordExist(u"iID"_s, key));
        QVERIFY(!record.IsRecordExist(u"iID"_s, key + 100));
        QCOMPARE(record.m_iID, 0);
        QCOMPARE(record.m_dAmount, 0.0);
        QVERIFY(record.m_sName.isEmpty());
        QVERIFY(record.IsEOF());
    }

    void updateWritesOnlyTheColumnsThatChanged()
    {
        const qint32 key = addSample(u"a"_s, 4);
        SampleRecord record;
        QVERIFY(record.IsRecordExist(u"iID"_s, key));
        record.Edit();
        record.m_dAmount = 5.5;
        const QStringList statements = observed([&] { record.Update(true); });
        QCOMPARE(statements, (QStringList{u"START TRANSACTION"_s, u"UPDATE Samples SET dAmount=5.5 WHERE iID=%1 LIMIT 1"_s.arg(key), u"COMMIT"_s}));
        record.Edit();
        QVERIFY(observed([&] { record.Update(true); }).isEmpty());
    }

    void changeOfTheSameRowByTwoUsersKeepsBothColumns()
    {
        const qint32 key = addSample(u"a"_s, 4);
        SampleRecord one;
        SampleRecord other;
        one.IsRecordExist(u"iID"_s, key);
        other.IsRecordExist(u"iID"_s, key);
        one.Edit();
        one.m_dAmount = 9;
        other.Edit();
        other.m_sNote = u"یاد"_s;
        one.Update(true);
        other.Update(true);
        SampleRecord seen;
        seen.IsRecordExist(u"iID"_s, key);
        QCOMPARE(seen.m_dAmount, 9.0);
        QCOMPARE(seen.m_sNote, u"یاد"_s);
    }

    void columnSubsetFetchesThoseColumnsAndTheKey()
    {
        addSample(u"a"_s, 4);
        SampleRecord record;
        record.SetColumns({u"dAmount"_s});
        const QStringList statements = observed([&] { record.Open(true, true, true); });
        QCOMPARE(statements, QStringList{u"SELECT iID,dAmount FROM Samples"_s});
        QCOMPARE(record.m_dAmount, 4.0);
        QVERIFY(record.m_sName.isEmpty());
        record.Edit();
        record.m_dAmount = 6;
        record.Update(true);
        SampleRecord whole;
        whole.IsRecordExist(u"iID"_s, record.m_iID);
        QCOMPARE(whole.m_sName, u"a"_s);
        QCOMPARE(whole.m_dAmount, 6.0);
    }

    void cancelUpdateBringsTheMembersBack()
    {
        const qint32 key = addSample(u"a"_s, 4);
        SampleRecord record;
        record.IsRecordExist(u"iID"_s, key);
        record.Edit();
        record.m_dAmount = 77;
        record.CancelUpdate();
        QCOMPARE(record.m_dAmount, 4.0);
        record.AddNew();
        QCOMPARE(record.m_dAmount, 0.0);
        record.m_sName = u"b"_s;
        record.CancelUpdate();
        QCOMPARE(record.m_iID, key);
        QCOMPARE(record.m_sName, u"a"_s);
    }

    void operationsWithoutARowAreAClearError()
    {
        SampleRecord record;
        record.Open(true, true, true);
        QVERIFY(record.IsEOF());
        QCOMPARE(raisedCategory([&] { record.Edit(); }), Category::NoCurrentRow);
        QCOMPARE(raisedCategory([&] { record.Update(true); }), Category::NoCurrentRow);
        QCOMPARE(raisedCategory([&] { record.Delete(); }), Category::NoCurrentRow);
        QCOMPARE(raisedCategory([&] { record.MoveNext(); }), Category::NoCurrentRow);
        QCOMPARE(raisedCategory([&] { record.MoveLast(); }), Category::NoCurrentRow);
        QVERIFY(!record.Update(false));
        SampleRecord unopened;
        QCOMPARE(raisedCategory([&] { unopened.MoveNext(); }), Category::NoCurrentRow);
    }

    void deletedRowIsGoneAndTheSetGoesOn()
    {
        addSample(u"a"_s, 1);
        addSample(u"b"_s, 2);
        SampleRecord record;
        record.m_sort = "iID";
        record.Open(true, true, true);
        QVERIFY(record.Delete());
        QCOMPARE(raisedCategory([&] { record.Edit(); }), Category::NoCurrentRow);
        QVERIFY(record.MoveNext());
        QCOMPARE(record.m_sName, u"b"_s);
        record.Requery();
        QCOMPARE(record.GetRecordsCount(), 1);
    }

    void deletingARowThatSomebodyElseDeletedFirstIsDone()
    {
        const qint32 key = addSample(u"a"_s);
        SampleRecord record;
        record.IsRecordExist(u"iID"_s, key);
        CTblTemp temp;
        temp.Open(true, false, true);
        QCOMPARE(temp.FormatAndExecuteQuery("DELETE FROM Samples WHERE iID=%d LIMIT 1", key), 1);
        QVERIFY(record.Delete());
    }

    void updatingARowThatVanishedIsAnErrorAndKeepsWhatWasTyped()
    {
        const qint32 key = addSample(u"a"_s);
        SampleRecord record;
        record.IsRecordExist(u"iID"_s, key);
        CTblTemp temp;
        temp.Open(true, false, true);
        temp.FormatAndExecuteQuery("DELETE FROM Samples WHERE iID=%d", key);
        record.Edit();
        record.m_sNote = u"متن"_s;
        QCOMPARE(raisedCategory([&] { record.Update(true); }), Category::NoCurrentRow);
        QCOMPARE(record.m_sNote, u"متن"_s);
    }

    void textLongerThanItsColumnIsRefusedWithTheCaption_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("ten persian letters fit") << QString(10, QChar(u'ی')) << true;
        QTest::newRow("eleven do not") << QString(11, QChar(u'ی')) << false;
        QTest::newRow("eleven blanks do not") << QString(11, QChar(u' ')) << false;
    }

    void textLongerThanItsColumnIsRefusedWithTheCaption()
    {
        QFETCH(QString, text);
        QFETCH(bool, accepted);
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_sName = text;
        record.m_sNote = u"می‌ماند"_s;
        QString caption;
        const auto category = raisedCategory([&] { record.Update(true); }, &caption);
        QCOMPARE(category.has_value(), !accepted);
        if (accepted)
            return;
        QCOMPARE(*category, Category::ValueTooLong);
        QCOMPARE(caption, u"نام"_s);
        QCOMPARE(record.m_sName, text);
        QCOMPARE(record.m_sNote, u"می‌ماند"_s);
        record.m_sName = u"کوتاه"_s;
        QVERIFY(record.Update(true));
    }

    void characterOutsideTheTablesCharacterSetIsRefusedWithTheCaption()
    {
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_sNote = u"خودرو 🚗"_s;
        QString caption;
        QString message;
        QCOMPARE(raisedCategory([&] { record.Update(true); }, &caption, &message), Category::BadCharacter);
        QCOMPARE(caption, u"یادداشت"_s);
        QVERIFY(message.contains(caption));
        QCOMPARE(record.m_sNote, u"خودرو 🚗"_s);
    }

    void duplicateKeyHasItsCategoryAndKeepsTheMembers()
    {
        addSample(u"a"_s);
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_sName = u"a"_s;
        record.m_dAmount = 3;
        QCOMPARE(raisedCategory([&] { record.Update(true); }), Category::DuplicateKey);
        QCOMPARE(record.m_dAmount, 3.0);
        QVERIFY(!record.Update(false));
        record.m_sName = u"b"_s;
        QVERIFY(record.Update(true));
    }

    void badStatementHasItsCategory()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        QCOMPARE(raisedCategory([&] { temp.ExecuteQuery("SELEKT 1", true, true); }), Category::BadStatement);
        QCOMPARE(raisedCategory([&] { temp.ExecuteQuery("SELECT nothing FROM Samples", true, true); }), Category::BadStatement);
        SampleRecord record;
        record.m_filter = "noColumn=1";
        QVERIFY(!record.Open(true, true, false));
    }

    void schemaAlreadySoIsPassedOverOnlyWithTheFirstFlagFalse()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        const char *statement = "ALTER TABLE Samples ADD COLUMN bFlag TINYINT DEFAULT 0";
        QCOMPARE(temp.ExecuteQuery(statement, false, true), 0);
        QCOMPARE(raisedCategory([&] { temp.ExecuteQuery(statement, true, true); }), Category::AlreadySo);
        QCOMPARE(raisedCategory([&] { temp.ExecuteQuery("ALTER TABLE Nothing ADD COLUMN a INT", false, true); }),
                 Category::BadStatement);
    }

    void singleValuesOfAFreeStatement()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT 42,2.5,'متن',NULL,'2026-11-20 10:11:12' UNION ALL SELECT 43,0,'',0,NULL", true);
        QCOMPARE(temp.GetLongFieldValue(0), 42);
        QCOMPARE(temp.GetDoubleFieldValue(1), 2.5);
        QCOMPARE(temp.GetTextFieldValue(2), u"متن"_s);
        QCOMPARE(temp.GetLongFieldValue(3), 0);
        QCOMPARE(temp.GetDateFieldValue(4), QDateTime(QDate(2026, 11, 20), QTime(10, 11, 12), Qt::UTC));
        QCOMPARE(temp.GetLongFieldValue(99), 0);
        QVERIFY(temp.MoveNextResult());
        QCOMPARE(temp.GetLongFieldValue(0), 43);
        QVERIFY(!temp.MoveNextResult());
        QVERIFY(!temp.HasResultRow());
        QCOMPARE(temp.GetLongFieldValue(0), 0);
    }

    void maximumOfAnEmptyTableIsZero()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT MAX(iID) FROM Samples", true, true);
        QCOMPARE(temp.GetLongFieldValue(0), 0);
    }

    void captionsAndLookupsAreListed()
    {
        SampleRecord record;
        QCOMPARE(record.columns().size(), size_t(8));
        const KMySQL::Column *user = record.column(u"iUserID");
        QVERIFY(user);
        QCOMPARE(user->caption, u"کاربر"_s);
        QCOMPARE(user->lookupTable, u"Users"_s);
        QCOMPARE(user->lookupKey, u"iID"_s);
        QCOMPARE(user->lookupDisplay, u"sUser"_s);
        QVERIFY(!record.column(u"iuserid"));
        QCOMPARE(record.textLength(u"sName"), 10);
        QCOMPARE(record.textLength(u"dAmount"), 0);
        record.setValue(u"dAmount", 4.5);
        QCOMPARE(record.m_dAmount, 4.5);
        QCOMPARE(record.value(u"dAmount").toDouble(), 4.5);
    }

    void liveObjectsAreCounted()
    {
        const int before = SampleRecord::liveCount();
        {
            SampleRecord one;
            SampleRecord two;
            QCOMPARE(SampleRecord::liveCount(), before + 2);
        }
        QCOMPARE(SampleRecord::liveCount(), before);
    }

    void namesOfManyKeysTakeOneStatement()
    {
        const int a = addSample(u"a"_s);
        const int b = addSample(u"b"_s);
        const KLookup::Source source{u"Samples"_s, u"iID"_s, u"sName"_s};
        QHash<int, QString> names;
        const QStringList statements = observed([&] {
            names = KLookup::names(source, {b, a, b, 0, 999});
        });
        QCOMPARE(statements.size(), 1);
        QCOMPARE(names, (QHash<int, QString>{{a, u"a"_s}, {b, u"b"_s}}));
        QVERIFY(observed([&] { KLookup::names(source, {0}); }).isEmpty());
    }

    void namesBehindAColumnComeFromItsDeclaration()
    {
        const int a = addSample(u"a"_s);
        SampleRecord record;
        QCOMPARE(record.nameSource(u"iUserID").table, u"Users"_s);
        QCOMPARE(record.nameSource(u"iUserID").display, u"sUser"_s);
        QVERIFY(record.nameSource(u"sName").table.isEmpty());
        QVERIFY(record.nameSource(u"unknown").table.isEmpty());
        // Said beside the binding, which itself offers no lookup.
        QVERIFY(record.column(u"bFlag")->lookupTable.isEmpty());
        const QStringList statements = observed([&] {
            QCOMPARE(KLookup::names(record, u"bFlag", {a, 0, 999}), (QHash<int, QString>{{a, u"a"_s}}));
            QCOMPARE(KLookup::names<SampleRecord>(u"bFlag", {a}), (QHash<int, QString>{{a, u"a"_s}}));
            QCOMPARE(KLookup::name(record, u"bFlag", a), u"a"_s);
            QCOMPARE(KLookup::name<SampleRecord>(u"bFlag", 999), QString());
            QCOMPARE(KLookup::name(record, u"bFlag"), QString());
            record.m_bFlag = a;
            QCOMPARE(KLookup::name(record, u"bFlag"), u"a"_s);
        });
        const QString one = u"SELECT iID,sName FROM Samples WHERE iID IN (%1)"_s;
        QCOMPARE(statements, (QStringList{one.arg(u"%1,999"_s.arg(a)), one.arg(a), one.arg(a), one.arg(999), one.arg(a)}));
    }

    void valueOutOfItsColumnsRangeIsRefusedWithTheCaption_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("caption");
        QTest::newRow("flag above a byte") << u"bFlag"_s << QVariant(300) << u"پرچم"_s;
        QTest::newRow("flag below a byte") << u"bFlag"_s << QVariant(-129) << u"پرچم"_s;
        QTest::newRow("year of five digits") << u"date"_s << QVariant(QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC))
                                             << u"تاريخ"_s;
        QTest::newRow("year before the first") << u"date"_s << QVariant(QDateTime(QDate(-5, 1, 1), QTime(0, 0), Qt::UTC))
                                               << u"تاريخ"_s;
        QTest::newRow("no number") << u"dAmount"_s << QVariant(std::numeric_limits<double>::quiet_NaN())
                                   << u"مبلغ"_s;
    }

    void valueOutOfItsColumnsRangeIsRefusedWithTheCaption()
    {
        QFETCH(QString, column);
        QFETCH(QVariant, value);
        QFETCH(QString, caption);
        const qint32 key = addSample(u"a"_s, 4);
        SampleRecord record;
        record.IsRecordExist(u"iID"_s, key);
        record.Edit();
        record.m_sNote = u"می‌ماند"_s;
        record.setValue(column, value);
        QString named;
        QCOMPARE(raisedCategory([&] { record.Update(true); }, &named), Category::ValueTooLong);
        QCOMPARE(named, caption);
        QCOMPARE(record.m_sNote, u"می‌ماند"_s);
        QVERIFY(record.isEditing());
        record.CancelUpdate();
        QCOMPARE(record.m_dAmount, 4.0);
    }

    void largestNumbersOfEveryKindComeBack()
    {
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_iUserID = std::numeric_limits<qint32>::min();
        record.m_bFlag = 127;
        record.m_dAmount = std::numeric_limits<double>::max();
        record.m_date = QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59), Qt::UTC);
        QVERIFY(record.Update(true));
        SampleRecord again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(record.GetLastInsertedID())));
        QCOMPARE(again.m_iUserID, std::numeric_limits<qint32>::min());
        QCOMPARE(again.m_bFlag, 127);
        QVERIFY(again.m_dAmount == std::numeric_limits<double>::max());
        QCOMPARE(again.m_date, record.m_date);
    }

    void formattedStatementTakesTextsNumbersAndPercentSigns()
    {
        const qint32 key = addSample(u"پژو"_s, 2.5);
        CTblTemp temp;
        temp.Open(true, false, true);
        QCOMPARE(temp.FormatAndExecuteQuery("SELECT sName FROM Samples WHERE sName LIKE %s AND sName<>'%%' AND dAmount=%f AND iID=%d",
                                            KSql::quoted(u"%پژ%"_s), 2.5, static_cast<int>(key)),
                 1);
        QCOMPARE(temp.GetTextFieldValue(0), u"پژو"_s);
    }

    // In a table as the office's are, whose own order follows the code points.
    void textsFollowThePersianAlphabet()
    {
        for (const char *name : {"یاس", "کامران", "پرویز", "تقی", "گیتی", "لاله", "بهرام", "چنگیز", "ژاله", "سارا", "زهرا", "وحید", "هما", "كاوه", "آذر", "يدالله"})
            addSample(QString::fromUtf8(name));
        const auto names = [](const KSql &sort) {
            SampleRecord record;
            record.m_sort = sort;
            QStringList found;
            for (record.Open(true, true, true); !record.IsEOF(); record.MoveNext())
                found.append(record.m_sName);
            return found.join(u' ');
        };
        const QString rising = u"آذر بهرام پرویز تقی چنگیز زهرا ژاله سارا کامران كاوه گیتی لاله وحید هما یاس يدالله"_s;
        QCOMPARE(names("sName"), rising);
        QCOMPARE(names("sName,iID DESC"), rising);
        QStringList falling = rising.split(u' ');
        std::reverse(falling.begin(), falling.end());
        QCOMPARE(names("sName DESC"), falling.join(u' '));
    }

    void onlyColumnsOfTheTableSort()
    {
        SampleRecord record;
        QVERIFY(record.canSortBy({}));
        QVERIFY(record.canSortBy("sName DESC,iID"));
        QVERIFY(record.canSortBy("dAmount+iUserID"));
        QVERIFY(!record.canSortBy("iCode"));
        QVERIFY(!record.canSortBy("iID,iCode DESC"));
    }

    void infiniteAmountIsRefused()
    {
        SampleRecord record;
        record.Open(true, false, true);
        record.AddNew();
        record.m_dAmount = std::numeric_limits<double>::infinity();
        QCOMPARE(raisedCategory([&] { record.Update(true); }), Category::ValueTooLong);
    }
};

static const RegisteredTest<TestKMySQL, QCoreApplication> registeredKMySQL;
#include "TestKMySQL.moc"
