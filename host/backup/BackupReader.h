// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"

#include <memory>

// Reads the statements of a backup piece by piece, whatever its format. Throws ServerError: BackupDamaged for a file that is altered or cut
// off or that holds far more than it may, WrongPassphrase, DumpFailed when it cannot be read.
class BackupReader
{
public:
    explicit BackupReader(const BackupFile &file, const QString &passphrase = {});
    ~BackupReader();
    BackupReader(const BackupReader &) = delete;
    BackupReader &operator=(const BackupReader &) = delete;

    // Never nothing but at the end, which is told only when the backup was whole.
    QByteArray next();
    // The compressed bytes, as "zstd -d" takes them; of a plain dump its statements. Not to be mixed with next.
    QByteArray nextPacked();
    // Whether the passphrase opens the file; true for one that is not encrypted. Throws ServerError BackupDamaged when its beginning is
    // altered or cut off, DumpFailed when it cannot be read.
    static bool opensWith(const BackupFile &file, const QString &passphrase);
    // Bytes of the file that have been read.
    qint64 done() const;

private:
    struct Input;
    std::unique_ptr<Input> m_input;
};
