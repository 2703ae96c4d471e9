// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <functional>

class KWaiter;
struct st_mysql;

// One wait for the server's answer: carries a call of the client library, which returns whenever it would block, to its end.
// Others learn meanwhile that the thread waits, and whoever waits on it can give up.
class ServerWait
{
public:
    enum class End {
        Answered, // the call ended by itself, well or not
        Silent,   // nothing was heard for too long
        GivenUp,  // whoever waits gave up
        Cut       // the connection was closed under the wait
    };

    // silence: how long the server may say nothing at all; zero: as long as it likes.
    ServerWait(st_mysql *handle, std::chrono::milliseconds silence);
    ~ServerWait();
    ServerWait(const ServerWait &) = delete;
    ServerWait &operator=(const ServerWait &) = delete;

    // awaited is what the library's call ..._start returned, resume its ..._cont. When the server is given up, the library is
    // told that its time is over, and ends the call with an error of its own.
    template <class Resume>
    void run(int awaited, Resume resume)
    {
        while (awaited != 0)
            awaited = resume(await(awaited));
    }
    End end() const { return m_end; }
    // Ends the wait as soon as control is back in it.
    void cut() { m_end = End::Cut; }
    // Called once when the wait has lasted for two seconds.
    void whenLong(std::function<void()> work) { m_whenLong = std::move(work); }

    // Of the calling thread. Null: nobody waits, and only the times end a wait. Whoever is set outlives its waits.
    static void setWaiter(KWaiter *waiter);
    // Whether the calling thread is within a wait.
    static bool isWaiting();
    // What waits next is another operation. Within a wait, nothing.
    static void endOperation();
    // Between the two, nobody is asked on the calling thread.
    static void beginLongWork();
    static void endLongWork();
    static bool isLongWork();

private:
    using Clock = std::chrono::steady_clock;

    int await(int awaited);
    void tell();
    std::chrono::milliseconds waited() const;
    std::chrono::milliseconds waitedByAll() const;
    std::chrono::milliseconds untilTold() const;

    st_mysql *m_handle;
    std::chrono::milliseconds m_silence;
    KWaiter *m_waiter;
    Clock::time_point m_began = Clock::now();
    std::function<void()> m_whenLong;
    End m_end = End::Answered;
};
