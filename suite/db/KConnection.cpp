// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/KConnection.h"

#include <QHash>
#include <QMutex>

#include <atomic>
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
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

std::atomic<quint64> changeCount{0};

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
    threadState().connections.remove(database);
}

bool KConnection::isConfigured(int database)
{
    QMutexLocker lock(&registry().mutex);
    return registry().profiles.contains(database);
}

KConnectionSettings KConnection::settings(int database)
{
    QMutexLocker lock(&registry().mutex);
    return registry().profiles.value(database).settings;
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
    if (!connection || connection->m_generation != profile.generation) {
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

void KConnection::open()
{
    MYSQL *handle = mysql_init(nullptr);
    if (!handle)
        throw std::bad_alloc();
    const auto timeout = static_cast<unsigned int>(m_settings.connectTimeoutSeconds);
    const my_bool off = 0;
    const unsigned int noLocalFiles = 0;
    mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &timeout);
    mysql_optionsv(handle, MYSQL_OPT_RECONNECT, &off);
    mysql_optionsv(handle, MYSQL_OPT_LOCAL_INFILE, &noLocalFiles);
    mysql_optionsv(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_optionsv(handle, MYSQL_INIT_COMMAND,
                   "SET SESSION sql_mode='STRICT_TRANS_TABLES,STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,"
                   "NO_ENGINE_SUBSTITUTION'"
                   // The lists that join the suite's items by either of two keys compare every pair: MariaDB's join buffer
                   // would unpack a row's texts anew for each. Other joins go by a key. (Other servers pass this over.)
                   "/*M!100000 , join_cache_level=0 */");
    if (m_settings.useTls) {
        const my_bool on = 1;
        mysql_optionsv(handle, MYSQL_OPT_SSL_ENFORCE, &on);
        mysql_optionsv(handle, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &on);
        if (!m_settings.caFile.isEmpty())
            mysql_ssl_set(handle, nullptr, nullptr, m_settings.caFile.toLocal8Bit().constData(), nullptr, nullptr);
    }
    if (!m_settings.host.isEmpty()) {
        // "localhost" would mean a local socket to the client library, whatever the port.
        const unsigned int network = MYSQL_PROTOCOL_TCP;
        mysql_optionsv(handle, MYSQL_OPT_PROTOCOL, &network);
    }
    const QByteArray host = m_settings.host.toUtf8();
    const QByteArray user = m_settings.user.toUtf8();
    const QByteArray password = m_settings.password.toUtf8();
    const QByteArray database = m_settings.database.toUtf8();
    const QByteArray socket = m_settings.socketPath.toLocal8Bit();
    m_handle = handle;
    // CLIENT_FOUND_ROWS: an UPDATE counts the rows it met, so that a vanished row is distinguished from an unchanged one.
    if (!mysql_real_connect(handle, host.isEmpty() ? nullptr : host.constData(), user.constData(), password.constData(),
                            database.isEmpty() ? nullptr : database.constData(), host.isEmpty() ? 0 : m_settings.port,
                            socket.isEmpty() ? nullptr : socket.constData(), CLIENT_FOUND_ROWS)) {
        const unsigned int code = mysql_errno(handle);
        const QString message = QString::fromUtf8(mysql_error(handle));
        close();
        throw CMySQLException(CMySQLException::Category::ConnectionLost, code, message);
    }
    m_idle.start();
}

void KConnection::close()
{
    if (m_handle)
        mysql_close(m_handle);
    m_handle = nullptr;
}

st_mysql *KConnection::handle()
{
    if (!m_handle)
        open();
    return m_handle;
}

void KConnection::verify()
{
    if (!m_handle || inTransaction() || m_idle.elapsed() < qint64{1000} * m_settings.idleSeconds)
        return;
    if (mysql_ping(m_handle) != 0)
        close();
    m_idle.start();
}

void KConnection::execute(const QByteArray &utf8Statement)
{
    if (registry().observed) {
        StatementObserver observer;
        {
            QMutexLocker lock(&registry().mutex);
            observer = registry().observer;
        }
        if (observer)
            observer(QString::fromUtf8(utf8Statement));
    }
    // A connection that broke inside a transaction must not come back silently in the middle of it.
    if (!m_handle && inTransaction())
        throw CMySQLException(CMySQLException::Category::ConnectionLost, 0,
                              u"the connection was lost within a transaction"_s,
                              QString::fromUtf8(utf8Statement));
    // After a deadlock the server has rolled the whole transaction back and would save each further statement by itself.
    if (m_rolledBack && inTransaction())
        throw CMySQLException(CMySQLException::Category::LockConflict, ER_LOCK_DEADLOCK,
                              u"the transaction was rolled back after a deadlock"_s,
                              QString::fromUtf8(utf8Statement));
    st_mysql *connection = handle();
    m_idle.start();
    if (mysql_real_query(connection, utf8Statement.constData(), static_cast<unsigned long>(utf8Statement.size())) != 0)
        raise(utf8Statement);
    // A statement with rows to fetch has changed none; of the others it is known by now how many it changed.
    if (mysql_field_count(connection) == 0 && mysql_affected_rows(connection) > 0) {
        ++changeCount;
        m_changedRows = true;
    }
}

KConnection::Result KConnection::run(const QByteArray &utf8Statement)
{
    execute(utf8Statement);
    Result result(mysql_store_result(m_handle));
    if (!result && mysql_errno(m_handle) != 0)
        raise(utf8Statement);
    return result;
}

KConnection::Result KConnection::runStreaming(const QByteArray &utf8Statement)
{
    execute(utf8Statement);
    Result result(mysql_use_result(m_handle));
    if (!result && mysql_errno(m_handle) != 0)
        raise(utf8Statement);
    return result;
}

void KConnection::raise(const QByteArray &utf8Statement)
{
    const unsigned int code = mysql_errno(m_handle);
    const QString message = QString::fromUtf8(mysql_error(m_handle));
    const CMySQLException::Category category = CMySQLException::categoryOf(code);
    if (category == CMySQLException::Category::ConnectionLost)
        close();
    if (code == ER_LOCK_DEADLOCK)
        m_rolledBack = inTransaction();
    throw CMySQLException(category, code, message, QString::fromUtf8(utf8Statement));
}

quint64 KConnection::changes()
{
    return changeCount;
}

quint64 KConnection::lastInsertedId() const
{
    return m_handle ? mysql_insert_id(m_handle) : 0;
}

qint64 KConnection::affectedRows() const
{
    return m_handle ? static_cast<qint64>(mysql_affected_rows(m_handle)) : 0;
}
