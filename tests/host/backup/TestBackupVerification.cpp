// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupScratch.h"
#include "host/backup/BackupState.h"
#include "host/backup/BackupVerification.h"
#include "host/server/Platform.h"
#include "tests/host/backup/BackupOffice.h"
#include "tests/support/BackupText.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

using State = BackupManifest::Verification::State;

// Each of these starts a server of its own, which loads the backup.
class TestBackupVerification : public QObject
{
    Q_OBJECT

    BackupOffice m_office;

    BackupVerification verification() const
    {
        BackupVerification verification(m_office.office());
        verification.setLowPriority(false);
        return verification;
    }
    QStringList scratches() const { return QDir(m_office.office().temporaryPath()).entryList({u"scratch-*"_s}, QDir::Dirs); }

private Q_SLOTS:
    void init()
    {
        m_office.renew();
        m_office.fill(200);
    }

    void goodOneIsProved()
    {
        BackupFile backup = m_office.take();
        const BackupVerification::Result result = verification().run(backup);
        QVERIFY2(result.verification.state == State::Passed, qPrintable(result.differences.join(u'\n')));
        QCOMPARE(result.tables.size(), 3);
        QVERIFY(BackupFile(backup.path()).verification() == result.verification);
        QVERIFY(result.verification.when.isValid());
        QCOMPARE(scratches(), QStringList());
        // What is verified is not changed.
        QVERIFY(textOfBackup(backup.path()).contains("Cars"));
    }

    // The server's own sum of such a table is another each time.
    void tableThatComputesAColumnIsProved()
    {
        m_office.database().run(u"ALTER TABLE Cars ADD COLUMN orderOf_sName VARCHAR(50) CHARACTER SET utf8mb4 AS (CONVERT(sName USING utf8mb4)) VIRTUAL INVISIBLE,"
                                " ADD COLUMN orderOf_sEmoji VARCHAR(20) AS (sEmoji) VIRTUAL INVISIBLE"_s);
        m_office.database().run(u"ALTER TABLE Cars ADD KEY emoji (orderOf_sEmoji)"_s);
        QCOMPARE(m_office.value(u"SELECT COUNT(orderOf_sName) FROM Cars"_s), u"201"_s);
        BackupFile backup = m_office.take();
        QCOMPARE(m_office.value(u"SELECT COUNT(orderOf_sEmoji) FROM Cars"_s), u"1"_s);
        const BackupVerification::Result result = verification().run(backup);
        QVERIFY2(result.verification.state == State::Passed, qPrintable(result.differences.join(u'\n')));
    }

