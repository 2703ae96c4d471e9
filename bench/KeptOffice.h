// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "bench/BenchOffice.h"
#include "host/server/EmbeddedServer.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>

// An office of that many contracts in a folder of its own, on a server as the program starts it. The folder stands in that of the environment's
// TZ_BENCH_OFFICES, where the next run finds it again, unless it was broken off while it filled; without one it is gone with the object.
class KeptOffice
{
public:
    explicit KeptOffice(int contracts);

    EmbeddedServer &server() { return *m_server; }

private:
    std::optional<QTemporaryDir> m_own;
    std::optional<EmbeddedServer> m_server;
    std::optional<BenchOffice> m_office;
};
