// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <cstdio>

// What a command without windows says.
namespace ConsoleLines {

// A result: a line of the standard output, at once.
inline void say(const QString &line)
{
    std::fputs(qUtf8Printable(line + u'\n'), stdout);
    std::fflush(stdout);
}

// An error: a line of the standard error.
inline void complain(const QString &line)
{
    std::fputs(qUtf8Printable(QStringLiteral("tzhost: ") + line + u'\n'), stderr);
}

}
