// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupCipher.h"
#include "host/backup/BackupFiles.h"
#include "host/backup/BackupReader.h"
#include "host/backup/BackupWriter.h"
#include "host/server/Platform.h"
#include "host/server/ServerError.h"
#include "tests/support/BackupText.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray dumpText = "CREATE TABLE `t` (i INT);\n" + QByteArray(300'000, 'x') + "\n-- Dump completed on a day\n";

std::optional<ServerError::Kind> kindOfFailure(const std::function<void()> &operation, QString *message = nullptr)
{
    try {
        operation();
    } catch (const ServerError &error) {
        if (message)
            *message = error.userMessage();
        return error.kind();
    }
    return std::nullopt;
}

}

class TestBackupFiles : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }

    void put(const QString &name, const QByteArray &content = {})
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    BackupFile written(const QString &name, const QByteArray &text = dumpText, const QString &passphrase = {})
    {
        BackupWriter writer(path(name), passphrase);
        writer.write(text);
        writer.close();
        BackupManifest manifest;
        manifest.database = u"office"_s;
        manifest.takenUtc = manifest.taken = QDateTime(QDate(2026, 3, 21), QTime(8, 0), Qt::UTC);
        manifest.size = writer.fileBytes();
        manifest.plainSize = writer.plainBytes();
        manifest.digest = writer.digest();
        manifest.encrypted = !passphrase.isEmpty();
        writer.finish(manifest);
        return BackupFile(path(name));
    }

    static QStringList namesOf(const QList<BackupFile> &backups)
    {
        QStringList names;
        for (const BackupFile &backup : backups)
            names << QFileInfo(backup.path()).fileName();
        return names;
    }

