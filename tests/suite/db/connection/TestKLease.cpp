// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/DBPlatform.h"
#include "suite/db/connection/KLease.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <atomic>
#include <future>
#include <thread>

using namespace Qt::StringLiterals;

class TestKLease : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    const QString m_name = u"upgrade"_s;

    // A program of its own that takes the lease.
    struct Program
    {
        QProcess process;

        QByteArray take(const KConnectionSettings &settings, const QString &name)
        {
            process.start(QCoreApplication::applicationDirPath() + u"/tzleaseholder"_s, {});
            for (const QString &line : {settings.socketPath, settings.user, settings.password, settings.database, name})
                process.write(line.toUtf8() + '\n');
            while (!process.canReadLine() && process.waitForReadyRead(30000)) {
            }
            return process.readLine().trimmed();
        }
        ~Program()
        {
            process.kill();
            process.waitForFinished();
        }
    };

    static void signalTo(qint64 process, const QString &signal)
    {
        QCOMPARE(QProcess::execute(u"kill"_s, {u"-"_s + signal, QString::number(process)}), 0);
        // A process halts a moment later.
        const bool halts = signal == u"STOP"_s;
        QTRY_COMPARE(stateOf(process).startsWith("T"), halts);
    }

    static QByteArray stateOf(qint64 process)
    {
        QFile status(u"/proc/%1/stat"_s.arg(process));
        return status.open(QIODevice::ReadOnly) ? status.readAll().split(')').constLast().trimmed() : QByteArray();
    }

    // As a program left it that renewed it so many seconds ago.
    void writeRow(const QString &holder, int secondsAgo)
    {
        m_database.run(u"REPLACE INTO Leases(sName,sHolder,sText,dateTaken,dateSeen) VALUES('%1','%2','دیگری',"
                       "UTC_TIMESTAMP()-INTERVAL %3 SECOND,UTC_TIMESTAMP()-INTERVAL %3 SECOND)"_s.arg(m_name, holder)
                           .arg(secondsAgo));
    }

    int rows() { return m_database.value(u"SELECT COUNT(*) FROM Leases"_s).toInt(); }
    QString writtenHolder() { return m_database.value(u"SELECT sHolder FROM Leases"_s); }

    // This process's name with one of its parts replaced: 0 the start of the system, 1 the container, 2 the number, 3 its start.
    static QString likeThisProcess(int part, const QString &value)
    {
        QStringList parts = DBPlatform::thisProcess().split(u'/');
        parts[part] = value;
        return parts.join(u'/') + u"/x"_s;
    }

