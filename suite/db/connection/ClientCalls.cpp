// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/ClientCalls.h"

#include "suite/db/connection/DBPlatform.h"
#include "suite/db/connection/KConnectionSettings.h"
#include "suite/db/connection/ServerWait.h"

#include <mysql.h>
#include <new>

namespace {

// The calls run on a stack of their own while they wait; names are looked up on it, too.
constexpr size_t callStack = size_t{256} * 1024;

const char *orNull(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

void setTls(st_mysql *handle, const QString &caFile)
{
    const my_bool on = 1;
    mysql_optionsv(handle, MYSQL_OPT_SSL_ENFORCE, &on);
    mysql_optionsv(handle, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &on);
    if (!caFile.isEmpty())
        mysql_ssl_set(handle, nullptr, nullptr, caFile.toLocal8Bit().constData(), nullptr, nullptr);
}

}

st_mysql *ClientCalls::makeHandle(const KConnectionSettings &settings, int connectSeconds, int answerSeconds, const QByteArray &sessionSetup)
{
    st_mysql *handle = mysql_init(nullptr);
    if (!handle)
        throw std::bad_alloc();
    const auto connectTime = static_cast<unsigned int>(connectSeconds);
    const auto answerTime = static_cast<unsigned int>(answerSeconds);
    const my_bool off = 0;
    const unsigned int noLocalFiles = 0;
    mysql_optionsv(handle, MYSQL_OPT_NONBLOCK, &callStack);
    mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &connectTime);
    mysql_optionsv(handle, MYSQL_OPT_READ_TIMEOUT, &answerTime);
    mysql_optionsv(handle, MYSQL_OPT_WRITE_TIMEOUT, &answerTime);
    mysql_optionsv(handle, MYSQL_OPT_RECONNECT, &off);
    mysql_optionsv(handle, MYSQL_OPT_LOCAL_INFILE, &noLocalFiles);
    mysql_optionsv(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_optionsv(handle, MYSQL_INIT_COMMAND, sessionSetup.constData());
    if (settings.useTls)
        setTls(handle, settings.caFile);
    if (!settings.host.isEmpty()) {
        // "localhost" would mean a local socket to the client library, whatever the port.
        const unsigned int network = MYSQL_PROTOCOL_TCP;
        mysql_optionsv(handle, MYSQL_OPT_PROTOCOL, &network);
    }
    return handle;
}

bool ClientCalls::connect(ServerWait &wait, st_mysql *handle, const KConnectionSettings &settings, const KServerAddress &node)
{
    const QByteArray host = node.host.toUtf8();
    const QByteArray user = settings.user.toUtf8();
    const QByteArray password = settings.password.toUtf8();
    const QByteArray database = settings.database.toUtf8();
    const QByteArray socket = settings.socketPath.toLocal8Bit();
    const unsigned int port = host.isEmpty() ? 0 : node.port;
    // Where nobody listens on a local socket, the library's waiting connect closes the descriptor twice, the second time perhaps that of
    // another thread. Its plain one closes it once, and fails without waiting.
    if (host.isEmpty() && !socket.isEmpty() && !DBPlatform::isListening(settings.socketPath))
        return mysql_real_connect(handle, nullptr, user.constData(), password.constData(), orNull(database), port, orNull(socket),
                                  CLIENT_FOUND_ROWS)
            != nullptr;
    MYSQL *connected = nullptr;
    // CLIENT_FOUND_ROWS: an UPDATE counts the rows it met, so that a vanished row is distinguished from an unchanged one.
    wait.run(mysql_real_connect_start(&connected, handle, orNull(host), user.constData(), password.constData(), orNull(database),
                                      port, orNull(socket), CLIENT_FOUND_ROWS),
             [&](int ready) { return mysql_real_connect_cont(&connected, handle, ready); });
    return connected != nullptr;
}

bool ClientCalls::query(ServerWait &wait, st_mysql *handle, const QByteArray &utf8Statement)
{
    int failed = 0;
    wait.run(mysql_real_query_start(&failed, handle, utf8Statement.constData(), static_cast<unsigned long>(utf8Statement.size())),
             [&](int ready) { return mysql_real_query_cont(&failed, handle, ready); });
    return failed == 0;
}

bool ClientCalls::send(ServerWait &wait, st_mysql *handle, const QByteArray &utf8Statement)
{
    int failed = 0;
    wait.run(mysql_send_query_start(&failed, handle, utf8Statement.constData(), static_cast<unsigned long>(utf8Statement.size())),
             [&](int ready) { return mysql_send_query_cont(&failed, handle, ready); });
    return failed == 0;
}

bool ClientCalls::readAnswer(ServerWait &wait, st_mysql *handle)
{
    my_bool failed = 0;
    wait.run(mysql_read_query_result_start(&failed, handle), [&](int ready) { return mysql_read_query_result_cont(&failed, handle, ready); });
    return failed == 0;
}

st_mysql_res *ClientCalls::storeResult(ServerWait &wait, st_mysql *handle)
{
    MYSQL_RES *rows = nullptr;
    wait.run(mysql_store_result_start(&rows, handle), [&](int ready) { return mysql_store_result_cont(&rows, handle, ready); });
    return rows;
}

bool ClientCalls::ping(ServerWait &wait, st_mysql *handle)
{
    int failed = 0;
    wait.run(mysql_ping_start(&failed, handle), [&](int ready) { return mysql_ping_cont(&failed, handle, ready); });
    return failed == 0;
}
