// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KConnectionSettings.h"
#include "suite/sql/KSql.h"

#include <QElapsedTimer>

#include <functional>
#include <memory>

class KConversation;
class KWaiter;
class ServerWait;
struct st_mysql;
struct st_mysql_res;

// One connection to the server, used by one thread. The session is set up at connect: utf8mb4 on the wire, strict
// sql_mode without ONLY_FULL_GROUP_BY, no automatic reconnect, no LOCAL INFILE, no multi-statements, and its own limit for waiting
// for locks. A connection that was cut, because the server was silent or somebody gave up, is never used again: the next
// operation opens a new one.
class TZDB_EXPORT KConnection
{
public:
    struct ResultDeleter
    {
        void operator()(st_mysql_res *result) const;
    };
    using Result = std::unique_ptr<st_mysql_res, ResultDeleter>;

    explicit KConnection(KConnectionSettings settings);
    ~KConnection();
    KConnection(const KConnection &) = delete;
    KConnection &operator=(const KConnection &) = delete;

    // Sets the settings of database number; 0 is the suite's current database. Connections of the calling thread to that
    // number are dropped; those of other threads are replaced at their next use.
    static void configure(int database, const KConnectionSettings &settings);
    static bool isConfigured(int database);
    // host and port are those of the node in use, where several are named.
    static KConnectionSettings settings(int database);
    // The same settings, but first the node that this program works on.
    static KConnectionSettings atNodeInUse(KConnectionSettings settings);
    // The calling thread's connection to that database, opened on first use. Throws ConnectionLost.
    static KConnection &forThread(int database = 0);
    // Closes the calling thread's connections; they open again on next use.
    static void closeThreadConnections();

    // Who waits for the answers that the calling thread's connections get; it outlives that. Null: nobody. Then only the times of the
    // settings end a wait.
    static void setWaiter(KWaiter *waiter);
    // For it: the operation of the calling thread is over, and what waits from now on is another one. Within a wait, nothing.
    static void endOperation();
    // Whether the calling thread is waiting for an answer, so that this is asked from what the waiter set off, a timer for one.
    // Another statement on the same connection would be refused.
    static bool isWaiting();
    // What others are told when they wait in vain for a row that this program holds: who works where. Empty: nothing.
    static void setIdentity(const QString &text);

    // Runs one statement; its rows are fetched whole. A null result: the statement returns no rows. Throws.
    Result run(const QByteArray &utf8Statement);
    Result run(const KSql &statement) { return run(statement.utf8()); }
    // As run, for a statement that may stand alone, a lock for one: where it is the first of a unit, it goes out together with the beginning.
    Result runFirst(const KSql &statement);
    // To be sent in one packet behind the next statement that is run, whose failure it must bear: the server carries it out all the same, and
    // outside of the unit where it has given that up. So it asks by itself whether the statement before it changed a row (whereChanged). What
    // goes wrong with it is raised as that statement's failure.
    void follow(const KSql &statement);
    // The condition for it, which holds when the statement before changed or, with an UPDATE, met a row.
    static KSql whereChanged() { return "ROW_COUNT()>0"; }
    // As run, but the rows stay on the server's side and are fetched one by one (no count, no going back).
    Result runStreaming(const QByteArray &utf8Statement);

    // Of the last statement that was run.
    quint64 lastInsertedId() const { return m_insertedId; }
    qint64 affectedRows() const { return m_affectedRows; }

    bool inTransaction() const { return m_transactionDepth > 0; }
    // Makes sure that the server still answers when the connection stood idle; reconnects if not. Never within a transaction.
    void verify();
    // While a statement is on its way (see isWaiting), the connection closes when that has ended.
    void close();
    st_mysql *handle();

    // Statements of this program, in any thread and on any database, that added, set or deleted at least one row. It only grows: what was read at
    // one count is stale at the next, unless the change was another's or was rolled back.
    static quint64 changes();
    // The same of the calling thread alone: what its user did, and not what is done beside.
    static quint64 changesOfThread();

    // Called with every statement before it runs, in whatever thread; for the log and for tests. Null removes it.
    using StatementObserver = std::function<void(const QString &)>;
    static void setStatementObserver(StatementObserver observer);

private:
    friend class KConversation;
    friend class KTransaction;
    friend class KLongWork;
    friend class KReadAhead;
    void open();
    void openOn(const KServerAddress &node, int timeoutSeconds);
    void openOnOneOf(const QList<KServerAddress> &nodes);
    void joinCluster();
    QByteArray sessionSetup() const;
    int answerSeconds() const;
    int lockSeconds() const;
    void beginReading();
    void endReading();
    void expect(const QByteArray &utf8Statement);
    void expectBehind(const QByteArray &utf8Statement);
    void observe(const QByteArray &utf8Statement) const;
    void noteChange();
    void requireUsable(const QByteArray &utf8Statement) const;
    bool wait(int seconds, const std::function<bool(ServerWait &)> &call, bool isStatement = false);
    // Beside the conversation, which knows the connection and not the other way round.
    std::shared_ptr<KConversation> newConversation();
    void forgetConversation();
    void introduce();
    static void applyLockWaits();
    [[noreturn]] void raise(const QByteArray &utf8Statement);
    [[noreturn]] void raise(unsigned int code, const QString &message, const QByteArray &utf8Statement);

    KConnectionSettings m_settings;
    KServerAddress m_node; // that it is connected to, of those of the settings
    st_mysql *m_handle = nullptr;
    ServerWait *m_wait = nullptr; // while a call is on its way
    bool m_gaveUp = false;        // the last call ended because somebody gave up
    QString m_lockHolder;         // who kept the last statement waiting for a row
    QString m_introduced;         // what others know of it
    QElapsedTimer m_idle;
    std::shared_ptr<KConversation> m_conversation;
    quint64 m_insertedId = 0;
    qint64 m_affectedRows = 0;
    int m_transactionDepth = 0;
    bool m_beginsUnit = false; // the beginning of the transaction is still to be sent
    QByteArray m_token;        // that its first change is to write; empty: none, or written
    bool m_rollbackOnly = false;
    bool m_rolledBack = false;  // the server has ended the transaction by itself
    quint64 m_generation = 0;
};
