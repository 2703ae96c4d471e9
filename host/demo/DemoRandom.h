// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <random>
#include <span>

// Random choices that are the same on every computer for the same seed; the distributions of the standard library are not.
class DemoRandom
{
public:
    explicit DemoRandom(unsigned int seed)
        : m_engine(seed) { }

    // 0 to bound - 1.
    int below(int bound) { return static_cast<int>(m_engine() % static_cast<unsigned long long>(bound)); }
    // Both ends are possible.
    int between(int first, int last) { return first + below(last - first + 1); }
    bool chance(int percent) { return below(100) < percent; }
    template <class Value, std::size_t size>
    const Value &oneOf(std::span<Value, size> values)
    {
        return values[static_cast<std::size_t>(below(static_cast<int>(values.size())))];
    }

private:
    std::mt19937_64 m_engine;
};
