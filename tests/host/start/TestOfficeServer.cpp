// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/OfficeServer.h"

#include "suite/db/CTblTemp.h"
#include "host/frame/HostOptions.h"
#include "host/server/EmbeddedServer.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

class TestOfficeServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { g_pDlgWarning->answerAll(true); }
    void cleanup() { g_pDlgWarning->answerAll(false); }
    void passwordIsTheFirstLine_data();
    void passwordIsTheFirstLine();
    void aFileThatOthersReadIsRefused();
    void aFileThatIsNotThereIsTold();
    void rightPasswordConnects();
    void thisComputerByNameIsReachedOverTheNetworkToo();
    void wrongPasswordIsToldByName();
    void databaseThatIsNotThereIsToldByName();
    void databaseOfOthersIsRefused();
    void serverThatDoesNotProveItselfIsRefused();
    void serverIsTakenByItsCertificate_data();
    void serverIsTakenByItsCertificate();
    void aServerThatIsNotThereIsToldOnce();

private:
    HostOptions options(const QByteArray &password, const QString &database);
    void startServer(const QStringList &furtherOptions = {});
    void stopServer();
    void makeCertificates();
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    QProcess m_server;
    quint16 m_port = 0;
};

namespace {

QString writeFile(const QTemporaryDir &folder, const QByteArray &text, QFile::Permissions permissions)
{
    QFile file(folder.filePath(QStringLiteral("word")));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(text);
    file.setPermissions(permissions);
    return file.fileName();
}

}

// A server as an office has one: reached over the network, with an account for the program.
void TestOfficeServer::initTestCase()
{
    {
        EmbeddedServer maker(DataFolder(path(QStringLiteral("server"))));
        maker.start();
        KConnection connection(maker.connectionSettings());
        connection.run(QByteArrayLiteral("CREATE DATABASE books"));
        connection.run(QByteArrayLiteral("CREATE USER sara@'%' IDENTIFIED BY 'gallery7'"));
        connection.run(QByteArrayLiteral("GRANT ALL ON books.* TO sara@'%'"));
    }
    QTcpServer free;
    QVERIFY(free.listen(QHostAddress::LocalHost));
    m_port = free.serverPort();
    free.close();
    startServer();
}

void TestOfficeServer::cleanupTestCase()
{
    stopServer();
}

void TestOfficeServer::startServer(const QStringList &furtherOptions)
{
    const DataFolder folder(path(QStringLiteral("server")));
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(ServerPrograms::installed().server,
                   QStringList{QStringLiteral("--defaults-file=") + folder.serverConfigPath(), QStringLiteral("--skip-networking=OFF"),
                               QStringLiteral("--bind-address=127.0.0.1"), QStringLiteral("--port=%1").arg(m_port)}
                       + furtherOptions);
    QByteArray words;
    QTRY_VERIFY_WITH_TIMEOUT((words += m_server.readAll()).contains("ready for connections"), 30000);
}

void TestOfficeServer::stopServer()
{
    KConnection::closeThreadConnections();
    m_server.terminate();
    QVERIFY(m_server.waitForFinished());
}

HostOptions TestOfficeServer::options(const QByteArray &password, const QString &database)
{
    HostOptions options;
    options.connect = true;
    options.host = QStringLiteral("127.0.0.1");
    options.port = m_port;
    options.user = QStringLiteral("sara");
    options.database = database;
    options.passwordFile = writeFile(m_folder, password, QFile::ReadOwner | QFile::WriteOwner);
    return options;
}

