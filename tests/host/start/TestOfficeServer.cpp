// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/OfficeAccount.h"
#include "host/start/OfficeServer.h"

#include "suite/db/records/CTblTemp.h"
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

using namespace Qt::StringLiterals;

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
    void nextNodeIsTakenWhenOneIsNotThere();
    void nodesThatAreNotThereAreToldOnce();

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
    QFile file(folder.filePath(u"word"_s));
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
        EmbeddedServer maker(DataFolder(path(u"server"_s)));
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
    const DataFolder folder(path(u"server"_s));
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(ServerPrograms::installed().server,
                   QStringList{u"--defaults-file="_s + folder.serverConfigPath(), u"--skip-networking=OFF"_s,
                               u"--bind-address=127.0.0.1"_s, u"--port=%1"_s.arg(m_port)}
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
    options.host = u"127.0.0.1"_s;
    options.port = m_port;
    options.user = u"sara"_s;
    options.database = database;
    options.passwordFile = writeFile(m_folder, password, QFile::ReadOwner | QFile::WriteOwner);
    return options;
}

void TestOfficeServer::rightPasswordConnects()
{
    QVERIFY(OfficeServer::connect(options("gallery7\n", u"books"_s), nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    CTblTemp query;
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT CONCAT(CURRENT_USER(),' ',DATABASE())");
    QCOMPARE(query.GetTextFieldValue(0), u"sara@% books"_s);
}

// The client library would look for a local socket of its own by that name.
void TestOfficeServer::thisComputerByNameIsReachedOverTheNetworkToo()
{
    HostOptions byName = options("gallery7", u"books"_s);
    byName.host = u"localhost"_s;
    QVERIFY(OfficeServer::connect(byName, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestOfficeServer::wrongPasswordIsToldByName()
{
    QVERIFY(!OfficeServer::connect(options("guess", u"books"_s), nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(u"sara"_s), qPrintable(shown.constFirst()));
    QVERIFY(!shown.constFirst().contains(u"guess"_s));
}

void TestOfficeServer::databaseThatIsNotThereIsToldByName()
{
    // A user who may see no other database gets the same answer for a missing one as for another user's.
    QVERIFY(!OfficeServer::connect(options("gallery7", u"nobooks"_s), nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(u"nobooks"_s), qPrintable(shown.constFirst()));
}

void TestOfficeServer::databaseOfOthersIsRefused()
{
    QVERIFY(!OfficeServer::connect(options("gallery7", u"mysql"_s), nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(u"mysql"_s), qPrintable(shown.constFirst()));
}

void TestOfficeServer::serverThatDoesNotProveItselfIsRefused()
{
    HostOptions secure = options("gallery7", u"books"_s);
    secure.tls = true;
    QVERIFY(!OfficeServer::connect(secure, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

// Two authorities, and two servers that the first of them vouches for.
void TestOfficeServer::makeCertificates()
{
    if (QFile::exists(path(u"books.example.pem"_s)))
        return;
    const auto make = [this](const QString &name, const QStringList &further) {
        QProcess tool;
        tool.start(u"openssl"_s,
                   QStringList{u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s,
                               u"-pkeyopt"_s, u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s,
                               u"-days"_s, u"2"_s, u"-subj"_s, u"/CN="_s + name,
                               u"-keyout"_s, path(name + u".key"_s),
                               u"-out"_s, path(name + u".pem"_s)}
                       + further);
        QVERIFY2(tool.waitForFinished() && tool.exitCode() == 0, tool.readAllStandardError().constData());
    };
    make(u"ours"_s, {});
    make(u"others"_s, {});
    const auto makeServer = [&](const QString &name, const QString &names) {
        make(name, {u"-CA"_s, path(u"ours.pem"_s), u"-CAkey"_s, path(u"ours.key"_s), u"-addext"_s, u"subjectAltName="_s + names, u"-addext"_s, u"basicConstraints=critical,CA:FALSE"_s});
    };
    makeServer(u"localhost"_s, u"DNS:localhost,IP:127.0.0.1"_s);
    makeServer(u"books.example"_s, u"DNS:books.example"_s);
}

void TestOfficeServer::serverIsTakenByItsCertificate_data()
{
    QTest::addColumn<QString>("certificate"); // the name the server presents
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("authority"); // the one that we trust; empty: the system's
    QTest::addColumn<bool>("taken");
    const QString localhost = u"localhost"_s;
    const QString ours = u"ours"_s;
    QTest::newRow("the named authority vouches for it") << localhost << localhost << ours << true;
    QTest::newRow("by its address") << localhost << u"127.0.0.1"_s << ours << true;
    QTest::newRow("another authority is asked") << localhost << localhost << u"others"_s << false;
    QTest::newRow("the system knows no such authority") << localhost << localhost << QString() << false;
    QTest::newRow("it is another server of that authority") << u"books.example"_s << localhost << ours << false;
}

void TestOfficeServer::serverIsTakenByItsCertificate()
{
    QFETCH(QString, certificate);
    QFETCH(QString, host);
    QFETCH(QString, authority);
    QFETCH(bool, taken);
    makeCertificates();
    stopServer();
    startServer({u"--ssl-cert="_s + path(certificate + u".pem"_s),
                 u"--ssl-key="_s + path(certificate + u".key"_s)});
    HostOptions secure = options("gallery7", u"books"_s);
    secure.host = host;
    secure.tls = true;
    secure.caFile = authority.isEmpty() ? QString() : path(authority + u".pem"_s);
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
        OfficeAccount::readPassword(writeFile(folder, text, QFile::ReadOwner | QFile::WriteOwner), &error);
    QVERIFY2(password, qPrintable(error));
    QTEST(*password, "password");
}

void TestOfficeServer::aFileThatOthersReadIsRefused()
{
    const QTemporaryDir folder;
    for (const QFile::Permission other : {QFile::ReadGroup, QFile::ReadOther}) {
        QString error;
        QVERIFY(!OfficeAccount::readPassword(writeFile(folder, "word", QFile::ReadOwner | QFile::WriteOwner | other), &error));
        QVERIFY(error.contains(folder.path()));
    }
}

void TestOfficeServer::aFileThatIsNotThereIsTold()
{
    QString error;
    QVERIFY(!OfficeAccount::readPassword(u"/nowhere/word"_s, &error));
    QVERIFY(error.contains(u"/nowhere/word"_s));
}

void TestOfficeServer::aServerThatIsNotThereIsToldOnce()
{
    HostOptions nowhere = options("gallery7", u"books"_s);
    nowhere.port = 1;
    QVERIFY(!OfficeServer::connect(nowhere, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestOfficeServer::nextNodeIsTakenWhenOneIsNotThere()
{
    HostOptions cluster = options("gallery7", u"books"_s);
    cluster.furtherNodes = {{cluster.host, cluster.port}};
    cluster.port = 1;
    QVERIFY(OfficeServer::connect(cluster, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(KConnection::settings(0).port, static_cast<unsigned int>(m_port));
}

void TestOfficeServer::nodesThatAreNotThereAreToldOnce()
{
    HostOptions nowhere = options("gallery7", u"books"_s);
    nowhere.port = 1;
    nowhere.furtherNodes = {{u"127.0.0.2"_s, 1}};
    QVERIFY(!OfficeServer::connect(nowhere, nullptr));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY(shown.constFirst().contains(u"127.0.0.1"_s) && shown.constFirst().contains(u"127.0.0.2"_s));
}

static const RegisteredTest<TestOfficeServer, QApplication> registeredOfficeServer;
#include "TestOfficeServer.moc"
