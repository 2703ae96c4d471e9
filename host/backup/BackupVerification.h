// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupLoading.h"
#include "host/server/DataFolder.h"

// Proves that a backup can be restored, by loading it into a BackupScratch and comparing what came out with its manifest: tables, rows,
// checksums, balanced books.
class BackupVerification
{
public:
    struct Result
    {
        BackupManifest::Verification verification;
        QStringList differences = {}; // Persian sentences
        // What the backup holds; for one without a manifest that is all there is to say.
        QList<BackupManifest::Table> tables = {};
        BackupManifest::Books books = {};
    };

    explicit BackupVerification(const DataFolder &office, const ServerPrograms &programs = ServerPrograms::installed());

    // Whether it gives way to everything else on the computer, as it does unless somebody waits for it.
    void setLowPriority(bool low) { m_low = low; }
    // Writes the result into the manifest, also that a damaged file failed; a backup without a manifest gets none. Throws ServerError
    // WrongPassphrase, Cancelled, and whatever says nothing about the backup (DiskFull, ProgramMissing, DidNotStart ...).
    Result run(BackupFile &file, const QString &passphrase = {}, const BackupLoading::Progress &progress = {}) const;

    // Of what is to be in a backup what is not so: a rule on two manifests.
    static QStringList compare(const BackupManifest &dumped, const QList<BackupManifest::Table> &tables, const BackupManifest::Books &books,
                               const QString &server);

private:
    DataFolder m_office;
    ServerPrograms m_programs;
    bool m_low = true;
};
