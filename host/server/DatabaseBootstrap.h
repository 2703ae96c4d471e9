// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"
#include "host/server/ServerOptions.h"
#include "host/server/ToolProcess.h"

// Makes the server's system tables and its one account, while no server runs.
class DatabaseBootstrap
{
public:
    DatabaseBootstrap(const DataFolder &folder, const ServerOptions &options);

    // After a program that was killed while a restored database took the place of the damaged one (BackupRestoring): it does so now, unless
    // the other is still there.
    void finishRestoring() const;
    // Whether the folder holds a complete database. Throws ServerError Damaged when it holds something else.
    bool exists() const;
    // Makes the database with the account and an empty database of our name. It is made elsewhere and renamed when complete, so
    // that an interrupted start is simply repeated. server.cnf must have been written. Throws ServerError.
    void create(const QString &password, const ToolProcess::Pulse &pulse) const;
    // Sets this password on the account of an existing database whose client.cnf was lost.
    void resetAccount(const QString &password, const ToolProcess::Pulse &pulse) const;

private:
    void run(const QString &databasePath, const QByteArray &statements, const ToolProcess::Pulse &pulse) const;
    QByteArray systemTables() const;

    DataFolder m_folder;
    ServerOptions m_options;
};
