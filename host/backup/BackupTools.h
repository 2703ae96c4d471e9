// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/ServerError.h"
#include "suite/db/connection/KConnection.h"

#include <QString>

#include <memory>

class QTemporaryFile;

// What taking and loading backups share about the server's tools. Inside the library only.
namespace BackupTools {

// A file that only this user can read and that is deleted with the object; for passwords and for a tool's words.
std::unique_ptr<QTemporaryFile> privateFile(const QByteArray &content = {});
QString wordsOf(QTemporaryFile &file);
// The error behind a tool's words: a full disk (under the folder), a damaged table, or else the message given.
ServerError failure(const QString &userMessage, const QString &folder, const QString &words);
ServerError damagedTable(const QString &table, const QString &words);
ServerError cancelled();

}
