// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PrivateTestServer.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <mysql.h>

using namespace Qt::StringLiterals;

// The private server of one run of the tests: "start" leaves it running and returns when it answers, "stop" ends it. It also
// ends by itself when its folder or its location file is gone, or when nobody asked it anything for a while.

namespace {

constexpr int idleMilliseconds = 15 * 60 * 1000;
constexpr int lookMilliseconds = 200;
constexpr int limitMilliseconds = 60'000;

int complain(const char *words)
{
    std::fprintf(stderr, "tztestserver: %s\n", words);
    return 1;
}

// Statements of others since the server began; our own question counts as one.
class Idleness
{
public:
    explicit Idleness(const KConnectionSettings &settings)
        : m_connection(settings) { m_quiet.start(); }
    bool isOver()
    {
        const KConnection::Result result = m_connection.run(QByteArrayLiteral("SHOW GLOBAL STATUS LIKE 'Questions'"));
        const MYSQL_ROW row = result ? mysql_fetch_row(result.get()) : nullptr;
        const qint64 asked = row && row[1] ? QByteArray(row[1]).toLongLong() : 0;
        if (asked > m_asked + 1)
            m_quiet.restart();
        m_asked = asked;
        return m_quiet.elapsed() > idleMilliseconds;
    }

private:
    KConnection m_connection;
    QElapsedTimer m_quiet;
    qint64 m_asked = 0;
};

int serve()
{
    PrivateTestServer server;
    KConnectionSettings settings = server.server().connectionSettings();
    settings.database.clear();
    Idleness idleness(settings);
    server.publish();
    QElapsedTimer sinceAsked;
    sinceAsked.start();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const bool wanted = PrivateTestServer::isPublished(server.folder()) && QFileInfo::exists(server.folder());
        bool idle = false;
        if (wanted && sinceAsked.elapsed() > 10'000) {
            idle = idleness.isOver();
            sinceAsked.restart();
        }
        if (!wanted || idle || !server.server().isRunning())
            QCoreApplication::quit();
    });
    timer.start(lookMilliseconds);
    const int code = QCoreApplication::exec();
    if (PrivateTestServer::isPublished(server.folder()))
        PrivateTestServer::unpublish();
    return code;
}

int start()
{
    if (PrivateTestServer::ofThisRun())
        return 0;
    PrivateTestServer::unpublish();
    QProcess process;
    process.setProgram(QCoreApplication::applicationFilePath());
    process.setArguments({u"serve"_s});
    // ctest waits for any process that still holds its pipes.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(u"" TZ_TEST_SERVER_FILE ".log"_s);
    if (!process.startDetached())
        return complain("cannot start itself");
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < limitMilliseconds) {
        if (PrivateTestServer::ofThisRun())
            return 0;
        QThread::msleep(20);
    }
    return complain("the server does not answer; see " TZ_TEST_SERVER_FILE ".log");
}

int stop()
{
    const QString folder = PrivateTestServer::publishedFolder();
    PrivateTestServer::unpublish();
    QElapsedTimer timer;
    timer.start();
    while (!folder.isEmpty() && QFileInfo::exists(folder)) {
        if (timer.elapsed() > limitMilliseconds)
            return complain("the server does not end");
        QThread::msleep(20);
    }
    return 0;
}

}

int main(int argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    const QString command = QCoreApplication::arguments().value(1);
    try {
        if (command == u"start"_s)
            return start();
        if (command == u"serve"_s)
            return serve();
        if (command == u"stop"_s)
            return stop();
    } catch (const std::exception &error) {
        return complain(error.what());
    }
    return complain("start or stop");
}
