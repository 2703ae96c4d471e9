// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KConversation.h"

#include "suite/db/connection/ClientCalls.h"
#include "suite/db/connection/ServerWait.h"

#include <algorithm>
#include <mysql.h>

namespace {

// What waits in the line while nobody reads must fit into it: the server stops reading when its own answers are not taken.
constexpr qsizetype mostAtOnce = qsizetype{32} * 1024;
// What was read ahead is part of one opening. A window that stayed open in between reads anew.
constexpr qint64 longestAge = 3000;

const QByteArray ending = QByteArrayLiteral("COMMIT");
const QByteArray beginning = QByteArrayLiteral("START TRANSACTION");

bool isRead(const QByteArray &statement)
{
    return statement.startsWith("SELECT ");
}

bool isWrite(const QByteArray &statement)
{
    const QByteArray verb = statement.left(8).toUpper();
    return verb.startsWith("INSERT ") || verb.startsWith("UPDATE ") || verb.startsWith("DELETE ") || verb.startsWith("REPLACE ");
}

}

void KConversation::beginReading()
{
    ++m_readings;
}

// The thread may have got another connection in between, on which nobody has begun.
void KConversation::endReading()
{
    if (m_readings > 1)
        --m_readings;
    else
        endAllReading();
}

void KConversation::endAllReading()
{
    m_readings = 0;
    m_expected.clear();
    m_expectedBehind.clear();
    m_answers.clear();
}

void KConversation::forgetAll()
{
    m_following.clear();
    m_answers.clear();
}

void KConversation::expect(const QByteArray &statement)
{
    Q_ASSERT(isRead(statement));
    if (m_readings > 0)
        m_expected.append(statement);
}

void KConversation::expectBehind(const QByteArray &statement)
{
    Q_ASSERT(isRead(statement));
    if (m_readings > 0)
        m_expectedBehind.append(statement);
}

KConnection::Result KConversation::run(const QByteArray &statement, bool mayBegin)
{
    // They belong to this statement alone, and where it is not sent, neither are they.
    const QList<QByteArray> following = std::exchange(m_following, {});
    // A unit of work reads what there is, not what there was before it.
    if (m_connection.m_beginsUnit)
        forget();
    if (following.isEmpty()) {
        if (std::optional<KConnection::Result> found = known(statement))
            return std::move(*found);
    }
    m_expected.removeOne(statement);
    m_connection.requireUsable(statement);
    if (!isRead(statement))
        forget();
    m_connection.handle();
    return exchange(together(statement, mayBegin, following));
}

std::optional<KConnection::Result> KConversation::known(const QByteArray &statement)
{
    const auto found = std::ranges::find(m_answers, statement, &Answer::statement);
    if (found == m_answers.end())
        return std::nullopt;
    const bool isFresh = found->age.elapsed() < longestAge && m_connection.m_handle;
    std::optional<KConnection::Result> rows;
    if (isFresh)
        rows = std::move(found->rows);
    m_answers.erase(found);
    return rows;
}

// A unit begins with its first statement, in one packet. One that would write goes after the beginning has been confirmed: should
// that ever fail, it would be saved by itself.
QList<KConversation::Sent> KConversation::together(const QByteArray &statement, bool mayBegin, const QList<QByteArray> &following)
{
    QList<Sent> all;
    if (m_connection.m_beginsUnit) {
        if (mayBegin || isRead(statement))
            all.append({beginning, Part::Beginning});
        else
            exchange({{beginning, Part::Beginning}});
    }
    all.append({statement, Part::Statement});
    // Right behind it: they may ask what it did (ROW_COUNT, LAST_INSERT_ID).
    for (const QByteArray &one : following)
        all.append({one, Part::Following});
    const bool changes = isWrite(statement) || std::ranges::any_of(following, isWrite);
    if (m_connection.inTransaction() && changes && !m_connection.m_token.isEmpty())
        all.append({std::exchange(m_connection.m_token, {}), Part::Following});
    if (!isRead(statement)) {
        for (const QByteArray &read : std::exchange(m_expectedBehind, {}))
            all.append({read, Part::Ahead});
        if (statement != ending)
            return all; // what else is read now would soon be out of date
    }
    qsizetype size = 0;
    for (const Sent &sent : std::as_const(all))
        size += sent.statement.size();
    while (!m_expected.isEmpty() && size + m_expected.constFirst().size() <= mostAtOnce) {
        size += m_expected.constFirst().size();
        all.append({m_expected.takeFirst(), Part::Ahead});
    }
    return all;
}

