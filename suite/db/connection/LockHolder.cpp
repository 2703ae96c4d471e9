// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/LockHolder.h"

#include "suite/db/connection/ClientCalls.h"
#include "suite/db/connection/KConnectionSettings.h"
#include "suite/db/connection/ServerWait.h"
#include "suite/sql/KSql.h"

#include <QList>

#include <memory>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// Somebody is waiting already.
constexpr int longestAnswer = 1;

using Handle = std::unique_ptr<MYSQL, decltype(&mysql_close)>;

// Connections are numbered by each server for itself.
QByteArray leaseName(const QByteArray &number)
{
    return "CONCAT('connection/',@@hostname,'/',@@port,'/'," + number + ")";
}

// The first row of what the statement returns; none when it returns none, or fails.
QList<QByteArray> rowOf(const Handle &handle, const QByteArray &statement)
{
    ServerWait wait(handle.get(), std::chrono::seconds(longestAnswer));
    if (!ClientCalls::query(wait, handle.get(), statement))
        return {};
    const std::unique_ptr<MYSQL_RES, decltype(&mysql_free_result)> rows(ClientCalls::storeResult(wait, handle.get()), &mysql_free_result);
    const MYSQL_ROW row = rows ? mysql_fetch_row(rows.get()) : nullptr;
    QList<QByteArray> cells;
    for (unsigned int column = 0; row && column < mysql_num_fields(rows.get()); ++column)
        cells << row[column];
    return cells;
}

// "10.0.0.7:51234" is a computer and its port of the moment.
QString accountAt(const QByteArray &account, const QByteArray &host)
{
    const QString computer = QString::fromUtf8(host.contains(':') ? host.left(host.lastIndexOf(':')) : host);
    return account.isEmpty() ? QString() : u"%1@%2"_s.arg(QString::fromUtf8(account), computer);
}

}

QByteArray LockHolder::introduction(const QString &identity)
{
    constexpr int longest = 200;
    return "INSERT INTO Leases(sName,sHolder,sText,dateSeen) VALUES(" + leaseName("CONNECTION_ID()") + ",'',"
        + KSql::quoted(identity.left(longest)).utf8()
        + ",UTC_TIMESTAMP()) ON DUPLICATE KEY UPDATE sText=VALUES(sText),dateSeen=VALUES(dateSeen)";
}

QByteArray LockHolder::removalOfOldIntroductions()
{
    return "DELETE FROM Leases WHERE sName LIKE 'connection/%' AND dateSeen<UTC_TIMESTAMP()-INTERVAL 7 DAY";
}

QString LockHolder::of(const KConnectionSettings &settings, const KServerAddress &node, unsigned long connectionNumber)
{
    const Handle handle(ClientCalls::makeHandle(settings, longestAnswer, longestAnswer, "SET NAMES utf8mb4"), &mysql_close);
    {
        ServerWait wait(handle.get(), std::chrono::seconds(longestAnswer));
        if (!ClientCalls::connect(wait, handle.get(), settings, node))
            return {};
    }
    const QList<QByteArray> holder =
        rowOf(handle, "SELECT b.trx_mysql_thread_id,p.USER,p.HOST FROM information_schema.INNODB_LOCK_WAITS w "
                      "JOIN information_schema.INNODB_TRX r ON r.trx_id=w.requesting_trx_id "
                      "JOIN information_schema.INNODB_TRX b ON b.trx_id=w.blocking_trx_id "
                      "LEFT JOIN information_schema.PROCESSLIST p ON p.ID=b.trx_mysql_thread_id "
                      "WHERE r.trx_mysql_thread_id="
                  + QByteArray::number(static_cast<qulonglong>(connectionNumber)) + " LIMIT 1");
    if (holder.isEmpty())
        return {};
    const QList<QByteArray> introduced = rowOf(handle, "SELECT sText FROM Leases WHERE sName=" + leaseName(holder.at(0)));
    return introduced.isEmpty() || introduced.at(0).isEmpty() ? accountAt(holder.at(1), holder.at(2))
                                                              : QString::fromUtf8(introduced.at(0));
}