    void sumOfSuchATableKnowsEachValue_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("text") << u"UPDATE Cars SET sName='r10 ' WHERE iID=11"_s;
        QTest::newRow("nothing for an empty text") << u"UPDATE Cars SET sEmoji='' WHERE iID=11"_s;
        QTest::newRow("a byte of a picture") << u"UPDATE Cars SET oData=CONCAT(oData,0x00) WHERE iID=11"_s;
        QTest::newRow("the last digit") << u"UPDATE Cars SET dPrice=dPrice+1e-15 WHERE iID=2"_s;
        QTest::newRow("two rows changed about") << u"UPDATE Cars SET dPrice=IF(iID=5,6/3,5/3) WHERE iID IN (5,6)"_s;
    }

    void sumOfSuchATableKnowsEachValue()
    {
        QFETCH(QString, change);
        m_office.database().run(u"ALTER TABLE Cars ADD COLUMN orderOf_sName VARCHAR(50) AS (sName) VIRTUAL INVISIBLE"_s);
        const auto sum = [this] {
            KConnection connection(m_office.database().settings());
            return *BackupState::tables(connection, m_office.database().name()).constFirst().checksum;
        };
        const qint64 before = sum();
        QCOMPARE(sum(), before);
        m_office.database().run(change);
        QVERIFY(sum() != before);
    }

    void encryptedOneIsProvedWithItsPassphraseAlone()
    {
        BackupFile backup = m_office.take(u"right"_s);
        QCOMPARE(BackupOffice::failureOf([&] { verification().run(backup, u"wrong"_s); }).kind(), ServerError::Kind::WrongPassphrase);
        QVERIFY(BackupFile(backup.path()).verification().state == State::None);
        QVERIFY(verification().run(backup, u"right"_s).verification.state == State::Passed);
    }

    void damagedOneFails_data()
    {
        QTest::addColumn<bool>("cutOff");
        QTest::newRow("altered") << false;
        QTest::newRow("cut off") << true;
    }

    void damagedOneFails()
    {
        QFETCH(bool, cutOff);
        BackupFile backup = m_office.take();
        QFile file(backup.path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        if (cutOff) {
            QVERIFY(file.resize(backup.size() / 2));
        } else {
            file.seek(backup.size() / 2);
            file.write("altered");
        }
        file.close();
        BackupFile harmed(backup.path());
        const BackupVerification::Result result = verification().run(harmed);
        QVERIFY(result.verification.state == State::Failed);
        QVERIFY(result.verification.problem.contains(backup.path()));
        QVERIFY(BackupFile(backup.path()).verification().state == State::Failed);
        QCOMPARE(scratches(), QStringList());
    }

    void lyingManifestFails()
    {
        BackupFile backup = m_office.take();
        BackupManifest lying = *backup.manifest();
        for (BackupManifest::Table &table : lying.tables) {
            if (table.name == u"Cars"_s)
                table.checksum = *table.checksum + 1;
        }
        backup.setManifest(lying);
        const BackupVerification::Result result = verification().run(backup);
        QCOMPARE(result.differences.size(), 1);
        QVERIFY(result.differences.constFirst().contains(u"Cars"_s));
    }

    void plainDumpOfAnOlderProgramSaysWhatItHolds()
    {
        const QByteArray text = textOfBackup(m_office.take().path());
        const QString path = m_office.backups() + u"/office-20200102-030405.sql"_s;
        QFile plain(path);
        QVERIFY(plain.open(QIODevice::WriteOnly));
        plain.write(text);
        plain.close();
        BackupFile backup(path);
        const BackupVerification::Result result = verification().run(backup);
        QVERIFY(result.verification.state == State::Passed);
        QCOMPARE(result.tables.constFirst(), (BackupManifest::Table{u"Cars"_s, 201, result.tables.constFirst().checksum}));
        QCOMPARE(result.books, (BackupManifest::Books{2, 1, 107.5}));
        QVERIFY(!QFile::exists(backup.manifestPath()));
    }

    void cancelledOneLeavesNothing()
    {
        BackupFile backup = m_office.take();
        QCOMPARE(BackupOffice::failureOf([&] { verification().run(backup, {}, [](qint64, qint64) { return false; }); }).kind(), ServerError::Kind::Cancelled);
        QCOMPARE(scratches(), QStringList());
        QVERIFY(BackupFile(backup.path()).verification().state == State::None);
    }

    void onlyWhatTheServerRefusesSpeaksAgainstTheBackup_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<bool>("failed");
        QTest::newRow("a bad statement") << QByteArray("ERROR 1064 (42000) at line 7: You have an error") << true;
        QTest::newRow("the server was ended") << QByteArray("ERROR 2013 (HY000) at line 7: Lost connection") << false;
        QTest::newRow("no room left") << QByteArray("ERROR 1114 (HY000) at line 7: The table is full") << false;
        QTest::newRow("the client was ended") << QByteArray("Killed") << false;
    }

    // A good backup that this computer could not load today is not a bad one.
    void onlyWhatTheServerRefusesSpeaksAgainstTheBackup()
    {
        QFETCH(QByteArray, words);
        QFETCH(bool, failed);
        BackupFile backup = m_office.take();
        ServerPrograms programs = ServerPrograms::installed();
        programs.client = m_office.office().path() + u"/client"_s;
        QFile script(programs.client);
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\ncat > /dev/null\necho '" + words + "' >&2\nexit 1\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        script.close();
        BackupVerification verification(m_office.office(), programs);
        verification.setLowPriority(false);
        const ServerError error = BackupOffice::failureOf([&] { verification.run(backup); });
        QCOMPARE(error.kind() == ServerError::Kind::Timeout, failed); // it did not end with an error
        QVERIFY(BackupFile(backup.path()).verification().state == (failed ? State::Failed : State::None));
    }

    void tooLittleRoomIsToldBefore()
    {
        BackupFile backup = m_office.take();
        BackupManifest huge = *backup.manifest();
        huge.plainSize = 1LL << 50;
        backup.setManifest(huge);
        const ServerError error = BackupOffice::failureOf([&] { verification().run(backup); });
        QCOMPARE(error.kind(), ServerError::Kind::DiskFull);
        QVERIFY(error.userMessage().contains(m_office.office().temporaryPath()));
        QVERIFY(BackupFile(backup.path()).verification().state == State::None);
    }

    void scratchIsUsedAndGone()
    {
        BackupFile backup = m_office.take();
        QString folder;
        {
            BackupScratch scratch(m_office.office());
            scratch.load(backup);
            folder = scratch.folder().path();
            QVERIFY(folder.startsWith(m_office.office().temporaryPath()));
            KConnection connection(scratch.settings());
            connection.run(QByteArrayLiteral("DELETE FROM Cars"));
            // Another program that cleans leaves this one alone.
            BackupScratch::removeLeft(m_office.office());
            connection.run(QByteArrayLiteral("SELECT COUNT(*) FROM Docs"));
        }
        QVERIFY(!QDir(folder).exists());
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM Cars"_s), u"201"_s);
    }

    void comparison_data()
    {
        QTest::addColumn<BackupManifest>("dumped");
        QTest::addColumn<QList<BackupManifest::Table>>("tables");
        QTest::addColumn<BackupManifest::Books>("books");
        QTest::addColumn<QString>("server");
        QTest::addColumn<int>("differences");
        BackupManifest dumped;
        dumped.oneSnapshot = true;
        dumped.server = u"10.11.14-MariaDB"_s;
        dumped.tables = {{u"Cars"_s, 3, 77}, {u"Docs"_s, 4, 88}, {u"Journal"_s, -1}};
        dumped.books = {2, 0, 100};
        const QList<BackupManifest::Table> same{{u"cars"_s, 3, 77}, {u"Docs"_s, 4, 88}, {u"Journal"_s, -1}};
        const auto row = [](const char *name, const BackupManifest &manifest, const QList<BackupManifest::Table> &tables, const BackupManifest::Books &books, int differences, const QString &server = u"10.11.19-MariaDB"_s) {
            QTest::newRow(name) << manifest << tables << books << server << differences;
        };
        row("the same", dumped, same, dumped.books, 0);
        row("a table is missing", dumped, same.mid(1), dumped.books, 1);
        row("a row is missing", dumped, {{u"Cars"_s, 2, 76}, same[1], same[2]}, dumped.books, 1);
        row("a value differs", dumped, {{u"Cars"_s, 3, 76}, same[1], same[2]}, dumped.books, 1);
        row("sums of another series of the server", dumped, {{u"Cars"_s, 3, 76}, same[1], same[2]}, dumped.books, 0, u"11.4.2-MariaDB"_s);
        row("a document out of balance", dumped, same, {2, 1, 100}, 1);
        row("another total", dumped, same, {2, 0, 101}, 1);
        row("sums are rounded", dumped, same, {2, 0, 100.00000001}, 0);
        BackupManifest later = dumped;
        later.oneSnapshot = false;
        row("counts of a little later", later, {{u"Cars"_s, 2, 76}, same[1], same[2]}, {1, 1, 5}, 0);
        row("a table is missing all the same", later, same.mid(1), dumped.books, 1);
        BackupManifest ofProgram = dumped;
        ofProgram.suiteVersion = 1;
        row("tables of the program are missing", ofProgram, same, dumped.books, 3);
    }

    void comparison()
    {
        QFETCH(BackupManifest, dumped);
        QFETCH(QList<BackupManifest::Table>, tables);
        QFETCH(BackupManifest::Books, books);
        QFETCH(QString, server);
        const QStringList found = BackupVerification::compare(dumped, tables, books, server);
        QTEST(static_cast<int>(found.size()), "differences");
    }
};

static const RegisteredTest<TestBackupVerification, QCoreApplication> registeredBackupVerification;
#include "TestBackupVerification.moc"
