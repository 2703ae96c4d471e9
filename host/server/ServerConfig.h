// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"
#include "host/server/DataFolder.h"
#include "host/server/ServerOptions.h"

// The options files of a data folder. Both are written anew at every start, so that a folder may be moved.
class ServerConfig
{
public:
    ServerConfig(const DataFolder &folder, const ServerOptions &options);

    // more: lines that stand at the end. Throws ServerError FolderNotWritable or DiskFull.
    void writeServerOptions(const QString &socketPath, const QByteArray &more = {}) const;
    // For this program's tools, and for the owner: mariadb --defaults-file=client.cnf
    void writeClientOptions(const QString &socketPath, const QString &password) const;
    // The password that client.cnf holds; empty when there is none.
    QString storedPassword() const;
    // The socket of the server that wrote client.cnf last: another session of the same user may have its runtime folder elsewhere.
    // Empty when there is none.
    QString storedSocketPath() const;

    // The options of a client with such settings, in the form of client.cnf.
    static QByteArray clientOptions(const KConnectionSettings &settings);
    // A value as it may stand in an options file.
    static QByteArray quoted(const QString &value);
    static QString newPassword();
    // First argument of every tool, for a file of ours.
    static QString fromFile(const QString &path);

private:
    void write(const QString &path, const QByteArray &content) const;
    QString stored(const QByteArray &key) const;

    DataFolder m_folder;
    ServerOptions m_options;
};
