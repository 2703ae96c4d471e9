// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThread>

#include <atomic>
#include <exception>
#include <functional>
#include <memory>

// One long work on a thread of its own, with a database connection of its own, so that windows go on. Signals arrive in the thread that
// this object lives in; ended is the last.
class TZACCOUNTINGDATA_EXPORT LongTask : public QObject
{
    Q_OBJECT

public:
    // Reports the progress; false stops the work.
    using Progress = std::function<bool(int done, int total)>;
    using Work = std::function<void(const Progress &progress)>;
    // The work was stopped; nothing of it is kept.
    struct TZACCOUNTINGDATA_EXPORT Stopped : std::exception
    {
    };

    explicit LongTask(QObject *parent = nullptr);
    // Stops the work and waits for it.
    ~LongTask() override;

    // Once.
    void start(const Work &work);
    // The work is told at its next step and throws Stopped.
    void stop() { m_stopped = true; }
    // What the work threw; null when it went through. After ended.
    std::exception_ptr error() const { return m_error; }

Q_SIGNALS:
    void progressed(int done, int total);
    void ended();

private:
    void run(const Work &work);

    std::unique_ptr<QThread> m_thread;
    std::atomic_bool m_stopped = false;
    std::exception_ptr m_error;
};
