// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QString>

#include <functional>

class KConnection;

// Guard of one unit of work on the calling thread's connection: rolls back unless committed. A guard inside another
// joins it: only the outermost one begins and commits, and an inner one that was not committed dooms the whole.
//
// It begins with its first statement, and one that runs none does not begin at all.
//
// A unit that changes something writes a token of its own into UnitTokens (a database without that table: none). When the connection
// breaks at COMMIT, or somebody gives up waiting for it, whether it was saved is looked up by the token, never guessed: commit
// then returns as usual, or throws. As long as no server can tell, whoever set the question is asked whether to look again. What
// is left open is looked up before the thread's next unit on that database begins.
class TZDB_EXPORT KTransaction
{
public:
    enum class Outcome {
        Saved,
        NotSaved, // and it never will be
        Unknown   // no server answers, or the server still holds the broken connection's transaction
    };

    // Throws SavedAfterAll or OutcomeUnknown when the thread left the outcome of an earlier unit open; nothing has begun then.
    explicit KTransaction(int database = 0);
    ~KTransaction();
    KTransaction(const KTransaction &) = delete;
    KTransaction &operator=(const KTransaction &) = delete;

    // Throws CMySQLException when the server refuses or an inner guard was not committed; nothing is kept then. Only with
    // OutcomeUnknown it may have been kept: the exception's token asks for that later.
    void commit();

    // What became of the unit with that token. Asking settles it: a unit that is not saved by then cannot be saved any more.
    static Outcome outcomeOf(const QString &token, int database = 0);
    // Asked on the thread that set it while the outcome of a unit is unknown. True looks again, false leaves it open.
    using LookAgain = std::function<bool()>;
    static void setLookAgain(LookAgain question);
    // Removes the tokens that nobody asks for any more, those older than a week.
    static void removeOldTokens(int database = 0);

    // Runs work in a transaction and commits it. A deadlock rolls back and runs the whole again, five times at most;
    // so work must ask the user nothing and must start from the database, not from what a failed run left in memory.
    // Inside an outer transaction it runs once: the outer unit is the one to replay.
    static void runReplayable(const std::function<void()> &work, int database = 0);

private:
    QString end();

    int m_database;
    QString m_token; // empty: the database keeps none
    KConnection &m_connection;
    bool m_outermost;
    bool m_done = false;
};
