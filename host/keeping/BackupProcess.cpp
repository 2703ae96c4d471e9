// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupProcess.h"

#include "host/server/Platform.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString &programPath()
{
    static QString path;
    return path;
}

QStringList &further()
{
    static QStringList arguments;
    return arguments;
}

}

BackupProcess::BackupProcess(const DataFolder &folder, QObject *parent)
    : QObject(parent)
    , m_folder(folder)
{
    connect(&m_process, &QProcess::finished, this, &BackupProcess::finished);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart && !m_cancelled)
            Q_EMIT ended(Outcome::NotRun, m_process.errorString());
    });
}

BackupProcess::~BackupProcess()
{
    cancel();
}

QString BackupProcess::program()
{
    return programPath().isEmpty() ? QCoreApplication::applicationFilePath() : programPath();
}

void BackupProcess::setProgram(const QString &path)
{
    programPath() = path;
}

void BackupProcess::setFurtherArguments(const QStringList &arguments)
{
    further() = arguments;
}

QStringList BackupProcess::furtherArguments()
{
    return further();
}

void BackupProcess::verify(const BackupFile &file, const QString &passphrase)
{
    m_cancelled = false;
    QStringList arguments{u"--data-dir"_s, m_folder.path(), u"--verify"_s, file.path()};
    if (file.isEncrypted())
        arguments << u"--passphrase-file"_s << u"-"_s;
    platform::tieToThisProgram(m_process);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program(), arguments);
    if (file.isEncrypted())
        m_process.write(passphrase.toUtf8() + '\n');
    m_process.closeWriteChannel();
}

void BackupProcess::cancel()
{
    if (!isRunning())
        return;
    m_cancelled = true;
    m_process.kill();
    m_process.waitForFinished();
}

BackupProcess::Outcome BackupProcess::outcomeOf(int exitCode)
{
    switch (exitCode) {
    case 0:
        return Outcome::Passed;
    case 3:
        return Outcome::Refuted;
    case 5:
        return Outcome::WrongPassphrase;
    default:
        return Outcome::NotRun;
    }
}

void BackupProcess::finished(int exitCode, QProcess::ExitStatus status)
{
    if (m_cancelled)
        return;
    const QString words = QString::fromUtf8(m_process.readAll()).trimmed().right(2000);
    Q_EMIT ended(status == QProcess::NormalExit ? outcomeOf(exitCode) : Outcome::NotRun, words);
}
