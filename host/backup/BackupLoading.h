// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/server/ServerError.h"
#include "host/server/ServerPrograms.h"
#include "suite/db/connection/KConnection.h"

#include <functional>

// Loads a backup into an empty database, as a stream: its statements are never on the disk.
class BackupLoading
{
public:
    // done and expected are bytes of the file. Called about twenty times a second. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 expected)>;

    explicit BackupLoading(const KConnectionSettings &server, const ServerPrograms &programs = ServerPrograms::installed());

    // Slows down for everybody else on the computer.
    void setLowPriority(bool low) { m_low = low; }
    // Nothing but the database that is loaded can be changed then, whatever the file's statements say: for a server that holds more.
    void setConfined(bool confined) { m_confined = confined; }
    // Throws ServerError WrongPassphrase, BackupDamaged (altered or cut off), DumpFailed, DiskFull, ProgramMissing or Cancelled; the database
    // then holds a part.
    void load(const BackupFile &file, const QString &database, const QString &passphrase = {}, const Progress &progress = {}) const;

private:
    KConnectionSettings m_server;
    ServerPrograms m_programs;
    bool m_low = false;
    bool m_confined = false;
};