private Q_SLOTS:
    void initTestCase() { BackupCipher::setUsualEffort({1, 8192}); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void newestIsFirstAndOthersAreLeftOut()
    {
        const QStringList newestFirst{u"office-20260102-030405-10.sql.zst"_s, u"office-20260102-030405-2.sql.zst.enc"_s, u"office-20260102-030405.sql"_s,
                                      u"office-20251231-235959.sql.zst"_s};
        for (const QString &name : {newestFirst[2], newestFirst[0], newestFirst[3], newestFirst[1], u"other-20270101-000000.sql"_s, u"office-2027.sql"_s,
                                    u"office-20270101-000000.sql.part"_s, u"office-20270101-000000.sql.zst.json"_s, u"office-20270101-000000.txt"_s})
            put(name);
        QVERIFY(QFile::link(path(newestFirst[0]), path(u"office-20280101-000000.sql.zst"_s)));
        QVERIFY(QDir(m_folder->path()).mkdir(u"office-20290101-000000.sql"_s));
        QCOMPARE(namesOf(BackupFiles::in(m_folder->path(), u"office"_s)), newestFirst);
        QCOMPARE(BackupFiles::in(m_folder->path(), u"office"_s).constLast().taken(), QDateTime(QDate(2025, 12, 31), QTime(23, 59, 59), Qt::UTC));
    }

    void writtenIsReadAndForTheUserAlone_data()
    {
        QTest::addColumn<QString>("passphrase");
        QTest::newRow("plain") << QString();
        QTest::newRow("encrypted") << u"گذرواژه"_s;
    }

    void writtenIsReadAndForTheUserAlone()
    {
        QFETCH(QString, passphrase);
        const QString name = u"office-20260102-030405"_s + BackupFile::suffix(passphrase.isEmpty() ? BackupFile::Format::Compressed : BackupFile::Format::Encrypted);
        const BackupFile backup = written(name, dumpText, passphrase);
        QCOMPARE(files(), (QStringList{name, name + u".json"_s}));
        for (const QString &file : files())
            QVERIFY(!(QFile::permissions(path(file)) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)));
        QVERIFY(backup.manifest().has_value());
        QCOMPARE(backup.manifest()->size, backup.size());
        QCOMPARE(backup.manifest()->plainSize, dumpText.size());
        QVERIFY(backup.size() < dumpText.size() / 10);
        QCOMPARE(textOfBackup(backup.path(), passphrase), dumpText);
        QVERIFY(BackupReader::opensWith(backup, passphrase));
        QCOMPARE(BackupReader::opensWith(backup, u"falsch"_s), passphrase.isEmpty());
    }

    void everyAlteredByteIsNoticed()
    {
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s, "INSERT INTO t VALUES(1);\n-- Dump completed\n");
        QFile file(backup.path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QByteArray whole = file.readAll();
        for (qsizetype at = 0; at < whole.size(); ++at) {
            QByteArray altered = whole;
            altered[at] = static_cast<char>(altered[at] ^ 0x10);
            file.seek(0);
            file.write(altered);
            file.flush();
            QVERIFY2(kindOfFailure([&] { textOfBackup(backup.path()); }) == ServerError::Kind::BackupDamaged, qPrintable(QString::number(at)));
        }
    }

    void cutOffIsNoticed_data()
    {
        QTest::addColumn<QString>("passphrase");
        QTest::newRow("plain") << QString();
        QTest::newRow("encrypted") << u"گذرواژه"_s;
    }

    void cutOffIsNoticed()
    {
        QFETCH(QString, passphrase);
        QByteArray text(2'000'000, Qt::Uninitialized);
        quint32 random = 1;
        for (char &byte : text)
            byte = static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s + (passphrase.isEmpty() ? QString() : u".enc"_s), text + "\n-- Dump completed\n", passphrase);
        for (const qint64 bytes : {backup.size() - 1, backup.size() / 2, qint64(200), qint64(0)}) {
            QVERIFY(QFile::resize(backup.path(), bytes));
            QVERIFY2(kindOfFailure([&] { textOfBackup(backup.path(), passphrase); }) == ServerError::Kind::BackupDamaged, qPrintable(QString::number(bytes)));
        }
    }

    void dumpThatDoesNotEndIsNoticed()
    {
        put(u"office-20260102-030405.sql"_s, "CREATE TABLE t(i INT);\n");
        QCOMPARE(kindOfFailure([&] { textOfBackup(path(u"office-20260102-030405.sql"_s)); }), ServerError::Kind::BackupDamaged);
    }

    // A few bytes that become gigabytes.
    void farMoreThanTheManifestSaysIsRefused()
    {
        BackupFile backup = written(u"office-20260102-030405.sql.zst"_s, QByteArray(50'000'000, 'x') + "\n-- Dump completed\n");
        QVERIFY(backup.size() < 50'000);
        BackupManifest lying = *backup.manifest();
        lying.plainSize = 1'000'000;
        backup.setManifest(lying);
        QCOMPARE(kindOfFailure([&] { textOfBackup(backup.path()); }), ServerError::Kind::BackupDamaged);
    }

    void linkIsNoBackup()
    {
        put(u"secret"_s, "x\n-- Dump completed\n");
        QVERIFY(QFile::link(path(u"secret"_s), path(u"office-20260102-030405.sql"_s)));
        const BackupFile link(path(u"office-20260102-030405.sql"_s));
        QVERIFY(!link.exists());
        QCOMPARE(kindOfFailure([&] { textOfBackup(link.path()); }), ServerError::Kind::DumpFailed);
    }

    void lostOrDamagedManifestLeavesTheBackup()
    {
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s);
        put(u"office-20260102-030405.sql.zst.json"_s, "{\"format\":");
        BackupFile damaged(backup.path());
        QVERIFY(damaged.exists() && !damaged.manifest() && !damaged.manifestFault().isEmpty());
        QCOMPARE(textOfBackup(damaged.path()), dumpText);
        QVERIFY(QFile::remove(damaged.manifestPath()));
        QVERIFY(QFile::link(u"/etc/passwd"_s, damaged.manifestPath()));
        QVERIFY(!BackupFile(backup.path()).manifest());
        QCOMPARE(BackupFiles::in(m_folder->path(), u"office"_s).size(), 1);
    }

    void whatIsNotFinishedLeavesNothing()
    {
        {
            BackupWriter writer(path(u"office-20260102-030405.sql.zst"_s));
            writer.write(dumpText);
        }
        QCOMPARE(files(), QStringList());
    }

    void unfinishedFileGoesUnlessItsWriterLives()
    {
        put(u"office-20250101-000000.sql.zst.part"_s, "left by a program that was killed");
        BackupWriter writer(path(u"office-20260102-030405.sql.zst"_s));
        BackupFiles::removeLeft(m_folder->path());
        QCOMPARE(files(), QStringList{u"office-20260102-030405.sql.zst.part"_s});
    }

    void filesOfOthersStay()
    {
        const QStringList others{u"download.sql.part"_s, u"schema.sql.json"_s, u"office.sql.zst.part"_s};
        for (const QString &name : others) {
            put(name);
            QFile file(path(name));
            QVERIFY(file.open(QIODevice::ReadWrite));
            file.setFileTime(QDateTime::currentDateTime().addDays(-9), QFileDevice::FileModificationTime);
        }
        BackupFiles::removeLeft(m_folder->path());
        QCOMPARE(files().size(), others.size());
    }

    void nameIsFreeInEveryFormat()
    {
        const QDateTime moment(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC);
        put(u"office-20260102-030405.sql"_s);
        put(u"office-20260102-030405-2.sql.zst.enc"_s);
        put(u"office-20260102-030405-3.sql.zst.part"_s);
        QCOMPARE(BackupFiles::freePath(m_folder->path(), u"office"_s, BackupFile::Format::Compressed, moment), path(u"office-20260102-030405-4.sql.zst"_s));
    }

    void copyIsWhole()
    {
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s);
        const QTemporaryDir second;
        const BackupFile copy = BackupFiles::copy(backup, second.path());
        QCOMPARE(textOfBackup(copy.path()), dumpText);
        QVERIFY(copy.manifest() == backup.manifest());
        QCOMPARE(QDir(second.path()).entryList(QDir::Files).size(), 2);
        // It is there already: what is known by now of the backup is known of the copy too.
        BackupFile verified = backup;
        BackupManifest manifest = *verified.manifest();
        manifest.verification = {BackupManifest::Verification::State::Passed, manifest.takenUtc};
        verified.setManifest(manifest);
        QCOMPARE(BackupFiles::copy(verified, second.path()).path(), copy.path());
        QVERIFY(BackupFile(copy.path()).verification().state == BackupManifest::Verification::State::Passed);
        QCOMPARE(textOfBackup(copy.path()), dumpText);
        // Another office's backup of the same name gets one of its own, and leaves that one as it is.
        QVERIFY(backup.remove());
        const BackupFile other = written(u"office-20260102-030405.sql.zst"_s, "other\n-- Dump completed\n");
        const BackupFile otherCopy = BackupFiles::copy(other, second.path());
        QVERIFY(otherCopy.path() != copy.path());
        QVERIFY(BackupFile(copy.path()).verification().state == BackupManifest::Verification::State::Passed);
        QCOMPARE(textOfBackup(copy.path()), dumpText);
    }

    void missingSecondFolderIsToldAndNotMade()
    {
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s);
        QString message;
        QCOMPARE(kindOfFailure([&] { BackupFiles::copy(backup, path(u"usb"_s)); }, &message), ServerError::Kind::FolderNotWritable);
        QVERIFY(message.contains(path(u"usb"_s)));
        QVERIFY(!QDir(path(u"usb"_s)).exists());
        QCOMPARE(textOfBackup(backup.path()), dumpText);
    }

    void givenUpNothingIsLeftOfTheCopy()
    {
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s);
        const QTemporaryDir second;
        QCOMPARE(kindOfFailure([&] { BackupFiles::copy(backup, second.path(), [] { return false; }); }), ServerError::Kind::Cancelled);
        QCOMPARE(QDir(second.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
        QCOMPARE(textOfBackup(backup.path()), dumpText);
    }

    void damagedOriginalIsNotCopied()
    {
        const BackupFile backup = written(u"office-20260102-030405.sql.zst"_s);
        QFile file(backup.path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.seek(backup.size() / 2);
        file.write("\0\0\0\0", 4);
        file.close();
        const QTemporaryDir second;
        QCOMPARE(kindOfFailure([&] { BackupFiles::copy(backup, second.path()); }), ServerError::Kind::BackupDamaged);
        QCOMPARE(QDir(second.path()).entryList(QDir::Files), QStringList());
    }

    void fullDeviceIsToldAsLackOfRoom()
    {
        // Every write to this device finds no room.
        QVERIFY(QFile::link(u"/dev/full"_s, path(u"full"_s)));
        QFile full(path(u"full"_s));
        QVERIFY(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        QCOMPARE(full.write("x", 1), -1);
        QCOMPARE(full.error(), QFile::ResourceError);
    }

    // As on a disk whose file system takes no larger files.
    void writeThatFailsMidwayLeavesNothing()
    {
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{1000, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        QByteArray text(2'000'000, Qt::Uninitialized);
        quint32 random = 1;
        for (char &byte : text)
            byte = static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
        QString message;
        const auto kind = kindOfFailure([&] {
            BackupWriter writer(path(u"office-20260102-030405.sql.zst"_s));
            writer.write(text);
            writer.close();
            writer.finish(std::nullopt);
        },
                                        &message);
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, ignored);
        QCOMPARE(kind, ServerError::Kind::FolderNotWritable);
        QVERIFY(message.contains(m_folder->path()));
        QCOMPARE(files(), QStringList());
    }

    void folderWithoutWritePermissionIsNamed()
    {
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
        const OrdinaryRights ordinary;
        QString message;
        QCOMPARE(kindOfFailure([&] { BackupWriter(path(u"office-20260102-030405.sql.zst"_s)); }, &message), ServerError::Kind::FolderNotWritable);
        QVERIFY(message.contains(m_folder->path()));
    }
};

static const RegisteredTest<TestBackupFiles, QCoreApplication> registeredBackupFiles;
#include "TestBackupFiles.moc"
