// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PrivateTestServer.h"

#include <QCoreApplication>

#include <cstdio>

// Starts the server of the data folder given, says its process, and then only waits until it is killed or its input ends.
int main(int argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    try {
        EmbeddedServer server(DataFolder(QCoreApplication::arguments().value(1)), PrivateTestServer::options());
        server.start();
        std::printf("%lld\n", static_cast<long long>(server.processId()));
        std::fflush(stdout);
        while (std::getchar() != EOF) {
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
