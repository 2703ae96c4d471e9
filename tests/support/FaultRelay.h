// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/FaultProxy.h"

#include <QHash>
#include <QObject>
#include <QQueue>
#include <QTcpServer>

class QIODevice;
class QTcpSocket;

// What happens on the thread of a FaultProxy.
class FaultRelay : public QObject
{
public:
    explicit FaultRelay(const KConnectionSettings &server);

    // The port at which it listens; 0: at none.
    quint16 listen();
    void failAtCommit(FaultProxy::Fault fault, bool reachable);
    void setReachable(bool reachable);
    void setSilent(bool silent);
    void setDelay(int milliseconds) { m_delay = milliseconds; }
    // All, or those of the client that speaks from that port.
    int trips() const { return m_trips; }
    int trips(quint16 port) const { return m_tripsFrom.value(port); }
    void end();

private:
    struct Line
    {
        QIODevice *server = nullptr;
        QByteArray fromClient; // not passed on yet
        QByteArray fromServer;
        bool dropsAnswers = false; // the server's next answer cuts the line
        bool mute = false;
        bool wasAnswered = false; // since the client last spoke
        QQueue<QByteArray> toServer; // on their way
        QQueue<QByteArray> toClient;
    };

    void accept();
    void connectServer(QTcpSocket *client);
    void count(const QTcpSocket *client, int trips);
    void sendToServer(QTcpSocket *client, const QByteArray &bytes);
    void sendToClient(QTcpSocket *client, const QByteArray &bytes);
    void passOn(QTcpSocket *client);
    bool meetsFault(QTcpSocket *client, const QByteArray &packet);
    void answer(QTcpSocket *client);
    void serverEnded(QTcpSocket *client);
    void cut(QTcpSocket *client);

    KConnectionSettings m_server;
    QTcpServer m_listener;
    QHash<QTcpSocket *, Line> m_lines;
    FaultProxy::Fault m_fault = FaultProxy::Fault::None;
    bool m_reachable = true;
    bool m_reachableAfterFault = true;
    bool m_silent = false;
    int m_delay = 0;
    int m_trips = 0;
    QHash<quint16, int> m_tripsFrom;
};
