// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerConfig.h"

#include "host/server/Platform.h"
#include "host/server/ServerError.h"

#include <QFile>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

const QByteArray passwordKey = QByteArrayLiteral("password=");
const QByteArray socketKey = QByteArrayLiteral("socket=");

}

ServerConfig::ServerConfig(const DataFolder &folder, const ServerOptions &options)
    : m_folder(folder)
    , m_options(options)
{
}

QByteArray ServerConfig::quoted(const QString &value)
{
    QByteArray text = QFile::encodeName(value);
    text.replace('\\', "\\\\");
    text.replace('"', "\\\"");
    return '"' + text + '"';
}

QString ServerConfig::fromFile(const QString &path)
{
    return u"--defaults-file="_s + path;
}

QString ServerConfig::newPassword()
{
    quint32 random[6];
    QRandomGenerator::system()->fillRange(random);
    const QByteArray bytes(reinterpret_cast<const char *>(random), sizeof random);
    return QString::fromLatin1(bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

void ServerConfig::writeServerOptions(const QString &socketPath, const QByteArray &more) const
{
    QByteArray text("# Written by TzAuto at every start; changes are lost.\n[mariadbd]\n");
    const auto add = [&text](const char *line) { text += QByteArray(line) + '\n'; };
    text += "datadir=" + quoted(m_folder.databasePath()) + '\n';
    text += "socket=" + quoted(socketPath) + '\n';
    text += "pid_file=" + quoted(m_folder.databasePath() + u"/server.pid"_s) + '\n';
    // A server that starts removes all temporary tables of its folder for temporary files, also those in use by
    // another server: it must have that folder to itself.
    text += "tmpdir=" + quoted(m_folder.temporaryPath()) + '\n';
    // Statements may read and write files only beside the backups.
    text += "secure_file_priv=" + quoted(m_folder.backupsPath()) + '\n';
    if (platform::isAdministrator())
        add("user=root");
    add("skip_networking");
    add("skip_name_resolve");
    add("local_infile=OFF");
    add("symbolic_links=OFF");
    add("loose_feedback=OFF");
    add("performance_schema=OFF");
    add("event_scheduler=OFF");
    add("character_set_server=utf8mb4");
    add("default_storage_engine=InnoDB");
    add("sql_mode=STRICT_TRANS_TABLES,STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION");
    // An attachment of 25 MiB takes up to twice its size as a literal.
    add("max_allowed_packet=128M");
    // A program may stay open for days; an idle connection is no reason for an error.
    add("wait_timeout=2147483");
    // A user is waiting in front of a window.
    add("innodb_lock_wait_timeout=10");
    add("max_connections=60");
    add("key_buffer_size=1M");
    add("aria_pagecache_buffer_size=8M");
    text += "innodb_buffer_pool_size=" + QByteArray::number(m_options.bufferPoolMiB) + "M\n";
    text += "innodb_log_file_size=" + QByteArray::number(m_options.redoLogMiB) + "M\n";
    if (m_options.unsafeButFast) {
        add("innodb_flush_log_at_trx_commit=0");
        add("innodb_doublewrite=OFF");
        add("innodb_flush_method=nosync");
    } else {
        // What the server's own room does not hold, the system's may: past it, each page that is not at hand is a wait for the disk.
        add("innodb_flush_method=fsync");
        // Saved data survives a power failure.
        add("innodb_flush_log_at_trx_commit=1");
    }
    write(m_folder.serverConfigPath(), text + more);
}

QByteArray ServerConfig::clientOptions(const KConnectionSettings &settings)
{
    QByteArray text("[client]\n");
    text += "user=" + quoted(settings.user) + '\n';
    text += passwordKey + quoted(settings.password) + '\n';
    if (settings.host.isEmpty()) {
        // All three: whatever a file does not set, the tools take from the user's environment.
        text += "host=localhost\nprotocol=socket\n" + socketKey + quoted(settings.socketPath) + '\n';
    } else {
        text += "host=" + quoted(settings.host) + "\nport=" + QByteArray::number(settings.port) + "\nprotocol=tcp\n";
        if (settings.useTls)
            text += "ssl\nssl-verify-server-cert\n";
        if (settings.useTls && !settings.caFile.isEmpty())
            text += "ssl-ca=" + quoted(settings.caFile) + '\n';
    }
    text += "default-character-set=utf8mb4\n";
    return text;
}

void ServerConfig::writeClientOptions(const QString &socketPath, const QString &password) const
{
    KConnectionSettings settings;
    settings.socketPath = socketPath;
    settings.user = ServerOptions::databaseName();
    settings.password = password;
    QByteArray text(
        "# The account of this folder's private database server; whoever can read it can read everything.\n");
    text += clientOptions(settings);
    text += "[mysql]\ndatabase=" + quoted(ServerOptions::databaseName()) + '\n';
    write(m_folder.clientConfigPath(), text);
}

QString ServerConfig::storedPassword() const
{
    return stored(passwordKey);
}

QString ServerConfig::storedSocketPath() const
{
    return stored(socketKey);
}

QString ServerConfig::stored(const QByteArray &key) const
{
    QFile file(m_folder.clientConfigPath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        // Our own passwords and sockets need no escapes, so the text between the quotes is all of it.
        if (line.startsWith(key + '"') && line.endsWith('"'))
            return QString::fromUtf8(line.mid(key.size() + 1).chopped(1));
    }
    return {};
}

void ServerConfig::write(const QString &path, const QByteArray &content) const
{
    QString reason;
    switch (platform::writePrivateFile(path, content, &reason)) {
    case platform::WriteResult::Written:
        return;
    case platform::WriteResult::NoRoom:
        throw ServerError(ServerError::Kind::DiskFull, m_folder.diskFullMessage(),
                          path + u": "_s + reason);
    case platform::WriteResult::Refused:
        throw ServerError(
            ServerError::Kind::FolderNotWritable,
            u"پرونده %1 نوشته نشد؛ اجازه نوشتن در این پوشه را بگیرید."_s.arg(ServerError::shownPath(path)),
            path + u": "_s + reason);
    }
}
