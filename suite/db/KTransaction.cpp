// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/KTransaction.h"

#include "suite/db/KConnection.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int mostReplays = 5;
}

KTransaction::KTransaction(int database)
    : m_connection(KConnection::forThread(database))
    , m_outermost(m_connection.m_transactionDepth == 0)
{
    if (m_outermost) {
        m_connection.m_rollbackOnly = false;
        m_connection.m_rolledBack = false;
        m_connection.run(QByteArrayLiteral("START TRANSACTION"));
    }
    ++m_connection.m_transactionDepth;
}

KTransaction::~KTransaction()
{
    if (m_done)
        return;
    m_connection.m_rollbackOnly = true;
    if (!m_outermost) {
        --m_connection.m_transactionDepth;
        return;
    }
    try {
        // After a lost connection the server has rolled back already. After a deadlock of its own it has too, but an error
        // of that number can also be raised by a trigger, and then it has not. Either way this one statement is let through
        // and the session lives on: a replay finds in it what it had.
        m_connection.m_rolledBack = false;
        if (m_connection.m_handle)
            m_connection.run(QByteArrayLiteral("ROLLBACK"));
    } catch (const CMySQLException &) {
        m_connection.close();
    }
    --m_connection.m_transactionDepth;
}

void KTransaction::commit()
{
    if (m_outermost) {
        if (m_connection.m_rollbackOnly)
            throw CMySQLException(CMySQLException::Category::Other, 0,
                                  u"a part of this unit of work was given up, so none of it is kept"_s);
        m_connection.run(QByteArrayLiteral("COMMIT"));
    }
    --m_connection.m_transactionDepth;
    m_done = true;
}

void KTransaction::runReplayable(const std::function<void()> &work, int database)
{
    const bool mayReplay = !KConnection::forThread(database).inTransaction();
    for (int attempt = 0;; ++attempt) {
        try {
            KTransaction transaction(database);
            work();
            transaction.commit();
            return;
        } catch (const CMySQLException &error) {
            if (error.category() != CMySQLException::Category::LockConflict || !mayReplay || attempt >= mostReplays)
                throw;
        }
    }
}
