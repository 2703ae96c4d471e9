// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

QString countOfKept()
{
    const KConnection::Result result = KConnection::forThread().run(QByteArrayLiteral("SELECT COUNT(*) FROM kept"));
    return QString::fromUtf8(mysql_fetch_row(result.get())[0]);
}

void keepTwoRows()
{
    KConnection::forThread().run(QByteArrayLiteral("CREATE TABLE kept (i INT) ENGINE=InnoDB"));
    KConnection::forThread().run(QByteArrayLiteral("INSERT INTO kept VALUES (1)"));
    KConnection::forThread().run(QByteArrayLiteral("INSERT INTO kept VALUES (2)"));
}

}

// A program that was killed, and a server that was.
class TestServerCrash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void killingTheServerIsReportedOnceAndARestartReconnects();
    void anErrorOfAKilledServerSaysThatTheConnectionIsLost();
    void aServerKilledAgainIsReportedAgain();
    void aServerThatIsStoppedIsNotReported();
    void killingTheProgramEndsTheServerAndTheNextStartIsClean();
    void aStartRightAfterTheProgramWasKilledIsClean();
    void aServerLeftBehindThatDoesNotEndIsEndedSoon();

private:
    void startHolder(QProcess &holder, qint64 *server);

    std::unique_ptr<QTemporaryDir> m_temporary;
    // As an office runs: what was committed must survive a kill.
    EmbeddedServer::Options m_options;
    DataFolder folder() const { return DataFolder(m_temporary->filePath(u"office"_s)); }
};

void TestServerCrash::init()
{
    m_temporary = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
}

void TestServerCrash::cleanup()
{
    KConnection::closeThreadConnections();
    QTRY_COMPARE(platform::processesWithArgument(ServerConfig::fromFile(folder().serverConfigPath())), QList<qint64>());
}

void TestServerCrash::killingTheServerIsReportedOnceAndARestartReconnects()
{
    EmbeddedServer server(folder(), m_options);
    QSignalSpy ended(&server, &EmbeddedServer::endedUnexpectedly);
    server.start();
    KConnection::configure(0, server.connectionSettings());
    keepTwoRows();
    platform::forceStop(server.processId());
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(!server.isRunning());
    QVERIFY(ended.first().at(0).toString().contains(folder().path()));
    QVERIFY(!ended.first().at(1).toString().isEmpty());

    server.restart();
    QVERIFY(server.isRunning());
    // The operation on the connection that died ends with an error; the next one connects anew.
    QVERIFY_THROWS_EXCEPTION(CMySQLException, countOfKept());
    QCOMPARE(countOfKept(), u"2"_s);
    QCOMPARE(ended.count(), 1);
}

void TestServerCrash::anErrorOfAKilledServerSaysThatTheConnectionIsLost()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    KConnection::configure(0, server.connectionSettings());
    keepTwoRows();
    platform::forceStop(server.processId());
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            countOfKept();
            QFAIL("the server is dead");
        } catch (const CMySQLException &error) {
            QCOMPARE(error.category(), CMySQLException::Category::ConnectionLost);
        }
    }
}

void TestServerCrash::aServerKilledAgainIsReportedAgain()
{
    EmbeddedServer server(folder(), m_options);
    QSignalSpy ended(&server, &EmbeddedServer::endedUnexpectedly);
    // As the program does it: restarted from within the report.
    connect(&server, &EmbeddedServer::endedUnexpectedly, &server, [&server] { server.restart(); });
    server.start();
    for (int time = 1; time <= 2; ++time) {
        const qint64 killed = server.processId();
        platform::forceStop(killed);
        QTRY_COMPARE(ended.count(), time);
        QTRY_VERIFY(server.isRunning() && server.processId() != killed);
    }
}

void TestServerCrash::aServerThatIsStoppedIsNotReported()
{
    EmbeddedServer server(folder(), m_options);
    QSignalSpy ended(&server, &EmbeddedServer::endedUnexpectedly);
    server.start();
    server.stop();
    server.start();
    server.restart();
    QTest::qWait(50);
    QCOMPARE(ended.count(), 0);
}

void TestServerCrash::startHolder(QProcess &holder, qint64 *server)
{
    holder.start(QCoreApplication::applicationDirPath() + u"/tzserverholder"_s, {folder().path()});
    QTRY_VERIFY(holder.canReadLine() || holder.state() == QProcess::NotRunning);
    *server = holder.readLine().trimmed().toLongLong();
    QVERIFY2(*server > 0, holder.readAllStandardError().constData());
}

void TestServerCrash::killingTheProgramEndsTheServerAndTheNextStartIsClean()
{
    QProcess holder;
    qint64 left = 0;
    startHolder(holder, &left);
    KConnectionSettings settings;
    settings.socketPath = folder().socketPath(u"db"_s);
    settings.user = EmbeddedServer::Options::databaseName();
    settings.database = EmbeddedServer::Options::databaseName();
    settings.password = ServerConfig(folder(), m_options).storedPassword();
    KConnection::configure(0, settings);
    keepTwoRows();

    QVERIFY(platform::isAlive(left));
    holder.kill();
    QVERIFY(holder.waitForFinished());
    QTRY_VERIFY2(!platform::isAlive(left), "the server outlives its program");

    EmbeddedServer server(folder(), m_options);
    server.start();
    KConnection::configure(0, server.connectionSettings());
    QCOMPARE(countOfKept(), u"2"_s);
}

void TestServerCrash::aStartRightAfterTheProgramWasKilledIsClean()
{
    QProcess holder;
    qint64 left = 0;
    startHolder(holder, &left);
    holder.kill();
    QVERIFY(holder.waitForFinished());
    EmbeddedServer server(folder(), m_options);
    server.start();
    QVERIFY(server.isRunning());
    QVERIFY(server.processId() != left);
    QVERIFY(!platform::isAlive(left));
}

// A server may take long to end, and one that was halted never does. What it had saved stays saved.
void TestServerCrash::aServerLeftBehindThatDoesNotEndIsEndedSoon()
{
    QProcess holder;
    qint64 left = 0;
    startHolder(holder, &left);
    KConnectionSettings settings;
    settings.socketPath = folder().socketPath(u"db"_s);
    settings.user = EmbeddedServer::Options::databaseName();
    settings.database = EmbeddedServer::Options::databaseName();
    settings.password = ServerConfig(folder(), m_options).storedPassword();
    KConnection::configure(0, settings);
    keepTwoRows();
    QCOMPARE(QProcess::execute(u"kill"_s, {u"-STOP"_s, QString::number(left)}), 0);
    holder.kill();
    QVERIFY(holder.waitForFinished());
    QVERIFY(platform::isAlive(left));

    EmbeddedServer server(folder(), m_options);
    int pulses = 0;
    server.start([&pulses](const QString &waitingFor) { pulses += waitingFor.contains(u"سرور قبلی"_s) ? 1 : 0; });
    QVERIFY(!platform::isAlive(left));
    // Twenty a second: two seconds.
    QVERIFY2(pulses > 0 && pulses <= 40, qPrintable(QString::number(pulses)));
    KConnection::configure(0, server.connectionSettings());
    QCOMPARE(countOfKept(), u"2"_s);
}

static const RegisteredTest<TestServerCrash, QCoreApplication> registeredServerCrash;
#include "TestServerCrash.moc"
