// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMutex>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

// Stands between programs and the server's socket and counts the statements that change something. After a chosen one has been carried
// out, and before its answer is passed on, it breaks every connection and takes no more: as if the program had been killed just then.
class StatementProxy
{
public:
    explicit StatementProxy(const QString &serverSocket)
        : m_serverSocket(serverSocket)
    {
        m_thread.start();
        m_server = new QLocalServer;
        m_server->moveToThread(&m_thread);
        inThread([this] {
            QObject::connect(m_server, &QLocalServer::newConnection, m_server, [this] { acceptAll(); });
            if (!m_server->listen(socketPath()))
                qFatal("the proxy cannot listen: %s", qPrintable(m_server->errorString()));
        });
    }

    ~StatementProxy()
    {
        inThread([this] { delete m_server; });
        m_thread.quit();
        m_thread.wait();
    }
    StatementProxy(const StatementProxy &) = delete;
    StatementProxy &operator=(const StatementProxy &) = delete;

    QString socketPath() const { return m_folder.filePath(u"proxy.sock"_s); }

    // 0: never. reached is called in the proxy's thread before the connections are broken.
    void breakAfter(int statements, std::function<void()> reached = {})
    {
        QMutexLocker lock(&m_mutex);
        m_breakAfter = statements;
        m_reached = std::move(reached);
    }

    // Those counted so far.
    QStringList statements() const
    {
        QMutexLocker lock(&m_mutex);
        return m_statements;
    }

private:
    // Of one connection.
    struct Line
    {
        QLocalSocket *client;
        QLocalSocket *server;
        QByteArray pending;  // from the client, not yet a whole packet
        bool isLast = false; // the statement to break after has been passed on
    };

    void inThread(const std::function<void()> &work) { QMetaObject::invokeMethod(m_server, work, Qt::BlockingQueuedConnection); }

    void acceptAll()
    {
        while (QLocalSocket *client = m_server->nextPendingConnection()) {
            auto *server = new QLocalSocket(client);
            auto line = std::make_shared<Line>(Line{client, server, {}});
            server->connectToServer(m_serverSocket);
            QObject::connect(client, &QLocalSocket::readyRead, server, [this, line] { fromClient(*line); });
            QObject::connect(server, &QLocalSocket::readyRead, client, [this, line] { fromServer(*line); });
            QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
            QObject::connect(server, &QLocalSocket::disconnected, client, [line] { line->client->disconnectFromServer(); });
        }
    }

    // A packet: its length in three bytes, its place in the conversation, and for a statement a 3 and the text.
    void fromClient(Line &line)
    {
        line.pending += line.client->readAll();
        while (!line.isLast) { // what was sent along with the statement to break after never reaches the server
            const auto at = [&line](int index) { return static_cast<quint8>(line.pending.at(index)); };
            if (line.pending.size() < 4)
                break;
            const qsizetype length = at(0) | at(1) << 8 | at(2) << 16;
            if (line.pending.size() < 4 + length)
                break;
            if (at(3) == 0 && length > 0 && at(4) == 3)
                meet(line, QString::fromUtf8(line.pending.mid(5, length - 1)));
            line.server->write(line.pending.first(4 + length));
            line.pending.remove(0, 4 + length);
        }
        line.server->flush();
    }

    void meet(Line &line, const QString &statement)
    {
        static const QStringList verbs{u"CREATE "_s, u"DROP "_s, u"ALTER "_s, u"INSERT "_s, u"UPDATE "_s, u"DELETE "_s, u"REPLACE "_s};
        const bool changes = std::any_of(verbs.begin(), verbs.end(), [&](const QString &verb) { return statement.startsWith(verb); });
        // A lease is renewed by the clock.
        if (!changes || (statement.contains(u" Leases"_s) && !statement.startsWith(u"CREATE"_s)))
            return;
        QMutexLocker lock(&m_mutex);
        m_statements.append(statement);
        line.isLast = m_statements.size() == m_breakAfter;
    }

    void fromServer(Line &line)
    {
        const QByteArray bytes = line.server->readAll();
        if (!line.isLast) {
            line.client->write(bytes);
            line.client->flush();
            return;
        }
        if (m_reached)
            m_reached();
        m_server->close();
        for (QLocalSocket *client : m_server->findChildren<QLocalSocket *>(Qt::FindDirectChildrenOnly))
            client->abort();
    }

    QString m_serverSocket;
    QTemporaryDir m_folder;
    QThread m_thread;
    QLocalServer *m_server;
    mutable QMutex m_mutex;
    QStringList m_statements;
    int m_breakAfter = 0;
    std::function<void()> m_reached;
};
