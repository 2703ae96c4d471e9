// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListCount.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KMySQL.h"

#include <QLoggingCategory>
#include <QThread>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcCount, "tz.lists")

qint64 atOnce = 5000;

// One more than are counted at once says that there are more.
qint64 mostAtOnce(qint64 read)
{
    return read + atOnce + 1;
}

}

// What the thread counts, and what it found: -1 where it came to nothing.
struct KListCount::Task
{
    QByteArray statement;
    int database = 0;
    qint64 read = 0;
    std::atomic<unsigned long> connection = 0; // at the server; 0 while it does not count
    std::atomic_bool isDropped = false;
    qint64 matching = -1;

    void run();
};

void KListCount::Task::run()
{
    try {
        CTblTemp query(database);
        query.Open(true, false, true);
        query.ExecuteQuery("SELECT CONNECTION_ID()");
        connection = static_cast<unsigned long>(query.GetLongFieldValue(0));
        if (!isDropped) {
            query.ExecuteQuery(statement.constData(), true, false);
            matching = query.GetTextFieldValue(0).toLongLong();
        }
        connection = 0;
    } catch (const CMySQLException &error) {
        connection = 0;
        if (!isDropped)
            qCWarning(lcCount).noquote() << "the rows of a list were not counted:" << error.GetErrorMessage();
    }
    KConnection::closeThreadConnections();
}

KListCount::KListCount(QObject *parent)
    : QObject(parent)
{
}

KListCount::~KListCount()
{
    drop();
}

void KListCount::setAtOnce(qint64 rows)
{
    atOnce = rows;
}

void KListCount::forget()
{
    drop();
    m_leftOut = 0;
    m_isAtLeast = false;
}

void KListCount::expect(KMySQL &set, qint64 read)
{
    KReadAhead::expect(set.CountStatement(mostAtOnce(read)), set.database());
}

void KListCount::count(KMySQL &set, qint64 read)
{
    forget();
    const qint64 most = mostAtOnce(read);
    const qint64 matching = set.CountMatching(most);
    m_isAtLeast = matching >= most;
    m_leftOut = qMax<qint64>(0, (m_isAtLeast ? most - 1 : matching) - read);
    if (m_isAtLeast)
        countBeside(set, read);
}

void KListCount::countBeside(KMySQL &set, qint64 read)
{
    m_task = std::make_shared<Task>();
    m_task->statement = set.CountStatement();
    m_task->database = set.database();
    m_task->read = read;
    m_thread.reset(QThread::create([task = m_task] { task->run(); }));
    m_thread->setObjectName(u"count"_s);
    connect(m_thread.get(), &QThread::finished, this, [this, task = m_task] {
        if (task != m_task || task->matching < 0)
            return;
        m_isAtLeast = false;
        m_leftOut = qMax<qint64>(0, task->matching - task->read);
        Q_EMIT counted();
    });
    m_thread->start(QThread::LowPriority);
}

// The server need not go on with what nobody wants to know any more.
void KListCount::drop()
{
    if (!m_thread)
        return;
    m_task->isDropped = true;
    if (const unsigned long connection = m_task->connection; connection > 0 && m_thread->isRunning()) {
        try {
            CTblTemp(m_task->database).ExecuteQuery(KSql::formatted("KILL QUERY %1", static_cast<qint64>(connection)));
        } catch (const CMySQLException &error) {
            qCDebug(lcCount).noquote() << "a count had ended by itself:" << error.GetErrorMessage();
        }
    }
    m_thread->wait();
    m_thread.reset();
    m_task.reset();
}
