// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/search/SearchFinding.h"

#include <QObject>
#include <QThread>

#include <atomic>
#include <exception>

// Finds on a thread of its own, with a database connection of its own, so that typing never waits. Of several things that are asked in a row only
// the last one is answered.
class SearchTask final : public QObject
{
    Q_OBJECT

public:
    using Facts = QList<std::pair<QString, QString>>;

    explicit SearchTask(QObject *parent = nullptr);
    // Waits for what is being read.
    ~SearchTask() override;

    // kinds: those that the user may read.
    void find(const QString &typed, const QList<int> &kinds);
    // What is worth knowing of one record that was found.
    void tellOf(const SearchHit &hit);
    // What was asked is not wanted any more.
    void drop();

Q_SIGNALS:
    void found(const QString &typed, const QList<SearchFinding::Group> &groups, qint64 milliseconds);
    void told(const SearchHit &hit, const SearchTask::Facts &facts);
    void failed(const std::exception_ptr &error);

private:
    void work(const std::function<std::function<void()>()> &ask, std::atomic_int &latest);

    QThread m_thread;
    QObject m_worker; // lives in the thread
    std::atomic_int m_latestFind = 0;
    std::atomic_int m_latestFacts = 0;
};
