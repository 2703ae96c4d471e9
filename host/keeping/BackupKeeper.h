// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupManifest.h"
#include "host/keeping/BackupProcess.h"
#include "host/keeping/BackupStanding.h"
#include "host/server/DataFolder.h"
#include "suite/db/connection/KLease.h"

#include <QObject>
#include <QSet>
#include <QThread>
#include <QTimer>

#include <memory>
#include <optional>

struct BackupJob;

// Takes backups by itself, on a thread of its own, has each one verified, keeps as many as the office wants, and says how they stand. One
// program of the office at a time takes one. Works while a user is logged in.
class BackupKeeper : public QObject
{
    Q_OBJECT

public:
    // isPrivate: the database is that of a private server.
    BackupKeeper(const DataFolder &folder, bool isPrivate, QObject *parent = nullptr);
    // Gives up what runs, and waits for its end; not for a second folder that does not answer.
    ~BackupKeeper() override;

    // From now on it looks every minute, for the first time after a while, when the user is at work.
    void start();
    // Takes a backup that is due; otherwise lets the newest one be verified that never was. An error of the database is logged and keeps it from looking
    // for some minutes.
    void look();
    // Whether one is to be taken before the program ends. Never throws.
    bool isDueAtClosing();
    // Begins one, unless one is being taken, here or by another program; false then.
    bool take(BackupManifest::Reason reason);
    // Notes a backup that was taken otherwise, and has it verified; nothing of that while another is.
    void adopt(const BackupJob &job);
    // What a backup of the current database takes, as the office and this computer want it. Throws CMySQLException.
    static std::shared_ptr<BackupJob> newJob(const DataFolder &folder, BackupManifest::Reason reason);

    // Writes what became of verifying that backup into its copy in the second folder, too, on a thread of its own.
    void mirror(const QString &path);

    bool isTaking() const { return m_thread != nullptr; }
    bool isVerifying() const { return m_process.isRunning(); }
    // Of the backup that is being taken, 0 to 1; below 0 while nothing is known.
    double progress() const;
    // Gives up what is being taken; taken() comes when it has ended. One that stands in the first folder already counts as taken, and its copying is
    // let go of at once. Verifying ends at once.
    void cancel();
    void stopVerifying();

    BackupStanding standing() const;
    // What went wrong last, from the day before too; empty: nothing.
    static QString failure();

Q_SIGNALS:
    void standingChanged();
    // What the user must know at once, in one message. Said once, until a backup is proved.
    void failed(const QString &message);
    // The backup that was being taken is there, or is not.
    void taken(bool success);

private:
    void runJob(std::shared_ptr<BackupJob> job);
    void jobEnded();
    void finishJob();
    bool letGoOfCopying();
    void succeeded(const BackupJob &job);
    void fail(const QString &message, const QString &detail);
    void tellSecondFolder(const QString &problem);
    void verified(BackupProcess::Outcome outcome, const QString &words);
    void verify(const BackupFile &file);
    void verifyNewest();
    bool takesByItself() const;
    void noteInLog() const;
    QString backupsFolder() const { return m_folder.backupsPath(); }

    DataFolder m_folder;
    bool m_isPrivate;
    QTimer m_clock;
    BackupProcess m_process;
    std::unique_ptr<QThread> m_thread;
    std::shared_ptr<BackupJob> m_job;
    std::unique_ptr<QThread> m_mirror;
    std::unique_ptr<KLease> m_lease;
    std::optional<BackupFile> m_verifying;
    QSet<QString> m_tried; // verified in vain by this program
    QString m_secondProblem;
    QSet<QString> m_told; // since a backup was proved
    int m_minutesToSkip = 0;
};
