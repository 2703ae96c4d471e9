// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/ServerWait.h"

#include "suite/db/connection/DBPlatform.h"
#include "suite/db/connection/KWaiter.h"

#include <algorithm>
#include <mysql.h>

using namespace std::chrono_literals;

namespace {

// A wait that a person does not yet notice as one.
constexpr auto unnoticed = 100ms;
constexpr auto patience = 1000ms;
constexpr auto tellEvery = 100ms;
constexpr auto longWait = 2000ms;

struct WaitsOfThread
{
    KWaiter *waiter = nullptr;
    int running = 0;
    int longWorks = 0;
    // The operation that waits.
    bool isOperation = false;
    std::chrono::milliseconds waited{0}; // before the wait that runs
    bool isSlow = false;
    bool isTold = false;
    std::chrono::steady_clock::time_point told;
};

WaitsOfThread &waitsOfThread()
{
    static thread_local WaitsOfThread waits;
    return waits;
}

std::chrono::milliseconds rounded(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(time);
}

}

// A wait within another one, as the search for whoever holds a row, is not told of: the outer one already is.
ServerWait::ServerWait(st_mysql *handle, std::chrono::milliseconds silence)
    : m_handle(handle)
    , m_silence(silence)
    , m_waiter(isLongWork() || isWaiting() ? nullptr : waitsOfThread().waiter)
{
    WaitsOfThread &waits = waitsOfThread();
    ++waits.running;
    if (m_waiter && !waits.isOperation)
        waits.isOperation = m_waiter->began();
}

// Given up is one wait, and not what has to be asked about it afterwards.
ServerWait::~ServerWait()
{
    WaitsOfThread &waits = waitsOfThread();
    --waits.running;
    if (!m_waiter)
        return;
    waits.waited += waited();
    if (!waits.isOperation || m_end != End::Answered)
        endOperation();
}

void ServerWait::setWaiter(KWaiter *waiter)
{
    WaitsOfThread &waits = waitsOfThread();
    waits.waiter = waiter;
    waits.isOperation = waits.isSlow = waits.isTold = false;
    waits.waited = 0ms;
}

void ServerWait::endOperation()
{
    WaitsOfThread &waits = waitsOfThread();
    if (waits.running > 0)
        return;
    waits.isOperation = false;
    waits.waited = 0ms;
    const bool isSlow = std::exchange(waits.isSlow, false);
    if ((std::exchange(waits.isTold, false) || isSlow) && waits.waiter)
        waits.waiter->ended();
}

bool ServerWait::isWaiting()
{
    return waitsOfThread().running > 0;
}

void ServerWait::beginLongWork()
{
    ++waitsOfThread().longWorks;
}

void ServerWait::endLongWork()
{
    --waitsOfThread().longWorks;
}

bool ServerWait::isLongWork()
{
    return waitsOfThread().longWorks > 0;
}

std::chrono::milliseconds ServerWait::waited() const
{
    return rounded(Clock::now() - m_began);
}

std::chrono::milliseconds ServerWait::waitedByAll() const
{
    return waited() + (m_waiter ? waitsOfThread().waited : 0ms);
}

std::chrono::milliseconds ServerWait::untilTold() const
{
    const auto all = waitedByAll();
    if (all < unnoticed)
        return unnoticed - all;
    if (all < patience)
        return patience - all;
    const auto sinceTold = rounded(Clock::now() - waitsOfThread().told);
    return sinceTold < tellEvery ? tellEvery - sinceTold : 0ms;
}

void ServerWait::tell()
{
    WaitsOfThread &waits = waitsOfThread();
    const auto all = waitedByAll();
    if (all >= patience)
        waits.told = Clock::now();
    if (m_whenLong && waited() >= longWait)
        std::exchange(m_whenLong, nullptr)();
    if (!m_waiter)
        return;
    if (all >= unnoticed && !std::exchange(waits.isSlow, true))
        m_waiter->slow();
    if (all < patience)
        return;
    waits.isTold = true;
    if (!m_waiter->goOn(all) && m_end == End::Answered)
        m_end = End::GivenUp;
}

int ServerWait::await(int awaited)
{
    const bool isTold = m_waiter || m_whenLong;
    const Clock::time_point heard = Clock::now();
    while (m_end == End::Answered) {
        const auto silent = rounded(Clock::now() - heard);
        if (m_silence > 0ms && silent >= m_silence) {
            m_end = End::Silent;
            break;
        }
        auto slice = m_silence > 0ms ? m_silence - silent : std::chrono::milliseconds(24h);
        if (isTold)
            slice = std::min(slice, untilTold());
        const int ready = DBPlatform::awaitSocket(mysql_get_socket(m_handle), awaited, slice);
        if (ready != 0)
            return ready;
        tell();
    }
    // Whatever the library still sends as it closes must not wait for the server either.
    DBPlatform::shutDownSocket(mysql_get_socket(m_handle));
    return MYSQL_WAIT_TIMEOUT;
}
