// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/SearchBuilding.h"

#include "host/frame/StartupClock.h"
#include "host/keeping/BackupProgress.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KLease.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int wholeBuilding = 1000;

const QString searchLease = u"search"_s;

}

SearchBuilding::SearchBuilding(QObject *parent)
    : QObject(parent)
{
}

SearchBuilding::~SearchBuilding()
{
    m_cancelled = true;
    if (m_thread)
        m_thread->wait();
}

void SearchBuilding::start()
{
    try {
        if (isRunning() || OfficeSettings::isOnlyRead() || SearchIndex::isBuilt())
            return;
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "search:" << KErrorText::logText(std::current_exception());
        return;
    }
    m_thread.reset(QThread::create([this] { run(); }));
    m_thread->setObjectName(u"search keys"_s);
    connect(m_thread.get(), &QThread::finished, this, [this] {
        m_thread->wait();
        m_thread.reset();
        Q_EMIT progressed({});
    });
    m_thread->start(QThread::LowPriority);
}

// On the thread of its own. What goes wrong is gone on with at the next start.
void SearchBuilding::run()
{
    try {
        if (const std::unique_ptr<KLease> lease = KLease::tryTake(searchLease, u"ساختن فهرست جستجو"_s)) {
            SearchIndex::build(false, [this, &lease](int done) {
                Q_EMIT progressed(u"فهرست جستجو ساخته می‌شود (%1٪)"_s.arg(done * 100 / wholeBuilding));
                return !m_cancelled && lease->isHeld();
            });
        }
    } catch (...) {
        qCWarning(lcHost).noquote() << "search keys:" << KErrorText::logText(std::current_exception());
    }
    KConnection::closeThreadConnections();
}

bool SearchBuilding::runAnew(QWidget *parent)
{
    bool complete = false;
    BackupProgress window(u"بازسازی فهرست جستجو"_s, u"همه کلیدهای جستجو از نو ساخته می‌شوند…"_s, parent);
    window.run([&](const BackupProgress::Progress &progress) {
        complete = SearchIndex::build(true, [&](int done) { return progress(done, wholeBuilding); });
        KConnection::closeThreadConnections();
    });
    return complete;
}
