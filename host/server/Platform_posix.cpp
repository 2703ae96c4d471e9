// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/Platform.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

QString lastError()
{
    return QString::fromStdString(std::generic_category().message(errno));
}

void setReason(QString *reason, const QString &text)
{
    if (reason)
        *reason = text;
}

bool writeAll(int descriptor, const QByteArray &content)
{
    qsizetype done = 0;
    while (done < content.size()) {
        const ssize_t written = ::write(descriptor, content.constData() + done, static_cast<size_t>(content.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        done += written;
    }
    return ::fsync(descriptor) == 0;
}

}

FileLock::FileLock(const QString &path)
    : m_path(path) { }

FileLock::~FileLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

FileLock::Result FileLock::tryLock(QString *reason)
{
    if (m_descriptor >= 0)
        return Result::Taken;
    // Without close-on-exec the server would inherit the lock and keep it after a crash of the program.
    const int descriptor = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        setReason(reason, lastError());
        return Result::Impossible;
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        m_descriptor = descriptor;
        return Result::Taken;
    }
    const bool held = errno == EWOULDBLOCK;
    setReason(reason, lastError());
    ::close(descriptor);
    return held ? Result::Held : Result::Impossible;
}

bool makePrivateFolder(const QString &path, QString *reason)
{
    const QString parent = QFileInfo(path).path();
    if (!QFileInfo(parent).isDir() && !QDir().mkpath(parent)) {
        setReason(reason, u"cannot make %1"_s.arg(parent));
        return false;
    }
    if (::mkdir(QFile::encodeName(path).constData(), 0700) == 0)
        return true;
    setReason(reason, lastError());
    return errno == EEXIST && QFileInfo(path).isDir();
}

bool makePrivate(const QString &path, QString *reason)
{
    constexpr mode_t ofOthers = 0077;
    // A server that outlives a killed program for a moment makes files, renames them and makes others in their place.
    constexpr int mostLooks = 100;
    const QByteArray name = QFile::encodeName(path);
    struct stat status;
    for (int look = 1;; ++look) {
        if (::lstat(name.constData(), &status) != 0)
            return errno == ENOENT;
        const bool isOurs = status.st_uid == ::geteuid() && (status.st_mode & S_ISVTX) == 0;
        if (S_ISLNK(status.st_mode) || (isOurs && (status.st_mode & ofOthers) == 0))
            return true;
        const bool isClosed = isOurs && ::chmod(name.constData(), status.st_mode & ~ofOthers & 07777) == 0;
        const bool isGone = isOurs && !isClosed && errno == ENOENT;
        if ((!isClosed && !isGone) || look == mostLooks)
            break;
    }
    setReason(reason, u"%1 is open to others: mode %2, owner %3"_s.arg(path).arg(status.st_mode & 07777, 0, 8).arg(status.st_uid));
    return false;
}

bool isPrivateFolder(const QString &path)
{
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == ::geteuid() && (status.st_mode & 0077) == 0;
}

WriteResult writePrivateFile(const QString &path, const QByteArray &content, QString *reason)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray aside = target + ".new";
    ::unlink(aside.constData());
    const int descriptor = ::open(aside.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
    bool done = descriptor >= 0;
    if (done) {
        done = writeAll(descriptor, content);
        const int error = errno;
        ::close(descriptor);
        errno = error;
    }
    done = done && ::rename(aside.constData(), target.constData()) == 0;
    if (done)
        return WriteResult::Written;
    const int error = errno;
    setReason(reason, lastError());
    ::unlink(aside.constData());
    return error == ENOSPC || error == EDQUOT ? WriteResult::NoRoom : WriteResult::Refused;
}

QStringList runtimeFolders()
{
    QStringList folders;
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(session) && isPrivateFolder(session))
        folders << session + u"/tzauto"_s;
    const QString own = u"/tzauto-%1"_s.arg(::geteuid());
    folders << QDir::tempPath() + own << u"/tmp"_s + own;
    return folders;
}

int longestSocketPath()
{
    // The system's limit is 108 with the closing zero; related systems stop at 104.
    return 100;
}

bool flushToDisk(const QString &path, QString *reason)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    bool done = descriptor >= 0 && ::fsync(descriptor) == 0;
    // A file system that knows no flushing of folders has nothing to flush.
    done = done || (descriptor >= 0 && errno == EINVAL);
    if (!done)
        setReason(reason, lastError());
    if (descriptor >= 0)
        ::close(descriptor);
    return done;
}

bool isPlainFile(const QString &path)
{
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

void tieToThisProgram(QProcess &process, bool lowPriority)
{
    const pid_t program = ::getpid();
    process.setChildProcessModifier([program, lowPriority] {
        if (lowPriority) {
            constexpr int ofProcess = 1;
            constexpr int idle = 3 << 13;
            ::setpriority(PRIO_PROCESS, 0, 19);
            ::syscall(SYS_ioprio_set, ofProcess, 0, idle);
        }
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        // The program may have ended before the call above.
        if (::getppid() != program)
            ::_exit(1);
    });
}

void ignoreBrokenPipes()
{
    std::signal(SIGPIPE, SIG_IGN);
}

void askToStop(qint64 processId)
{
    if (processId > 0)
        ::kill(static_cast<pid_t>(processId), SIGTERM);
}

void forceStop(qint64 processId)
{
    // Our processes lead a process group of their own; what they started ends with them.
    if (processId > 0 && ::kill(static_cast<pid_t>(-processId), SIGKILL) != 0)
        ::kill(static_cast<pid_t>(processId), SIGKILL);
}

bool isAlive(qint64 processId)
{
    if (processId <= 0 || (::kill(static_cast<pid_t>(processId), 0) != 0 && errno == ESRCH))
        return false;
    // A process that has ended but has not been reaped yet holds no files any more.
    QFile status(u"/proc/%1/stat"_s.arg(processId));
    if (!status.open(QIODevice::ReadOnly))
        return true;
    const QByteArray line = status.readAll();
    return !line.mid(line.lastIndexOf(')')).startsWith(") Z");
}

QList<qint64> processesWithArgument(const QString &argument)
{
    const QByteArray wanted = QFile::encodeName(argument);
    QList<qint64> found;
    const QStringList entries = QDir(u"/proc"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        bool isProcess = false;
        const qint64 id = entry.toLongLong(&isProcess);
        QFile commandLine(u"/proc/%1/cmdline"_s.arg(entry));
        if (isProcess && commandLine.open(QIODevice::ReadOnly) && commandLine.readAll().split('\0').contains(wanted))
            found << id;
    }
    return found;
}

bool isAdministrator()
{
    return ::geteuid() == 0;
}

}