void TestOfficeServer::rightPasswordConnects()
{
    QVERIFY(OfficeServer::connect(options("gallery7\n", QStringLiteral("books")), nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    CTblTemp query;
    query.Open(false, false, true);
    query.ExecuteQuery(QStringLiteral("SELECT CONCAT(CURRENT_USER(),' ',DATABASE())"));
    QCOMPARE(query.GetTextFieldValue(0), QStringLiteral("sara@% books"));
}

// The client library would look for a local socket of its own by that name.
void TestOfficeServer::thisComputerByNameIsReachedOverTheNetworkToo()
{
    HostOptions byName = options("gallery7", QStringLiteral("books"));
    byName.host = QStringLiteral("localhost");
    QVERIFY(OfficeServer::connect(byName, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestOfficeServer::wrongPasswordIsToldByName()
{
    QVERIFY(!OfficeServer::connect(options("guess", QStringLiteral("books")), nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(QStringLiteral("sara")), qPrintable(shown.constFirst()));
    QVERIFY(!shown.constFirst().contains(QStringLiteral("guess")));
}

void TestOfficeServer::databaseThatIsNotThereIsToldByName()
{
    // Who may see no other database hears the same of one that is not there as of one of others.
    QVERIFY(!OfficeServer::connect(options("gallery7", QStringLiteral("nobooks")), nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(QStringLiteral("nobooks")), qPrintable(shown.constFirst()));
}

void TestOfficeServer::databaseOfOthersIsRefused()
{
    QVERIFY(!OfficeServer::connect(options("gallery7", QStringLiteral("mysql")), nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(QStringLiteral("mysql")), qPrintable(shown.constFirst()));
}

void TestOfficeServer::serverThatDoesNotProveItselfIsRefused()
{
    HostOptions secure = options("gallery7", QStringLiteral("books"));
    secure.tls = true;
    QVERIFY(!OfficeServer::connect(secure, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

// Two authorities, and two servers that the first of them vouches for.
void TestOfficeServer::makeCertificates()
{
    if (QFile::exists(path(QStringLiteral("books.example.pem"))))
        return;
    const auto make = [this](const QString &name, const QStringList &further) {
        QProcess tool;
        tool.start(QStringLiteral("openssl"),
                   QStringList{QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
                               QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                               QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=") + name,
                               QStringLiteral("-keyout"), path(name + QStringLiteral(".key")),
                               QStringLiteral("-out"), path(name + QStringLiteral(".pem"))}
                       + further);
        QVERIFY2(tool.waitForFinished() && tool.exitCode() == 0, tool.readAllStandardError().constData());
    };
    make(QStringLiteral("ours"), {});
    make(QStringLiteral("others"), {});
    const auto makeServer = [&](const QString &name, const QString &names) {
        make(name, {QStringLiteral("-CA"), path(QStringLiteral("ours.pem")), QStringLiteral("-CAkey"), path(QStringLiteral("ours.key")), QStringLiteral("-addext"), QStringLiteral("subjectAltName=") + names, QStringLiteral("-addext"), QStringLiteral("basicConstraints=critical,CA:FALSE")});
    };
    makeServer(QStringLiteral("localhost"), QStringLiteral("DNS:localhost,IP:127.0.0.1"));
    makeServer(QStringLiteral("books.example"), QStringLiteral("DNS:books.example"));
}

void TestOfficeServer::serverIsTakenByItsCertificate_data()
{
    QTest::addColumn<QString>("certificate"); // whom the server shows itself as
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("authority"); // whom we ask; empty: the system's
    QTest::addColumn<bool>("taken");
    const QString localhost = QStringLiteral("localhost");
    const QString ours = QStringLiteral("ours");
    QTest::newRow("the named authority vouches for it") << localhost << localhost << ours << true;
    QTest::newRow("by its address") << localhost << QStringLiteral("127.0.0.1") << ours << true;
    QTest::newRow("another authority is asked") << localhost << localhost << QStringLiteral("others") << false;
    QTest::newRow("the system knows no such authority") << localhost << localhost << QString() << false;
    QTest::newRow("it is another server of that authority") << QStringLiteral("books.example") << localhost << ours << false;
}

void TestOfficeServer::serverIsTakenByItsCertificate()
{
    QFETCH(QString, certificate);
    QFETCH(QString, host);
    QFETCH(QString, authority);
    QFETCH(bool, taken);
    makeCertificates();
    stopServer();
    startServer({QStringLiteral("--ssl-cert=") + path(certificate + QStringLiteral(".pem")),
                 QStringLiteral("--ssl-key=") + path(certificate + QStringLiteral(".key"))});
    HostOptions secure = options("gallery7", QStringLiteral("books"));
    secure.host = host;
    secure.tls = true;
    secure.caFile = authority.isEmpty() ? QString() : path(authority + QStringLiteral(".pem"));
    QCOMPARE(OfficeServer::connect(secure, nullptr), taken);
    QCOMPARE(g_pDlgWarning->takeShown().size(), taken ? 0 : 1);
    if (taken) {
        CTblTemp query;
        query.Open(false, false, true);
        query.ExecuteQuery("SHOW SESSION STATUS LIKE 'Ssl_cipher'", true, true);
        QVERIFY(!query.GetTextFieldValue(1).isEmpty());
    }
    stopServer();
    startServer();
}

void TestOfficeServer::passwordIsTheFirstLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("password");
    QTest::newRow("one line") << QByteArray("word") << "word";
    QTest::newRow("with its end") << QByteArray("word\nmore\n") << "word";
    QTest::newRow("with two end signs") << QByteArray("word\r\n") << "word";
    QTest::newRow("blanks belong to it") << QByteArray(" a b \n") << " a b ";
    QTest::newRow("Persian") << QByteArray("راز\n") << "راز";
    QTest::newRow("empty") << QByteArray() << "";
}

void TestOfficeServer::passwordIsTheFirstLine()
{
    QFETCH(QByteArray, text);
    const QTemporaryDir folder;
    QString error;
    const auto password =
        OfficeServer::readPassword(writeFile(folder, text, QFile::ReadOwner | QFile::WriteOwner), &error);
    QVERIFY2(password, qPrintable(error));
    QTEST(*password, "password");
}

void TestOfficeServer::aFileThatOthersReadIsRefused()
{
    const QTemporaryDir folder;
    for (const QFile::Permission other : {QFile::ReadGroup, QFile::ReadOther}) {
        QString error;
        QVERIFY(!OfficeServer::readPassword(writeFile(folder, "word", QFile::ReadOwner | QFile::WriteOwner | other), &error));
        QVERIFY(error.contains(folder.path()));
    }
}

void TestOfficeServer::aFileThatIsNotThereIsTold()
{
    QString error;
    QVERIFY(!OfficeServer::readPassword(QStringLiteral("/nowhere/word"), &error));
    QVERIFY(error.contains(QStringLiteral("/nowhere/word")));
}

void TestOfficeServer::aServerThatIsNotThereIsToldOnce()
{
    HostOptions nowhere = options("gallery7", QStringLiteral("books"));
    nowhere.port = 1;
    QVERIFY(!OfficeServer::connect(nowhere, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

static const RegisteredTest<TestOfficeServer, QApplication> registered;
#include "TestOfficeServer.moc"
