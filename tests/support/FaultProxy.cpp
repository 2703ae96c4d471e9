// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FaultProxy.h"

#include "tests/support/FaultRelay.h"

#include <QHostAddress>

namespace {

// On the relay's thread, which has done it when this returns.
template <class Work>
void doOn(FaultRelay *relay, Work work)
{
    QMetaObject::invokeMethod(relay, work, Qt::BlockingQueuedConnection);
}

}

FaultProxy::FaultProxy(const KConnectionSettings &server)
    : m_relay(std::make_unique<FaultRelay>(server))
    , m_settings(server)
{
    m_relay->moveToThread(&m_thread);
    m_thread.start();
    m_settings.socketPath.clear();
    m_settings.host = QHostAddress(QHostAddress::LocalHost).toString();
    doOn(m_relay.get(), [this] { m_settings.port = m_relay->listen(); });
}

FaultProxy::~FaultProxy()
{
    doOn(m_relay.get(), [this] {
        m_relay->end();
        m_relay->moveToThread(nullptr);
    });
    m_thread.quit();
    m_thread.wait();
}

void FaultProxy::failAtCommit(Fault fault, bool reachable)
{
    doOn(m_relay.get(), [=, this] { m_relay->failAtCommit(fault, reachable); });
}

void FaultProxy::setReachable(bool reachable)
{
    doOn(m_relay.get(), [=, this] { m_relay->setReachable(reachable); });
}

void FaultProxy::setSilent(bool silent)
{
    doOn(m_relay.get(), [=, this] { m_relay->setSilent(silent); });
}

void FaultProxy::setDelay(int milliseconds)
{
    doOn(m_relay.get(), [=, this] { m_relay->setDelay(milliseconds); });
}

// On its thread: what it has passed on by then is counted.
int FaultProxy::trips() const
{
    int trips = 0;
    doOn(m_relay.get(), [&] { trips = m_relay->trips(); });
    return trips;
}

int FaultProxy::tripsFrom(quint16 port) const
{
    int trips = 0;
    doOn(m_relay.get(), [&] { trips = m_relay->trips(port); });
    return trips;
}
