// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

// The right of one program to something named (an upgrade, say), among all programs on the database: a row of the table Leases that one
// program holds and renews. It is no lock of the server, so that it holds across the nodes of a cluster too, where those do not.
//
// Its holder counts as dead as soon as its process has ended, when it ran on this computer, and never as long as the process is
// there, halted or not. A holder elsewhere counts as dead when it has not renewed the lease for a minute of the server's clock.
//
// Over a local socket, as to the program's private server, all programs run on this computer, so that it is renewed once in ten minutes only: an idle
// program lets its server sleep. Programs in several containers are expected to have servers or folders of their own.
//
// A thread of its own renews the lease, over a connection of its own, which neither the statement observer nor KConnection::changes
// sees. All operations throw CMySQLException, but the destructor, confirm and isHeld.
class TZDB_EXPORT KLease
{
public:
    struct Holder
    {
        QString text;    // what it said of itself, for messages
        QDateTime since; // when it took the lease, by the server's clock, in UTC
        bool alive = false;
    };

    // Makes the table where it is missing.
    static void createTable(int database = 0);
    // Takes the lease if it is free or its holder is dead; null while a living program, also this one, holds it. name: at most 100
    // characters. text says to others whom they wait for; beyond 200 characters it is cut. Takes part in no transaction.
    static std::unique_ptr<KLease> tryTake(const QString &name, const QString &text, int database = 0);
    // Who holds it, alive or dead; nothing when nobody does, also without the table. Within a transaction, as of its beginning.
    static std::optional<Holder> holder(const QString &name, int database = 0);
    static bool isAlive(const QString &name, int database = 0);

    // Gives the lease back, without waiting longer than a second: a server that is silent then gets it back later, or learns that this
    // process has ended.
    ~KLease();
    KLease(const KLease &) = delete;
    KLease &operator=(const KLease &) = delete;

    // False once another program has taken it over, and while it could not be renewed for so long that another may.
    bool isHeld() const;
    // Renews it now. False also when the server has not answered within five seconds.
    bool confirm();

private:
    struct Keeper;
    explicit KLease(std::shared_ptr<Keeper> keeper);

    std::shared_ptr<Keeper> m_keeper;
};
