// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PrivateTestServer.h"

#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace {

const QString locationFile = u"" TZ_TEST_SERVER_FILE ""_s;
constexpr qint64 roomInMemory = 4LL * 1024 * 1024 * 1024;
const QString folderKey = u"folder"_s;

}

namespace {

// A killed test program could not remove its folder, which may be in memory. When nothing holds its lock, the program is gone.
void removeAbandonedFolders()
{
    const QFileInfo pattern(PrivateTestServer::folderTemplate());
    const QDir parent(pattern.path());
    const QStringList folders = parent.entryList({pattern.fileName().replace(u"XXXXXX"_s, u"*"_s)},
                                                 QDir::Dirs);
    for (const QString &folder : folders) {
        const QString path = parent.filePath(folder);
        const QString lockPath = path + u"/server.lock"_s;
        if (!platform::isPrivateFolder(path) || !QFile::exists(lockPath))
            continue;
        platform::FileLock lock(lockPath);
        if (lock.tryLock() == platform::FileLock::Result::Taken)
            QDir(path).removeRecursively();
    }
}

}

PrivateTestServer::PrivateTestServer()
    : m_folder(folderTemplate())
{
    removeAbandonedFolders();
    m_server = std::make_unique<EmbeddedServer>(DataFolder(m_folder.path()), options());
    m_server->start();
}

PrivateTestServer::~PrivateTestServer() = default;

QString PrivateTestServer::folderTemplate()
{
    const QStorageInfo memory(u"/dev/shm"_s);
    const bool fits = memory.isValid() && memory.isReady() && memory.rootPath() == u"/dev/shm"_s
        && QFileInfo(memory.rootPath()).isWritable() && memory.bytesAvailable() > roomInMemory;
    return (fits ? memory.rootPath() : QDir::tempPath()) + u"/tzt-XXXXXX"_s;
}

EmbeddedServer::Options PrivateTestServer::options()
{
    EmbeddedServer::Options options;
    options.unsafeButFast = true;
    options.redoLogMiB = 32;
    return options;
}

std::optional<KConnectionSettings> PrivateTestServer::ofThisRun()
{
    const QString path = publishedFolder();
    if (path.isEmpty())
        return std::nullopt;
    const DataFolder folder(path);
    KConnectionSettings settings;
    settings.socketPath = folder.socketPath(u"db"_s);
    settings.user = EmbeddedServer::Options::databaseName();
    settings.password = ServerConfig(folder, options()).storedPassword();
    try {
        KConnection(settings).run(QByteArrayLiteral("SELECT 1"));
    } catch (const CMySQLException &) {
        return std::nullopt;
    }
    return settings;
}

void PrivateTestServer::publish() const
{
    const QJsonObject object{{folderKey, folder()}};
    platform::writePrivateFile(locationFile, QJsonDocument(object).toJson());
}

QString PrivateTestServer::publishedFolder()
{
    QFile file(locationFile);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object().value(folderKey).toString()
                                          : QString();
}

bool PrivateTestServer::isPublished(const QString &folder)
{
    return publishedFolder() == folder;
}

void PrivateTestServer::unpublish()
{
    QFile::remove(locationFile);
}
