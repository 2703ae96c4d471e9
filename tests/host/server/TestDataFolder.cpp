// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DataFolder.h"
#include "host/server/Platform.h"
#include "host/server/ServerError.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

// The kind of error with which create() refuses; Kind::Cancelled when it does not.
ServerError refusal(const DataFolder &folder)
{
    try {
        folder.create();
    } catch (const ServerError &error) {
        return error;
    }
    return {ServerError::Kind::Cancelled, {}};
}

// What the file's mode says for its owner alone, without the rights that Qt adds for the asking user.
QFile::Permissions modeOf(const QString &path)
{
    return QFile::permissions(path)
        & (QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
           | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther);
}

}

class TestDataFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPartIsMadeForTheUserAlone()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.filePath(u"new/دفتر مرکزی"_s));
        folder.create();
        for (const QString &path : {folder.path(), folder.backupsPath(), folder.logsPath(), folder.settingsPath(), folder.temporaryPath()}) {
            QVERIFY2(QFileInfo(path).isDir(), qPrintable(path));
            QCOMPARE(modeOf(path), ownerOnly);
            QVERIFY(QDir(path).isEmpty(QDir::Files | QDir::Hidden));
        }
    }

    void creatingTwiceChangesNothing()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        folder.create();
        QFile kept(folder.backupsPath() + u"/kept.sql"_s);
        QVERIFY(kept.open(QIODevice::WriteOnly) && kept.write("x") == 1);
        kept.close();
        folder.create();
        QVERIFY(kept.exists());
    }

    void whatIsOpenToOthersIsClosed_data()
    {
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<int>("fileMode");
        QTest::newRow("open to all") << 0x7777 << 0x6666;
        QTest::newRow("as a copy comes back") << 0x7755 << 0x6644;
        QTest::newRow("open to a group") << 0x7770 << 0x6660;
    }

    void whatIsOpenToOthersIsClosed()
    {
        QFETCH(int, folderMode);
        QFETCH(int, fileMode);
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.filePath(u"office"_s));
        folder.create();
        const QString inner = folder.databasePath() + u"/books"_s;
        QVERIFY(QDir().mkpath(inner));
        const QString stranger = folder.path() + u"/other"_s;
        QVERIFY(QDir().mkdir(stranger));
        const QStringList files{folder.clientConfigPath(), folder.backupsPath() + u"/a.sql"_s, inner + u"/Users.ibd"_s,
                                folder.settingsPath() + u"/.hidden"_s};
        for (const QString &path : files) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
            file.close();
            QVERIFY(file.setPermissions(QFile::Permissions(fileMode)));
        }
        const QStringList folders{folder.path(), folder.databasePath(), inner, folder.backupsPath(), folder.logsPath(), folder.settingsPath()};
        for (const QString &path : folders + QStringList{stranger})
            QVERIFY(QFile::setPermissions(path, QFile::Permissions(folderMode)));
        const QFile::Permissions strangers = modeOf(stranger);
        folder.create();
        for (const QString &path : folders)
            QCOMPARE(modeOf(path), ownerOnly);
        for (const QString &path : files)
            QCOMPARE(modeOf(path), QFile::Permissions(QFile::ReadOwner | QFile::WriteOwner));
        // What is not ours keeps its mode; behind the closed folder nobody reaches it.
        QCOMPARE(modeOf(stranger), strangers);
    }

    // A server that outlives a killed program for a moment makes files that are open to its group, and renames them.
    void aFileThatGoesMeanwhileIsNoneThatStaysOpen()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.filePath(u"office"_s));
        folder.create();
        const std::string path = QFile::encodeName(folder.temporaryPath() + u"/ib_logfile101"_s).toStdString();
        std::atomic<bool> isOver = false;
        std::thread server([&] {
            while (!isOver) {
                const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0660);
                ::fchmod(file, 0660);
                ::close(file);
                ::rename(path.c_str(), (path + ".renamed").c_str());
                ::unlink((path + ".renamed").c_str());
            }
        });
        std::optional<ServerError> refused;
        for (int start = 0; start < 400 && !refused; ++start) {
            const ServerError error = refusal(folder);
            if (error.kind() != ServerError::Kind::Cancelled)
                refused = error;
        }
        isOver = true;
        server.join();
        QVERIFY2(!refused, refused ? qPrintable(refused->detail()) : "");
    }

    void aFolderThatStaysOpenIsRefused()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.filePath(u"office"_s));
        folder.create();
        // One that is meant for all, as /tmp is.
        QCOMPARE(QProcess::execute(u"chmod"_s, {u"1777"_s, folder.path()}), 0);
        const ServerError error = refusal(folder);
        QCOMPARE(error.kind(), ServerError::Kind::FolderNotPrivate);
        QVERIFY2(error.userMessage().contains(folder.path()), qPrintable(error.userMessage()));
        QVERIFY2(error.detail().contains(u"1777"_s), qPrintable(error.detail()));
    }

    void aFolderWithoutWritePermissionIsNamedInOneSentence()
    {
        const QTemporaryDir temporary;
        const QString closed = temporary.filePath(u"closed"_s);
        QVERIFY(QDir().mkdir(closed));
        QVERIFY(QFile::setPermissions(temporary.path(), ownerOnly | QFile::ExeOther | QFile::ReadOther));
        QVERIFY(QFile::setPermissions(closed, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
        const OrdinaryRights ordinary;
        const ServerError error = refusal(DataFolder(closed));
        QCOMPARE(error.kind(), ServerError::Kind::FolderNotWritable);
        QVERIFY2(error.userMessage().contains(closed), qPrintable(error.userMessage()));
        QVERIFY(!error.detail().isEmpty());
    }

    void aFolderBelowAFileIsNamedInOneSentence()
    {
        const QTemporaryDir temporary;
        QFile file(temporary.filePath(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const DataFolder folder(file.fileName() + u"/office"_s);
        const ServerError error = refusal(folder);
        QCOMPARE(error.kind(), ServerError::Kind::FolderNotWritable);
        QVERIFY(error.userMessage().contains(folder.path()));
    }

    void oneFolderHasOneNameHoweverItIsReached()
    {
        const QTemporaryDir temporary;
        QVERIFY(QDir().mkdir(temporary.filePath(u"real"_s)));
        QVERIFY(QFile::link(temporary.filePath(u"real"_s), temporary.filePath(u"link"_s)));
        const DataFolder real(temporary.filePath(u"real/office"_s));
        QCOMPARE(DataFolder(temporary.filePath(u"link/./office/"_s)).path(), real.path());
        QCOMPARE(DataFolder(temporary.filePath(u"link/x/../office"_s)).socketPath(u"db"_s),
                 real.socketPath(u"db"_s));
    }

    void socketsOfTwoFoldersAndTwoPurposesDiffer()
    {
        const DataFolder one(u"/office/one"_s);
        const DataFolder two(u"/office/two"_s);
        QVERIFY(one.socketPath(u"db"_s) != two.socketPath(u"db"_s));
        QVERIFY(one.socketPath(u"db"_s) != one.socketPath(u"host"_s));
        QVERIFY(platform::isPrivateFolder(QFileInfo(one.socketPath(u"db"_s)).path()));
    }

    void aTooLongPathStillGivesAShortSocket_data()
    {
        QTest::addColumn<QString>("runtime");
        QTest::addColumn<QString>("office");
        const QString longName = QString(90, QLatin1Char('x'));
        QTest::newRow("long office folder") << QString() << u"/srv/%1/%1"_s.arg(longName);
        QTest::newRow("long Persian office folder") << QString() << u"/srv/"_s + QString(80, QChar(0x62F));
        QTest::newRow("long runtime folder") << longName << u"/srv/office"_s;
    }

    void aTooLongPathStillGivesAShortSocket()
    {
        QFETCH(const QString, runtime);
        QFETCH(const QString, office);
        const QTemporaryDir temporary;
        const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
        if (!runtime.isEmpty()) {
            QVERIFY(platform::makePrivateFolder(temporary.filePath(runtime)));
            qputenv("XDG_RUNTIME_DIR", QFile::encodeName(temporary.filePath(runtime)));
        }
        const QString path = DataFolder(office).socketPath(u"db"_s);
        qputenv("XDG_RUNTIME_DIR", before);
        QVERIFY2(QFile::encodeName(path).size() <= 100, qPrintable(path));
        QVERIFY(platform::isPrivateFolder(QFileInfo(path).path()));
    }

    void aRuntimeFolderOpenToOthersIsNotUsed()
    {
        const QTemporaryDir temporary;
        QVERIFY(QFile::setPermissions(temporary.path(), ownerOnly | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther));
        const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(temporary.path()));
        const QString path = DataFolder(u"/srv/office"_s).socketPath(u"db"_s);
        qputenv("XDG_RUNTIME_DIR", before);
        QVERIFY2(!path.startsWith(temporary.path()), qPrintable(path));
    }
};

static const RegisteredTest<TestDataFolder, QCoreApplication> registeredDataFolder;
#include "TestDataFolder.moc"
