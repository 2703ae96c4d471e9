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

void StartupClock::passed(const char *point)
{
    qCInfo(lcHost, "startup: %s %lld", point, static_cast<long long>(m_whole.elapsed()));
}
