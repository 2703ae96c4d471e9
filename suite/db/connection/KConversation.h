// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QElapsedTimer>
#include <QList>

#include <optional>
#include <vector>

// What a connection says and hears in one round trip: a statement, and those that go out with it because they do not depend on its
// answer. Before it the beginning of its unit; behind it the unit's token, what else was to follow, and what is read ahead
// (KReadAhead).
class KConversation
{
public:
    explicit KConversation(KConnection &connection)
        : m_connection(connection)
    {
    }

    KConnection::Result run(const QByteArray &statement, bool mayBegin = false);

    void beginReading();
    void endReading();
    void endAllReading();
    void expect(const QByteArray &statement);
    void expectBehind(const QByteArray &statement);
    void follow(const QByteArray &statement) { m_following.append(statement); }
    // What was read ahead may be out of date from now on.
    void forget() { m_answers.clear(); }
    void forgetAll();

private:
    enum class Part {
        Beginning,
        Statement,
        Following,
        Ahead
    };
    struct Sent
    {
        QByteArray statement;
        Part part;
    };
    struct Answer
    {
        QByteArray statement;
        KConnection::Result rows;
        QElapsedTimer age;
    };
    struct Failure
    {
        unsigned int code;
        QString message;
        QByteArray statement;
    };

    std::optional<KConnection::Result> known(const QByteArray &statement);
    QList<Sent> together(const QByteArray &statement, bool mayBegin, const QList<QByteArray> &following);
    KConnection::Result exchange(const QList<Sent> &all);
    KConnection::Result hear(const Sent &sent, std::optional<Failure> &failure);
    void take(const Sent &sent, KConnection::Result rows, KConnection::Result &result);

    KConnection &m_connection;
    qint64 m_heardAffected = -1; // rows that the statement heard last changed; -1: it returned some, or failed
    int m_readings = 0;
    QList<QByteArray> m_expected; // not sent yet
    QList<QByteArray> m_expectedBehind;
    QList<QByteArray> m_following;
    std::vector<Answer> m_answers;
};
