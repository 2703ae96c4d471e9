// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QThread>

#include <memory>

class FaultRelay;

// A bad line between a program and its database server: passes everything on until it is told to fail. It listens on this
// computer only, and lives on a thread of its own, so that the thread that waits for the server may block.
class FaultProxy
{
public:
    enum class Fault {
        None,
        CutBeforeCommit,  // the next COMMIT never reaches the server
        CutAfterCommit,   // the server carries it out, but its answer never arrives
        SilentAfterCommit // so too, and the line stays open
    };

    explicit FaultProxy(const KConnectionSettings &server);
    ~FaultProxy();
    FaultProxy(const FaultProxy &) = delete;
    FaultProxy &operator=(const FaultProxy &) = delete;

    // The way to the server through the proxy.
    KConnectionSettings settings() const { return m_settings; }

    // At the next COMMIT, once. reachable: whether somebody who connects after it gets through.
    void failAtCommit(Fault fault, bool reachable = true);
    // Whether new connections get through; those that stand are cut when not.
    void setReachable(bool reachable);
    // Passes nothing on any more, in either direction, and cuts nothing; false lets all pass that came in meanwhile.
    void setSilent(bool silent);
    // How long each packet is under way, in either direction; at first none takes any time.
    void setDelay(int milliseconds);
    // Round trips so far, of all connections: each time a client spoke again after an answer. To connect takes some as well.
    int trips() const;
    // Of the connection alone that has this port on the client's side.
    int tripsFrom(quint16 port) const;

private:
    QThread m_thread;
    std::unique_ptr<FaultRelay> m_relay;
    KConnectionSettings m_settings;
};
