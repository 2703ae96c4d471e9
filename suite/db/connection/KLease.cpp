// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KLease.h"

#include "suite/db/connection/DBPlatform.h"
#include "suite/db/connection/KConnection.h"

#include <QMutex>
#include <QScopeGuard>
#include <QSet>
#include <QUuid>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <mysql.h>
#include <mysqld_error.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using LeaseClock = std::chrono::steady_clock;

constexpr auto renewalInterval = 10s;
// Over a local socket a holder is known by its process; what is left to renewals is to write a row again that is gone.
constexpr auto localRenewalInterval = 10min;
constexpr auto leaseTerm = 60s;
constexpr auto longestConfirmation = 5s;
constexpr auto longestReturn = 800ms;
constexpr int longestText = 200;
constexpr int mostTries = 6;

// The leases that this process holds: one that it has dropped but could not give back is free for itself.
struct HeldHere
{
    QMutex mutex;
    QSet<QString> holders;
};

HeldHere &heldHere()
{
    static HeldHere instance;
    return instance;
}

bool isHeldHere(const QString &holder)
{
    QMutexLocker lock(&heldHere().mutex);
    return heldHere().holders.contains(holder);
}

void setHeldHere(const QString &holder, bool held)
{
    QMutexLocker lock(&heldHere().mutex);
    if (held)
        heldHere().holders.insert(holder);
    else
        heldHere().holders.remove(holder);
}

// Past the observer and the count of changes: a lease says nothing about the office's data.
KConnection::Result answerTo(KConnection &connection, const KSql &statement)
{
    st_mysql *handle = connection.handle();
    const QByteArray &text = statement.utf8();
    if (mysql_real_query(handle, text.constData(), static_cast<unsigned long>(text.size())) == 0) {
        KConnection::Result result(mysql_store_result(handle));
        if (result || mysql_errno(handle) == 0)
            return result;
    }
    const unsigned int code = mysql_errno(handle);
    const QString message = QString::fromUtf8(mysql_error(handle));
    const CMySQLException::Category category = CMySQLException::categoryOf(code);
    if (category == CMySQLException::Category::ConnectionLost)
        connection.close();
    throw CMySQLException(category, code, message, statement.text());
}

// Whether the statement met a row. Two nodes of a cluster that change the same row both believe that they did until one of them
// is refused, as in a deadlock, and asks again.
bool changesARow(KConnection &connection, const KSql &statement)
{
    for (int tries = 1;; ++tries) {
        try {
            answerTo(connection, statement);
            return mysql_affected_rows(connection.handle()) > 0;
        } catch (const CMySQLException &error) {
            if (error.serverCode() != ER_LOCK_DEADLOCK || tries >= mostTries)
                throw;
        }
    }
}

// The threads that outlived their lease because the server was silent. None of them works on while the program ends: what it
// uses goes then. It is never destroyed, for the same reason.
struct LeftBehind
{
    std::mutex mutex;
    std::condition_variable changed;
    int working = 0; // of them, those that are at a statement
    bool ending = false;
};

LeftBehind &leftBehind()
{
    static auto *const instance = [] {
        auto *made = new LeftBehind;
        std::atexit([] {
            LeftBehind &left = leftBehind();
            std::unique_lock lock(left.mutex);
            left.ending = true;
            left.changed.wait_for(lock, longestReturn, [&left] { return left.working == 0; });
        });
        return made;
    }();
    return *instance;
}

// Lives while a thread is at a statement that nobody waits for any more.
class AtStatement
{
public:
    AtStatement()
    {
        const std::lock_guard lock(leftBehind().mutex);
        m_mayBegin = !leftBehind().ending;
        if (m_mayBegin)
            ++leftBehind().working;
    }
    ~AtStatement()
    {
        if (!m_mayBegin)
            return;
        const std::lock_guard lock(leftBehind().mutex);
        --leftBehind().working;
        leftBehind().changed.notify_all();
    }
    AtStatement(const AtStatement &) = delete;
    AtStatement &operator=(const AtStatement &) = delete;

    bool mayBegin() const { return m_mayBegin; }

private:
    bool m_mayBegin;
};

struct LeaseRow
{
    QString holder;
    KLease::Holder said;
    QString seen;
};

// holder is a process's name, a slash and what tells the process's leases apart.
bool lives(const QString &holder, qint64 secondsUnseen, bool onThisComputer)
{
    const QString process = holder.section(u'/', 0, -2);
    if (process == DBPlatform::thisProcess())
        return isHeldHere(holder);
    const DBPlatform::Life life = DBPlatform::lifeOf(process, onThisComputer);
    return life == DBPlatform::Life::Alive
        || (life == DBPlatform::Life::Elsewhere && secondsUnseen < std::chrono::seconds(leaseTerm).count());
}

