// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/Importing.h"

#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/importing/ImportCodes.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/accounting/waiting/FreshView.h"
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
        same = same && row.twin == old.twin && row.problems == old.problems && row.values == old.values;
    }
    return same;
}

QList<ImportRow> requireAgreed(Checked now, const Checked &agreed)
{
    if (!agree(now, agreed) || now.bad() > 0 || !now.problem.isEmpty())
        throw Importing::Changed(std::move(now));
    return std::move(now.rows);
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
    const ImportCodes codes(kind, agreed.rows, database);
    int written = 0;
    // Each row is looked at once more and then written.
    const int steps = 2 * static_cast<int>(parsed.size());
    KTransaction::runReplayable(
        [&] {
            written = 0;
            QList<qint32> records;
            const auto keep = [&](qint32 key) {
                if (key > 0)
                    records.append(key);
            };
            const std::unique_ptr<ImportRun> run = kind.begin(database);
            const QList<ImportRow> rows = requireAgreed(checkedBy(*run, kind.id(), file, parsed, progress, steps, database), agreed);
            run->drawCodesFrom(codes.first());
            for (const ImportRow &row : rows) {
                tell(progress, static_cast<int>(parsed.size()) + written, steps);
                if (!row.isWritten())
                    continue;
                keep(run->write(row));
                ++written;
            }
            keep(run->finish());
            // Others wait for the lock from here on only. What they saved until then this unit has not seen: it reads as of its beginning.
            NamedLock::take(u"Imports"_s, database);
            NamedLock::take(kind.table(), database);
            OfficeClosing::requireOpen(database);
            FreshView::read([&] {
                if (!codes.areTaken() && !codes.areRecordsChanged())
                    return;
                Checked now = check(kind, file, parsed, {}, database);
                if (!agree(now, agreed) || codes.areTaken())
                    throw Changed(std::move(now));
            });
            codes.forget();
            CTblImportedFiles::note(kind.id(), file.hash, file.name, written, records, database);
        },
        database);
    return written;
}
