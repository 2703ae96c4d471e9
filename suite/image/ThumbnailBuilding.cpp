// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/ThumbnailBuilding.h"

#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KLease.h"

#include <QDebug>

#include <limits>

using namespace Qt::StringLiterals;

ThumbnailBuilding::ThumbnailBuilding(Thumbnails::Source source, QObject *parent)
    : QObject(parent)
    , m_source(std::move(source))
{
}

ThumbnailBuilding::~ThumbnailBuilding()
{
    m_cancelled = true;
    if (m_thread)
        m_thread->wait();
}

void ThumbnailBuilding::start()
{
    if (m_thread || OfficeSettings::isOnlyRead())
        return;
    m_thread.reset(QThread::create([this] { run(); }));
    m_thread->setObjectName(u"thumbnails"_s);
    m_thread->start(QThread::LowPriority);
}

// On the thread of its own. What goes wrong is gone on with at the next start.
void ThumbnailBuilding::run()
{
    try {
        if (const std::unique_ptr<KLease> lease = KLease::tryTake(u"thumbnails"_s, u"ساختن تصویرهای کوچک"_s)) {
            qint32 before = std::numeric_limits<qint32>::max();
            bool more = true;
            while (more && !m_cancelled && lease->isHeld()) {
                QList<qint32> shown;
                more = Thumbnails::buildStep(m_source, before, &shown);
                if (!shown.isEmpty())
                    Q_EMIT made(shown);
            }
        }
    } catch (...) {
        qWarning().noquote() << "thumbnails:" << KErrorText::logText(std::current_exception());
    }
    KConnection::closeThreadConnections();
}
