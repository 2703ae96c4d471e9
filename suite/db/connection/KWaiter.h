// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <chrono>

// Whoever waits for the database on a thread: is told when an answer takes long, and may give up.
class TZDB_EXPORT KWaiter
{
public:
    virtual ~KWaiter() = default;
    // Called about ten times a second once an answer has been awaited for longer than a second, which waited says. False gives
    // up: the connection is cut, and the statement ends as GivenUp. It may process events, but what these lead to runs no
    // statement on that connection (KConnection::isWaiting).
    virtual bool goOn(std::chrono::milliseconds waited) noexcept = 0;
    // The wait that goOn was told of is over, either way.
    virtual void ended() noexcept = 0;
};
