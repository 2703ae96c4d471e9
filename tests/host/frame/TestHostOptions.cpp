// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostOptions.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestHostOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingGivenIsAPrivateServerInTheUsersFolder();
    void officeServer_data();
    void officeServer();
    void nodesOfACluster();
    void allValuesAreTaken();
    void refused_data();
    void refused();
    void passwordNeverStandsOnTheCommandLine();
    void helpAndVersionComeBeforeEveryProblem();
    void helpNamesEveryOptionInBothLanguages();
};

namespace {

HostOptions parse(const QString &line, bool persian = false)
{
    return HostOptions::parse(line.split(u' ', Qt::SkipEmptyParts), persian);
}

}

void TestHostOptions::nothingGivenIsAPrivateServerInTheUsersFolder()
{
    const HostOptions options = parse({});
    QCOMPARE(options.error, QString());
    QVERIFY(options.dataDir.isEmpty());
    QVERIFY(!options.connect);
    QVERIFY(!options.demo);
    QCOMPARE(options.demoSize, 300);
}

void TestHostOptions::officeServer_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("database");
    QTest::newRow("host and database") << "office/books"
                                       << "office" << 3306 << "books";
    QTest::newRow("with a port") << "office:3307/books"
                                 << "office" << 3307 << "books";
    QTest::newRow("four numbers") << "10.0.0.5:3307/books"
                                  << "10.0.0.5" << 3307 << "books";
    QTest::newRow("six in brackets") << "[::1]/books"
                                     << "::1" << 3306 << "books";
    QTest::newRow("six in brackets with a port") << "[fe80::1]:4000/books"
                                                 << "fe80::1" << 4000 << "books";
}

void TestHostOptions::officeServer()
{
    QFETCH(QString, address);
    const HostOptions options = parse(u"--user sara --connect "_s + address);
    QCOMPARE(options.error, QString());
    QVERIFY(options.connect);
    QTEST(options.host, "host");
    QTEST(int(options.port), "port");
    QTEST(options.database, "database");
    QVERIFY(options.furtherNodes.isEmpty());
}

void TestHostOptions::nodesOfACluster()
{
    const HostOptions options = parse(u"--user sara --tls --connect one:3307,10.0.0.2,[fe80::1]:4000,[::1]/books"_s);
    QCOMPARE(options.error, QString());
    QCOMPARE(options.host, u"one"_s);
    QCOMPARE(options.port, quint16(3307));
    QCOMPARE(options.database, u"books"_s);
    QCOMPARE(options.furtherNodes, (QList<KServerAddress>{{u"10.0.0.2"_s, 3306}, {u"fe80::1"_s, 4000}, {u"::1"_s, 3306}}));
}

void TestHostOptions::allValuesAreTaken()
{
    const HostOptions office = parse(u"--connect office/books --user sara --tls --ca /etc/ca.pem --password-file "
                                     "/home/sara/word --data-dir /tmp/a --module-dir /tmp/b"_s);
    QCOMPARE(office.error, QString());
    QCOMPARE(office.user, u"sara"_s);
    QVERIFY(office.tls);
    QCOMPARE(office.caFile, u"/etc/ca.pem"_s);
    QCOMPARE(office.passwordFile, u"/home/sara/word"_s);
    QCOMPARE(office.dataDir, u"/tmp/a"_s);
    QCOMPARE(office.moduleDir, u"/tmp/b"_s);

    QCOMPARE(parse(u"--demo --demo-day 2026-03-21"_s).demoDay, QDate(2026, 3, 21));
    const HostOptions demo = parse(u"--demo --demo-size 10000 --quit-after-login-shown"_s);
    QCOMPARE(demo.error, QString());
    QVERIFY(demo.demo);
    QCOMPARE(demo.demoSize, 10000);
    QVERIFY(demo.quitAfterLoginShown);
}

