// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalTask.h"

#include "suite/db/connection/KConnection.h"

using namespace Qt::StringLiterals;

SeasonalTask::SeasonalTask(QObject *parent)
    : QObject(parent) { }

SeasonalTask::~SeasonalTask()
{
    cancel();
    if (m_thread)
        m_thread->wait();
}

void SeasonalTask::start(const SeasonalGathering::Query &query)
{
    if (isRunning())
        return;
    m_cancelled = false;
    m_thread.reset(QThread::create([this, query] { run(query); }));
    m_thread->setObjectName(u"seasonal report"_s);
    m_thread->start();
}

// On the thread of the gathering. What it passes on is queued to the other one.
void SeasonalTask::run(const SeasonalGathering::Query &query)
{
    SeasonalGathering::Outcome outcome;
    std::exception_ptr error;
    try {
        outcome = SeasonalGathering::gather(query, [this](const QVector<SeasonalRow> &rows) {
            QMetaObject::invokeMethod(
                this, [this, rows] { Q_EMIT rowsArrived(rows); }, Qt::QueuedConnection);
            return !m_cancelled;
        });
    } catch (...) {
        error = std::current_exception();
    }
    KConnection::closeThreadConnections();
    QMetaObject::invokeMethod(
        this, [this, outcome, error] { finish(outcome, error); }, Qt::QueuedConnection);
}

void SeasonalTask::finish(const SeasonalGathering::Outcome &outcome, const std::exception_ptr &error)
{
    m_thread->wait();
    m_thread.reset();
    if (error)
        Q_EMIT failed(error);
    else
        Q_EMIT ended(outcome);
}
