// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FaultRelay.h"

#include <QLocalSocket>
#include <QTcpSocket>
#include <QTimer>

namespace {

// A connection is made by three packets, each as slow as any other, before the server says its first word.
constexpr int packetsToConnect = 3;
// So that, and the first word's own way.
constexpr int tripsToConnect = 2;

constexpr qsizetype headerSize = 4;
constexpr char queryCommand = 3;
constexpr char quitCommand = 1;

// The first whole packet of what a client sent: three bytes of length, a number, and the content. Empty: there is none yet.
QByteArray firstPacket(const QByteArray &bytes)
{
    if (bytes.size() < headerSize)
        return {};
    const auto byte = [&bytes](qsizetype index) { return static_cast<qsizetype>(static_cast<unsigned char>(bytes.at(index))); };
    const qsizetype size = headerSize + byte(0) + (byte(1) << 8) + (byte(2) << 16);
    return bytes.size() < size ? QByteArray() : bytes.first(size);
}

// Nobody waits for an answer to it.
bool isFarewell(const QByteArray &bytes)
{
    return bytes.size() == headerSize + 1 && bytes.at(headerSize) == quitCommand;
}

bool isCommit(const QByteArray &packet)
{
    return packet.size() > headerSize && packet.at(headerSize - 1) == 0 && packet.at(headerSize) == queryCommand
        && packet.mid(headerSize + 1) == "COMMIT";
}

}

FaultRelay::FaultRelay(const KConnectionSettings &server)
    : m_server(server)
    , m_listener(this)
{
    connect(&m_listener, &QTcpServer::newConnection, this, &FaultRelay::accept);
}

quint16 FaultRelay::listen()
{
    return m_listener.listen(QHostAddress::LocalHost) ? m_listener.serverPort() : 0;
}

void FaultRelay::failAtCommit(FaultProxy::Fault fault, bool reachable)
{
    m_fault = fault;
    m_reachableAfterFault = reachable;
}

void FaultRelay::setReachable(bool reachable)
{
    m_reachable = reachable;
    const QList<QTcpSocket *> clients = reachable ? QList<QTcpSocket *>() : m_lines.keys();
    for (QTcpSocket *client : clients)
        cut(client);
}

void FaultRelay::setSilent(bool silent)
{
    m_silent = silent;
    const QList<QTcpSocket *> clients = silent ? QList<QTcpSocket *>() : m_lines.keys();
    for (QTcpSocket *client : clients) {
        passOn(client);
        answer(client);
    }
}

void FaultRelay::end()
{
    m_listener.close();
    setReachable(false);
}

void FaultRelay::accept()
{
    while (QTcpSocket *client = m_listener.nextPendingConnection()) {
        if (!m_reachable) {
            client->abort();
            client->deleteLater();
            continue;
        }
        count(client, tripsToConnect);
        m_lines.insert(client, {});
        connect(client, &QTcpSocket::disconnected, this, [this, client] { cut(client); });
        if (m_delay == 0)
            connectServer(client);
        else
            QTimer::singleShot(packetsToConnect * m_delay, Qt::PreciseTimer, client, [this, client] { connectServer(client); });
    }
}

void FaultRelay::count(const QTcpSocket *client, int trips)
{
    m_trips += trips;
    m_tripsFrom[client->peerPort()] += trips;
}

void FaultRelay::connectServer(QTcpSocket *client)
{
    const auto line = m_lines.find(client);
    if (line == m_lines.end())
        return;
    if (m_server.socketPath.isEmpty()) {
        auto *socket = new QTcpSocket(client);
        connect(socket, &QTcpSocket::disconnected, this, [this, client] { serverEnded(client); });
        socket->connectToHost(m_server.host, static_cast<quint16>(m_server.port));
        line->server = socket;
    } else {
        auto *socket = new QLocalSocket(client);
        connect(socket, &QLocalSocket::disconnected, this, [this, client] { serverEnded(client); });
        socket->connectToServer(m_server.socketPath);
        line->server = socket;
    }
    connect(client, &QTcpSocket::readyRead, this, [this, client] { passOn(client); });
    connect(line->server, &QIODevice::readyRead, this, [this, client] { answer(client); });
}

