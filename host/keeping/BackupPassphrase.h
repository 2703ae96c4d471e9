// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

// The passphrase by which the backups of a data folder are encrypted. It stands in a file of the folder that only the user can read, so
// that backups can be taken without anybody there; whoever can read that file can read the database too. It protects the copies that
// leave the computer. Nothing else ever holds it: no setting, no log, no list of arguments.
class BackupPassphrase
{
public:
    explicit BackupPassphrase(const DataFolder &folder);

    QString file() const { return m_file; }
    // Without one backups are not encrypted.
    bool isSet() const;
    // Empty when there is none, or when the file is not the user's alone.
    QString read() const;
    // Throws ServerError FolderNotWritable or DiskFull; what was set before then stays.
    void store(const QString &passphrase) const;
    void remove() const;

    static constexpr int shortest = 8;
    // The fault in a passphrase and its repetition; empty when there is none.
    static QString problem(const QString &passphrase, const QString &repeated);
    // How well it would hold, in words; empty for an empty one.
    static QString strength(const QString &passphrase);

private:
    DataFolder m_folder;
    QString m_file;
};
