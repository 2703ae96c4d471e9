// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/EmbeddedServer.h"

#include "host/server/BinaryLog.h"
#include "host/server/DatabaseBootstrap.h"
#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerDamage.h"
#include "host/server/ServerLog.h"
#include "host/server/ServerState.h"
#include "host/server/ToolProcess.h"
#include "host/server/WayBack.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QThread>

#include <mysql.h>
#include <mysqld_error.h>

#include <filesystem>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcServer, "tz.server")

constexpr int pulseMilliseconds = 50;
constexpr int readyPollMilliseconds = 10;
// For a server that was left behind to end by itself.
constexpr int leftoverLimitMilliseconds = 1500;

void tell(const EmbeddedServer::Progress &progress, const QString &text)
{
    if (progress)
        progress(text);
}

QString firstText(const KConnection::Result &result)
{
    const MYSQL_ROW row = result ? mysql_fetch_row(result.get()) : nullptr;
    return row && row[0] ? QString::fromUtf8(row[0]) : QString();
}

}

EmbeddedServer::EmbeddedServer(const DataFolder &folder, QObject *parent)
    : EmbeddedServer(folder, Options(), parent) { }

EmbeddedServer::EmbeddedServer(const DataFolder &folder, const Options &options, QObject *parent)
    : QObject(parent)
    , m_folder(folder)
    , m_options(options)
{
    connect(&m_process, &QProcess::finished, this, &EmbeddedServer::processFinished);
}

EmbeddedServer::~EmbeddedServer()
{
    m_expectedToRun = false;
    try {
        stop();
    } catch (const std::exception &error) {
        qCWarning(lcServer) << "stopping the server:" << error.what();
    }
}

bool EmbeddedServer::isRunning() const
{
    return m_expectedToRun && m_process.state() == QProcess::Running;
}

void EmbeddedServer::start(const Progress &progress, const std::function<void()> &meanwhile)
{
    if (isRunning())
        return;
    try {
        prepare(progress);
        launch(progress, meanwhile);
        upgradeIfNeeded(progress);
    } catch (...) {
        endProcess({});
        m_lock.reset();
        throw;
    }
}

void EmbeddedServer::stop(const Progress &progress)
{
    if (m_process.state() == QProcess::Running)
        BinaryLog(m_folder).noteEnd(m_settings);
    endProcess(progress);
    m_lock.reset();
}

void EmbeddedServer::restart(const Progress &progress)
{
    stop(progress);
    start(progress);
}

void EmbeddedServer::prepare(const Progress &progress)
{
    if (!std::exchange(m_options.folderWasMade, false))
        m_folder.create();
    auto lock = std::make_unique<platform::FileLock>(m_folder.path() + u"/server.lock"_s);
    QString reason;
    if (lock->tryLock(&reason) != platform::FileLock::Result::Taken)
        throw ServerError(ServerError::Kind::InUse,
                          u"پوشه %1 هم‌اکنون در برنامه دیگری باز است؛ آن برنامه را ببندید و دوباره "
                          "تلاش کنید."_s
                              .arg(ServerError::shownPath(m_folder.path())),
                          m_folder.path() + u"/server.lock: "_s + reason);
    m_lock = std::move(lock);

    m_settings = {};
    m_settings.socketPath = m_folder.socketPath(u"db"_s);
    m_settings.user = ServerOptions::databaseName();
    m_settings.database = ServerOptions::databaseName();
    endLeftovers(progress);
    requireRoom(m_options.freeMiBToStart);
    ServerLog(m_folder).begin();
    ServerConfig(m_folder, m_options).writeServerOptions(m_settings.socketPath, BinaryLog(m_folder).prepare(m_options.keepBinaryLog));
    checkInstalledVersion();
    loadOrMakeAccount(progress);
}

void EmbeddedServer::requireRoom(int mebibytes) const
{
    // Read from the file system itself: the table of mounts does not show every folder's disk (a container, a chroot).
    std::error_code unknown;
    const std::filesystem::space_info space =
        std::filesystem::space(std::filesystem::path(m_folder.path().toStdU16String()), unknown);
    if (unknown) {
        qCWarning(lcServer) << "free space is not known:" << QString::fromStdString(unknown.message());
        return;
    }
    const quint64 free = space.available;
    if (free < static_cast<quint64>(mebibytes) * 1024 * 1024)
        throw ServerError(ServerError::Kind::DiskFull, m_folder.diskFullMessage(),
                          u"%1 bytes free, %2 MiB needed"_s.arg(free).arg(mebibytes));
}