// As on a long line, what is under way does not keep back what follows it.
void FaultRelay::sendToServer(QTcpSocket *client, const QByteArray &bytes)
{
    Line &line = m_lines[client];
    if (m_delay == 0) {
        line.server->write(bytes);
        return;
    }
    line.toServer.enqueue(bytes);
    QTimer::singleShot(m_delay, Qt::PreciseTimer, client, [this, client] {
        const auto line = m_lines.find(client);
        if (line != m_lines.end())
            line->server->write(line->toServer.dequeue());
    });
}

void FaultRelay::sendToClient(QTcpSocket *client, const QByteArray &bytes)
{
    Line &line = m_lines[client];
    if (m_delay == 0) {
        line.wasAnswered = true;
        client->write(bytes);
        return;
    }
    line.toClient.enqueue(bytes);
    QTimer::singleShot(m_delay, Qt::PreciseTimer, client, [this, client] {
        const auto line = m_lines.find(client);
        if (line == m_lines.end())
            return;
        line->wasAnswered = true;
        client->write(line->toClient.dequeue());
    });
}

void FaultRelay::passOn(QTcpSocket *client)
{
    const auto line = m_lines.find(client);
    if (line == m_lines.end())
        return;
    line->fromClient += client->readAll();
    if (!isFarewell(line->fromClient) && std::exchange(line->wasAnswered, false))
        count(client, 1);
    while (!m_silent && !line->mute) {
        const QByteArray packet = firstPacket(line->fromClient);
        if (packet.isEmpty() || meetsFault(client, packet))
            return;
        sendToServer(client, packet);
        line->fromClient.remove(0, packet.size());
    }
}

// True when the line is cut.
bool FaultRelay::meetsFault(QTcpSocket *client, const QByteArray &packet)
{
    using Fault = FaultProxy::Fault;
    if (m_fault == Fault::None || !isCommit(packet))
        return false;
    const Fault fault = std::exchange(m_fault, Fault::None);
    m_reachable = m_reachableAfterFault;
    if (fault == Fault::CutBeforeCommit) {
        cut(client);
        return true;
    }
    m_lines[client].dropsAnswers = fault == Fault::CutAfterCommit;
    m_lines[client].mute = fault == Fault::SilentAfterCommit;
    // Passed on here, because a mute line passes on nothing.
    sendToServer(client, packet);
    m_lines[client].fromClient.remove(0, packet.size());
    return fault == Fault::SilentAfterCommit;
}

void FaultRelay::answer(QTcpSocket *client)
{
    const auto line = m_lines.find(client);
    if (line == m_lines.end())
        return;
    line->fromServer += line->server->readAll();
    if (m_silent || line->mute || line->fromServer.isEmpty())
        return;
    if (line->dropsAnswers) {
        cut(client);
        return;
    }
    sendToClient(client, std::exchange(line->fromServer, {}));
}

// Its last words still arrive, as those to a client that it refuses.
void FaultRelay::serverEnded(QTcpSocket *client)
{
    answer(client);
    const auto line = m_lines.constFind(client);
    if (line != m_lines.cend() && !line->toClient.isEmpty())
        QTimer::singleShot(m_delay, Qt::PreciseTimer, client, [client] { client->disconnectFromHost(); });
    else if (line != m_lines.cend() && !m_silent)
        client->disconnectFromHost();
    else
        cut(client);
}

void FaultRelay::cut(QTcpSocket *client)
{
    const auto line = m_lines.find(client);
    if (line == m_lines.end())
        return;
    QIODevice *server = line->server;
    m_lines.erase(line);
    client->disconnect(this);
    client->abort();
    if (server) {
        server->disconnect(this);
        server->close();
    }
    client->deleteLater();
}
