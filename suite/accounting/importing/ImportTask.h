// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/importing/Importing.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThread>

#include <atomic>
#include <exception>
#include <functional>
#include <memory>

// One long work on a thread of its own, with a database connection of its own, so that windows go on. Signals arrive in the thread that
// this object lives in; ended is the last.
class TZACCOUNTINGDATA_EXPORT ImportTask : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<void(const Importing::Progress &progress)>;

    explicit ImportTask(QObject *parent = nullptr);
    // Stops the work and waits for it.
    ~ImportTask() override;

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