void TestHostOptions::refused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << "--colour"
                                    << "colour";
    QTest::newRow("loose word") << "office"
                                << "office";
    QTest::newRow("no value") << "--data-dir"
                              << "data-dir";
    QTest::newRow("mending without a check") << "--mend"
                                             << "--check-books";
    QTest::newRow("a check and something else") << "--check-books --list-backups"
                                                << "--list-backups";
    QTest::newRow("a check at an office server without a password") << "--check-books --user sara --connect office/books"
                                                                    << "--password-file";
    QTest::newRow("no database") << "--user sara --connect office"
                                 << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("empty database") << "--user sara --connect office/"
                                    << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("no host") << "--user sara --connect /books"
                             << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("port is no number") << "--user sara --connect office:x/books"
                                       << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("second port is no number") << "--user sara --connect office,second:x/books"
                                              << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("nothing behind the comma") << "--user sara --connect office,/books"
                                              << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("bracket without its end") << "--user sara --connect [::1/books"
                                             << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("word behind the bracket") << "--user sara --connect [::1]x/books"
                                             << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("port 0") << "--user sara --connect office:0/books"
                            << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("port above 65535") << "--user sara --connect office:65536/books"
                                      << "HOST[:PORT][,HOST[:PORT]...]/DATABASE";
    QTest::newRow("office without a user") << "--connect office/books"
                                           << "--user";
    QTest::newRow("user without an office") << "--user sara"
                                            << "--connect";
    QTest::newRow("tls without an office") << "--tls"
                                           << "--connect";
    QTest::newRow("ca without tls") << "--connect office/books --user sara --ca /ca.pem"
                                    << "--tls";
    QTest::newRow("demo on an office server") << "--connect office/books --user sara --demo"
                                              << "--demo";
    QTest::newRow("size without demo") << "--demo-size 5"
                                       << "--demo";
    QTest::newRow("day without demo") << "--demo-day 2026-11-12"
                                      << "--demo";
    QTest::newRow("day that is none") << "--demo --demo-day 2026-13-01"
                                      << "--demo-day";
    QTest::newRow("day to come") << "--demo --demo-day 2999-01-01"
                                 << "has begun";
    QTest::newRow("size 0") << "--demo --demo-size 0"
                            << "1000000";
    QTest::newRow("size is no number") << "--demo --demo-size many"
                                       << "1000000";
    QTest::newRow("size too large") << "--demo --demo-size 1000001"
                                    << "1000000";
}

void TestHostOptions::refused()
{
    QFETCH(QString, line);
    QFETCH(QString, named);
    const QString english = parse(line, false).error;
    QVERIFY2(english.contains(named), qPrintable(english));
}

void TestHostOptions::passwordNeverStandsOnTheCommandLine()
{
    QVERIFY(!parse(u"--connect office/books --user sara --password secret"_s).error.isEmpty());
    QVERIFY(!parse(u"--connect sara:secret@office/books --user sara"_s).error.isEmpty());
}

void TestHostOptions::helpAndVersionComeBeforeEveryProblem()
{
    QVERIFY(parse(u"--help --demo-size 5"_s).help);
    QCOMPARE(parse(u"--help --demo-size 5"_s).error, QString());
    QVERIFY(parse(u"--version"_s).version);
    QVERIFY(HostOptions::versionText(false).contains(u"" TZ_VERSION ""_s));
    QVERIFY(HostOptions::versionText(true).contains(u"نسخه"_s));
}

void TestHostOptions::helpNamesEveryOptionInBothLanguages()
{
    for (const bool persian : {false, true}) {
        const QString help = HostOptions::helpText(persian);
        for (const char *option : {"--data-dir DIR", "--connect HOST[:PORT][,HOST[:PORT]...]/DATABASE", "--user NAME", "--password-file FILE",
                                   "--tls", "--ca FILE", "--demo", "--demo-size N", "--demo-day DAY", "--module-dir DIR", "--help", "--version"})
            QVERIFY2(help.contains(QString::fromLatin1(option)), option);
        QVERIFY(!help.contains(u"quit-after-login-shown"_s));
    }
    QVERIFY(HostOptions::helpText(true).contains(u"کاربرد"_s));
}

static const RegisteredTest<TestHostOptions, QCoreApplication> registeredHostOptions;
#include "TestHostOptions.moc"
