// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/KTransaction.h"

#include "suite/db/KConnection.h"
#include "suite/db/KTableSchema.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace {
constexpr int mostReplays = 5;

KSql tokenInsert(const QString &token)
{
    return KSql::formatted("INSERT INTO UnitTokens(sToken,dateCreate) VALUES(%1,NOW())", KSql::quoted(token));
}
}

KTransaction::KTransaction(int database)
    : m_database(database)
    , m_connection(KConnection::forThread(database))
    , m_outermost(m_connection.m_transactionDepth == 0)
{
    if (m_outermost) {
        m_connection.m_rollbackOnly = false;
        m_connection.m_rolledBack = false;
        m_connection.introduce();
        m_connection.run(QByteArrayLiteral("START TRANSACTION"));
        m_connection.m_changedRows = false;
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
        const QString token = writeToken();
        try {
            m_connection.run(QByteArrayLiteral("COMMIT"));
        } catch (const CMySQLException &error) {
            if (error.category() != CMySQLException::Category::ConnectionLost || token.isEmpty())
                throw;
            settle(token);
        }
    }
    --m_connection.m_transactionDepth;
    m_done = true;
}

QString KTransaction::writeToken()
{
    if (!m_connection.m_changedRows || KTableSchema::of(u"UnitTokens"_s, m_database).isEmpty())
        return {};
    const QString token = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_connection.run(tokenInsert(token));
    return token;
}

// The connection broke at COMMIT: returns when the unit was saved all the same.
void KTransaction::settle(const QString &token)
{
    switch (outcomeOf(token, m_database)) {
    case Outcome::Saved:
        return;
    case Outcome::NotSaved:
        throw CMySQLException(CMySQLException::Category::ConnectionLost, 0, u"the connection was lost at COMMIT, before it was saved"_s);
    case Outcome::Unknown:
        break;
    }
    CMySQLException unknown(CMySQLException::Category::OutcomeUnknown, 0, u"the connection was lost at COMMIT"_s);
    unknown.setToken(token);
    throw unknown;
}

// A second row with the token can only be written when the first one is not there. Where the broken connection's transaction is
// still open, the server lets this one wait for it; on another node of a cluster, the later of the two is refused.
KTransaction::Outcome KTransaction::outcomeOf(const QString &token, int database)
{
    try {
        KConnection connection(KConnection::settings(database));
        connection.run(tokenInsert(token));
        return Outcome::NotSaved;
    } catch (const CMySQLException &error) {
        return error.category() == CMySQLException::Category::DuplicateKey ? Outcome::Saved : Outcome::Unknown;
    }
}

void KTransaction::removeOldTokens(int database)
{
    if (!KTableSchema::of(u"UnitTokens"_s, database).isEmpty())
        KConnection::forThread(database).run(
            QByteArrayLiteral("DELETE FROM UnitTokens WHERE dateCreate<NOW()-INTERVAL 7 DAY"));
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
