// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/backup/BackupMoment.h"
#include "host/server/BinaryLogReplay.h"

// Brings a backup forward, by the binary log of the folder, while it is restored.
class BackupPointInTime
{
public:
    explicit BackupPointInTime(const DataFolder &office, const ServerPrograms &programs = ServerPrograms::installed());

    // How far the backup can be brought; asked before it is offered. Reads the log's files.
    BinaryLogReplay::Reach reach(const BackupFile &file) const;

    // For BackupRestoring::Request::beforeExchange: settings are those of the server that is restored, and name the office's database. What it
    // returns throws ServerError as BinaryLogReplay::run does, also for a moment before the backup.
    std::function<void(const QString &loaded)> onto(const KConnectionSettings &settings, const BackupFile &file, const BackupMoment &moment) const;
    // The same for BackupRestoring::intoNewFolder.
    std::function<void(const KConnectionSettings &loaded)> ontoNew(const BackupFile &file, const BackupMoment &moment) const;

private:
    void run(const KConnectionSettings &server, const QString &into, const BackupFile &file, const BackupMoment &moment) const;

    DataFolder m_office;
    ServerPrograms m_programs;
};
