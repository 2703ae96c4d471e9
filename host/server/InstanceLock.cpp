// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/InstanceLock.h"

#include "host/server/Platform.h"
#include "host/server/ServerError.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcInstance, "tz.instance")

const QByteArray raiseRequest = QByteArrayLiteral("raise\n");
const QByteArray raiseAnswer = QByteArrayLiteral("raised\n");

QString socketOf(const DataFolder &folder)
{
    return folder.socketPath(u"host"_s);
}

}

InstanceLock::InstanceLock(const DataFolder &folder, QObject *parent)
    : QObject(parent)
    , m_folder(folder) { }

InstanceLock::~InstanceLock() = default;

bool InstanceLock::acquire()
{
    const QString path = m_folder.path() + u"/program.lock"_s;
    if (!m_lock)
        m_lock = std::make_unique<platform::FileLock>(path);
    QString reason;
    switch (m_lock->tryLock(&reason)) {
    case platform::FileLock::Result::Held:
        return false;
    case platform::FileLock::Result::Impossible:
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"در پوشه %1 نمی‌توان قفل برنامه را ساخت؛ اجازه نوشتن در آن را "
                          "بگیرید."_s
                              .arg(ServerError::shownPath(m_folder.path())),
                          path + u": "_s + reason);
    case platform::FileLock::Result::Taken:
        break;
    }
    if (!m_server)
        listen();
    return true;
}

void InstanceLock::listen()
{
    const QString path = socketOf(m_folder);
    // This program owns the folder, so a socket that still exists was left by a program that was killed.
    QLocalServer::removeServer(path);
    m_server = new QLocalServer(this);
    // Without the socket a second start still learns that the folder is in use, but cannot raise this window.
    if (!m_server->listen(path)) {
        qCWarning(lcInstance).noquote() << "cannot listen on" << path << m_server->errorString();
        return;
    }
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server->nextPendingConnection()) {
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            const auto answer = [this, socket] {
                if (!socket->canReadLine() || socket->readLine() != raiseRequest)
                    return;
                Q_EMIT raiseRequested();
                socket->write(raiseAnswer);
                socket->flush();
            };
            connect(socket, &QLocalSocket::readyRead, this, answer);
            answer();
        }
    });
}

bool InstanceLock::raiseOther(int limitMilliseconds)
{
    QLocalSocket socket;
    socket.connectToServer(socketOf(m_folder));
    if (!socket.waitForConnected(limitMilliseconds))
        return false;
    socket.write(raiseRequest);
    return socket.waitForBytesWritten(limitMilliseconds) && socket.waitForReadyRead(limitMilliseconds)
        && socket.readLine() == raiseAnswer;
}

QString InstanceLock::inUseMessage() const
{
    return u"پوشه %1 هم‌اکنون در برنامه دیگری باز است؛ آن برنامه را ببندید و دوباره تلاش "
           "کنید."_s
               .arg(ServerError::shownPath(m_folder.path()));
}