std::optional<LeaseRow> rowOf(KConnection &connection, const QString &name, bool onThisComputer)
{
    const KConnection::Result result =
        answerTo(connection, KSql::formatted("SELECT sHolder,sText,DATE_FORMAT(dateTaken,'%Y-%m-%dT%H:%i:%s'),dateSeen,"
                                             "TIMESTAMPDIFF(SECOND,dateSeen,UTC_TIMESTAMP()) FROM Leases WHERE sName=%1",
                                             KSql::quoted(name)));
    const MYSQL_ROW row = mysql_fetch_row(result.get());
    if (!row)
        return std::nullopt;
    LeaseRow found;
    found.holder = QString::fromUtf8(row[0]);
    found.said.text = QString::fromUtf8(row[1]);
    found.said.since = QDateTime::fromString(QString::fromUtf8(row[2]), Qt::ISODate);
    found.said.since.setTimeSpec(Qt::UTC);
    found.seen = QString::fromUtf8(row[3]);
    found.said.alive = lives(found.holder, QByteArray(row[4]).toLongLong(), onThisComputer);
    return found;
}

// Over a local socket nobody comes but from this computer.
bool isLocal(const KConnectionSettings &settings)
{
    return settings.host.isEmpty();
}

KSql inserted(const QString &name, const QString &holder, const QString &text)
{
    return KSql::formatted("INSERT IGNORE INTO Leases(sName,sHolder,sText,dateTaken,dateSeen) "
                           "VALUES(%1,%2,%3,UTC_TIMESTAMP(),UTC_TIMESTAMP())",
                           KSql::quoted(name), KSql::quoted(holder), KSql::quoted(text));
}

bool take(KConnection &connection, const QString &name, const QString &holder, const QString &text, bool onThisComputer)
{
    for (int tries = 0; tries < mostTries; ++tries) {
        if (changesARow(connection, inserted(name, holder, text)))
            return true;
        const std::optional<LeaseRow> found = rowOf(connection, name, onThisComputer);
        if (!found)
            continue; // given back a moment ago
        if (found->said.alive)
            return false;
        // Of several that find the holder dead, the first one changes what the others ask for.
        if (changesARow(connection, KSql::formatted("UPDATE Leases SET sHolder=%1,sText=%2,dateTaken=UTC_TIMESTAMP(),dateSeen=UTC_TIMESTAMP() "
                                                    "WHERE sName=%3 AND sHolder=%4 AND dateSeen=%5",
                                                    KSql::quoted(holder), KSql::quoted(text), KSql::quoted(name), KSql::quoted(found->holder), KSql::quoted(found->seen))))
            return true;
    }
    return false;
}

}

// What the lease and its thread share. The thread may outlive the lease, when the server is silent.
struct KLease::Keeper
{
    QString name;
    QString holder;
    QString text;
    bool isLocal = false;                    // none but this computer's programs reach the server
    std::unique_ptr<KConnection> connection; // the thread's, once it runs
    std::thread thread;

    mutable std::mutex mutex; // of what follows
    std::condition_variable changed;
    LeaseClock::time_point renewed = LeaseClock::now();
    quint64 asked = 0;    // confirmations that were asked for
    quint64 answered = 0; // and those whose renewal has ended, well or not
    bool lastRenewed = true;
    bool lost = false;
    bool returning = false;   // the lease is gone; the thread is to give its row back
    bool triedReturn = false; // without reaching the server, or with it
    bool done = false;        // the thread has nothing left to do

    void run();
    bool renew();
    void giveBack();
};

// Whether it is still ours. A row that is gone, as after a backup was loaded, is written again.
bool KLease::Keeper::renew()
{
    return changesARow(*connection, KSql::formatted("UPDATE Leases SET dateSeen=UTC_TIMESTAMP() WHERE sName=%1 AND sHolder=%2", KSql::quoted(name), KSql::quoted(holder)))
        || changesARow(*connection, inserted(name, holder, text));
}

void KLease::Keeper::run()
{
    std::unique_lock lock(mutex);
    while (!returning && !lost) {
        changed.wait_for(lock, isLocal ? std::chrono::seconds(localRenewalInterval) : renewalInterval, [this] { return returning || asked != answered; });
        if (returning)
            break;
        const quint64 answering = asked;
        lock.unlock();
        bool reached = true;
        bool isOurs = true;
        try {
            isOurs = renew();
        } catch (const CMySQLException &) {
            reached = false; // tried again in the next round
        }
        lock.lock();
        lastRenewed = reached && isOurs;
        if (lastRenewed)
            renewed = LeaseClock::now();
        lost = !isOurs;
        answered = answering;
        changed.notify_all();
    }
    const bool isOurs = !lost;
    lock.unlock();
    if (isOurs)
        giveBack();
    connection.reset();
    mysql_thread_end();
    lock.lock();
    done = true;
    changed.notify_all();
}