KConnection::Result KConversation::exchange(const QList<Sent> &all)
{
    KConnection &connection = m_connection;
    for (const Sent &sent : all)
        connection.observe(sent.statement);
    connection.m_idle.start();
    connection.m_lockHolder.clear();
    for (const Sent &sent : all) {
        const auto say = [&](ServerWait &wait) { return ClientCalls::send(wait, connection.m_handle, sent.statement); };
        if (!connection.wait(connection.answerSeconds(), say, true))
            connection.raise(sent.statement);
    }
    KConnection::Result result;
    std::optional<Failure> failure;
    std::optional<Failure> behindTheEnd; // of a unit that is saved by then, whatever becomes of what is read next
    const bool ends = std::ranges::any_of(all, [](const Sent &sent) { return sent.part == Part::Statement && sent.statement == ending; });
    for (const Sent &sent : all) {
        KConnection::Result rows = hear(sent, ends && sent.part == Part::Ahead ? behindTheEnd : failure);
        if (!connection.m_handle)
            break; // what was heard by then counts
        take(sent, std::move(rows), result);
    }
    if (failure)
        connection.raise(failure->code, failure->message, failure->statement);
    return result;
}

// A failure is kept and the rest heard all the same: it is on its way. That of something read ahead is met again when it is asked for, but
// in a unit it is one now: the server may have given up the whole unit with it.
KConnection::Result KConversation::hear(const Sent &sent, std::optional<Failure> &failure)
{
    KConnection &connection = m_connection;
    MYSQL *const handle = connection.m_handle;
    m_heardAffected = -1;
    bool isAnswered = connection.wait(
        connection.answerSeconds(), [&](ServerWait &wait) { return ClientCalls::readAnswer(wait, handle); }, true);
    KConnection::Result rows;
    if (isAnswered && mysql_field_count(handle) > 0) {
        isAnswered = connection.wait(connection.answerSeconds(), [&](ServerWait &wait) {
            rows.reset(ClientCalls::storeResult(wait, handle));
            return rows != nullptr;
        });
    }
    if (isAnswered) {
        // A statement with rows to fetch has changed none; of the others it is known by now how many it changed.
        if (!rows)
            m_heardAffected = static_cast<qint64>(mysql_affected_rows(handle));
        return rows;
    }
    using Category = CMySQLException::Category;
    const unsigned int code = mysql_errno(handle);
    const bool isBroken = connection.m_gaveUp || CMySQLException::categoryOf(code) == Category::ConnectionLost;
    if (!failure && (sent.part != Part::Ahead || connection.m_gaveUp || connection.inTransaction()))
        failure = Failure{code, QString::fromUtf8(mysql_error(handle)), sent.statement};
    if (isBroken)
        connection.close();
    return {};
}

void KConversation::take(const Sent &sent, KConnection::Result rows, KConnection::Result &result)
{
    KConnection &connection = m_connection;
    const bool isDone = rows || m_heardAffected >= 0;
    switch (sent.part) {
    case Part::Beginning:
        connection.m_beginsUnit = connection.m_beginsUnit && !isDone;
        break;
    case Part::Statement:
        connection.m_affectedRows = m_heardAffected;
        connection.m_insertedId = mysql_insert_id(connection.m_handle);
        result = std::move(rows);
        [[fallthrough]];
    case Part::Following:
        if (m_heardAffected > 0)
            connection.noteChange();
        break;
    case Part::Ahead:
        if (rows && m_readings > 0) {
            m_answers.push_back({sent.statement, std::move(rows), {}});
            m_answers.back().age.start();
        }
        break;
    }
}

// What a connection is asked to say and hear, it leaves to its conversation.

std::shared_ptr<KConversation> KConnection::newConversation()
{
    return std::make_shared<KConversation>(*this);
}

void KConnection::forgetConversation()
{
    m_conversation->forgetAll();
}

KConnection::Result KConnection::run(const QByteArray &utf8Statement)
{
    return m_conversation->run(utf8Statement);
}

KConnection::Result KConnection::runFirst(const KSql &statement)
{
    return m_conversation->run(statement.utf8(), true);
}

void KConnection::follow(const KSql &statement)
{
    m_conversation->follow(statement.utf8());
}

void KConnection::beginReading()
{
    m_conversation->beginReading();
}

void KConnection::endReading()
{
    m_conversation->endReading();
}

void KConnection::expect(const QByteArray &utf8Statement)
{
    m_conversation->expect(utf8Statement);
}

void KConnection::expectBehind(const QByteArray &utf8Statement)
{
    m_conversation->expectBehind(utf8Statement);
}
