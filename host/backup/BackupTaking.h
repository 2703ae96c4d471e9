// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/server/DataFolder.h"
#include "host/server/ServerError.h"
#include "host/server/ServerPrograms.h"
#include "suite/db/connection/KConnection.h"

#include <functional>

// Takes backups of one database, of the private server or of an office server. Works in any thread, over connections of its own.
class BackupTaking
{
public:
    // done and expected are bytes of statements; expected is an estimate, 0 when unknown, and done may pass it. Called about ten
    // times a second. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 expected)>;

    struct Request
    {
        QString folder;    // made with mode 0700 when missing
        QString file = {}; // the path instead of a name in the folder; there must be no such file
        BackupManifest::Reason reason = BackupManifest::Reason::ByHand;
        QString passphrase = {}; // empty: not encrypted
        QString knownAs = {};    // the database's name for file and manifest, where it stands under another one for now
    };

    // settings.database names the database.
    explicit BackupTaking(const KConnectionSettings &settings, const ServerPrograms &programs = ServerPrograms::installed());

    // Writes the backup and its manifest, mode 0600, as of one moment while others go on working: they wait less than a
    // second. Throws ServerError DumpFailed, Damaged, FolderNotWritable, DiskFull, ProgramMissing or Cancelled; nothing is left then.
    BackupFile take(const Request &request, const Progress &progress = {}) const;

    // For ServerOptions::takeBackup: into the folder's backups.
    static std::function<void(const KConnectionSettings &, const std::function<void()> &)> beforeServerUpgrade(const DataFolder &folder);

private:
    KConnectionSettings m_settings;
    ServerPrograms m_programs;
};