// For as long as another computer would wait for a renewal.
void KLease::Keeper::giveBack()
{
    const LeaseClock::time_point end = LeaseClock::now() + leaseTerm;
    while (LeaseClock::now() < end) {
        try {
            const AtStatement statement;
            if (statement.mayBegin())
                changesARow(*connection, KSql::formatted("DELETE FROM Leases WHERE sName=%1 AND sHolder=%2", KSql::quoted(name), KSql::quoted(holder)));
            return;
        } catch (const CMySQLException &error) {
            if (error.category() != CMySQLException::Category::ConnectionLost)
                return;
        }
        std::unique_lock lock(mutex);
        triedReturn = true;
        changed.notify_all();
        changed.wait_for(lock, renewalInterval, [] { return false; });
    }
}

void KLease::createTable(int database)
{
    KConnection::forThread(database).run(
        QByteArrayLiteral("CREATE TABLE IF NOT EXISTS Leases (sName VARCHAR(100) COLLATE utf8_bin NOT NULL"
                          ", sHolder VARCHAR(200) COLLATE utf8_bin NOT NULL, sText VARCHAR(200) CHARACTER SET utf8mb4 DEFAULT NULL"
                          ", dateTaken DATETIME DEFAULT NULL, dateSeen DATETIME NOT NULL"
                          ", PRIMARY KEY (sName)) ENGINE=InnoDB CHARSET=utf8"));
}

std::unique_ptr<KLease> KLease::tryTake(const QString &name, const QString &text, int database)
{
    if (!KConnection::isConfigured(database))
        throw CMySQLException(CMySQLException::Category::ConnectionLost, 0, u"database %1 has no connection settings"_s.arg(database));
    const KConnectionSettings settings = KConnection::settings(database);
    auto keeper = std::make_shared<Keeper>();
    keeper->name = name;
    keeper->text = text.left(longestText);
    keeper->isLocal = isLocal(settings);
    keeper->holder = DBPlatform::thisProcess() + u'/' + QUuid::createUuid().toString(QUuid::WithoutBraces);
    keeper->connection = std::make_unique<KConnection>(settings);
    setHeldHere(keeper->holder, true);
    bool taken = false;
    const auto unlessTaken = qScopeGuard([&] {
        if (!taken)
            setHeldHere(keeper->holder, false);
    });
    taken = take(*keeper->connection, name, keeper->holder, keeper->text, keeper->isLocal);
    if (!taken)
        return nullptr;
    return std::unique_ptr<KLease>(new KLease(keeper));
}

std::optional<KLease::Holder> KLease::holder(const QString &name, int database)
{
    try {
        const std::optional<LeaseRow> found =
            rowOf(KConnection::forThread(database), name, isLocal(KConnection::settings(database)));
        return found ? std::optional(found->said) : std::nullopt;
    } catch (const CMySQLException &error) {
        if (error.serverCode() != ER_NO_SUCH_TABLE)
            throw;
        return std::nullopt;
    }
}

bool KLease::isAlive(const QString &name, int database)
{
    const std::optional<Holder> found = holder(name, database);
    return found && found->alive;
}

KLease::KLease(std::shared_ptr<Keeper> keeper)
    : m_keeper(std::move(keeper))
{
    m_keeper->thread = std::thread([shared = m_keeper] { shared->run(); });
}

KLease::~KLease()
{
    bool done = false;
    {
        std::unique_lock lock(m_keeper->mutex);
        m_keeper->returning = true;
        m_keeper->changed.notify_all();
        m_keeper->changed.wait_for(lock, longestReturn, [this] { return m_keeper->done || m_keeper->triedReturn; });
        done = m_keeper->done;
    }
    if (done)
        m_keeper->thread.join();
    else
        m_keeper->thread.detach();
    setHeldHere(m_keeper->holder, false);
}

bool KLease::isHeld() const
{
    const std::lock_guard lock(m_keeper->mutex);
    return !m_keeper->lost && (m_keeper->isLocal || LeaseClock::now() - m_keeper->renewed < leaseTerm);
}

bool KLease::confirm()
{
    std::unique_lock lock(m_keeper->mutex);
    if (m_keeper->lost)
        return false;
    const quint64 wanted = ++m_keeper->asked;
    m_keeper->changed.notify_all();
    return m_keeper->changed.wait_for(lock, longestConfirmation, [&] { return m_keeper->answered >= wanted || m_keeper->lost; })
        && m_keeper->lastRenewed;
}
