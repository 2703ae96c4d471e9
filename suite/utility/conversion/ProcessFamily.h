// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

class QProcess;

// A process with all that it starts: what a user calls by one name is often a script that starts the program proper.
namespace ProcessFamily {

// To be called before it starts. It then ends with this program, however that one ends.
void lead(QProcess &process);
// Ends what is left of the family at once.
void end(qint64 leader);

}
