// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QString>

#include <memory>

class PrivateTestServer;

// A fresh, empty database of this test program on the private test server, dropped at the end. As a member of a test
// class it is there for all its test functions. KConnection's database 0 (or the number given) is configured to it.
//
// The server is the one that ctest started for the run; a program that runs alone starts its own for its life.
class TestDatabase
{
public:
    // While one lives, new databases are on a server of their own, even where the run has one: for tests of what stops a whole server for a
    // moment, as a backup does. As a member before the database.
    struct Alone
    {
        Alone();
        ~Alone();
        Alone(const Alone &) = delete;
        Alone &operator=(const Alone &) = delete;
    };

    explicit TestDatabase(int database = 0);
    ~TestDatabase();
    TestDatabase(const TestDatabase &) = delete;
    TestDatabase &operator=(const TestDatabase &) = delete;

    // To the test's own database.
    KConnectionSettings settings() const { return m_settings; }
    QString name() const { return m_settings.database; }
    // Empties it: drops and creates the database. Open record sets and connections see a new one.
    void recreate();
    // Runs statements, one per call; throws CMySQLException.
    void run(const QString &statement);
    // First column of the first row as text; empty for NULL or no row.
    QString value(const QString &statement);
    // Of what all rows of a table hold, to be held against another moment's.
    QByteArray sumOf(const QString &table);

private:
    std::unique_ptr<PrivateTestServer> m_ownServer; // null when the run's server is used
    KConnectionSettings m_settings;
    int m_database;
};
