// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CForoush.h"
#include "suite/accounting/taxfile/CForoush_Detail.h"
#include "suite/accounting/taxfile/CKharid.h"
#include "suite/accounting/taxfile/KAccessDatabase.h"
#include "tests/support/AccessFileReader.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString modules = u"" TZ_BUILT_MODULES ""_s;
const QString heads = u"Foroush"_s;

// Sends the signal; false when there is no such process.
bool signalled(qint64 process, const QString &signal)
{
    QProcess kill;
    kill.start(u"kill"_s, {u'-' + signal, QString::number(process)});
    return kill.waitForFinished() && kill.exitCode() == 0;
}

QString messageOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// Records through the helper, read back by another program.
class TestKRecordset : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;

    QString path() const { return m_folder->filePath(u"file.mdb"_s); }

    // The module's folder with a mapping changed by replacing a text in it.
    QString changedModules(const QByteArray &text, const QByteArray &by)
    {
        const QString folder = m_folder->filePath(u"modules"_s);
        QFile original(modules + u"/TTMS.mapping.json"_s);
        QFile changed(folder + u"/TTMS.mapping.json"_s);
        if (!QDir().mkpath(folder) || !QFile::link(modules + u"/taxfile"_s, folder + u"/taxfile"_s)
            || !original.open(QIODevice::ReadOnly) || !changed.open(QIODevice::WriteOnly))
            qFatal("no folder");
        const QByteArray content = original.readAll();
        if (!content.contains(text) || changed.write(QByteArray(content).replace(text, by)) < 1)
            qFatal("nothing to change");
        return folder;
    }

    static void addHead(SeasonalHead &head, const QString &guid, int season)
    {
        head.AddNew();
        head.m_sGuid = guid;
        head.m_iSeason = season;
        head.Update();
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QFile::copy(modules + u"/TTMS.mdb"_s, path()));
    }

    void openStartsTheHelperAndCloseEndsIt()
    {
        KAccessDatabase database(modules);
        QVERIFY(!database.IsOpen());
        QCOMPARE(database.helperProcess(), 0);
        database.Open(path());
        QVERIFY(database.IsOpen());
        QVERIFY(database.helperProcess() > 0);
        database.Close();
        QVERIFY(!database.IsOpen());
        QCOMPARE(database.helperProcess(), 0);
        database.Close();
    }

    void addedRecordsStandInTheFile()
    {
        KAccessDatabase database(modules);
        CForoush head(&database);
        head.SetFilePath(path());
        head.Open(); // opens the database as well
        QVERIFY(head.IsOpen() && database.IsOpen());
        addHead(head, u"یک"_s, 1);
        head.Update(); // nothing was begun
        addHead(head, u"دو"_s, 2);
        head.Close();
        QVERIFY(!head.IsOpen());
        database.Close();
        const QVector<QJsonObject> records = AccessFileReader(path()).records(heads);
        QCOMPARE(records.size(), 2);
        QCOMPARE(records.at(0).value(u"ID"_s).toString(), u"یک"_s);
        QCOMPARE(records.at(1).value(u"Season"_s).toInt(), 2);
        QVERIFY(!records.at(0).contains(u"Year"_s));
    }

    void newRecordBeginsWithoutTheValuesOfTheLast()
    {
        KAccessDatabase database(modules);
        database.Open(path());
        CForoush head(&database);
        head.Open();
        addHead(head, u"a"_s, 3);
        head.AddNew();
        QVERIFY(!head.m_iSeason && !head.m_sGuid);
        head.m_sGuid = u"b"_s;
        head.Update();
        database.Close();
        QVERIFY(!AccessFileReader(path()).records(heads).at(1).contains(u"Season"_s));
    }

    void deleteAllTakesWhatWasThereAndWhatWasAdded()
    {
        for (const int expected : {2, 1}) {
            KAccessDatabase database(modules);
            database.Open(path());
            CForoush head(&database);
            head.Open();
            if (expected == 1) {
                addHead(head, u"c"_s, 1);
                head.DeleteAllRecords();
                addHead(head, u"d"_s, 1);
            } else {
                addHead(head, u"a"_s, 1);
                addHead(head, u"b"_s, 1);
            }
            database.Close();
            QCOMPARE(AccessFileReader(path()).count(heads), expected);
        }
        QCOMPARE(AccessFileReader(path()).records(heads).first().value(u"ID"_s).toString(), u"d"_s);
    }

    void editChangesTheFirstRecordAndKeepsWhatItIsNotGiven()
    {
        KAccessDatabase database(modules);
        database.Open(path());
        CForoush head(&database);
        head.Open();
        head.Edit(); // of an empty table: adds
        head.m_sGuid = u"a"_s;
        head.m_iSeason = 1;
        head.m_iYear = 1404;
        head.Update();
        addHead(head, u"b"_s, 2);
        head.Edit();
        head.m_iSeason = 4;
        head.Update();
        database.Close();
        const QVector<QJsonObject> records = AccessFileReader(path()).records(heads);
        QCOMPARE(records.size(), 2);
        QCOMPARE(records.at(0), (QJsonObject{{u"ID"_s, u"a"_s}, {u"Season"_s, 4}, {u"Year"_s, 1404}}));
        QCOMPARE(records.at(1).value(u"Season"_s).toInt(), 2);
    }

    void tablesMayBeFilledInTurns()
    {
        KAccessDatabase database(modules);
        database.Open(path());
        CForoush sales(&database);
        CKharid purchases(&database);
        sales.Open();
        purchases.Open();
        for (int season = 1; season <= 3; ++season) {
            addHead(sales, u"s"_s, season);
            addHead(purchases, u"p"_s, 4);
        }
        database.Close();
        const AccessFileReader file(path());
        QCOMPARE(file.count(heads), 3);
        QCOMPARE(file.count(u"Kharid"_s), 3);
        QCOMPARE(file.records(heads).at(2).value(u"Season"_s).toInt(), 3);
    }

    void textOfAnyKindComesBack_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("Persian") << u"نشانیِ می‌شود، ۱۲۳ «گ»"_s;
        QTest::newRow("Arabic letters") << u"كاراي"_s;
        QTest::newRow("tab and lines") << u"a\tb\nc\r\nd"_s;
        QTest::newRow("backslashes") << u"\\N \\t \\\\ \\"_s;
        QTest::newRow("the sign for nothing") << u"\\N"_s;
        QTest::newRow("quotes") << u"' \" ` ; --"_s;
        QTest::newRow("longest") << QString(255, u'ی');
    }

    void textOfAnyKindComesBack()
    {
        QFETCH(QString, text);
        KAccessDatabase database(modules);
        database.Open(path());
        CForoush_Detail detail(&database);
        detail.Open();
        detail.AddNew();
        detail.m_sAddress = text;
        detail.Update();
        database.Close();
        const QVector<QJsonObject> records = AccessFileReader(path()).records(u"Foroush_Detail"_s);
        QCOMPARE(records.size(), 1);
        QCOMPARE(records.first().value(u"Address"_s).toString(), text);
    }

    // The file of the authority calls things otherwise, and has less.
    void mappingNamesTablesAndFields()
    {
        const QString own = changedModules("{ \"role\": \"Foroush\", \"name\": \"Foroush\"",
                                           "{ \"role\": \"Foroush\", \"name\": \"kharid\"");
        // The other table would then stand twice.
        KAccessDatabase twice(own);
        QVERIFY(messageOf([&] { twice.Open(path()); }).contains(u"Kharid"_s));
    }

    void valueWithoutAFieldIsNotWritten()
    {
        KAccessDatabase database(changedModules("{ \"value\": \"goodsKind\", \"name\": \"GoodsKind\", \"type\": \"long\" },", ""));
        database.Open(path());
        CForoush_Detail detail(&database);
        detail.Open();
        detail.AddNew();
        detail.m_iGoodsKind = 12;
        detail.m_sName = u"علی"_s;
        detail.Update();
        database.Close();
        const QJsonObject record = AccessFileReader(path()).records(u"Foroush_Detail"_s).value(0);
        QVERIFY(!record.contains(u"GoodsKind"_s));
        QCOMPARE(record.value(u"FirstName"_s).toString(), u"علی"_s);
    }

    void fieldOfAnotherNameIsFound()
    {
        KAccessDatabase database(changedModules("\"value\": \"season\", \"name\": \"Season\"",
                                                "\"value\": \"season\", \"name\": \"SEASON\""));
        database.Open(path());
        CForoush head(&database);
        head.Open();
        addHead(head, u"a"_s, 3);
        database.Close();
        QCOMPARE(AccessFileReader(path()).records(heads).first().value(u"Season"_s).toInt(), 3);
    }

    void whatTheFileDoesNotHaveIsNamed_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("by");
        QTest::addColumn<QString>("words");
        QTest::newRow("table") << QByteArray("\"role\": \"Foroush\", \"name\": \"Foroush\"")
                               << QByteArray("\"role\": \"Foroush\", \"name\": \"گم\"") << u"جدول «گم» را ندارد"_s;
        QTest::newRow("field") << QByteArray("\"value\": \"season\", \"name\": \"Season\"")
                               << QByteArray("\"value\": \"season\", \"name\": \"گم\"")
                               << u"جدول «Foroush» از فایل مالیات ستون «گم» را ندارد"_s;
        QTest::newRow("value") << QByteArray("\"value\": \"season\"") << QByteArray("\"value\": \"saeson\"")
                               << u"«saeson»"_s;
    }

    void whatTheFileDoesNotHaveIsNamed()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, by);
        QFETCH(QString, words);
        KAccessDatabase database(changedModules(text, by));
        const QString message = messageOf([&] {
            database.Open(path());
            CForoush head(&database);
            head.Open();
            addHead(head, u"a"_s, 1);
            database.Close();
        });
        QVERIFY2(message.contains(words), qPrintable(message));
    }

    void otherFileThanTheDatabasesIsRefused()
    {
        KAccessDatabase database(modules);
        database.Open(path());
        CForoush head(&database);
        head.SetFilePath(m_folder->filePath(u"other.mdb"_s));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, head.Open());
        QVERIFY_THROWS_EXCEPTION(KAccountingError, head.DeleteAllRecords());
    }

    void missingFileIsAnError()
    {
        KAccessDatabase database(modules);
        QVERIFY(!messageOf([&] {
                     database.Open(m_folder->filePath(u"none.mdb"_s));
                     database.Close();
                 }).isEmpty());
        QVERIFY(!database.IsOpen());
    }

    // Ended from outside, as by an exhausted machine.
    void helperThatDiesIsAnError()
    {
        KAccessDatabase database(modules);
        database.Open(path());
        CForoush_Detail detail(&database);
        detail.Open();
        const QString message = messageOf([&] {
            for (int i = 0; i < 100'000; ++i) {
                if (i == 20'000)
                    QVERIFY(signalled(database.helperProcess(), u"9"_s));
                detail.AddNew();
                detail.m_sName = QString(100, u'ن');
                detail.Update();
            }
            database.Close();
        });
        QVERIFY2(message.contains(u"نوشتن فایل مالیات ممکن نشد"_s), qPrintable(message));
        QVERIFY(!database.IsOpen());
    }

    void stoppedByProgress()
    {
        KAccessDatabase database(modules);
        database.setProgress([](int) { return false; });
        QVERIFY_THROWS_EXCEPTION(KAccessCancelled, {
            database.Open(path());
            database.Close();
        });
        QVERIFY(!database.IsOpen());
        QVERIFY_THROWS_EXCEPTION(KAccountingError, CForoush(&database).DeleteAllRecords());
    }

    void abandonedDatabaseEndsItsHelper()
    {
        qint64 helper = 0;
        {
            KAccessDatabase database(modules);
            database.Open(path());
            helper = database.helperProcess();
            QVERIFY(signalled(helper, u"0"_s));
        }
        QVERIFY(!signalled(helper, u"0"_s));
    }
};

static const RegisteredTest<TestKRecordset, QCoreApplication> registeredKRecordset;
#include "TestKRecordset.moc"
