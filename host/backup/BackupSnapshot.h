// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>

// The moment of a backup: a transaction that sees the database as the dump does. While the dump begins, nobody can change anything, for less
// than a second; whoever writes waits so long. Inside the library only.
class BackupSnapshot
{
public:
    explicit BackupSnapshot(const KConnectionSettings &settings);
    ~BackupSnapshot();

    // Holds all writers and begins the snapshot. False: the account may not, or the server is a node of a cluster, where it would stop
    // the others; the snapshot has begun all the same.
    bool hold();
    // The dump has begun: everybody may go on. Does nothing the second time.
    void letGo();
    // Writers have been held as long as they may be.
    bool isTimeOver() const;
    bool isHolding() const { return m_holder != nullptr; }

    // In the snapshot's transaction.
    KConnection &connection() { return *m_reader; }
    // Where the server's binary log stood; empty: it keeps none, or does not tell.
    QString logFile() const { return m_logFile; }
    qint64 logPosition() const { return m_logPosition; }

private:
    bool tryToHold();
    void readLogPosition();

    KConnectionSettings m_settings;
    std::unique_ptr<KConnection> m_holder;
    std::unique_ptr<KConnection> m_reader;
    QElapsedTimer m_held;
    QString m_logFile;
    qint64 m_logPosition = 0;
};
