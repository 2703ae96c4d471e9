// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/KeptOffice.h"

#include "bench/BenchFilling.h"
#include "bench/Trial.h"

#include "suite/db/connection/KLongWork.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int contractsOfTheDemo = 60;

EmbeddedServer::Options whileFilling()
{
    EmbeddedServer::Options options;
    options.unsafeButFast = true;
    options.bufferPoolMiB = Trial::isOn() ? 64 : 1024;
    options.redoLogMiB = Trial::isOn() ? 32 : 512;
    return options;
}

}

KeptOffice::KeptOffice(int contracts)
{
    const QString parent = qEnvironmentVariable("TZ_BENCH_OFFICES");
    const DataFolder folder(parent.isEmpty() ? m_own.filePath(u"office"_s) : u"%1/%2"_s.arg(parent).arg(contracts));
    m_server.emplace(folder, whileFilling());
    m_server->start();
    // An office from before may need new keys, over all rows.
    const KLongWork work;
    m_office.emplace(contractsOfTheDemo, m_server->connectionSettings());
    BenchFilling::fillUpTo(contracts);
    KConnection::closeThreadConnections();
    m_server.reset();
    m_server.emplace(folder);
    m_server->start();
    KConnection::configure(0, m_server->connectionSettings());
}
