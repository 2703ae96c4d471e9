// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <functional>

class KConnection;

// Guard of one unit of work on the calling thread's connection: rolls back unless committed. A guard inside another
// joins it: only the outermost one begins and commits, and an inner one that was not committed dooms the whole.
class TZDB_EXPORT KTransaction
{
public:
    explicit KTransaction(int database = 0);
    ~KTransaction();
    KTransaction(const KTransaction &) = delete;
    KTransaction &operator=(const KTransaction &) = delete;

    // Throws CMySQLException when the server refuses or an inner guard was not committed; nothing is kept then.
    void commit();

    // Runs work in a transaction and commits it. A lock conflict rolls back and runs the whole again, five times at most;
    // so work must ask the user nothing and must start from the database, not from what a failed run left in memory.
    // Inside an outer transaction it runs once: the outer unit is the one to replay.
    static void runReplayable(const std::function<void()> &work, int database = 0);

private:
    KConnection &m_connection;
    bool m_outermost;
    bool m_done = false;
};
