// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QUrl;

#include "suite/utility/TzUtilityExport.h"

// Starts other programs.
class TZUTILITY_EXPORT KProcess
{
public:
    // "Explorer" opens the path, a file or a folder, with the desktop's default program; any other name is a program
    // started with that one argument. Does not wait. False when nothing could be started, or the path does not exist.
    static bool Execute(const QString &program, const QString &argument);
    // Opens a link such as "sms:..." with the program that the desktop has for its scheme. False where it is known to have none, or the
    // program could not be started.
    static bool openLink(const QUrl &link);
};
