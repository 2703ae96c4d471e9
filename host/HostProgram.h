// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/frame/AutoModule.h"
#include "host/frame/HostOptions.h"
#include "host/start/SplashWindow.h"
#include "host/frame/StartupClock.h"
#include "host/server/DataFolder.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/InstanceLock.h"
#include "suite/utility/frame/KWaitNotice.h"

#include <QObject>

#include <memory>

class MainWindow;

// The life of the program: data folder, database, schema, module, login, work, and all that in reverse order.
class HostProgram final : public QObject
{
    Q_OBJECT

public:
    // The whole program; its exit code: 0 well, 1 it could not work, 2 a wrong command line; of a command for backups, that of
    // BackupCommands.
    static int start(int argc, char **argv);

    HostProgram(const HostOptions &options, StartupClock &clock);
    ~HostProgram() override;

    int run();

private:
    bool takeFolder();
    bool startDatabase();
    void startPrivateServer();
    void prepareSchema();
    bool prepareOffice();
    void fillDemo();
    // True when a user logged in.
    bool login();
    void work();
    void serverEnded(const QString &message, const QString &detail);
    bool restartServer();
    void raiseWindow();
    void shutDown();
    QString damageText(const QStringList &tables) const;
    // The first window that takes input is on the screen: the start is over.
    void loginShown();

    HostOptions m_options;
    StartupClock &m_clock;
    DataFolder m_folder;
    InstanceLock m_lock;
    KWaitNotice m_waits;
    std::unique_ptr<EmbeddedServer> m_server;
    AutoModule m_module;
    SplashWindow m_splash;
    QString m_proposedUser;
    MainWindow *m_window = nullptr;
    bool m_switchUser = false;
    bool m_started = false;
};
