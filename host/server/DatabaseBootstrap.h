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

    // A whole database lies in the folder. Throws ServerError Damaged when something else does.
    bool exists() const;
    // Makes the database with the account and an empty database of our name. It is made aside and renamed when whole,
    // so that a start that was cut off is simply begun again. server.cnf must have been written. Throws ServerError.
    void create(const QString &password, const ToolProcess::Pulse &pulse) const;
    // Gives the account of an existing database this password: client.cnf was lost.
    void resetAccount(const QString &password, const ToolProcess::Pulse &pulse) const;

private:
    void run(const QString &databasePath, const QByteArray &statements, const ToolProcess::Pulse &pulse) const;
    QByteArray systemTables() const;

    DataFolder m_folder;
    ServerOptions m_options;
};
