// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KTransaction.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KStatementResult.h"
#include "suite/db/connection/KTableSchema.h"

#include <QList>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QThread>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcUnits, "tz.units")

using Category = CMySQLException::Category;

constexpr int mostReplays = 5;
constexpr quint32 longestPause = 4; // before the first replay, in milliseconds; twice as long before each further one
// On a cluster, the look for an outcome may be refused because the unit itself arrives at that moment.
constexpr int mostLooks = 5;

KSql tokenInsert(const QString &token)
{
    return KSql::formatted("INSERT INTO UnitTokens(sToken,dateCreate) VALUES(%1,NOW())", KSql::quoted(token));
}

// In the place of the unit's own row, which can then not be written any more. It says what it is: its answer may be lost as well.
KSql refusalInsert(const QString &token)
{
    return KSql::formatted("INSERT INTO UnitTokens(sToken,dateCreate,bRefused) VALUES(%1,NOW(),1)", KSql::quoted(token));
}

KTransaction::Outcome writtenOutcome(KConnection &connection, const QString &token)
{
    KStatementResult row;
    row.set(connection.run(KSql::formatted("SELECT bRefused FROM UnitTokens WHERE sToken=%1", KSql::quoted(token))));
    if (!row.hasRow())
        return KTransaction::Outcome::Unknown;
    return row.value<qint32>(0) == 0 ? KTransaction::Outcome::Saved : KTransaction::Outcome::NotSaved;
}

struct OpenOutcome
{
    QString token;
    int database = 0;
};

struct OutcomesOfThread
{
    KTransaction::LookAgain lookAgain;
    QList<OpenOutcome> open;
};

OutcomesOfThread &outcomesOfThread()
{
    static thread_local OutcomesOfThread outcomes;
    return outcomes;
}

// Looks until it is known, or nobody wants to look again.
KTransaction::Outcome lookedUp(const QString &token, int database)
{
    for (;;) {
        const KTransaction::Outcome outcome = KTransaction::outcomeOf(token, database);
        if (outcome != KTransaction::Outcome::Unknown)
            return outcome;
        // A copy, because the question may let events run.
        const KTransaction::LookAgain lookAgain = outcomesOfThread().lookAgain;
        if (!lookAgain || !lookAgain())
            return outcome;
    }
}

[[noreturn]] void raiseUnknown(const QString &token)
{
    CMySQLException unknown(Category::OutcomeUnknown, 0, u"the connection was lost at COMMIT"_s);
    unknown.setToken(token);
    throw unknown;
}

// The connection broke at COMMIT: returns when the unit was saved all the same.
void settle(const QString &token, int database)
{
    switch (lookedUp(token, database)) {
    case KTransaction::Outcome::Saved:
        return;
    case KTransaction::Outcome::NotSaved:
        throw CMySQLException(Category::ConnectionLost, 0, u"the connection was lost at COMMIT, before it was saved"_s);
    case KTransaction::Outcome::Unknown:
        break;
    }
    outcomesOfThread().open.append({token, database});
    raiseUnknown(token);
}

// What was left open may have been saved, and whoever begins a unit now may be about to save the same a second time.
void settleEarlier(int database)
{
    // Asked for one after the other by its token: the question may let events run.
    const QList<OpenOutcome> earlier = outcomesOfThread().open;
    for (const OpenOutcome &unit : earlier) {
        if (unit.database != database)
            continue;
        const KTransaction::Outcome outcome = lookedUp(unit.token, database);
        if (outcome == KTransaction::Outcome::Unknown)
            raiseUnknown(unit.token);
        const bool isFirst = outcomesOfThread().open.removeIf([&unit](const OpenOutcome &open) { return open.token == unit.token; }) > 0;
        if (isFirst && outcome == KTransaction::Outcome::Saved)
            throw CMySQLException(Category::SavedAfterAll, 0, u"an earlier unit was saved after all, so this one did not begin"_s);
    }
}
}