// Ends a server of this folder that outlived its program, and removes what it left. We hold the folder's lock, so no living
// program owns it.
void EmbeddedServer::endLeftovers(const Progress &progress)
{
    const QString waiting = u"در انتظار پایان سرور قبلی پایگاه داده…"_s;
    const QString argument = ServerConfig::fromFile(m_folder.serverConfigPath());
    QElapsedTimer timer;
    timer.start();
    QList<qint64> left = platform::processesWithArgument(argument);
    for (const qint64 process : std::as_const(left)) {
        qCInfo(lcServer) << "ending a server that was left behind, process" << process;
        platform::askToStop(process);
    }
    bool forced = false;
    while (!left.isEmpty()) {
        tell(progress, waiting);
        QThread::msleep(pulseMilliseconds);
        left = platform::processesWithArgument(argument);
        if (timer.elapsed() > m_options.startLimitMilliseconds)
            throw ServerError(ServerError::Kind::InUse,
                              u"سرور قبلی پایگاه داده پوشه %1 پایان نمی‌یابد؛ رایانه را دوباره راه‌اندازی نمایید."_s
                                  .arg(ServerError::shownPath(m_folder.path())),
                              u"an earlier server does not end"_s);
        // Nobody waits for its answers any more, and what it had saved stays saved: the next start recovers it from the log.
        if (!forced && timer.elapsed() > leftoverLimitMilliseconds) {
            for (const qint64 process : std::as_const(left))
                platform::forceStop(process);
            forced = true;
        }
    }
    QFile::remove(m_settings.socketPath);
    QFile::remove(m_folder.databasePath() + u"/server.pid"_s);
}

void EmbeddedServer::loadOrMakeAccount(const Progress &progress)
{
    const ServerConfig config(m_folder, m_options);
    const DatabaseBootstrap bootstrap(m_folder, m_options);
    m_settings.password = config.storedPassword();
    const bool accountKnown = !m_settings.password.isEmpty();
    if (!accountKnown)
        m_settings.password = ServerConfig::newPassword();
    config.writeClientOptions(m_settings.socketPath, m_settings.password);
    bootstrap.finishRestoring();
    m_isNewDatabase = !bootstrap.exists();
    if (m_isNewDatabase) {
        const QString waiting = u"ساختن پایگاه داده برای نخستین بار…"_s;
        tell(progress, waiting);
        requireNoDamagedDatabase();
        requireRoom(m_options.freeMiBForNewDatabase);
        bootstrap.create(m_settings.password, [&](qint64) { tell(progress, waiting); });
        return;
    }
    if (const std::optional<ServerDamage> damage = ServerDamage::in(m_folder))
        throw ServerError(ServerError::Kind::Damaged, damage->message(m_folder), u"missing or empty: "_s + damage->file);
    if (!accountKnown)
        makeAccountAnew(progress);
}

// An office whose database was put aside, or whose server has run here before, is no new one: an empty database would hide its loss, and
// its backups would push out the good ones.
void EmbeddedServer::requireNoDamagedDatabase() const
{
    if (QFileInfo::exists(m_folder.statePath()))
        throw ServerError(ServerError::Kind::Damaged,
                          u"پایگاه داده در پوشه %1 نیست، در حالی که پیش از این در آن بوده است. برای دفتری تازه پوشه دیگری برگزینید."_s.arg(ServerError::shownPath(m_folder.path()))
                              + u'\n' + WayBack(m_folder).sentences(),
                          m_folder.databasePath() + u" is gone or empty"_s);
    const QStringList aside = QDir(m_folder.path()).entryList({u"database-damaged-*"_s}, QDir::Dirs);
    if (!aside.isEmpty())
        throw ServerError(ServerError::Kind::Damaged,
                          u"پوشه %1 پایگاه داده ندارد؛ پایگاه داده آسیب‌دیده آن در %2 است."_s.arg(ServerError::shownPath(m_folder.path()), ServerError::shownPath(aside.constLast()))
                              + u'\n' + WayBack(m_folder).sentences(),
                          u"no database beside "_s + aside.constLast());
}

// A folder that was restored without its client.cnf, or with another one, opens all the same: the owner of the files
// owns the database.
void EmbeddedServer::makeAccountAnew(const Progress &progress)
{
    const QString waiting = u"بازسازی حساب پایگاه داده…"_s;
    tell(progress, waiting);
    DatabaseBootstrap(m_folder, m_options).resetAccount(m_settings.password, [&](qint64) {
        tell(progress, waiting);
    });
}

