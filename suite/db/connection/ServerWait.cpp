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
constexpr auto patience = 1000ms;
constexpr auto tellEvery = 100ms;
constexpr auto longWait = 2000ms;

struct WaitsOfThread
{
    KWaiter *waiter = nullptr;
    int running = 0;
    int longWorks = 0;
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
    ++waitsOfThread().running;
}

ServerWait::~ServerWait()
{
    --waitsOfThread().running;
    if (m_told)
        m_waiter->ended();
}

void ServerWait::setWaiter(KWaiter *waiter)
{
    waitsOfThread().waiter = waiter;
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

void ServerWait::tell(std::chrono::milliseconds waited)
{
    if (m_whenLong && waited >= longWait)
        std::exchange(m_whenLong, nullptr)();
    if (!m_waiter || waited < patience)
        return;
    m_told = true;
    if (!m_waiter->goOn(waited) && m_end == End::Answered)
        m_end = End::GivenUp;
}

int ServerWait::await(int awaited)
{
    const bool isTold = m_waiter || m_whenLong;
    const Clock::time_point heard = Clock::now();
    while (m_end == End::Answered) {
        const Clock::time_point now = Clock::now();
        const auto waited = rounded(now - m_began);
        const auto silent = rounded(now - heard);
        if (m_silence > 0ms && silent >= m_silence) {
            m_end = End::Silent;
            break;
        }
        auto slice = m_silence > 0ms ? m_silence - silent : std::chrono::milliseconds(24h);
        if (isTold)
            slice = std::min(slice, waited < patience ? patience - waited : tellEvery);
        const int ready = DBPlatform::awaitSocket(mysql_get_socket(m_handle), awaited, slice);
        if (ready != 0)
            return ready;
        tell(rounded(Clock::now() - m_began));
    }
    // Whatever the library still sends as it closes must not wait for the server either.
    DBPlatform::shutDownSocket(mysql_get_socket(m_handle));
    return MYSQL_WAIT_TIMEOUT;
}
