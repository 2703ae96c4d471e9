// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/conversion/ProcessFamily.h"

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

void ProcessFamily::lead(QProcess &process)
{
    process.setChildProcessModifier([] {
        ::setsid();
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
}

void ProcessFamily::end(qint64 leader)
{
    if (leader > 1)
        ::kill(static_cast<pid_t>(-leader), SIGKILL);
}
