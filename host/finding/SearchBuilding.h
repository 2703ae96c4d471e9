// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QThread>

#include <atomic>
#include <memory>

// Makes the keys that records are found by, where an office from before has none yet: beside the work, on a thread and a connection of its own,
// one program at a time. What is not done when the window closes is gone on with the next time.
class SearchBuilding final : public QObject
{
    Q_OBJECT

public:
    explicit SearchBuilding(QObject *parent = nullptr);
    // Ends it after its present step.
    ~SearchBuilding() override;

    // Does nothing where all keys are there, and in an office that is only read.
    void start();
    bool isRunning() const { return m_thread != nullptr; }

    // All keys anew, at the user's wish, with a window that shows how far it is. False: the user ended it.
    static bool runAnew(QWidget *parent);

Q_SIGNALS:
    // In words, while it is at work; empty when it has ended.
    void progressed(const QString &words);

private:
    void run();

    std::unique_ptr<QThread> m_thread;
    std::atomic_bool m_cancelled = false;
};
