// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupManifest.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

BackupManifest wholeManifest()
{
    BackupManifest manifest;
    manifest.database = u"tzauto"_s;
    manifest.takenUtc = QDateTime(QDate(2026, 11, 22), QTime(10, 50, 7), Qt::UTC);
    manifest.taken = QDateTime(QDate(2026, 11, 22), QTime(14, 20, 7), Qt::UTC);
    manifest.reason = BackupManifest::Reason::BeforeRestore;
    manifest.program = u"1.0.0"_s;
    manifest.server = u"10.11.14-MariaDB"_s;
    manifest.suiteVersion = 14;
    manifest.moduleVersion = 6.211;
    manifest.size = 123456789;
    manifest.plainSize = 9'000'000'000;
    manifest.digest = QByteArray(32, '\xab');
    manifest.encrypted = true;
    manifest.oneSnapshot = true;
    manifest.tables = {{u"Docs"_s, 17, 4294967295}, {u"Journal"_s, -1}};
    manifest.books = {5, 1, 1234567890.25};
    manifest.lastChange = 77;
    manifest.largestPacket = 134217728;
    manifest.logFile = u"tzauto-bin.000003"_s;
    manifest.logPosition = 4711;
    manifest.verification = {BackupManifest::Verification::State::Failed, QDateTime(QDate(2026, 11, 22), QTime(11, 0), Qt::UTC), u"جدول «اشخاص» نیست."_s};
    return manifest;
}

}

class TestBackupManifest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsWrittenIsRead()
    {
        QString fault;
        const std::optional<BackupManifest> read = BackupManifest::fromJson(wholeManifest().toJson(), &fault);
        QVERIFY2(read.has_value(), qPrintable(fault));
        QVERIFY(*read == wholeManifest());
    }

    void hostileFile_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        const auto row = [](const char *name, const char *from, const char *to) { QTest::newRow(name) << QByteArray(from) << QByteArray(to); };
        row("another format", "\"format\": 1", "\"format\": 2");
        row("database with a path", "\"database\": \"tzauto\"", "\"database\": \"../tzauto\"");
        row("database without a name", "\"database\": \"tzauto\"", "\"database\": \"\"");
        row("database that is a folder", "\"database\": \"tzauto\"", "\"database\": \"..\"");
        row("table with a path", "\"name\": \"Docs\"", "\"name\": \"/etc/passwd\"");
        row("table with a line end", "\"name\": \"Docs\"", "\"name\": \"Do\\ncs\"");
        row("log with a path", "tzauto-bin.000003", "../../bin");
        row("fewer than no rows", "\"rows\": 17", "\"rows\": -2");
        row("half a row", "\"rows\": 17", "\"rows\": 17.5");
        row("endless rows", "\"rows\": 17", "\"rows\": 1e300");
        row("rows in words", "\"rows\": 17", "\"rows\": \"many\"");
        row("negative size", "\"size\": 123456789", "\"size\": -1");
        row("size in words", "\"size\": 123456789", "\"size\": []");
        row("no time", "2026-11-22T14:20:07", "yesterday");
        row("unknown reason", "before restore", "for fun");
        row("cut digest", "\"digest\": \"abab", "\"digest\": \"ab");
        row("cut off", "\"verification\"", "");
    }

    void hostileFile()
    {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QByteArray json = wholeManifest().toJson();
        QVERIFY(json.contains(from));
        json.replace(from, to);
        QString fault;
        QVERIFY(!BackupManifest::fromJson(json, &fault));
        QVERIFY(!fault.isEmpty());
    }

    void whatIsNoManifestIsRefused()
    {
        QVERIFY(!BackupManifest::fromJson({}));
        QVERIFY(!BackupManifest::fromJson("[1]"));
        QVERIFY(!BackupManifest::fromJson(QByteArray(100'000, '[')));
        QVERIFY(!BackupManifest::fromJson(wholeManifest().toJson() + QByteArray(BackupManifest::largestSize, ' ')));
        QByteArray many = "{\"format\":1,\"tables\":[";
        for (int table = 0; table < 3000; ++table)
            many += "{\"name\":\"t\",\"rows\":1},";
        many.chop(1);
        QVERIFY(!BackupManifest::fromJson(many + "]}"));
    }

    void everyReasonHasWordsAndComesBack()
    {
        using Reason = BackupManifest::Reason;
        QSet<QString> words;
        for (const Reason reason : {Reason::ByHand, Reason::Closing, Reason::Interval, Reason::BeforeUpgrade, Reason::BeforeRestore, Reason::CommandLine}) {
            words.insert(BackupManifest::shown(reason));
            BackupManifest manifest = wholeManifest();
            manifest.reason = reason;
            QVERIFY(BackupManifest::fromJson(manifest.toJson())->reason == reason);
        }
        QCOMPARE(words.size(), 6);
        QVERIFY(!words.contains(QString()));
    }
};

static const RegisteredTest<TestBackupManifest> registeredBackupManifest;
#include "TestBackupManifest.moc"
