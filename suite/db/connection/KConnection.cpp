// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KConnection.h"

#include "suite/db/connection/ClientCalls.h"
#include "suite/db/connection/DBPlatform.h"
#include "suite/db/connection/LockHolder.h"
#include "suite/db/connection/ServerNodes.h"
#include "suite/db/connection/ServerWait.h"

#include <QHash>
#include <QMutex>

#include <atomic>
#include <errmsg.h>
#include <mysql.h>
#include <mysqld_error.h>

using namespace Qt::StringLiterals;

namespace {

struct Profile
{
    KConnectionSettings settings;
    quint64 generation = 0;
};

struct Registry
{
    QMutex mutex;
    QHash<int, Profile> profiles;
    KConnection::StatementObserver observer;
    std::atomic<bool> observed{false};
    QString identity;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

std::atomic<quint64> changeCount{0};
thread_local quint64 threadChangeCount = 0;

// A node that is gone is no reason to wait: another one has the data.
constexpr int nodeTimeoutSeconds = 3;
// Whether a connection that stood idle still answers.
constexpr int pingSeconds = 5;
constexpr int longLockWaitSeconds = 60;
constexpr int longestIdleTransactionSeconds = 120;
constexpr int longAnswerSeconds = 1800;

using ThreadConnections = QHash<int, std::shared_ptr<KConnection>>;

// The client library keeps state per thread; it is freed with the thread's connections.
struct ThreadState
{
    ThreadConnections connections;
    ~ThreadState()
    {
        connections.clear();
        mysql_thread_end();
    }
};

ThreadState &threadState()
{
    static thread_local ThreadState state;
    return state;
}

}

void KConnection::ResultDeleter::operator()(st_mysql_res *result) const
{
    mysql_free_result(result);
}

KConnection::KConnection(KConnectionSettings settings)
    : m_settings(std::move(settings))
    , m_conversation(newConversation())
{
}

KConnection::~KConnection()
{
    close();
}

void KConnection::configure(int database, const KConnectionSettings &settings)
{
    {
        QMutexLocker lock(&registry().mutex);
        Profile &profile = registry().profiles[database];
        profile.settings = settings;
        ++profile.generation;
    }
    // One that is waiting for an answer is replaced at its next use.
    if (!ServerWait::isWaiting())
        threadState().connections.remove(database);
}

bool KConnection::isConfigured(int database)
{
    QMutexLocker lock(&registry().mutex);
    return registry().profiles.contains(database);
}

KConnectionSettings KConnection::settings(int database)
{
    KConnectionSettings settings;
    {
        QMutexLocker lock(&registry().mutex);
        settings = registry().profiles.value(database).settings;
    }
    return atNodeInUse(settings);
}

KConnectionSettings KConnection::atNodeInUse(KConnectionSettings settings)
{
    QList<KServerAddress> nodes = ServerNodes::inOrder(settings);
    settings.host = nodes.constFirst().host;
    settings.port = nodes.takeFirst().port;
    settings.furtherNodes = nodes;
    return settings;
}

KConnection &KConnection::forThread(int database)
{
    Profile profile;
    {
        QMutexLocker lock(&registry().mutex);
        const auto found = registry().profiles.constFind(database);
        if (found == registry().profiles.cend())
            throw CMySQLException(CMySQLException::Category::ConnectionLost, 0,
                                  u"database %1 has no connection settings"_s.arg(database));
        profile = *found;
    }
    std::shared_ptr<KConnection> &connection = threadState().connections[database];
    const bool isBusy = connection && connection->m_wait;
    if (!isBusy && (!connection || connection->m_generation != profile.generation)) {
        connection = std::make_shared<KConnection>(profile.settings);
        connection->m_generation = profile.generation;
    }
    return *connection;
}

void KConnection::closeThreadConnections()
{
    for (const std::shared_ptr<KConnection> &connection : std::as_const(threadState().connections)) {
        if (connection)
            connection->close();
    }
}

void KConnection::setStatementObserver(StatementObserver observer)
{
    QMutexLocker lock(&registry().mutex);
    registry().observed = bool(observer);
    registry().observer = std::move(observer);
}

void KConnection::setWaiter(KWaiter *waiter)
{
    ServerWait::setWaiter(waiter);
}

void KConnection::endOperation()
{
    ServerWait::endOperation();
}

bool KConnection::isWaiting()
{
    return ServerWait::isWaiting();
}

void KConnection::setIdentity(const QString &text)
{
    QMutexLocker lock(&registry().mutex);
    registry().identity = text;
}

// Lets others look up who this connection is. Not being able to is no reason to stop.
void KConnection::introduce()
{
    QString identity;
    {
        QMutexLocker lock(&registry().mutex);
        identity = registry().identity;
    }
    if (identity.isEmpty() || (m_handle && identity == m_introduced))
        return;
    handle();
    m_introduced = identity;
    // As patient as with any statement: while a cluster finds out that a node is gone, the others make everybody wait.
    for (const QByteArray &statement : {LockHolder::introduction(identity), LockHolder::removalOfOldIntroductions()}) {
        const auto ask = [&](ServerWait &wait) { return ClientCalls::query(wait, m_handle, statement); };
        if (wait(answerSeconds(), ask))
            continue;
        if (m_gaveUp)
            raise(statement);
        if (CMySQLException::categoryOf(mysql_errno(m_handle)) == CMySQLException::Category::ConnectionLost)
            return close();
    }
}

int KConnection::answerSeconds() const
{
    return ServerWait::isLongWork() ? longAnswerSeconds : m_settings.answerTimeoutSeconds;
}

int KConnection::lockSeconds() const
{
    return ServerWait::isLongWork() ? longLockWaitSeconds : m_settings.lockWaitSeconds;
}

QByteArray KConnection::sessionSetup() const
{
    const QByteArray lockWait = QByteArray::number(lockSeconds());
    return "SET SESSION sql_mode='STRICT_TRANS_TABLES,STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,"
           "NO_ENGINE_SUBSTITUTION',innodb_lock_wait_timeout="
        + lockWait + ",lock_wait_timeout=" + lockWait
        // The lists that join the suite's items by either of two keys compare every pair: MariaDB's join buffer
        // would unpack a row's texts anew for each. Other joins go by a key. (Other servers pass this over.)
        + "/*M!100000 , join_cache_level=0 */"
        // A program whose line is cut cannot say so: what it locked is free for others after that time.
        + "/*M!100300 , idle_transaction_timeout=" + QByteArray::number(longestIdleTransactionSeconds) + " */";
}

void KConnection::openOn(const KServerAddress &node, int timeoutSeconds)
{
    m_handle = ClientCalls::makeHandle(m_settings, timeoutSeconds, answerSeconds(), sessionSetup());
    if (!wait(timeoutSeconds, [&](ServerWait &wait) { return ClientCalls::connect(wait, m_handle, m_settings, node); })) {
        const unsigned int code = mysql_errno(m_handle);
        const QString message = QString::fromUtf8(mysql_error(m_handle));
        close();
        throw CMySQLException(m_gaveUp ? CMySQLException::Category::GivenUp : CMySQLException::Category::ConnectionLost, code,
                              message);
    }
    if (!m_settings.host.isEmpty())
        DBPlatform::keepSocketAlive(mysql_get_socket(m_handle));
    m_node = node;
    m_introduced.clear();
    m_idle.start();
}

void KConnection::open()
{
    const QList<KServerAddress> nodes = ServerNodes::inOrder(m_settings);
    if (nodes.size() == 1)
        openOn(nodes.constFirst(), m_settings.connectTimeoutSeconds);
    else
        openOnOneOf(nodes);
}

void KConnection::openOnOneOf(const QList<KServerAddress> &nodes)
{
    CMySQLException last(CMySQLException::Category::ConnectionLost, ER_UNKNOWN_COM_ERROR, u"no node of the cluster is at work"_s);
    std::optional<KServerAddress> behind;
    for (const KServerAddress &node : nodes) {
        try {
            openOn(node, nodeTimeoutSeconds);
        } catch (const CMySQLException &error) {
            if (error.category() == CMySQLException::Category::GivenUp || !ServerNodes::isOfNodeAlone(error.serverCode()))
                throw;
            last = error;
            continue;
        }
        const ServerNodes::State state = ServerNodes::stateOf(m_handle);
        if (state == ServerNodes::State::Working)
            return joinCluster();
        if (state == ServerNodes::State::Behind && !behind)
            behind = node;
        close();
    }
    if (!behind)
        throw last;
    openOn(*behind, nodeTimeoutSeconds);
    joinCluster();
}

// From now on each statement waits until the node has what was written through any other before. Not earlier: while the cluster
// finds out that a node is gone, even the question for the state of another would wait.
void KConnection::joinCluster()
{
    ServerNodes::setInUse(m_settings, m_node);
    (void)wait(answerSeconds(), [&](ServerWait &wait) { return ClientCalls::query(wait, m_handle, ServerNodes::readAfterWrites()); });
}

void KConnection::close()
{
    if (m_wait) {
        m_wait->cut();
        return;
    }
    if (m_handle)
        mysql_close(m_handle);
    m_handle = nullptr;
    forgetConversation();
}

st_mysql *KConnection::handle()
{
    if (!m_handle)
        open();
    return m_handle;
}

void KConnection::verify()
{
    if (!m_handle || m_wait || inTransaction() || m_idle.elapsed() < qint64{1000} * m_settings.idleSeconds)
        return;
    if (!wait(pingSeconds, [&](ServerWait &wait) { return ClientCalls::ping(wait, m_handle); }))
        close();
    m_idle.start();
}

// One call that waits for the server, for at most that long.
bool KConnection::wait(int seconds, const std::function<bool(ServerWait &)> &call, bool isStatement)
{
    ServerWait wait(m_handle, std::chrono::seconds(seconds));
    if (isStatement)
        wait.whenLong([this] { m_lockHolder = LockHolder::of(m_settings, m_node, mysql_thread_id(m_handle)); });
    m_wait = &wait;
    const bool result = call(wait);
    m_wait = nullptr;
    m_gaveUp = wait.end() == ServerWait::End::GivenUp;
    return result;
}

void KConnection::requireUsable(const QByteArray &utf8Statement) const
{
    // What the waiter's events lead to must not speak in the middle of another conversation.
    if (m_wait)
        throw CMySQLException(CMySQLException::Category::Other, CR_COMMANDS_OUT_OF_SYNC,
                              u"another statement is still waiting for its answer"_s, QString::fromUtf8(utf8Statement));
    // A connection that broke inside a transaction must not come back silently in the middle of it.
    if (!m_handle && inTransaction() && !m_beginsUnit)
        throw CMySQLException(CMySQLException::Category::ConnectionLost, 0,
                              u"the connection was lost within a transaction"_s,
                              QString::fromUtf8(utf8Statement));
    // After a deadlock the server has rolled the whole transaction back and would save each further statement by itself.
    if (m_rolledBack && inTransaction())
        throw CMySQLException(CMySQLException::Category::LockConflict, ER_LOCK_DEADLOCK,
                              u"the transaction was rolled back after a deadlock"_s,
                              QString::fromUtf8(utf8Statement));
}

void KConnection::observe(const QByteArray &utf8Statement) const
{
    if (!registry().observed)
        return;
    StatementObserver observer;
    {
        QMutexLocker lock(&registry().mutex);
        observer = registry().observer;
    }
    if (observer)
        observer(QString::fromUtf8(utf8Statement));
}

void KConnection::noteChange()
{
    ++changeCount;
    ++threadChangeCount;
}

KConnection::Result KConnection::runStreaming(const QByteArray &utf8Statement)
{
    if (m_beginsUnit)
        run(QByteArrayLiteral("DO 0"));
    observe(utf8Statement);
    requireUsable(utf8Statement);
    st_mysql *connection = handle();
    m_idle.start();
    m_lockHolder.clear();
    if (!wait(
            answerSeconds(), [&](ServerWait &wait) { return ClientCalls::query(wait, connection, utf8Statement); }, true))
        raise(utf8Statement);
    Result result(mysql_use_result(m_handle));
    if (!result && mysql_errno(m_handle) != 0)
        raise(utf8Statement);
    return result;
}

void KConnection::raise(const QByteArray &utf8Statement)
{
    raise(mysql_errno(m_handle), QString::fromUtf8(mysql_error(m_handle)), utf8Statement);
}

void KConnection::raise(unsigned int code, const QString &message, const QByteArray &utf8Statement)
{
    using Category = CMySQLException::Category;
    // Nobody waits any more: what is said of the failure is said without the notice of the wait.
    ServerWait::endOperation();
    const Category category = m_gaveUp ? Category::GivenUp : CMySQLException::categoryOf(code);
    if (category == Category::ConnectionLost || category == Category::GivenUp)
        close();
    if (code == ER_LOCK_DEADLOCK)
        m_rolledBack = inTransaction();
    CMySQLException error(category, code, message, QString::fromUtf8(utf8Statement));
    if (category == Category::LockWait)
        error.setHolder(m_lockHolder);
    throw error;
}

void KConnection::applyLockWaits()
{
    // A copy, because waiting may let events run that open another one.
    const ThreadConnections connections = threadState().connections;
    for (const std::shared_ptr<KConnection> &connection : connections) {
        if (connection && connection->m_handle && !connection->m_wait) {
            const QByteArray seconds = QByteArray::number(connection->lockSeconds());
            connection->run("SET SESSION innodb_lock_wait_timeout=" + seconds + ",lock_wait_timeout=" + seconds);
        }
    }
}

quint64 KConnection::changes()
{
    return changeCount;
}

quint64 KConnection::changesOfThread()
{
    return threadChangeCount;
}
