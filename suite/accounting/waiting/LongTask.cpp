// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/waiting/LongTask.h"

#include "suite/db/connection/KConnection.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsBetween = 40;

}

LongTask::LongTask(QObject *parent)
    : QObject(parent) { }

LongTask::~LongTask()
{
    stop();
    if (m_thread)
        m_thread->wait();
}

void LongTask::start(const Work &work)
{
    Q_ASSERT(!m_thread);
    m_thread.reset(QThread::create([this, work] { run(work); }));
    m_thread->setObjectName(u"import"_s);
    m_thread->start();
}

// On the thread of the work.
void LongTask::run(const Work &work)
{
    QElapsedTimer last;
    last.start();
    try {
        work([&](int done, int total) {
            if (last.elapsed() >= millisecondsBetween) {
                Q_EMIT progressed(done, total);
                last.restart();
            }
            return !m_stopped;
        });
    } catch (...) {
        m_error = std::current_exception();
    }
    KConnection::closeThreadConnections();
    Q_EMIT ended();
}
