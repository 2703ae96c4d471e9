// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupReader.h"

// All statements of a backup. Throws ServerError when it is not whole.
inline QByteArray textOfBackup(const QString &path, const QString &passphrase = {})
{
    BackupReader reader(BackupFile(path), passphrase);
    QByteArray text;
    for (QByteArray part = reader.next(); !part.isEmpty(); part = reader.next())
        text += part;
    return text;
}
