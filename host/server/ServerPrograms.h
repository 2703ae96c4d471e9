// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Where the programs of the database server are. An empty path: not found.
struct ServerPrograms
{
    QString server;  // mariadbd
    QString client;  // mariadb
    QString dump;    // mariadb-dump
    QString upgrade; // mariadb-upgrade
    QString scripts; // folder of the statements that make the system tables
    QString binaryLog = {}; // mariadb-binlog

    // The ones installed on this computer, searched for once in the usual folders and in PATH.
    static const ServerPrograms &installed();
};
