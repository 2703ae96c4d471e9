// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupLoading.h"
#include "host/server/DataFolder.h"
#include "host/server/ServerOptions.h"

#include <functional>

// Puts a backup in the place of the present state.
class BackupRestoring
{
public:
    struct Request
    {
        BackupFile file;
        QString passphrase = {};
        QString backupsFolder;       // for the copy of the present state
        QString copyPassphrase = {}; // encrypts that copy
        bool copiesFirst = true;     // false: the present state cannot be read any more
        bool despiteOthers = false;  // although other programs are at work; the user was asked
        // Runs on the loaded backup before it takes its place; what it throws ends the restoring, and nothing has changed.
        std::function<void(const QString &database)> beforeExchange = {};
        // Sentences for the user that are no reason to fail: what was left in, or is copied from, the database of the replaced tables.
        std::function<void(const QString &words)> warn = {};
    };

    // settings.database names the database.
    explicit BackupRestoring(const KConnectionSettings &settings, const ServerPrograms &programs = ServerPrograms::installed());

    // All tables of the database are replaced in one step; before it everything is as it was, also after a kill. Returns the copy of the
    // present state; one that does not exist without copiesFirst. Throws ServerError: InUse (others are at work; the message names them),
    // NewerBackup, WrongPassphrase, BackupDamaged, DumpFailed, DiskFull, Damaged (the copy first: the present state is), Cancelled. Once the
    // tables are replaced it throws no more: replaced tables that could not be copied stay, and warn says so.
    BackupFile restore(const Request &request, const BackupLoading::Progress &progress = {}) const;

    // Who else works on the database now, in words; empty: nobody that can be seen. Connections of this process do not count.
    QStringList othersAtWork() const;
    // Removes what a killed restoring left beside the database, or finishes it. Nothing is removed that stands nowhere else, also in no backup, or
    // that no restoring has made. Does nothing while one is under way. To be called before the database is used.
    void cleanLeft() const;

    // For a folder whose database is damaged, while no server runs on it (the caller holds the program's lock): a new database is made and
    // loaded beside the damaged one, which is then put aside. A kill leaves the old or the new. Returns the folder in which the damaged one is now; empty
    // when there was none. Throws like restore.
    static QString intoNewFolder(const DataFolder &folder, const BackupFile &file, const QString &passphrase = {},
                                 const BackupLoading::Progress &progress = {}, const ServerOptions &options = {},
                                 const std::function<void(const KConnectionSettings &loaded)> &beforeExchange = {});

private:
    void requireAlone(const Request &request) const;
    BackupFile copyOf(const KConnectionSettings &settings, const Request &request, const std::function<bool()> &goesOn) const;
    void copyLeft(const QString &replaced, const Request &request) const;
    KConnectionSettings beside(const QString &database) const;
    static void tell(const Request &request, const QString &words);
    void copyWhatCameLater(KConnection &connection, const QString &replaced, const Request &request, BackupFile &copy) const;

    KConnectionSettings m_settings;
    ServerPrograms m_programs;
};
