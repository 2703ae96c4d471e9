// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

class BackupKeeper;
class QWidget;

// Backups as the user asks for them.
namespace Backup {

// Takes a backup of the current database into the folder's backups, with a progress window that can be cancelled, and says where it is.
// The keeper, if any, is told and lets it be verified. Returns its path; empty when there is none: the user has been told why, unless they
// cancelled it.
QString takeNow(const DataFolder &folder, BackupKeeper *keeper, QWidget *parent);
// Opens the folder of the backups with the desktop's program for folders.
void showFolder(const QString &folder, QWidget *parent);

}
