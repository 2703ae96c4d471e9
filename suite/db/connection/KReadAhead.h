// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"
#include "suite/db/TzDBExport.h"

// While one lives on a thread, reads that will be asked can be named early: they go out with the next statement, in the same packet, and
// whoever asks one of them afterwards has its answer already. On a slow line an opening so takes as many round trips as its
// statements depend on each other, and not as there are statements.
//
// It changes what is asked when, never what is asked: an answer is only for the very same statement, is used once, for a few seconds, and only
// as long as this connection has written nothing since. A read that nobody asks for has cost its work on the server, so none is
// named on a mere chance. It ends as soon as a window waits for its user: by then another desk may have been quicker.
//
// Within a unit of work, locking reads can be named as well, in the order in which they are asked: the server takes their locks in that order.
// There, one that fails fails the unit at once.
class TZDB_EXPORT KReadAhead
{
public:
    explicit KReadAhead(int database = 0);
    ~KReadAhead();
    KReadAhead(const KReadAhead &) = delete;
    KReadAhead &operator=(const KReadAhead &) = delete;

    // A SELECT. Where no reading ahead is on, nothing.
    static void expect(const QByteArray &statement, int database = 0);
    static void expect(const KSql &statement, int database = 0) { expect(statement.utf8(), database); }
    // Goes out behind the next statement that writes: to be asked before anything else is written.
    static void expectBehind(const KSql &statement, int database = 0);

    // A window is there, and what was read before is not asked any more: by none that lives on this thread.
    static void endAll(int database = 0);

private:
    int m_database;
};
