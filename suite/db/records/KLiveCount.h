// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <atomic>

// Class-wide count of the live objects of Owner: raised by every constructor, lowered by the destructor. Visible across
// libraries, so that every caller sees the count that the library of Owner keeps.
template <class Owner>
class Q_DECL_EXPORT KLiveCount
{
public:
    static int liveCount() { return s_count.load(); }

protected:
    KLiveCount() { ++s_count; }
    KLiveCount(const KLiveCount &) { ++s_count; }
    KLiveCount &operator=(const KLiveCount &) = default;
    ~KLiveCount() { --s_count; }

private:
    static inline std::atomic<int> s_count{0};
};
