// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QString>

#include <chrono>

// What the record-set base needs from the operating system: the only part of it that differs from one system to another; each
// has its own DBPlatform_<system>.cpp.
namespace DBPlatform {

// Names this process: the start of the system that it runs in, the container, its number and when it began, with slashes between. No
// other process, of this computer or another, ever has the same name. At most 110 ASCII characters, no quotes.
TZDB_EXPORT QString thisProcess();

enum class Life {
    Alive,    // it runs, or is halted by a signal
    Dead,     // it has ended
    Elsewhere // another computer or container knows
};

// onThisComputer: the process is known to have run on this computer, so one of an earlier start of the system has ended.
// Otherwise the name of an earlier start says nothing, because another computer would look the same.
TZDB_EXPORT Life lifeOf(const QString &process, bool onThisComputer);

// Whether a process listens on a local socket of that name. True where the system does not tell.
bool isListening(const QString &socketPath);

// A socket of the client library.
#ifdef _WIN32
using Socket = unsigned long long;
#else
using Socket = int;
#endif

// Waits until one of the events that the client library names (MYSQL_WAIT_READ, _WRITE, _EXCEPT) has come about, for so long at
// most. Returns those that have; 0 when none has in that time. A broken connection counts as all of them.
int awaitSocket(Socket socket, int events, std::chrono::milliseconds atMost);
// Nothing more is sent or received: whoever waits on the socket wakes up.
void shutDownSocket(Socket socket);
// A network connection over which nothing travels is probed, so that within a minute its end is noticed on both sides.
void keepSocketAlive(Socket socket);

}
