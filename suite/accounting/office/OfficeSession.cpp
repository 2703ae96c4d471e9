// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/OfficeSession.h"

#include "suite/db/connection/KLease.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <QUuid>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Held
{
    QString key;
    std::unique_ptr<KLease> lease;
};

// They end with the application: at the end of the program the statics that a lease needs may be gone before it.
std::map<int, Held> &sessions()
{
    static auto *sessions = [] {
        qAddPostRoutine(&OfficeSession::end);
        return new std::map<int, Held>;
    }();
    return *sessions;
}

QString leaseName(const QString &key)
{
    return u"Session "_s + key;
}

}

QString OfficeSession::key(int database)
{
    Held &held = sessions()[database];
    // One that could not be renewed for a while is still this program's, unless another has taken it for dead.
    if (!held.lease || !(held.lease->isHeld() || held.lease->confirm())) {
        held.key = QUuid::createUuid().toString(QUuid::WithoutBraces);
        held.lease = KLease::tryTake(leaseName(held.key), QSysInfo::machineHostName(), database);
    }
    return held.key;
}

QString OfficeSession::leaseOf(int database)
{
    const auto held = sessions().find(database);
    return held != sessions().end() && held->second.lease ? leaseName(held->second.key) : QString();
}

bool OfficeSession::isAlive(const QString &key, int database)
{
    return KLease::isAlive(leaseName(key), database);
}

void OfficeSession::end()
{
    sessions().clear();
}
