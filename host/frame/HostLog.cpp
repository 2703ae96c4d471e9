// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLog.h"

#include <QDateTime>
#include <QFile>
#include <QLoggingCategory>
#include <QMutex>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct LogState
{
    QMutex mutex;
    QFile file;
    QByteArray waiting;
    bool collecting = false;
};

LogState &state()
{
    static LogState log;
    return log;
}

const char *levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    case QtCriticalMsg:
        return "critical";
    case QtFatalMsg:
        break;
    }
    return "fatal";
}

void write(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QByteArray line = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s).toLatin1() + ' '
        + levelName(type) + ' ' + (context.category ? context.category : "default") + ": " + message.toUtf8() + '\n';
    LogState &log = state();
    const QMutexLocker lock(&log.mutex);
    if (log.file.isOpen()) {
        log.file.write(line);
        log.file.flush();
    } else if (log.collecting) {
        log.waiting += line;
    }
    // A user who starts the program from a terminal sees there what went wrong.
    if (type != QtDebugMsg && type != QtInfoMsg)
        std::fputs(line.constData(), stderr);
}

}

namespace HostLog {

QString fileName(const QString &logsFolder)
{
    return logsFolder + u"/tzhost.log"_s;
}

QString previousFileName(const QString &logsFolder)
{
    return logsFolder + u"/tzhost-previous.log"_s;
}

void collect()
{
    state().collecting = true;
    qInstallMessageHandler(write);
}

bool start(const QString &logsFolder)
{
    const QString current = fileName(logsFolder);
    if (QFile::exists(current)) {
        QFile::remove(previousFileName(logsFolder));
        QFile::rename(current, previousFileName(logsFolder));
    }
    LogState &log = state();
    const QMutexLocker lock(&log.mutex);
    log.file.setFileName(current);
    const bool opened = log.file.open(QIODevice::WriteOnly | QIODevice::Append);
    if (opened) {
        log.file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        log.file.write(log.waiting);
        log.file.flush();
    }
    log.waiting.clear();
    log.collecting = false;
    return opened;
}

void stop()
{
    qInstallMessageHandler(nullptr);
    const QMutexLocker lock(&state().mutex);
    state().file.close();
}

}
