// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalGathering.h"

#include <QObject>
#include <QThread>

#include <atomic>
#include <exception>
#include <memory>

// One gathering at a time on a thread of its own, with a database connection of its own. Signals arrive in the thread that
// this object lives in, the last one of a gathering being ended or failed.
class SeasonalTask : public QObject
{
    Q_OBJECT

public:
    explicit SeasonalTask(QObject *parent = nullptr);
    // Stops a running gathering and waits for it.
    ~SeasonalTask() override;

    // Does nothing while one is running.
    void start(const SeasonalGathering::Query &query);
    // The rows that are on their way still arrive; the outcome says that it was cancelled.
    void cancel() { m_cancelled = true; }
    bool isRunning() const { return m_thread != nullptr; }

Q_SIGNALS:
    void rowsArrived(const QVector<SeasonalRow> &rows);
    void ended(const SeasonalGathering::Outcome &outcome);
    void failed(const std::exception_ptr &error);

private:
    void run(const SeasonalGathering::Query &query);
    void finish(const SeasonalGathering::Outcome &outcome, const std::exception_ptr &error);

    std::unique_ptr<QThread> m_thread;
    std::atomic_bool m_cancelled = false;
};
