// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/ServerNodes.h"

#include "suite/db/connection/ClientCalls.h"
#include "suite/db/connection/KConnectionSettings.h"
#include "suite/db/connection/ServerWait.h"

#include <QHash>
#include <QMutex>
#include <QStringList>

#include <algorithm>
#include <errmsg.h>
#include <memory>
#include <mysql.h>
#include <mysqld_error.h>

using namespace std::chrono_literals;

namespace {

constexpr auto longestStateAnswer = 3s;
constexpr char synced[] = "4";

QList<KServerAddress> namedNodes(const KConnectionSettings &settings)
{
    return QList<KServerAddress>{{settings.host, settings.port}} + settings.furtherNodes;
}

// A cluster is known by the set of its nodes, in whatever order a connection names them.
QString clusterName(const KConnectionSettings &settings)
{
    QStringList names;
    for (const KServerAddress &node : namedNodes(settings))
        names << node.host + QLatin1Char(' ') + QString::number(node.port);
    names.sort();
    return names.join(QLatin1Char(','));
}

struct NodesInUse
{
    QMutex mutex;
    QHash<QString, KServerAddress> byCluster;
};

NodesInUse &nodesInUse()
{
    static NodesInUse instance;
    return instance;
}

}

QList<KServerAddress> ServerNodes::inOrder(const KConnectionSettings &settings)
{
    QList<KServerAddress> nodes = namedNodes(settings);
    if (nodes.size() == 1)
        return nodes;
    QMutexLocker lock(&nodesInUse().mutex);
    const auto inUse = nodesInUse().byCluster.constFind(clusterName(settings));
    if (inUse == nodesInUse().byCluster.cend())
        return nodes;
    const auto first = std::find(nodes.begin(), nodes.end(), *inUse);
    if (first != nodes.end())
        std::rotate(nodes.begin(), first, nodes.end());
    return nodes;
}

void ServerNodes::setInUse(const KConnectionSettings &settings, const KServerAddress &node)
{
    if (settings.furtherNodes.isEmpty())
        return;
    QMutexLocker lock(&nodesInUse().mutex);
    nodesInUse().byCluster.insert(clusterName(settings), node);
}

bool ServerNodes::isOfNodeAlone(unsigned int serverCode)
{
    static constexpr unsigned int codes[] = {
        CR_CONNECTION_ERROR, CR_CONN_HOST_ERROR, CR_UNKNOWN_HOST, CR_SERVER_GONE_ERROR, CR_SERVER_LOST, CR_SERVER_LOST_EXTENDED,
        CR_IPSOCK_ERROR, ER_CON_COUNT_ERROR, ER_TOO_MANY_USER_CONNECTIONS, ER_HOST_IS_BLOCKED, ER_SERVER_SHUTDOWN,
        ER_NORMAL_SHUTDOWN,
        ER_UNKNOWN_COM_ERROR, // what a node that has left its cluster answers to everything
    };
    return std::find(std::begin(codes), std::end(codes), serverCode) != std::end(codes);
}

QByteArray ServerNodes::readAfterWrites()
{
    constexpr int readsChangesAndAdditions = 7;
    return "SET SESSION wsrep_sync_wait=" + QByteArray::number(readsChangesAndAdditions);
}

ServerNodes::State ServerNodes::stateOf(st_mysql *handle)
{
    ServerWait wait(handle, longestStateAnswer);
    std::unique_ptr<MYSQL_RES, decltype(&mysql_free_result)> rows(nullptr, &mysql_free_result);
    if (ClientCalls::query(wait, handle, "SHOW STATUS WHERE Variable_name IN ('wsrep_provider_name','wsrep_ready','wsrep_local_state')"))
        rows.reset(ClientCalls::storeResult(wait, handle));
    if (!rows)
        return State::Outside;
    QHash<QByteArray, QByteArray> status;
    while (const MYSQL_ROW row = mysql_fetch_row(rows.get()))
        status.insert(row[0], row[1]);
    if (status.value("wsrep_provider_name").isEmpty())
        return State::Working;
    if (status.value("wsrep_ready") != "ON")
        return State::Outside;
    return status.value("wsrep_local_state") == synced ? State::Working : State::Behind;
}
