// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <chrono>

// Whoever waits for the database on a thread: is told when that takes long, and may give up. On a slow line one operation waits for many
// answers, each of them quickly there: what is awaited is then that of all of them.
class TZDB_EXPORT KWaiter
{
public:
    virtual ~KWaiter() = default;
    // The first wait of an operation begins. True: KConnection::endOperation will be called when the operation is over. False: each wait
    // is an operation by itself.
    virtual bool began() noexcept { return false; }
    // Called once when an operation has waited for a tenth of a second.
    virtual void slow() noexcept { }
    // Called about ten times a second once an operation has waited for longer than a second, which waited says. False gives
    // up: the connection is cut, and the statement ends as GivenUp. It may process events, but what these lead to runs no
    // statement on that connection (KConnection::isWaiting).
    virtual bool goOn(std::chrono::milliseconds waited) noexcept = 0;
    // The operation that slow or goOn was told of is over, or failed in this wait.
    virtual void ended() noexcept = 0;
};
