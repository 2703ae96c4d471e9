// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

#include <QVersionNumber>

// The version of a data folder's last server and how it ended, kept in server-state.json.
struct ServerState
{
    QVersionNumber version; // major, minor, patch; null: unknown
    bool endedCleanly = false;
    // The file that was run, as markOf has it; empty: unknown.
    QString program = {};

    // A missing or unreadable file gives an unknown version that did not end cleanly.
    static ServerState load(const DataFolder &folder);
    // Best effort: the state only saves work, and a missing one counts as the worse case.
    void save(const DataFolder &folder) const;

    // From "10.11.14-MariaDB-0+deb12u2" or from what mariadbd --version prints; null when there is none in it.
    static QVersionNumber versionIn(const QString &text);

    // Another one for every other file, and for the same after an installation or a change; empty when there is none.
    static QString markOf(const QString &program);
};
