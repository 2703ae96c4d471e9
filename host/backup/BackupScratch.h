// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupLoading.h"
#include "host/server/DataFolder.h"
#include "host/server/EmbeddedServer.h"

#include <memory>

// A server of its own, away from the office's data, that holds one backup: to verify it, to look into it, to take single records out of
// it. It is gone with the object; what a killed program left goes with the next one. The object
// stays in the thread that made it: the server ends with that thread.
class BackupScratch
{
public:
    // office: where there is a folder for it, below temporary/. Nothing is started yet.
    explicit BackupScratch(const DataFolder &office, const ServerPrograms &programs = ServerPrograms::installed());
    ~BackupScratch();
    BackupScratch(const BackupScratch &) = delete;
    BackupScratch &operator=(const BackupScratch &) = delete;

    // Gives way to everything else on the computer, for what nobody waits for. On a busy computer it then takes minutes.
    void setLowPriority(bool low) { m_low = low; }
    // Starts the server and loads the backup. Throws ServerError as BackupLoading does, and DiskFull before anything is written where there
    // is too little room. To be called once.
    void load(const BackupFile &file, const QString &passphrase = {}, const BackupLoading::Progress &progress = {});

    // How it is reached: account and database as those of any data folder. For KConnection::configure.
    KConnectionSettings settings() const;
    DataFolder folder() const;

    // Removes what killed programs left.
    static void removeLeft(const DataFolder &office);

private:
    struct Held;
    std::unique_ptr<Held> m_held;
    DataFolder m_office;
    ServerPrograms m_programs;
    bool m_low = false;
};
