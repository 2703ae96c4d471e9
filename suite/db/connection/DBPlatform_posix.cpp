// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/DBPlatform.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <mysql.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <optional>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace DBPlatform {

namespace {

// The parts of a process's name in their order.
enum Part {
    System,
    Container,
    Number,
    Start,
    PartCount
};

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

struct Process
{
    bool isZombie = false;
    QString start;
};

// As the system's table of processes has it; nothing when it does not show that process. The name in parentheses may hold anything.
std::optional<Process> processWith(const QString &number)
{
    constexpr qsizetype startField = 19; // counted from the state, which follows the name
    const QByteArray line = contents(u"/proc/%1/stat"_s.arg(number));
    const QByteArrayList fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    if (fields.size() <= startField)
        return std::nullopt;
    return Process{fields.front() == "Z" || fields.front() == "X", QString::fromLatin1(fields.at(startField))};
}

// A table of processes of another container would be misread, so then nothing is said about any process.
bool tableIsOurs()
{
    return QFileInfo(u"/proc/self"_s).symLinkTarget() == u"/proc/%1"_s.arg(::getpid());
}

QStringList readName()
{
    QStringList parts;
    parts << QString::fromLatin1(contents(u"/proc/sys/kernel/random/boot_id"_s));
    QString container = QFileInfo(u"/proc/self/ns/pid"_s).symLinkTarget().section(u'[', 1).section(u']', 0, 0);
    parts << container;
    const QString number = QString::number(::getpid());
    const std::optional<Process> self = tableIsOurs() ? processWith(number) : std::nullopt;
    parts << number << (self ? self->start : QString());
    // A system that says nothing of itself cannot be recognised; then its processes are elsewhere for everybody, also for itself.
    if (parts.contains(QString()))
        parts[System] = QUuid::createUuid().toString(QUuid::WithoutBraces);
    return parts;
}

const QStringList &ownName()
{
    static const QStringList name = readName();
    return name;
}

}

QString thisProcess()
{
    return ownName().join(u'/');
}

Life lifeOf(const QString &process, bool onThisComputer)
{
    const QStringList parts = process.split(u'/');
    if (parts.size() != PartCount)
        return Life::Elsewhere;
    if (parts == ownName())
        return Life::Alive;
    if (parts[System] != ownName()[System])
        return onThisComputer && !parts.contains(QString()) && !ownName().contains(QString()) ? Life::Dead : Life::Elsewhere;
    if (parts[Container] != ownName()[Container] || !tableIsOurs())
        return Life::Elsewhere;
    const qint64 number = parts[Number].toLongLong();
    if (number <= 0 || (::kill(static_cast<pid_t>(number), 0) != 0 && errno == ESRCH))
        return Life::Dead;
    // A table that hides other users' processes is no proof of an end.
    const std::optional<Process> running = processWith(parts[Number]);
    if (!running)
        return Life::Alive;
    return running->isZombie || running->start != parts[Start] ? Life::Dead : Life::Alive;
}

// The system lists its local sockets line by line, the name behind seven columns; one that listens has this flag.
bool isListening(const QString &socketPath)
{
    constexpr int flagsColumn = 3;
    constexpr int nameColumn = 7;
    constexpr uint accepts = 0x10000;
    QFile sockets(u"/proc/net/unix"_s);
    if (!sockets.open(QIODevice::ReadOnly))
        return true;
    const QByteArray name = QFile::encodeName(socketPath);
    const QList<QByteArray> lines = sockets.readAll().split('\n');
    return std::any_of(lines.cbegin(), lines.cend(), [&name](const QByteArray &line) {
        const QList<QByteArray> columns = line.endsWith(name) ? line.simplified().split(' ') : QList<QByteArray>();
        return columns.size() > nameColumn && columns.mid(nameColumn).join(' ') == name && (columns.at(flagsColumn).toUInt(nullptr, 16) & accepts) != 0;
    });
}

int awaitSocket(Socket socket, int events, std::chrono::milliseconds atMost)
{
    pollfd waiting{socket, 0, 0};
    if (events & MYSQL_WAIT_READ)
        waiting.events |= POLLIN;
    if (events & MYSQL_WAIT_WRITE)
        waiting.events |= POLLOUT;
    if (events & MYSQL_WAIT_EXCEPT)
        waiting.events |= POLLPRI;
    // A signal ends the call early, as if the time were over; the caller looks at the clock.
    if (::poll(&waiting, 1, static_cast<int>(atMost.count())) <= 0)
        return 0;
    constexpr int all = MYSQL_WAIT_READ | MYSQL_WAIT_WRITE | MYSQL_WAIT_EXCEPT;
    if (waiting.revents & (POLLERR | POLLHUP | POLLNVAL))
        return events & all;
    return ((waiting.revents & POLLIN) ? MYSQL_WAIT_READ : 0) | ((waiting.revents & POLLOUT) ? MYSQL_WAIT_WRITE : 0)
        | ((waiting.revents & POLLPRI) ? MYSQL_WAIT_EXCEPT : 0);
}

void shutDownSocket(Socket socket)
{
    ::shutdown(socket, SHUT_RDWR);
}

void keepSocketAlive(Socket socket)
{
    struct Option
    {
        int level;
        int name;
        int value;
    };
    constexpr Option options[] = {{SOL_SOCKET, SO_KEEPALIVE, 1},
                                  {IPPROTO_TCP, TCP_KEEPIDLE, 20},
                                  {IPPROTO_TCP, TCP_KEEPINTVL, 10},
                                  {IPPROTO_TCP, TCP_KEEPCNT, 3}};
    // A system without one of them keeps its own, longer times.
    for (const Option &option : options)
        ::setsockopt(socket, option.level, option.name, &option.value, sizeof option.value);
}

}
