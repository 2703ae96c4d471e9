// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

class ServerWait;
struct KConnectionSettings;
struct KServerAddress;
struct st_mysql;
struct st_mysql_res;

// The calls of the client library that speak to the server, each carried to its end by a wait. What went wrong is what the
// library then says of the handle.
namespace ClientCalls {

// A handle that is set up and not connected. answerSeconds limits the waits that are none of ours, for rows that are fetched one by
// one; 0: without limit. sessionSetup is the first statement of the session.
st_mysql *makeHandle(const KConnectionSettings &settings, int connectSeconds, int answerSeconds, const QByteArray &sessionSetup);

[[nodiscard]] bool connect(ServerWait &wait, st_mysql *handle, const KConnectionSettings &settings, const KServerAddress &node);
[[nodiscard]] bool query(ServerWait &wait, st_mysql *handle, const QByteArray &utf8Statement);
// The two halves of a query: several may be sent before the first answer is heard. They come in the same order.
[[nodiscard]] bool send(ServerWait &wait, st_mysql *handle, const QByteArray &utf8Statement);
[[nodiscard]] bool readAnswer(ServerWait &wait, st_mysql *handle);
// The rows of the last query, whole; null: it has none, or they did not arrive. The caller frees them.
[[nodiscard]] st_mysql_res *storeResult(ServerWait &wait, st_mysql *handle);
[[nodiscard]] bool ping(ServerWait &wait, st_mysql *handle);

}
