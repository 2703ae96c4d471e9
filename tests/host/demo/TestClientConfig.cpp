// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/ClientConfig.h"

#include "host/server/ServerConfig.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestClientConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatADataFolderWritesIsReadBack_data();
    void whatADataFolderWritesIsReadBack();
    void onlyTheGroupsOfClientsCount();
    void missingFileIsTold();
};

void TestClientConfig::whatADataFolderWritesIsReadBack_data()
{
    QTest::addColumn<QString>("password");
    QTest::newRow("plain") << "abcDEF-_123";
    QTest::newRow("quote and backslash") << "a\"b\\c\\";
    QTest::newRow("sign of a comment") << "#a=b;c";
    QTest::newRow("blanks") << " a b ";
    QTest::newRow("Persian") << "راز";
}

void TestClientConfig::whatADataFolderWritesIsReadBack()
{
    QFETCH(QString, password);
    KConnectionSettings settings;
    settings.user = u"tzauto"_s;
    settings.password = password;
    settings.socketPath = u"/run/user/0/tz \"a\"/s.sock"_s;
    const KConnectionSettings read = ClientConfig::parse("# words\n" + ServerConfig::clientOptions(settings)
                                                         + "[mysql]\ndatabase=" + ServerConfig::quoted(u"books"_s) + '\n');
    QCOMPARE(read.user, settings.user);
    QCOMPARE(read.password, password);
    QCOMPARE(read.socketPath, settings.socketPath);
    QCOMPARE(read.database, u"books"_s);
    QVERIFY(read.host.isEmpty());
}

void TestClientConfig::onlyTheGroupsOfClientsCount()
{
    const KConnectionSettings read =
        ClientConfig::parse("[mysqld]\nuser=server\nport=1\n[client]\nhost=office\nport=3307\n[other]\nhost=elsewhere\n");
    QCOMPARE(read.host, u"office"_s);
    QCOMPARE(read.port, 3307u);
    QVERIFY(read.user.isEmpty());
}

void TestClientConfig::missingFileIsTold()
{
    QVERIFY(!ClientConfig::read(u"/nowhere/client.cnf"_s));
}

static const RegisteredTest<TestClientConfig, QCoreApplication> registeredClientConfig;
#include "TestClientConfig.moc"
