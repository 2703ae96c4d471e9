// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/EmbeddedServer.h"

#include <QTemporaryDir>

#include <optional>

// A server for tests in a short folder of its own under the temporary folder, with options that trade durability for speed.
// Both are gone with the object.
class PrivateTestServer
{
public:
    // Throws ServerError.
    PrivateTestServer();
    ~PrivateTestServer();

    EmbeddedServer &server() { return *m_server; }
    QString folder() const { return m_folder.path(); }
    static EmbeddedServer::Options options();
    // For QTemporaryDir: where a database is made fastest, in memory when the system offers a folder there with room.
    static QString folderTemplate();

    // The server that ctest started for this run: its connection, no database selected; nothing when there is none.
    static std::optional<KConnectionSettings> ofThisRun();
    // Tells the test programs of this run where the server is, or withdraws that.
    void publish() const;
    static bool isPublished(const QString &folder);
    static QString publishedFolder();
    static void unpublish();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<EmbeddedServer> m_server;
};
