// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupManifest.h"

#include <QString>

#include <memory>
#include <optional>

// Writes one backup: compressed, encrypted where there is a passphrase, to a file of another name, which gets its own when it is whole
// and on the disk. Without finish nothing is left. Throws ServerError DiskFull or FolderNotWritable, which name the folder.
class BackupWriter
{
public:
    explicit BackupWriter(const QString &path, const QString &passphrase = {});
    ~BackupWriter();
    BackupWriter(const BackupWriter &) = delete;
    BackupWriter &operator=(const BackupWriter &) = delete;

    void write(const QByteArray &statements);
    // Bytes of a backup that is written already.
    void writeAsIs(const QByteArray &bytes);
    // No more statements: what fileBytes and digest say is then of the whole file. Not after writeAsIs.
    void close();
    // To the disk, under its own name, with the manifest beside it before.
    void finish(const std::optional<BackupManifest> &manifest);

    qint64 plainBytes() const;
    qint64 fileBytes() const;
    // Of what was written so far, see BackupManifest.
    QByteArray digest() const;

    // What ends the name of a file that is not whole yet.
    static QString unfinished() { return QStringLiteral(".part"); }

private:
    struct Output;
    std::unique_ptr<Output> m_output;
};
