// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/imported/CTblImportedFiles.h"
#include "suite/accounting/importing/ImportKind.h"
#include "suite/accounting/waiting/LongTask.h"

#include <exception>

// The dry run of a file, and its import: all of it in one unit of work, or nothing. May run on a thread of its own.
namespace Importing {

using Progress = LongTask::Progress;
using Stopped = LongTask::Stopped;

struct TZACCOUNTINGDATA_EXPORT Checked
{
    QList<ImportRow> rows;
    QString problem;                                 // of the file as a whole; empty: none
    QString question;                                // to be answered before it is imported; empty: none
    std::optional<CTblImportedFiles::Entry> earlier; // this content was imported before

    qsizetype bad() const;
    qsizetype twins() const;
    qsizetype written() const;
};

struct File
{
    QString name; // without a folder
    QString hash;
};

// rows: as ImportMapping read them. Throws Stopped, CMySQLException.
TZACCOUNTINGDATA_EXPORT Checked check(const ImportKind &kind, const File &file, const QList<ImportRow> &rows, const Progress &progress = {}, int database = 0);

// What the office holds has changed since the dry run, so that what the user agreed to is no longer what would be written. Nothing was.
struct TZACCOUNTINGDATA_EXPORT Changed : std::exception
{
    explicit Changed(Checked now)
        : now(std::move(now)) { }
    Checked now; // what the dry run says now; with the user's choices where nothing has changed
};

// Writes the rows that are to be written (ImportRow::isWritten) and returns how many. parsed: as for check; agreed: what it said, with the
// user's choices. Others go on adding and changing such records meanwhile: the dry run is repeated at the beginning, and where they did,
// once more before the end, while nobody can. Throws Stopped, Changed, KAccountingError in a closed database and while another file of
// the kind is imported, CMySQLException; nothing is kept then.
TZACCOUNTINGDATA_EXPORT int write(const ImportKind &kind, const File &file, const QList<ImportRow> &parsed, const Checked &agreed,
                                  const Progress &progress = {}, int database = 0);

}