KTransaction::KTransaction(int database)
    : m_database(database)
    , m_connection(KConnection::forThread(database))
    , m_outermost(m_connection.m_transactionDepth == 0)
{
    m_connection.requireUsable("START TRANSACTION");
    if (m_outermost) {
        settleEarlier(database);
        m_connection.m_rollbackOnly = false;
        m_connection.m_rolledBack = false;
        m_connection.introduce();
        // Sent with the first statement, and the token with the first change: neither has a round trip of its own.
        const bool hasTokens = !KTableSchema::of(u"UnitTokens"_s, database).isEmpty();
        m_token = hasTokens ? QUuid::createUuid().toString(QUuid::WithoutBraces) : QString();
        m_connection.m_token = hasTokens ? tokenInsert(m_token).utf8() : QByteArray();
        m_connection.m_beginsUnit = true;
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
        const bool hasBegun = !std::exchange(m_connection.m_beginsUnit, false);
        if (m_connection.m_handle && hasBegun)
            m_connection.run(QByteArrayLiteral("ROLLBACK"));
    } catch (const CMySQLException &) {
        m_connection.close();
    }
    --m_connection.m_transactionDepth;
}

void KTransaction::commit()
{
    QString unsettled;
    if (m_outermost) {
        if (m_connection.m_rollbackOnly)
            throw CMySQLException(Category::Other, 0, u"a part of this unit of work was given up, so none of it is kept"_s);
        if (!std::exchange(m_connection.m_beginsUnit, false))
            unsettled = end();
    }
    // Over either way: what a question about the outcome sets off works on a connection of its own.
    --m_connection.m_transactionDepth;
    m_done = true;
    if (!unsettled.isEmpty())
        settle(unsettled, m_database);
}

// The token of a unit whose outcome its COMMIT did not tell; empty: it is saved.
QString KTransaction::end()
{
    const QString token = m_connection.m_token.isEmpty() ? m_token : QString();
    try {
        m_connection.run(QByteArrayLiteral("COMMIT"));
    } catch (const CMySQLException &error) {
        const bool isBroken = error.category() == Category::ConnectionLost || error.category() == Category::GivenUp;
        if (!isBroken || token.isEmpty())
            throw;
        return token;
    }
    return {};
}

void KTransaction::setLookAgain(LookAgain question)
{
    outcomesOfThread().lookAgain = std::move(question);
}

// A second row with the token can only be written when there is none yet. Where the broken connection's transaction is
// still open, the server lets this one wait for it; on another node of a cluster, the later of the two is refused.
KTransaction::Outcome KTransaction::outcomeOf(const QString &token, int database)
{
    for (int look = 1;; ++look) {
        try {
            KConnection connection(KConnection::settings(database));
            try {
                connection.run(refusalInsert(token));
                return Outcome::NotSaved;
            } catch (const CMySQLException &error) {
                if (error.category() != Category::DuplicateKey)
                    throw;
            }
            return writtenOutcome(connection, token);
        } catch (const CMySQLException &error) {
            if (error.category() != Category::LockConflict || look >= mostLooks)
                return Outcome::Unknown;
        }
    }
}

void KTransaction::removeOldTokens(int database)
{
    try {
        if (KTableSchema::of(u"UnitTokens"_s, database).isEmpty())
            return;
        // By their keys: to delete by the date would meet each row, and wait for those of units that are still open.
        KConnection &connection = KConnection::forThread(database);
        KStatementResult old;
        old.set(connection.run(QByteArrayLiteral("SELECT sToken FROM UnitTokens WHERE dateCreate<NOW()-INTERVAL 7 DAY LIMIT 10000")));
        QList<KSql> tokens;
        for (bool isRow = old.hasRow(); isRow; isRow = old.moveNext())
            tokens.append(KSql::quoted(old.value<QString>(0)));
        if (!tokens.isEmpty())
            connection.run(KSql::formatted("DELETE FROM UnitTokens WHERE sToken IN (%1)", KSql::joined(tokens, ",")));
    } catch (const CMySQLException &error) {
        // Another desk may be at it; they go another time.
        qCWarning(lcUnits).noquote() << "old tokens stay:" << error.GetErrorMessage();
    }
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
            if (error.category() != Category::LockConflict || !mayReplay || attempt >= mostReplays)
                throw;
            // Two that begin again at once would meet again.
            QThread::msleep(1 + QRandomGenerator::global()->bounded(longestPause << attempt));
        }
    }
}
