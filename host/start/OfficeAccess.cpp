// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/OfficeAccess.h"

#include "host/backup/BackupTaking.h"
#include "host/frame/HostOptions.h"
#include "host/server/ServerConfig.h"
#include "host/start/OfficeAccount.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// Nobody sits before it, and at night the computer may be busy with other things.
constexpr int patientMilliseconds = 120'000;

}

OfficeAccess::OfficeAccess(const HostOptions &options, const DataFolder &folder)
    : m_options(options)
    , m_folder(folder)
{
}

OfficeAccess::~OfficeAccess()
{
    KConnection::closeThreadConnections();
}

void OfficeAccess::takeFolder()
{
    m_folder.create();
    m_lock = std::make_unique<InstanceLock>(m_folder);
    m_isOurs = m_lock->acquire();
    if (!m_isOurs)
        throw ServerError(ServerError::Kind::InUse, m_lock->inUseMessage(), u"program.lock is held"_s);
}

void OfficeAccess::open()
{
    if (m_options.connect) {
        m_settings = OfficeAccount::settingsOf(m_options);
        QString problem;
        const std::optional<QString> password = OfficeAccount::readPassword(m_options.passwordFile, &problem);
        if (!password)
            throw ServerError(ServerError::Kind::DidNotStart, problem, u"no password"_s);
        m_settings.password = *password;
    } else {
        openServer();
    }
    try {
        KConnection(m_settings).run(QByteArrayLiteral("SELECT 1"));
    } catch (const CMySQLException &error) {
        throw ServerError(ServerError::Kind::DidNotStart, u"اتصال به پایگاه داده برقرار نشد."_s, error.GetErrorMessage());
    }
    KConnection::configure(0, m_settings);
}

void OfficeAccess::openServer()
{
    if (!QFileInfo(m_folder.databasePath()).isDir())
        throw ServerError(ServerError::Kind::FolderNotWritable, u"در پوشه %1 دفتری نیست."_s.arg(ServerError::shownPath(m_folder.path())),
                          u"there is no database"_s);
    if (!m_lock) {
        m_lock = std::make_unique<InstanceLock>(m_folder);
        m_isOurs = m_lock->acquire();
    }
    if (m_isOurs) {
        ServerOptions options;
        options.takeBackup = BackupTaking::beforeServerUpgrade(m_folder);
        options.startLimitMilliseconds = patientMilliseconds;
        m_server = std::make_unique<EmbeddedServer>(m_folder, options);
        m_server->start();
        m_settings = m_server->connectionSettings();
        return;
    }
    const ServerConfig config(m_folder, {});
    m_settings.socketPath = config.storedSocketPath();
    m_settings.user = ServerOptions::databaseName();
    m_settings.database = ServerOptions::databaseName();
    m_settings.password = config.storedPassword();
}

void OfficeAccess::close()
{
    KConnection::closeThreadConnections();
    m_server.reset();
}