private Q_SLOTS:
    void init()
    {
        m_database.recreate();
        KLease::createTable();
    }

    void tableIsMadeOnceAndKeepsItsRows()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s);
        KLease::createTable();
        QCOMPARE(rows(), 1);
    }

    void withoutTheTableNobodyHoldsAnything()
    {
        m_database.run(u"DROP TABLE Leases"_s);
        QVERIFY(!KLease::holder(m_name));
        QVERIFY(!KLease::isAlive(m_name));
    }

    void oneTakesItAndGivesItBack()
    {
        QVERIFY(!KLease::holder(m_name));
        std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"حسابدار"_s);
        QVERIFY(lease);
        QVERIFY(lease->isHeld());
        QVERIFY(lease->confirm());
        QVERIFY(KLease::isAlive(m_name));
        QVERIFY(!KLease::isAlive(u"Upgrade"_s));
        lease.reset();
        QCOMPARE(rows(), 0);
        QVERIFY(KLease::tryTake(m_name, u"باز"_s));
    }

    void holderIsNamedToTheOthers()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"علی 🙂"_s);
        const std::optional<KLease::Holder> holder = KLease::holder(m_name);
        QVERIFY(holder);
        QCOMPARE(holder->text, u"علی 🙂"_s);
        QVERIFY(holder->alive);
        QCOMPARE(holder->since.timeSpec(), Qt::UTC);
        QCOMPARE(holder->since.toString(u"yyyy-MM-dd HH:mm:ss"_s), m_database.value(u"SELECT dateTaken FROM Leases"_s));
    }

    void longTextIsCut()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, QString(300, u'ا'));
        QCOMPARE(KLease::holder(m_name)->text.size(), 200);
    }

    void sameProgramDoesNotTakeItTwice()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"اول"_s);
        QVERIFY(!KLease::tryTake(m_name, u"دوم"_s));
        QVERIFY(KLease::tryTake(u"other"_s, u"دوم"_s));
    }

    void killedHolderIsDeadAtOnce()
    {
        Program other;
        QCOMPARE(other.take(m_database.settings(), m_name), "taken");
        QVERIFY(KLease::isAlive(m_name));
        QVERIFY(!KLease::tryTake(m_name, u"من"_s));
        other.process.kill();
        QVERIFY(other.process.waitForFinished());
        QVERIFY(!KLease::isAlive(m_name));
        QCOMPARE(KLease::holder(m_name)->text, u"holder"_s);
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s);
        QVERIFY(lease);
        QCOMPARE(KLease::holder(m_name)->text, u"من"_s);
        Program third;
        QCOMPARE(third.take(m_database.settings(), m_name), "refused");
    }

    void holderThatEndsGivesItBack()
    {
        Program other;
        QCOMPARE(other.take(m_database.settings(), m_name), "taken");
        other.process.closeWriteChannel();
        QVERIFY(other.process.waitForFinished());
        QCOMPARE(rows(), 0);
    }

    // However long it has not renewed.
    void haltedHolderStaysAlive()
    {
        Program other;
        QCOMPARE(other.take(m_database.settings(), m_name), "taken");
        signalTo(other.process.processId(), u"STOP"_s);
        m_database.run(u"UPDATE Leases SET dateSeen=dateSeen-INTERVAL 1 HOUR"_s);
        QVERIFY(KLease::isAlive(m_name));
        QVERIFY(!KLease::tryTake(m_name, u"من"_s));
        signalTo(other.process.processId(), u"CONT"_s);
    }

    void holderElsewhereIsJudgedByItsRenewals_data()
    {
        QTest::addColumn<QString>("holder");
        QTest::addColumn<int>("secondsAgo");
        QTest::addColumn<bool>("alive");
        const QString container = likeThisProcess(1, u"7"_s);
        QTest::newRow("another container, a moment ago") << container << 1 << true;
        QTest::newRow("another container, nearly a minute") << container << 50 << true;
        QTest::newRow("another container, over a minute") << container << 61 << false;
        QTest::newRow("a name of another kind, a moment ago") << u"whoever/1"_s << 1 << true;
        QTest::newRow("a name of another kind, over a minute") << u"whoever/1"_s << 61 << false;
        // The tests reach their server over a local socket.
        QTest::newRow("this computer before it was started anew") << likeThisProcess(0, u"0f0f"_s) << 1 << false;
        QTest::newRow("the number of a program that ended, used anew") << likeThisProcess(3, u"1"_s) << 1 << false;
        QTest::newRow("a lease that this process has dropped") << DBPlatform::thisProcess() + u"/x"_s << 1 << false;
    }

    void holderElsewhereIsJudgedByItsRenewals()
    {
        QFETCH(QString, holder);
        QFETCH(int, secondsAgo);
        QFETCH(bool, alive);
        writeRow(holder, secondsAgo);
        QCOMPARE(KLease::isAlive(m_name), alive);
        QCOMPARE(KLease::tryTake(m_name, u"من"_s) != nullptr, !alive);
        QCOMPARE(rows(), alive ? 1 : 0);
    }

    void earlierStartMayBeAnotherComputersOverTheNetwork()
    {
        const QString process = likeThisProcess(0, u"0f0f"_s).section(u'/', 0, -2);
        QCOMPARE(DBPlatform::lifeOf(process, false), DBPlatform::Life::Elsewhere);
        QCOMPARE(DBPlatform::lifeOf(process, true), DBPlatform::Life::Dead);
        QCOMPARE(DBPlatform::lifeOf(DBPlatform::thisProcess(), false), DBPlatform::Life::Alive);
    }

    void leaseThatWasTakenOverIsLost()
    {
        std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s);
        writeRow(u"whoever/1"_s, 0);
        QVERIFY(!lease->confirm());
        QVERIFY(!lease->isHeld());
        QVERIFY(!lease->confirm());
        lease.reset();
        QCOMPARE(writtenHolder(), u"whoever/1"_s);
    }

    // As after a backup was loaded.
    void rowThatIsGoneIsWrittenAgain()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s);
        const QString before = writtenHolder();
        m_database.run(u"DELETE FROM Leases"_s);
        QVERIFY(lease->confirm());
        QVERIFY(lease->isHeld());
        QCOMPARE(writtenHolder(), before);
    }

    void renewalMovesTheTimeForward()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s);
        m_database.run(u"UPDATE Leases SET dateSeen=dateSeen-INTERVAL 1 HOUR"_s);
        QVERIFY(lease->confirm());
        QVERIFY(m_database.value(u"SELECT TIMESTAMPDIFF(SECOND,dateSeen,UTC_TIMESTAMP()) FROM Leases"_s).toInt() < 60);
    }

    void ofManyThatFindTheHolderDeadOneTakesIt()
    {
        for (int round = 0; round < 5; ++round) {
            writeRow(u"whoever/1"_s, 600);
            constexpr int many = 8;
            std::atomic<int> ready{0};
            std::vector<std::unique_ptr<KLease>> leases(many);
            std::vector<std::thread> threads;
            for (int number = 0; number < many; ++number) {
                threads.emplace_back([&, number] {
                    ++ready;
                    while (ready < many)
                        std::this_thread::yield();
                    leases[number] = KLease::tryTake(m_name, QString::number(number));
                });
            }
            for (std::thread &thread : threads)
                thread.join();
            QCOMPARE(std::count_if(leases.begin(), leases.end(), [](const auto &lease) { return lease != nullptr; }), 1);
        }
        QCOMPARE(rows(), 0);
    }

    // Pages are read anew after a change of data; a lease is none.
    void leaseIsNoChangeOfDataAndNotObserved()
    {
        const std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s);
        const quint64 before = KConnection::changes();
        const ObservedStatements observed({u"UPDATE"_s, u"INSERT"_s, u"SELECT"_s});
        QVERIFY(lease->confirm());
        QVERIFY(KLease::isAlive(m_name));
        QCOMPARE(KConnection::changes(), before);
        QCOMPARE(observed.taken(), QStringList());
    }

    void databaseOutOfReachIsAnError()
    {
        KConnectionSettings nowhere = m_database.settings();
        nowhere.socketPath += u".gone"_s;
        KConnection::configure(7, nowhere);
        QVERIFY_THROWS_EXCEPTION(CMySQLException, KLease::tryTake(m_name, u"من"_s, 7));
        QVERIFY_THROWS_EXCEPTION(CMySQLException, KLease::tryTake(m_name, u"من"_s, 8));
        QVERIFY_THROWS_EXCEPTION(CMySQLException, KLease::isAlive(m_name, 7));
    }

    void silentServerDoesNotKeepTheProgram()
    {
        PrivateTestServer own;
        KConnection::configure(3, own.server().connectionSettings());
        KLease::createTable(3);
        std::unique_ptr<KLease> lease = KLease::tryTake(m_name, u"من"_s, 3);
        QVERIFY(lease);
        signalTo(own.server().processId(), u"STOP"_s);
        std::future<bool> ended = std::async(std::launch::async, [&lease] {
            const bool confirmed = lease->confirm();
            lease.reset();
            return confirmed;
        });
        const bool returned = ended.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
        signalTo(own.server().processId(), u"CONT"_s);
        QVERIFY(returned);
        QVERIFY(!ended.get());
        // It was not forgotten, though.
        QTRY_VERIFY_WITH_TIMEOUT(!KLease::holder(m_name, 3), 20000);
        KConnection::closeThreadConnections();
    }
};

static const RegisteredTest<TestKLease, QCoreApplication> registeredKLease;
#include "TestKLease.moc"