void EmbeddedServer::launch(const Progress &progress, const std::function<void()> &meanwhile)
{
    startProcess(progress);
    if (meanwhile)
        meanwhile();
    if (!waitUntilReady(progress)) {
        endProcess(progress);
        makeAccountAnew(progress);
        startProcess(progress);
        if (!waitUntilReady(progress))
            throw ServerLog(m_folder).error(ServerError::Kind::DidNotStart,
                                            u"the server refuses its own account"_s);
    }
    m_expectedToRun = true;
    qCInfo(lcServer).noquote() << "server" << m_version << "runs in" << m_folder.path() << "process" << processId();
}

void EmbeddedServer::startProcess(const Progress &progress)
{
    if (m_options.programs.server.isEmpty())
        throw ToolProcess::missing({}, u"not found"_s);
    m_program = ServerState::markOf(m_options.programs.server);
    platform::tieToThisProgram(m_process, m_options.lowPriority);
    m_process.setProcessEnvironment(ToolProcess::environment());
    m_process.setWorkingDirectory(m_folder.databasePath());
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(m_folder.serverLogPath(), QIODevice::Append);
    m_process.start(m_options.programs.server, {ServerConfig::fromFile(m_folder.serverConfigPath())});
    if (!m_process.waitForStarted())
        throw ToolProcess::missing(m_options.programs.server, m_process.errorString());
    // Not before: the first picture of a splash takes as long as much of what the server does meanwhile.
    tell(progress, u"راه‌اندازی سرور پایگاه داده…"_s);
}

// False: it answers, but refuses our account.
bool EmbeddedServer::waitUntilReady(const Progress &progress)
{
    KConnectionSettings settings = m_settings;
    settings.connectTimeoutSeconds = 2;
    const QString waiting = u"در انتظار آماده شدن پایگاه داده…"_s;
    QElapsedTimer timer;
    QElapsedTimer pulse;
    timer.start();
    pulse.start();
    tell(progress, waiting);
    QString refusal;
    while (timer.elapsed() < m_options.startLimitMilliseconds) {
        if (QFile::exists(m_settings.socketPath)) {
            try {
                KConnection connection(settings);
                m_version = firstText(connection.run(QByteArrayLiteral("SELECT VERSION()")));
                return true;
            } catch (const CMySQLException &error) {
                if (error.serverCode() == ER_ACCESS_DENIED_ERROR)
                    return false;
                refusal = error.GetErrorMessage();
            }
        }
        if (m_process.waitForFinished(readyPollMilliseconds) || m_process.state() == QProcess::NotRunning)
            throw ServerLog(m_folder).error(ServerError::Kind::DidNotStart,
                                            u"the server ended with %1"_s.arg(m_process.exitCode()));
        if (pulse.elapsed() >= pulseMilliseconds) {
            tell(progress, waiting);
            pulse.restart();
        }
    }
    throw ServerLog(m_folder).error(ServerError::Kind::Timeout,
                                    u"the server does not answer: "_s + refusal);
}

void EmbeddedServer::endProcess(const Progress &progress)
{
    const bool wasReady = m_expectedToRun;
    m_expectedToRun = false;
    if (m_process.state() == QProcess::NotRunning)
        return;
    const QString waiting = u"بستن پایگاه داده…"_s;
    tell(progress, waiting);
    platform::askToStop(m_process.processId());
    QElapsedTimer timer;
    timer.start();
    // A server that never answered has nothing to save.
    const int limit = wasReady ? m_options.startLimitMilliseconds : 3000;
    while (!m_process.waitForFinished(pulseMilliseconds) && m_process.state() != QProcess::NotRunning) {
        tell(progress, waiting);
        if (timer.elapsed() > limit) {
            qCWarning(lcServer) << "the server does not end and is killed";
            platform::forceStop(m_process.processId());
        }
    }
    ServerState state = ServerState::load(m_folder);
    state.endedCleanly = wasReady && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    if (wasReady)
        state.save(m_folder);
}

void EmbeddedServer::processFinished(int exitCode, QProcess::ExitStatus status)
{
    if (!m_expectedToRun)
        return;
    m_expectedToRun = false;
    const QString how = status == QProcess::CrashExit ? u"was killed or crashed"_s
                                                      : u"ended with %1"_s.arg(exitCode);
    const ServerError error = ServerLog(m_folder).error(ServerError::Kind::EndedUnexpectedly, u"the server "_s + how);
    qCWarning(lcServer).noquote() << error.detail();
    Q_EMIT endedUnexpectedly(error.userMessage(), error.detail());
}
