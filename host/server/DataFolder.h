// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

using namespace Qt::StringLiterals;

// The folder that holds everything of one office:
//   database/      the server's files            client.cnf   account of the private server, mode 0600
//   backups/       dumps                         server.cnf   the server's options, written anew at every start
//   logs/          server.log and program.log    server-state.json   version and end of the last server
//   settings/      settings of this office's program on this computer
//   temporary/     what the server needs only while it runs
//   binlog/        every change since a backup, where the settings ask for it
// Sockets are not here but in the user's runtime folder, because a socket's path may only be about 100 bytes long.
class DataFolder
{
public:
    // A relative path counts from the current folder. Creates nothing.
    explicit DataFolder(const QString &path);

    // Where an office's data is unless the user says otherwise.
    static QString defaultPath();
    // The demo office has a folder of its own beside it.
    static QString demoPath();

    // Absolute; links of the existing part are resolved, so that one folder has one name.
    QString path() const { return m_path; }
    QString databasePath() const { return m_path + u"/database"_s; }
    QString backupsPath() const { return m_path + u"/backups"_s; }
    QString logsPath() const { return m_path + u"/logs"_s; }
    QString settingsPath() const { return m_path + u"/settings"_s; }
    QString temporaryPath() const { return m_path + u"/temporary"_s; }
    // While a backup takes the place of a damaged database: the folder in which it is loaded, and the loaded database.
    QString restoringPath() const { return m_path + u"/restoring"_s; }
    QString restoredDatabasePath() const { return m_path + u"/database.restored"_s; }
    QString settingsFile() const { return settingsPath() + u"/tzhost.ini"_s; }
    QString clientConfigPath() const { return m_path + u"/client.cnf"_s; }
    QString serverConfigPath() const { return m_path + u"/server.cnf"_s; }
    QString statePath() const { return m_path + u"/server-state.json"_s; }
    QString serverLogPath() const { return logsPath() + u"/server.log"_s; }
    QString previousServerLogPath() const { return logsPath() + u"/server-previous.log"_s; }

    // Makes the folder and its parts with mode 0700 where they are missing, takes the rights of others from what is there, as in
    // a folder that came back from a copy, and checks that they can be written. Throws ServerError FolderNotWritable,
    // FolderNotPrivate or DiskFull.
    void create() const;

    // A path for a socket of this folder in the user's runtime folder (made with mode 0700 when missing), at most 100
    // bytes long. The same folder and purpose always give the same path. purpose is a short ASCII word. Throws
    // ServerError FolderNotWritable when there is no safe runtime folder.
    QString socketPath(const QString &purpose) const;

    // The sentence for a full disk under this folder; also suits a DiskFull database error.
    QString diskFullMessage() const;

private:
    void close() const;

    QString m_path;
};
