// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/BinaryLog.h"
#include "host/server/ServerPrograms.h"
#include "suite/db/connection/KConnectionSettings.h"

#include <QDateTime>

#include <functional>
#include <optional>

// Brings a loaded backup forward by the binary log: all transactions that were complete by a moment, in the order in which they were saved.
class BinaryLogReplay
{
public:
    // Where a backup stands in the log.
    struct Mark
    {
        QString file; // its name, without a folder; empty: no log was kept
        qint64 position = 0;
    };

    // How far a backup can be brought forward.
    struct Reach
    {
        bool possible = false;
        bool upToNow = false; // nothing is missing
        QDateTime until;      // the last transaction that is known, on the office's clock; invalid: none since the backup
        QString problem;      // one Persian sentence, where it does not go up to now
        // problem, and as of when it goes; empty where it goes up to now.
        QString words() const;
    };

    // Called about twenty times a second. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 expected)>;

    explicit BinaryLogReplay(const DataFolder &folder, const ServerPrograms &programs = ServerPrograms::installed());

    Reach reach(const Mark &mark) const;
    // Into a database of the server, which holds the backup: what happened to the database from before `until` (the office's clock), or all that is
    // known. Nothing of it goes into the server's own log. Throws ServerError DumpFailed (it does not reach that far; the message says as of when it
    // does), ProgramMissing or Cancelled; the database then holds a part.
    void run(const KConnectionSettings &server, const Mark &mark, const QString &from, const QString &into, const std::optional<QDateTime> &until,
             const Progress &progress = {}) const;

private:
    struct Piece;
    struct Way;

    Way way(const Mark &mark, const std::optional<QDateTime> &until) const;
    void replay(const KConnectionSettings &server, const Piece &piece, const QStringList &databases, const std::function<bool()> &goesOn) const;

    DataFolder m_folder;
    ServerPrograms m_programs;
};
