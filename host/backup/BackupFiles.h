// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"

#include <QList>

#include <functional>

// The backups of a folder.
namespace BackupFiles {

// Those of the database, newest first, by their names: <database>-<yyyyMMdd-HHmmss>[-n] and a suffix of BackupFile. A file of
// such a name is always whole as it was written.
QList<BackupFile> in(const QString &folder, const QString &database);
// A path for a new backup, which does not exist. The time is the office's.
QString freePath(const QString &folder, const QString &database, BackupFile::Format format, const QDateTime &taken);
// Removes what programs that have ended left unfinished in the folder. One that is being written stays.
void removeLeft(const QString &folder);
// Copies the finished backup with its manifest into another folder, for the user alone: there is the whole file or none. Returns the copy.
// Throws ServerError FolderNotWritable (also when the folder is missing: a disk that is not plugged in is not made anew), DiskFull, or Cancelled,
// as soon as goesOn, asked once per mebibyte, is false.
BackupFile copy(const BackupFile &file, const QString &folder, const std::function<bool()> &goesOn = {});

}
