// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/SearchTask.h"

#include "suite/db/connection/KConnection.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int hitsOfAKind = 3;

}

SearchTask::SearchTask(QObject *parent)
    : QObject(parent)
{
    m_thread.setObjectName(u"search"_s);
    m_worker.moveToThread(&m_thread);
    m_thread.start();
}

SearchTask::~SearchTask()
{
    drop();
    QMetaObject::invokeMethod(&m_worker, &KConnection::closeThreadConnections, Qt::QueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

void SearchTask::drop()
{
    ++m_latestFind;
    ++m_latestFacts;
}

// ask runs on the other thread and returns what is to be done with its answer on this one, where it still is the latest.
void SearchTask::work(const std::function<std::function<void()>()> &ask, std::atomic_int &latest)
{
    const int number = ++latest;
    const auto there = [this, ask, number, &latest] {
        if (number != latest)
            return;
        std::function<void()> answer;
        try {
            answer = ask();
        } catch (...) {
            answer = [this, error = std::current_exception()] { Q_EMIT failed(error); };
        }
        const auto here = [answer, number, &latest] {
            if (number == latest)
                answer();
        };
        QMetaObject::invokeMethod(this, here, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(&m_worker, there, Qt::QueuedConnection);
}

void SearchTask::find(const QString &typed, const QList<int> &kinds)
{
    QElapsedTimer clock;
    clock.start();
    const auto ask = [this, typed, kinds, clock]() -> std::function<void()> {
        const QList<SearchFinding::Group> groups = SearchFinding::find(typed, kinds, hitsOfAKind);
        return [this, typed, groups, taken = clock.elapsed()] { Q_EMIT found(typed, groups, taken); };
    };
    work(ask, m_latestFind);
}

// The rights are known on this thread.
void SearchTask::tellOf(const SearchHit &hit)
{
    const auto ask = [this, hit, readable = SearchFinding::readable()]() -> std::function<void()> {
        const SearchKind kind = SearchKinds::of(hit.kind);
        const Facts facts = kind.facts ? kind.facts(hit.key, readable, 0) : Facts();
        return [this, hit, facts] { Q_EMIT told(hit, facts); };
    };
    work(ask, m_latestFacts);
}
