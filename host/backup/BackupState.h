// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupManifest.h"
#include "suite/db/connection/KConnection.h"

// What a manifest says of a database, asked from it over one connection.
namespace BackupState {

// The tables by name. Throws CMySQLException.
QList<BackupManifest::Table> tables(KConnection &connection, const QString &database);
BackupManifest::Books books(KConnection &connection, const QString &database);
// The newest change of rows that the log of changes knows; 0: none, or there is no such log. Signing in and taking backups do not count.
qint64 lastChange(KConnection &connection, const QString &database);
// Versions of the schemas, of the server, and lastChange.
void readVersions(KConnection &connection, BackupManifest &manifest);

}
