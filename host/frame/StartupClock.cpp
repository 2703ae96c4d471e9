// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/StartupClock.h"

Q_LOGGING_CATEGORY(lcHost, "tz.host")

StartupClock::StartupClock()
{
    m_whole.start();
    m_phase.start();
}

void StartupClock::reached(const char *phase)
{
    qCInfo(lcHost, "startup: %s %lld", phase, static_cast<long long>(m_phase.restart()));
}

void StartupClock::finished()
{
    qCInfo(lcHost, "startup: total %lld", static_cast<long long>(m_whole.elapsed()));
}
