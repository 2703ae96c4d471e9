// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QByteArray>
#include <QString>

#include <optional>

// The options file of a database client, as a data folder holds one.
namespace ClientConfig {

// The groups [client] and [mysql] of the file's text; settings that it lacks stay as constructed.
KConnectionSettings parse(const QByteArray &text);
// Empty when the file cannot be read.
std::optional<KConnectionSettings> read(const QString &path);

}
