// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

// Values that a thread of its own makes while the caller's uses those made before, such as the rows of the next statement while the server stores
// the last ones. A few wait at most, however many there are in all.
template <class Value>
class KMadeAhead
{
public:
    using Give = std::function<void(Value)>;

    // make calls give with each value, in their order; nothing else may touch what it works with until next() has told of the end. It has
    // database connections of its own, which see nothing of a transaction of the caller's.
    explicit KMadeAhead(std::function<void(const Give &give)> make)
        : m_thread([this, make = std::move(make)] { run(make); })
    {
    }
    // Ends the making, if it has not ended.
    ~KMadeAhead()
    {
        {
            const std::lock_guard lock(m_guard);
            m_isWanted = false;
        }
        m_changed.notify_all();
        m_thread.join();
    }
    KMadeAhead(const KMadeAhead &) = delete;
    KMadeAhead &operator=(const KMadeAhead &) = delete;

    // Waits for the next value; none at the end. Throws what make has thrown, after the values that it gave before.
    std::optional<Value> next()
    {
        std::unique_lock lock(m_guard);
        m_changed.wait(lock, [this] { return !m_waiting.empty() || m_hasEnded; });
        if (m_waiting.empty()) {
            if (m_error)
                std::rethrow_exception(m_error);
            return std::nullopt;
        }
        std::optional<Value> value(std::move(m_waiting.front()));
        m_waiting.pop_front();
        lock.unlock();
        m_changed.notify_all();
        return value;
    }

private:
    static constexpr std::size_t mostWaiting = 4;
    struct Unwanted
    {
    };

    void run(const std::function<void(const Give &)> &make)
    {
        std::exception_ptr error;
        try {
            make([this](Value value) { give(std::move(value)); });
        } catch (const Unwanted &) {
        } catch (...) {
            error = std::current_exception();
        }
        {
            const std::lock_guard lock(m_guard);
            m_error = error;
            m_hasEnded = true;
        }
        m_changed.notify_all();
    }

    void give(Value value)
    {
        {
            std::unique_lock lock(m_guard);
            m_changed.wait(lock, [this] { return m_waiting.size() < mostWaiting || !m_isWanted; });
            if (!m_isWanted)
                throw Unwanted();
            m_waiting.push_back(std::move(value));
        }
        m_changed.notify_all();
    }

    std::mutex m_guard;
    std::condition_variable m_changed;
    std::deque<Value> m_waiting;
    std::exception_ptr m_error;
    bool m_isWanted = true;
    bool m_hasEnded = false;
    std::thread m_thread; // last: it works with the others
};
