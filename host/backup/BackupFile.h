// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupManifest.h"

#include <QString>

// A backup on disk: its statements, and beside them, in a file of the same name and ".json", its manifest.
class BackupFile
{
public:
    enum class Format {
        Plain,      // .sql, as older programs wrote it; without a manifest
        Compressed, // .sql.zst
        Encrypted   // .sql.zst.enc
    };

    BackupFile() = default;
    // Looks at the file and reads its manifest, as far as there is one. A link is no backup.
    explicit BackupFile(const QString &path);

    // False: there is no such file, or it is a link or a folder.
    bool exists() const { return m_exists; }
    QString path() const { return m_path; }
    QString manifestPath() const { return m_path + QStringLiteral(".json"); }
    Format format() const { return m_format; }
    bool isEncrypted() const { return m_format == Format::Encrypted; }
    qint64 size() const { return m_size; }
    // The office's wall clock, held as UTC: of the manifest, else of the name, else of the file.
    QDateTime taken() const;
    // What became of verifying it; None also without a manifest.
    BackupManifest::Verification verification() const;
    // Nothing: a plain dump, or a backup whose manifest is lost or damaged.
    const std::optional<BackupManifest> &manifest() const { return m_manifest; }
    // Why there is none, for the log; empty when there is, or never was one.
    QString manifestFault() const { return m_fault; }

    // Writes the manifest in one step, for the user alone. Throws ServerError DiskFull or FolderNotWritable.
    void setManifest(const BackupManifest &manifest);
    // Removes the file and its manifest. False: it is still there.
    bool remove() const;

    static Format formatOf(const QString &path);
    static QString suffix(Format format);

private:
    QString m_path;
    bool m_exists = false;
    Format m_format = Format::Plain;
    qint64 m_size = 0;
    std::optional<BackupManifest> m_manifest;
    QString m_fault;
};
