// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// What this computer decides for itself about backups, in the settings file of the data folder: a path of one computer says nothing
// to another, and the server of the folder is this computer's own.
namespace BackupsHere {

// A disk or a share that gets a copy of each backup; empty: none.
QString secondFolder();
void setSecondFolder(const QString &folder);

// Whether this program takes backups by itself. Without a choice: always of a private server, of an office server where an
// administrator works, because a backup holds also what the user may not see.
bool takesByItself(bool privateServer, bool administrator);
// Nothing: back to that.
void setTakesByItself(std::optional<bool> takes);
std::optional<bool> chosen();

// Whether the private server keeps the log of its changes, so that one can go back to any minute. Counts from its next start on.
bool keepsChangeLog();
void setKeepsChangeLog(bool keeps);

// Copies in the second folder that are to go when it is there again, as BackupJob names them.
QStringList copiesToRemove();
void setCopiesToRemove(const QStringList &marks);

// What went wrong with the last backup, until one succeeds; empty: nothing.
QString failure();
void setFailure(const QString &text);

}
