// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KConnection.h"
#include "host/server/ServerError.h"
#include "host/server/ServerPrograms.h"

#include <functional>

// Backups of one database, of the private server or of an office server, as files of SQL statements.
class DatabaseDump
{
public:
    // done and expected are bytes; expected is an estimate, 0 when unknown, and done may pass it. Called about ten
    // times a second. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 expected)>;

    // settings.database names the database; folder is where dumps are (made with mode 0700 when missing).
    DatabaseDump(const KConnectionSettings &settings, const QString &folder,
                 const ServerPrograms &programs = ServerPrograms::installed());

    // Writes folder/<database>-<yyyyMMdd-HHmmss>.sql, mode 0600, as of one moment while others go on working. It is
    // written under another name and renamed when complete, so a file of that name is always whole. Returns its path. Throws
    // ServerError DumpFailed, Damaged, DiskFull, ProgramMissing or Cancelled; nothing is left then.
    QString take(const Progress &progress = {}) const;
    // Replaces all tables of the database with those of the file. The file is loaded elsewhere first and swapped in one
    // step, so that a failure or a cancel leaves the database as it was. The database's views, triggers and routines
    // are dropped. Throws like take.
    void restore(const QString &file, const Progress &progress = {}) const;
    // True when the file ends as a whole dump does.
    static bool isWhole(const QString &file);
    // The dumps of the database in the folder, newest first.
    QStringList existing() const;

private:
    QString freeFileName() const;
    qint64 sizeOfTables() const;
    void requireDefinitions() const;
    void load(const QString &file, const QString &database, const Progress &progress) const;
    void exchangeTables(const QString &aside) const;

    KConnectionSettings m_settings;
    QString m_folder;
    ServerPrograms m_programs;
};
