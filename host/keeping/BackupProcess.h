// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/server/DataFolder.h"

#include <QObject>
#include <QProcess>

// The verification of one backup by a program of its own, which works with the lowest priority on a server of its own. It ends with this
// program.
class BackupProcess : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        Passed,
        Refuted,         // what came back is not what was saved, or the file is damaged
        WrongPassphrase, // nothing is known about the rest
        NotRun           // no room, no program: nothing is known about the backup
    };

    explicit BackupProcess(const DataFolder &folder, QObject *parent = nullptr);
    // Ends the program.
    ~BackupProcess() override;

    // passphrase: of an encrypted backup; it reaches the program by its standard input.
    void verify(const BackupFile &file, const QString &passphrase);
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    // Ends it without an outcome.
    void cancel();

    // The program that verifies and shows backups: this one, unless said otherwise (by a test, which is no such program).
    static QString program();
    static void setProgram(const QString &path);
    // What a program that shows a backup is started with besides: where the module is.
    static QStringList furtherArguments();
    static void setFurtherArguments(const QStringList &arguments);
    // Exit codes of the command line.
    static Outcome outcomeOf(int exitCode);

Q_SIGNALS:
    // words: what it said last, for the log.
    void ended(BackupProcess::Outcome outcome, const QString &words);

private:
    void finished(int exitCode, QProcess::ExitStatus status);

    DataFolder m_folder;
    QProcess m_process;
    bool m_cancelled = false;
};
