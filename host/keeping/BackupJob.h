// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupKeeping.h"
#include "host/backup/BackupTaking.h"

#include <atomic>
#include <functional>
#include <optional>

// One backup from its beginning to its end, as a thread of its own does it: taken, copied into the second folder, and those that are too
// many removed.
struct BackupJob
{
    KConnectionSettings server;
    BackupTaking::Request request;
    QString secondFolder; // empty: none
    BackupKeeping::Kept kept;
    // Copies in the second folder whose backup is no longer kept, by name and digest. The disk may be away for a while; those that are
    // still to be removed when the job has ended. Other files of that folder, which may be another office's, are left alone.
    QStringList copiesToRemove;

    // Set by whoever wants it to end, and when it ended so; read by whoever shows how far it is.
    std::atomic<bool> cancelled = false;
    std::atomic<qint64> done = 0;
    std::atomic<qint64> expected = 0; // 0: unknown

    // What became of it, once the thread has ended.
    std::optional<BackupFile> file;
    QString problem; // for the user, where there is no file
    QString detail;  // for the log
    QString secondProblem;

    // Where it is. What is written to the second folder can hang for as long as a share does.
    enum class Step {
        Taking,
        Copying,
        Tidying,
        LetGo
    };
    std::atomic<Step> step = Step::Taking;
    // Ends it. True: it was copying to the second folder, and what became of it until then stands here; its thread changes nothing of that
    // any more, and nobody need wait for it.
    bool letGo();

    // What copies a backup; tests put another in its place, empty: back to BackupFiles::copy.
    using Copying = std::function<void(const BackupFile &file, const QString &folder, const std::function<bool()> &goesOn)>;
    static void setCopying(Copying copying);

    // Throws nothing. progress is asked besides, where there is one.
    void run(const BackupTaking::Progress &progress = {});

    // What became of verifying the backup, also in its copy in that folder, where there is one. Throws ServerError.
    static void mirrorVerification(const BackupFile &file, const QString &folder);
    // Of the backups that this program took by itself, those that are too many. What the user took stays until the user deletes it.
    static QList<BackupFile> outdated(const QString &folder, const QString &database, const BackupKeeping::Kept &kept, const QDateTime &now);

private:
    void take(const BackupTaking::Progress &progress);
    QString copyToSecond();
    void removeOutdated();
    void removeCopies();
};
