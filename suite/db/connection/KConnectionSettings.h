// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KServerAddress.h"

#include <QList>

// How a database is reached. Either a local socket or host and port.
struct KConnectionSettings
{
    QString socketPath;
    QString host;
    unsigned int port = 3306;
    // Other nodes of the cluster that host belongs to: the next one is taken when one is gone, refuses or is not up to date. What
    // was written through one is then read through another too.
    QList<KServerAddress> furtherNodes;
    QString user;
    QString password;
    QString database;               // may be empty: no database selected
    bool useTls = false;            // with host: refuse a server that does not prove who it is
    QString caFile;                 // certificate authority for useTls; empty: the system's
    int connectTimeoutSeconds = 10; // for each of several nodes: three
    int answerTimeoutSeconds = 30;  // a server that says nothing for so long is lost; KLongWork lifts that
    int lockWaitSeconds = 5;        // for a row or table that another session holds; KLongWork makes it longer
    int idleSeconds = 30;           // verify() asks a connection that stood idle this long
};
