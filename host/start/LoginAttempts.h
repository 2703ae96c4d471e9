// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Wrong passwords in a row on this computer, whatever the user name. Each delays the next attempt, longer each time, so that
// passwords cannot be guessed by trying. They are kept in the database, by the server's clock, so that starting the program
// again, or a second time, does not shorten the wait; a quarter of an hour without one forgets them. Throws CMySQLException.
namespace LoginAttempts {

// Seconds to wait after that many wrong attempts.
int waitAfter(int wrongAttempts);
// Seconds until the next attempt may be made; 0: now.
int secondsLeft();
struct Standing
{
    int secondsLeft;
    bool areStored; // there are some to forget
};
Standing standing();
// Counts an attempt that was wrong, writes it to the log, and returns the seconds to wait.
int countWrong(const QString &user);
// The right password: nothing is held against this computer any more.
void forget();

}
