// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupScratch.h"

#include "host/backup/BackupTools.h"
#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

const QString scratchName = u"scratch-"_s;
const QString heldName = u"/.held"_s;
constexpr qint64 mebibyte = 1024LL * 1024;
constexpr qint64 bareServerMiB = 200;
constexpr int scratchRedoLogMiB = 48;
constexpr int startLimit = 10 * 60 * 1000;
// Rows and their keys take more than the statements that bring them.
constexpr qint64 roomPerByte = 2;
constexpr qint64 roomPerPackedByte = 15;
constexpr qint64 secondsToMakeAFolder = 600;

qint64 freeBytes(const QString &folder)
{
    std::error_code unknown;
    const std::filesystem::space_info space = std::filesystem::space(std::filesystem::path(folder.toStdU16String()), unknown);
    return unknown ? -1 : static_cast<qint64>(qMin<std::uintmax_t>(space.available, std::numeric_limits<qint64>::max()));
}

qint64 neededBytes(const BackupFile &file)
{
    const qint64 rows = file.manifest()              ? file.manifest()->plainSize * roomPerByte
        : file.format() == BackupFile::Format::Plain ? file.size() * roomPerByte
                                                     : file.size() * roomPerPackedByte;
    return rows + bareServerMiB * mebibyte;
}

QStringList parents(const DataFolder &office)
{
    return {office.temporaryPath(), QDir::tempPath()};
}

// The first folder with room for the loaded backup.
QString roomyParent(const DataFolder &office, const BackupFile &file)
{
    const qint64 needed = neededBytes(file);
    // A folder that only might become an office stays as it is.
    if (QFileInfo(office.path()).isDir())
        platform::makePrivateFolder(office.temporaryPath());
    for (const QString &parent : parents(office)) {
        const qint64 room = freeBytes(parent);
        if (QFileInfo(parent).isDir() && (room < 0 || room >= needed))
            return parent;
    }
    throw ServerError(ServerError::Kind::DiskFull,
                      u"برای باز کردن پشتیبان در پوشه %1 دست کم %2 مگابایت فضای خالی لازم است؛ فضا آزاد نمایید و دوباره تلاش کنید."_s
                          .arg(ServerError::shownPath(office.temporaryPath()))
                          .arg(needed / mebibyte),
                      u"%1 bytes needed"_s.arg(needed));
}

void removeScratch(const QString &path)
{
    const DataFolder folder(path);
    // A server that outlived its program holds nothing that anybody needs.
    for (const qint64 process : platform::processesWithArgument(ServerConfig::fromFile(folder.serverConfigPath())))
        platform::forceStop(process);
    try {
        QFile::remove(folder.socketPath(u"db"_s));
    } catch (const ServerError &) {
        // Then there is none.
    }
    QDir(path).removeRecursively();
}

}

struct BackupScratch::Held
{
    QString path;
    std::unique_ptr<platform::FileLock> lock;
    std::unique_ptr<EmbeddedServer> server;
};

BackupScratch::BackupScratch(const DataFolder &office, const ServerPrograms &programs)
    : m_held(std::make_unique<Held>())
    , m_office(office)
    , m_programs(programs)
{
}

BackupScratch::~BackupScratch()
{
    if (m_held->path.isEmpty())
        return;
    if (m_held->server && m_held->server->processId() > 0)
        platform::forceStop(m_held->server->processId());
    m_held->server.reset();
    removeScratch(m_held->path);
}

void BackupScratch::load(const BackupFile &file, const QString &passphrase, const BackupLoading::Progress &progress)
{
    removeLeft(m_office);
    QTemporaryDir made(roomyParent(m_office, file) + u'/' + scratchName + u"XXXXXX"_s);
    made.setAutoRemove(false);
    m_held->path = made.path();
    m_held->lock = std::make_unique<platform::FileLock>(made.path() + heldName);
    QString reason;
    if (!made.isValid() || m_held->lock->tryLock(&reason) != platform::FileLock::Result::Taken)
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"در پوشه %1 نمی‌توان چیزی نوشت؛ اجازه نوشتن در آن را بگیرید."_s.arg(ServerError::shownPath(QFileInfo(made.path()).path())),
                          made.errorString() + reason);
    ServerOptions options;
    options.programs = m_programs;
    options.unsafeButFast = true;
    options.lowPriority = m_low;
    // With little of the computer left to it, and whoever waits can give up.
    options.startLimitMilliseconds = startLimit;
    options.redoLogMiB = scratchRedoLogMiB;
    options.freeMiBForNewDatabase = static_cast<int>(bareServerMiB);
    m_held->server = std::make_unique<EmbeddedServer>(folder(), options);
    const auto turn = [&] {
        if (progress && !progress(0, file.size()))
            throw BackupTools::cancelled();
    };
    m_held->server->start([&](const QString &) { turn(); });
    BackupLoading loading(settings(), m_programs);
    loading.setLowPriority(m_low);
    loading.load(file, settings().database, passphrase, progress);
}

KConnectionSettings BackupScratch::settings() const
{
    return m_held->server ? m_held->server->connectionSettings() : KConnectionSettings();
}

DataFolder BackupScratch::folder() const
{
    return DataFolder(m_held->path);
}

void BackupScratch::removeLeft(const DataFolder &office)
{
    for (const QString &parent : parents(office)) {
        const QFileInfoList folders = QDir(parent).entryInfoList({scratchName + u"??????"_s}, QDir::Dirs | QDir::NoSymLinks);
        for (const QFileInfo &left : folders) {
            if (!platform::isPrivateFolder(left.filePath()))
                continue;
            const QString held = left.filePath() + heldName;
            // One that is being made at this moment has no mark yet.
            const bool isNew = !QFileInfo::exists(held) && left.lastModified().secsTo(QDateTime::currentDateTime()) < secondsToMakeAFolder;
            platform::FileLock lock(held);
            if (!isNew && lock.tryLock() == platform::FileLock::Result::Taken)
                removeScratch(left.filePath());
        }
    }
}
