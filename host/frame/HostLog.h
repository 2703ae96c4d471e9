// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The program's log file: what happened since this start. The log of the previous start is kept beside it.
namespace HostLog {

// Moves an existing log aside (name + "-previous") and writes from now on to the file; messages of this program that came
// before the call are written first. False when the file cannot be written: messages then go to the standard error only.
bool start(const QString &logsFolder);
// Messages go to the standard error alone again.
void stop();

QString fileName(const QString &logsFolder);
QString previousFileName(const QString &logsFolder);

// Holds back messages until start is called.
void collect();

}
