// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/recovery/RestoreExtent.h"

#include <optional>

// What an office loses when it goes back to a backup.
namespace RestoreLoss {

// Changes of rows that were noted since. Nothing where that is not known: a backup of an older program, or a log that is shorter than
// it was. Throws CMySQLException.
std::optional<qint64> changesSince(const BackupFile &file, int database = 0);

// Asks whether to go back: as of when, and what is lost.
QString question(const BackupFile &file, std::optional<qint64> changes, const RestoreExtent &extent = {});
// What is to be known besides of one that the office's own folder does not hold: several offices may share a second folder.
QString warningOfOtherOffice();

}
