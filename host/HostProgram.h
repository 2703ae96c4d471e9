// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/frame/AutoModule.h"
#include "host/frame/HostOptions.h"
#include "host/start/StartScreen.h"
#include "host/frame/StartupClock.h"
#include "host/server/DataFolder.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/InstanceLock.h"
#include "host/manual/ManualKey.h"
#include "suite/utility/frame/KWaitNotice.h"

#include <QObject>

#include <memory>

class BackupView;
class MainWindow;
struct RestoreRequest;

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
    // The database is there and of this version, and somebody can log in. False: the user gave up; exitCode says whether that is well.
    bool prepare(int &exitCode);
    // The same once more after each damage from which the user went back to a backup.
    bool prepareDespiteDamage(int &exitCode);
    // Shows the way back from a damaged database, if the error tells of one. True: it is whole again, nothing of it is open.
    bool leadBack(const std::exception_ptr &error);
    bool showDamage(QString what);
    void openBackup();
    bool takeFolder();
    bool startDatabase();
    // Throws ServerError, also where the user has left the login meanwhile.
    void startPrivateServer();
    // Brings the schemas to this version; loads the module where it is not loaded yet.
    void prepareSchema();
    bool prepareOffice();
    int rebuildSearch();
    void fillDemo();
    // True when a user logged in.
    bool login();
    bool loginDespiteDamage();
    void work();
    void restore(const RestoreRequest &request);
    void serverEnded(const QString &message, const QString &detail);
    bool restartServer();
    void raiseWindow();
    void shutDown();
    QString damageText(const QStringList &tables);
    // The first window that takes input is on the screen: the start is over.
    void loginShown();

    HostOptions m_options;
    StartupClock &m_clock;
    DataFolder m_folder;
    InstanceLock m_lock;
    KWaitNotice m_waits;
    std::unique_ptr<EmbeddedServer> m_server;
    std::unique_ptr<BackupView> m_view; // instead of the office
    AutoModule m_module;
    StartScreen m_screen;
    ManualKey m_manual;
    QString m_proposedUser;
    MainWindow *m_window = nullptr;
    bool m_switchUser = false;
    QString m_damage; // of a table that was met at work, in words
    bool m_started = false;
    bool m_folderWasMade = false; // for the first start of its server
};
