// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnectionSettings.h"

#include <QString>

#include <optional>

struct HostOptions;

// The account on an office server, as the command line names it.
namespace OfficeAccount {

// Without the password.
KConnectionSettings settingsOf(const HostOptions &options);
// The first line of the file. Empty optional: it cannot be read, or others may read it; error says which, in Persian.
std::optional<QString> readPassword(const QString &file, QString *error);

}
