// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/server/DataFolder.h"

// Shows a backup in a second main window, which is another program on a database of its own.
namespace BackupViewer {

// The passphrase, empty where there is none, reaches that program by its standard input. It ends with this one. Throws
// ServerError ProgramMissing.
void open(const DataFolder &folder, const BackupFile &file, const QString &passphrase);

}
