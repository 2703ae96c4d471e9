// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupJob.h"

#include "host/backup/BackupFiles.h"
#include "host/frame/StartupClock.h"
#include "host/server/ServerError.h"
#include "suite/db/connection/CMySQLException.h"

#include <QFileInfo>

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

// A copy is known by its name and by what it holds.
QString copyMark(const BackupFile &file)
{
    return QFileInfo(file.path()).fileName() + u'|' + QString::fromLatin1(file.manifest()->digest.toHex());
}

bool isCopyOf(const BackupFile &copy, const BackupFile &file)
{
    return copy.manifest() && !copy.manifest()->digest.isEmpty() && copyMark(copy) == copyMark(file);
}

BackupJob::Copying &copying()
{
    static BackupJob::Copying copying;
    return copying;
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
    if (!secondFolder.isEmpty() && !cancelled) {
        step = Step::Copying;
        const QString said = copyToSecond();
        Step now = Step::Copying;
        if (!step.compare_exchange_strong(now, Step::Tidying))
            return;
        secondProblem = said;
    }
    removeOutdated();
    removeCopies();
}

void BackupJob::removeOutdated()
{
    const QList<BackupFile> going = outdated(request.folder, server.database, kept, file->taken());
    for (const BackupFile &each : going) {
        if (!each.remove()) {
            qCWarning(lcHost).noquote() << "backup cannot be removed:" << each.path();
            continue;
        }
        qCInfo(lcHost).noquote() << "backup no longer kept:" << each.path();
        if (!secondFolder.isEmpty() && !each.manifest()->digest.isEmpty())
            copiesToRemove.append(copyMark(each));
    }
}

void BackupJob::removeCopies()
{
    if (secondFolder.isEmpty() || !QFileInfo(secondFolder).isDir())
        return;
    copiesToRemove.removeIf([this](const QString &mark) {
        const BackupFile copy(secondFolder + u'/' + mark.section(u'|', 0, 0));
        if (!copy.exists() || !copy.manifest() || copyMark(copy) != mark)
            return true;
        return copy.remove();
    });
}

void BackupJob::mirrorVerification(const BackupFile &file, const QString &folder)
{
    BackupFile copy(folder + u'/' + QFileInfo(file.path()).fileName());
    if (!file.manifest() || !isCopyOf(copy, file))
        return;
    BackupManifest manifest = *copy.manifest();
    manifest.verification = file.verification();
    copy.setManifest(manifest);
}

// What there is to tell of it.
QString BackupJob::copyToSecond()
{
    const auto goesOn = [this] { return !cancelled; };
    try {
        if (copying())
            copying()(*file, secondFolder, goesOn);
        else
            BackupFiles::copy(*file, secondFolder, goesOn);
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "second folder:" << error.detail();
        return error.kind() == ServerError::Kind::Cancelled ? QString() : error.userMessage();
    } catch (const std::exception &error) {
        qCWarning(lcHost).noquote() << "second folder:" << error.what();
        return u"رونوشت پشتیبان در پوشه دوم به سبب خطایی پیش‌بینی نشده نوشته نشد."_s;
    }
    return {};
}

bool BackupJob::letGo()
{
    cancelled = true;
    Step now = Step::Copying;
    return step.compare_exchange_strong(now, Step::LetGo);
}

void BackupJob::setCopying(Copying other)
{
    copying() = std::move(other);
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
