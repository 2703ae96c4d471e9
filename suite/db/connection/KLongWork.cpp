// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KLongWork.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/ServerWait.h"

KLongWork::KLongWork()
{
    ServerWait::beginLongWork();
    try {
        KConnection::applyLockWaits();
    } catch (...) {
        ServerWait::endLongWork();
        throw;
    }
}

KLongWork::~KLongWork()
{
    ServerWait::endLongWork();
    try {
        KConnection::applyLockWaits();
    } catch (const CMySQLException &) {
        // A session that cannot be set back is not used any more; the next one has the usual times.
        KConnection::closeThreadConnections();
    }
}
