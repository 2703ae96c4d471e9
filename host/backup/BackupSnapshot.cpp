// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupSnapshot.h"

#include "host/backup/BackupSql.h"

#include <QLoggingCategory>
#include <QThread>

#include <mysqld_error.h>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcSnapshot, "tz.backup")

constexpr int longestHoldMilliseconds = 700;
// Who waits for the writers keeps those from going on that have not begun, and they may be what the others wait for: as long as desks
// save one after the other, that ends by giving up only. So first it is asked often, without waiting, for a moment in which nobody writes.
constexpr int triesAtOnce = 120;
constexpr int shortPauseMilliseconds = 15;
constexpr int triesToWait = 3;
constexpr int pauseMilliseconds = 200;

}

BackupSnapshot::BackupSnapshot(const KConnectionSettings &settings)
    : m_settings(KConnection::atNodeInUse(settings))
{
    // Nobody waits longer for this to get its turn either.
    m_settings.lockWaitSeconds = 1;
}

BackupSnapshot::~BackupSnapshot() = default;

bool BackupSnapshot::tryToHold()
{
    auto holder = std::make_unique<KConnection>(m_settings);
    if (BackupSql::rows(*holder, "SHOW VARIABLES LIKE 'wsrep_on'").value(0).value(1) == "ON")
        return false;
    // Also within a KLongWork: everybody who writes waits behind this.
    holder->run(QByteArrayLiteral("SET SESSION lock_wait_timeout=0"));
    for (int attempt = 1;; ++attempt) {
        if (attempt == triesAtOnce + 1)
            holder->run(QByteArrayLiteral("SET SESSION lock_wait_timeout=1"));
        try {
            holder->run(QByteArrayLiteral("FLUSH TABLES WITH READ LOCK"));
            m_held.start();
            break;
        } catch (const CMySQLException &error) {
            if (error.serverCode() != ER_LOCK_WAIT_TIMEOUT || attempt == triesAtOnce + triesToWait) {
                qCInfo(lcSnapshot).noquote() << "the backup is not of one moment:" << error.GetErrorMessage();
                return false;
            }
            QThread::msleep(attempt < triesAtOnce ? shortPauseMilliseconds : pauseMilliseconds);
        }
    }
    m_holder = std::move(holder);
    return true;
}

bool BackupSnapshot::hold()
{
    letGo();
    m_reader = std::make_unique<KConnection>(m_settings);
    m_reader->run(QByteArrayLiteral("SET SESSION TRANSACTION ISOLATION LEVEL REPEATABLE READ"));
    // It says nothing for as long as the dump takes.
    m_reader->run(QByteArrayLiteral("SET SESSION wait_timeout=86400 /*M!100300 , idle_transaction_timeout=0 */"));
    const bool held = tryToHold();
    m_reader->run(QByteArrayLiteral("START TRANSACTION WITH CONSISTENT SNAPSHOT"));
    if (!held)
        return false;
    readLogPosition();
    return true;
}

void BackupSnapshot::readLogPosition()
{
    m_logFile.clear();
    try {
        const QList<QByteArrayList> log = BackupSql::rows(*m_holder, "SHOW MASTER STATUS");
        if (log.isEmpty())
            return;
        m_logFile = QString::fromUtf8(log.constFirst().value(0));
        m_logPosition = log.constFirst().value(1).toLongLong();
    } catch (const CMySQLException &error) {
        if (error.category() == CMySQLException::Category::ConnectionLost)
            throw;
        // An account that may hold the writers need not see the log.
    }
}

void BackupSnapshot::letGo()
{
    // With its connection the lock ends.
    m_holder.reset();
}

bool BackupSnapshot::isTimeOver() const
{
    return m_holder && m_held.elapsed() > longestHoldMilliseconds;
}
