// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

#include <QObject>

#include <memory>

class QLocalServer;
namespace platform {
class FileLock;
}

// One program per data folder. The lock is the operating system's, so that it never outlives its program.
class InstanceLock final : public QObject
{
    Q_OBJECT

public:
    explicit InstanceLock(const DataFolder &folder, QObject *parent = nullptr);
    ~InstanceLock() override;

    // True: this program owns the folder from now until the lock is destroyed. False: another program does. The folder
    // must have been created. Throws ServerError FolderNotWritable when the lock file cannot be made.
    bool acquire();
    // Asks the program that owns the folder to show its window. True when it says that it did, within the limit;
    // otherwise tell the user inUseMessage().
    bool raiseOther(int limitMilliseconds = 3000);
    QString inUseMessage() const;

Q_SIGNALS:
    // Emitted when another start on the same folder asks for this program's window. Needs an event loop.
    void raiseRequested();

private:
    void listen();

    DataFolder m_folder;
    std::unique_ptr<platform::FileLock> m_lock;
    QLocalServer *m_server = nullptr;
};
