// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KServerAddress.h"

#include <QByteArray>

struct KConnectionSettings;

// Who keeps a connection waiting for a row, as far as the server tells. It does so to accounts with the right PROCESS only.
namespace LockHolder {

// The statement by which the connection that runs it tells the others who it is. It writes a row of Leases.
QByteArray introduction(const QString &identity);
// The statement that removes introductions of connections that are long gone, or about to be.
QByteArray removalOfOldIntroductions();

// Who holds the row that the connection of that number, on that node, is waiting for: how the holder introduced itself, else its
// account and computer. Empty when it waits for none, or the server does not say. Answers within about two seconds.
QString of(const KConnectionSettings &settings, const KServerAddress &node, unsigned long connectionNumber);

}
