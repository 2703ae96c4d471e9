// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/BackupViewer.h"

#include "host/frame/StartupClock.h"
#include "host/keeping/BackupProcess.h"
#include "host/server/Platform.h"
#include "host/server/ToolProcess.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

void BackupViewer::open(const DataFolder &folder, const BackupFile &file, const QString &passphrase)
{
    auto *viewer = new QProcess(QCoreApplication::instance());
    QObject::connect(viewer, &QProcess::finished, viewer, [viewer](int exitCode) {
        qCInfo(lcHost) << "the view of a backup ended with" << exitCode;
        viewer->deleteLater();
    });
    const QStringList arguments{u"--data-dir"_s, folder.path(), u"--look-into"_s, file.path()};
    platform::tieToThisProgram(*viewer);
    viewer->setProcessChannelMode(QProcess::ForwardedChannels);
    viewer->start(BackupProcess::program(), arguments + BackupProcess::furtherArguments());
    if (!viewer->waitForStarted()) {
        const QString why = viewer->errorString();
        delete viewer;
        throw ToolProcess::missing(BackupProcess::program(), why);
    }
    if (file.isEncrypted())
        viewer->write(passphrase.toUtf8() + '\n');
    viewer->closeWriteChannel();
}
