// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"
#include "host/server/DataFolder.h"
#include "host/server/ServerError.h"
#include "host/server/ServerOptions.h"

#include <QObject>
#include <QProcess>

#include <functional>
#include <memory>

namespace platform {
class FileLock;
}

// The private database server of one data folder: mariadbd as a child of this program, reached only through a socket
// that belongs to the user. It never outlives the program, however that ends.
class EmbeddedServer final : public QObject
{
    Q_OBJECT

public:
    using Options = ServerOptions;

    // Called with a Persian text that says what is awaited, at once and then about twenty times a second until it
    // comes, so that a splash can be repainted. Its exceptions pass through start or stop, which leave no
    // half-started server.
    using Progress = std::function<void(const QString &waitingFor)>;

    explicit EmbeddedServer(const DataFolder &folder, QObject *parent = nullptr);
    EmbeddedServer(const DataFolder &folder, const Options &options, QObject *parent = nullptr);
    // Stops the server cleanly.
    ~EmbeddedServer() override;

    // Makes the folder and the database where they are missing, removes what an earlier program left behind, brings the
    // database to the installed server's version (after a dump) and starts the server. On return it answers. Call it
    // from a thread that lives as long as the program (the main thread): the system ends the server with the thread
    // that started it. Does nothing when the server runs. Throws ServerError; no process is left then.
    // meanwhile is called once, as soon as the server's process runs: what needs no database is done while it begins.
    void start(const Progress &progress = {}, const std::function<void()> &meanwhile = {});
    // Ends the server cleanly: everything is on disk on return. A server that does not end within the limit is killed,
    // which costs a recovery at the next start but no saved data. Does nothing when it does not run.
    void stop(const Progress &progress = {});
    // stop and start; after an unexpected end it just starts again.
    void restart(const Progress &progress = {});

    bool isRunning() const;
    qint64 processId() const { return m_process.processId(); }
    // How the program reaches its database; valid after start and unchanged by restart.
    KConnectionSettings connectionSettings() const { return m_settings; }
    const DataFolder &folder() const { return m_folder; }
    // As the running server reports it, such as "10.11.14-MariaDB-0+deb12u2".
    QString version() const { return m_version; }

Q_SIGNALS:
    // The running server ended without a call of stop. message is one Persian sentence, detail is for the log.
    // The program informs the user once and calls restart(); connections reopen by themselves when next used.
    void endedUnexpectedly(const QString &message, const QString &detail);

private:
    void prepare(const Progress &progress);
    void requireRoom(int mebibytes) const;
    void requireNoDamagedDatabase() const;
    void endLeftovers(const Progress &progress);
    void loadOrMakeAccount(const Progress &progress);
    void launch(const Progress &progress, const std::function<void()> &meanwhile = {});
    void startProcess(const Progress &progress);
    bool waitUntilReady(const Progress &progress);
    void checkInstalledVersion() const;
    void makeAccountAnew(const Progress &progress);
    void upgradeIfNeeded(const Progress &progress);
    void runUpgrade(const Progress &progress);
    void endProcess(const Progress &progress);
    void processFinished(int exitCode, QProcess::ExitStatus status);

    DataFolder m_folder;
    Options m_options;
    std::unique_ptr<platform::FileLock> m_lock;
    QProcess m_process;
    KConnectionSettings m_settings;
    QString m_version;
    QString m_program; // the mark of the file that runs
    bool m_isNewDatabase = false;
    bool m_expectedToRun = false;
};
