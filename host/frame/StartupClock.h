// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QString>

Q_DECLARE_LOGGING_CATEGORY(lcHost)

// How long each phase of the start takes, for the log: one line "startup: <phase> <milliseconds>" per phase.
class StartupClock
{
public:
    StartupClock();

    // The phase that ran since the last call (or since the clock was made) is over.
    void reached(const char *phase);
    // The same with all the time since the clock was made.
    void passed(const char *point);

private:
    QElapsedTimer m_whole;
    QElapsedTimer m_phase;
};
