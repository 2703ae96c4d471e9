// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/BackupJob.h"

#include "host/backup/BackupFiles.h"
#include "host/frame/StartupClock.h"
#include "host/server/ServerError.h"
#include "suite/db/CMySQLException.h"

using namespace Qt::StringLiterals;

namespace {

using Reason = BackupManifest::Reason;

bool isOfUser(const BackupFile &file)
{
    return !file.manifest() || file.manifest()->reason == Reason::ByHand || file.manifest()->reason == Reason::CommandLine;
}

bool isSafetyCopy(const BackupFile &file)
{
    return file.manifest()->reason == Reason::BeforeUpgrade || file.manifest()->reason == Reason::BeforeRestore;
}

void removeOutdated(const QString &folder, const QString &database, const BackupKeeping::Kept &kept, const QDateTime &now)
{
    for (const BackupFile &file : BackupJob::outdated(folder, database, kept, now)) {
        if (file.remove())
            qCInfo(lcHost).noquote() << "backup no longer kept:" << file.path();
        else
            qCWarning(lcHost).noquote() << "backup cannot be removed:" << file.path();
    }
}

}

QList<BackupFile> BackupJob::outdated(const QString &folder, const QString &database, const BackupKeeping::Kept &kept, const QDateTime &now)
{
    using State = BackupManifest::Verification::State;
    QList<BackupFile> files;
    QList<BackupKeeping::Backup> backups;
    for (const BackupFile &file : BackupFiles::in(folder, database)) {
        if (isOfUser(file))
            continue;
        files.append(file);
        backups.append({file.taken(), file.verification().state == State::Passed, file.verification().state == State::Failed, isSafetyCopy(file)});
    }
    QList<BackupFile> going;
    for (const int position : BackupKeeping::outdated(backups, kept, now))
        going.append(files.at(position));
    return going;
}

void BackupJob::take(const BackupTaking::Progress &progress)
{
    file = BackupTaking(server).take(request, [&](qint64 nowDone, qint64 nowExpected) {
        done = nowDone;
        expected = nowExpected;
        return !cancelled && (!progress || progress(nowDone, nowExpected));
    });
    if (!secondFolder.isEmpty())
        copyToSecond();
    removeOutdated(request.folder, server.database, kept, file->taken());
}

void BackupJob::copyToSecond()
{
    try {
        BackupFiles::copy(*file, secondFolder);
        removeOutdated(secondFolder, server.database, kept, file->taken());
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "second folder:" << error.detail();
        secondProblem = error.userMessage();
    }
}

void BackupJob::run(const BackupTaking::Progress &progress)
{
    if (!problem.isEmpty())
        return;
    try {
        take(progress);
    } catch (const ServerError &error) {
        cancelled = error.kind() == ServerError::Kind::Cancelled;
        problem = error.userMessage();
        detail = error.detail();
    } catch (const CMySQLException &error) {
        problem = error.userMessage();
        detail = error.GetErrorMessage();
    } catch (const std::exception &error) {
        problem = u"پشتیبان به سبب خطایی پیش‌بینی نشده گرفته نشد؛ جزئیات در گزارش برنامه است."_s;
        detail = QString::fromUtf8(error.what());
    }
}
