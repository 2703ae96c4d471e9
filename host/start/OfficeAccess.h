// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/InstanceLock.h"

#include <memory>

struct HostOptions;

// The office's database for a program without windows: that of a data folder, whether another program has it open or not, or that of an
// office server.
class OfficeAccess
{
public:
    OfficeAccess(const HostOptions &options, const DataFolder &folder);
    ~OfficeAccess();

    // The folder is this program's alone until the end. Throws ServerError InUse while another has it.
    void takeFolder();
    // Connects to the office server, or to the server that the folder's program has started, or starts one. Throws ServerError, also
    // DidNotStart for an office server that does not answer and FolderNotWritable for a folder that is no office.
    void open();
    // Stops the server, if it is this program's.
    void close();

    // After open.
    KConnectionSettings settings() const { return m_settings; }

private:
    void openServer();

    const HostOptions &m_options;
    DataFolder m_folder;
    std::unique_ptr<InstanceLock> m_lock;
    std::unique_ptr<EmbeddedServer> m_server;
    KConnectionSettings m_settings;
    bool m_isOurs = false;
};
