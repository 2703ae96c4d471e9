// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/recovery/RestoreExtent.h"
#include "host/server/DataFolder.h"

#include <optional>

class QWidget;

// What is asked before a backup is restored.
namespace RestoreQuestions {

// To the backup's moment or to the last minute; asks only where there is something to choose. Nothing: the user gave up. Throws ServerError.
std::optional<RestoreExtent> extent(const BackupFile &file, const DataFolder &folder, QWidget *parent);

}
