// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QString>

#include "suite/utility/values/TzValuesExport.h"

// Folders for documents that the desktop's programs are given to open. Each is this user's alone and marked as held while the
// program runs. What is left of programs that have ended, however they ended, goes at the next start.
namespace TemporaryFolders {

enum class Purpose {
    Attachment,
    Contract
};

// A new folder; empty when none could be made.
TZVALUES_EXPORT QString make(Purpose purpose, const QString &parent = QDir::tempPath());
// Removes a folder that was made here, with all that is in it.
TZVALUES_EXPORT void remove(const QString &folder);
// Removes the folders that no running program holds. One that cannot be removed, such as another user's, stays.
TZVALUES_EXPORT void removeLeft(const QString &parent = QDir::tempPath());

}
