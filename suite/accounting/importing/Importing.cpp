// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/Importing.h"

#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Importing::Checked;

void tell(const Importing::Progress &progress, int done, int total)
{
    if (progress && !progress(done, total))
        throw Importing::Stopped();
}

Checked checkedBy(ImportRun &run, const QString &kind, const Importing::File &file, QList<ImportRow> rows, const Importing::Progress &progress, int steps,
                  int database)
{
    Checked checked;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        tell(progress, static_cast<int>(i), steps);
        run.check(rows[i]);
    }
    checked.problem = run.fileProblem(rows);
    checked.question = run.question();
    checked.rows = std::move(rows);
    checked.earlier = CTblImportedFiles::last(kind, file.hash, database);
    return checked;
}

// Takes the user's choices over. False where something is there that the user has not seen.
bool agree(Checked &now, const Checked &seen)
{
    bool same = now.rows.size() == seen.rows.size() && now.problem == seen.problem && now.question == seen.question
        && now.earlier.has_value() == seen.earlier.has_value();
    for (qsizetype i = 0; i < now.rows.size() && i < seen.rows.size(); ++i) {
        ImportRow &row = now.rows[i];
        const ImportRow &old = seen.rows.at(i);
        if (row.twin == old.twin)
            row.takesTwin = old.takesTwin;
        same = same && row.twin == old.twin && row.problems == old.problems;
    }
    return same;
}

}

qsizetype Importing::Checked::bad() const
{
    return std::ranges::count_if(rows, [](const ImportRow &row) { return !row.problems.isEmpty(); });
}

qsizetype Importing::Checked::twins() const
{
    return std::ranges::count_if(rows, [](const ImportRow &row) { return row.twin.has_value(); });
}

qsizetype Importing::Checked::written() const
{
    return std::ranges::count_if(rows, [](const ImportRow &row) { return row.isWritten(); });
}

Importing::Checked Importing::check(const ImportKind &kind, const File &file, const QList<ImportRow> &rows, const Progress &progress, int database)
{
    return checkedBy(*kind.begin(database), kind.id(), file, rows, progress, static_cast<int>(rows.size()), database);
}

int Importing::write(const ImportKind &kind, const File &file, const QList<ImportRow> &parsed, const Checked &agreed, const Progress &progress, int database)
{
    int written = 0;
    // Each row is looked at once more and then written.
    const int steps = 2 * static_cast<int>(parsed.size());
    KTransaction::runReplayable(
        [&] {
            written = 0;
            // Before anything is read: what is read then is what stands until the end.
            NamedLock::take(u"Imports"_s, database);
            for (const QString &lock : kind.locks())
                NamedLock::take(lock, database);
            OfficeClosing::requireOpen(database);
            const std::unique_ptr<ImportRun> run = kind.begin(database);
            Checked now = checkedBy(*run, kind.id(), file, parsed, progress, steps, database);
            if (!agree(now, agreed) || now.bad() > 0 || !now.problem.isEmpty())
                throw Changed(std::move(now));
            for (const ImportRow &row : std::as_const(now.rows)) {
                tell(progress, static_cast<int>(parsed.size()) + written, steps);
                if (!row.isWritten())
                    continue;
                run->write(row);
                ++written;
            }
            run->finish();
            CTblImportedFiles::note(kind.id(), file.hash, file.name, written, database);
        },
        database);
    return written;
}
