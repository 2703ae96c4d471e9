// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"
#include "host/start/DatabaseUpgrade.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/db/connection/KLease.h"
#include "tests/host/start/OldOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/StatementProxy.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

// An upgrade that was killed, at whatever statement, and several at once. The connection is broken after a statement instead of the
// program: to the server that is the same, and every statement can be tried. Programs that are really killed follow.
class TestUpgradeBrokenOff : public QObject
{
    Q_OBJECT

    TestDatabase::Alone m_alone; // a backup holds all writers of a server
    TestDatabase m_database;
    OldOffice m_office{m_database};
    QTemporaryDir m_dumps;
    QStringList m_newShape;

    // A whole start. False: it was told that the upgrade failed.
    bool upgradeAll()
    {
        DatabaseUpgrade upgrade(m_dumps.path(), [](const QString &) {});
        upgrade.upgradeSuite();
        return upgrade.upgradeModule(*GetAutoDBSetting());
    }

    // The start of a program whose connection breaks after that many changing statements; 0: it does not break.
    QStringList statementsOfAStart(int breakAfter)
    {
        StatementProxy proxy(m_database.settings().socketPath);
        proxy.breakAfter(breakAfter);
        KConnectionSettings settings = m_database.settings();
        settings.socketPath = proxy.socketPath();
        KConnection::configure(0, settings);
        try {
            static_cast<void>(upgradeAll());
        } catch (const std::exception &) {
            // The next start is what matters.
        }
        KConnection::configure(0, m_database.settings());
        g_pDlgWarning->takeShown();
        return proxy.statements();
    }

    void finishesByItself()
    {
        QVERIFY(upgradeAll());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QCOMPARE(SuiteSchema::storedVersion(), SuiteSchema::currentVersion());
        QCOMPARE(SuiteSchema::moduleVersion(), 6.211);
        QCOMPARE(m_database.value(u"SELECT sValue FROM Properties WHERE sKey='TzAutoUnfinished'"_s).toInt(), 0);
        QCOMPARE(m_office.shape(), m_newShape);
        QVERIFY(!KLease::isAlive(u"upgrade"_s));
    }

    // Every statement is tried where the environment asks for it (the label faults), else each fifth one.
    static int stride() { return qEnvironmentVariableIsSet("TZ_EVERY_POINT") ? 1 : 5; }

    static constexpr double versions[] = {0, 4.22, 4.659, 4.673, 5.097, 5.104};

    struct Program
    {
        QProcess process;

        void prepare(const KConnectionSettings &settings, const QString &dumps)
        {
            process.setProcessChannelMode(QProcess::SeparateChannels);
            process.start(QCoreApplication::applicationDirPath() + u"/tzupgrader"_s, {});
            for (const QString &line : {settings.socketPath, settings.user, settings.password, settings.database, dumps})
                process.write(line.toUtf8() + '\n');
            QVERIFY2(waitFor("ready"), process.readAllStandardError().constData());
        }
        bool waitFor(const QByteArray &word)
        {
            for (;;) {
                while (process.canReadLine()) {
                    if (process.readLine().trimmed() == word)
                        return true;
                }
                if (!process.waitForReadyRead(30000))
                    return process.canReadLine() && process.readLine().trimmed() == word;
            }
        }
        void go()
        {
            process.write("go\n");
            process.waitForBytesWritten();
        }
        ~Program()
        {
            process.kill();
            process.waitForFinished();
        }
    };

private Q_SLOTS:
    void initTestCase()
    {
        g_pDlgWarning->answerAll(true);
        m_database.recreate();
        QVERIFY(upgradeAll());
        m_newShape = m_office.shape();
    }

    void cleanupTestCase() { g_pDlgWarning->answerAll(false); }

    void cleanup()
    {
        for (const QFileInfo &dump : QDir(m_dumps.path()).entryInfoList(QDir::Files))
            QFile::remove(dump.filePath());
    }

    void firstStartBrokenOffAnywhereIsFinished_data()
    {
        QTest::addColumn<int>("statement");
        m_database.recreate();
        const QStringList statements = statementsOfAStart(0);
        QVERIFY(statements.size() > 60);
        for (int number = 1; number <= statements.size(); number += stride())
            QTest::addRow("%d: %s", number, qPrintable(statements[number - 1].left(60))) << number;
    }

    void firstStartBrokenOffAnywhereIsFinished()
    {
        QFETCH(int, statement);
        m_database.recreate();
        QCOMPARE(statementsOfAStart(statement).size(), statement);
        finishesByItself();
    }

    void upgradeOfAnOfficeBrokenOffAnywhereLosesNoRow_data()
    {
        QTest::addColumn<double>("version");
        QTest::addColumn<int>("statement");
        for (const double version : versions) {
            m_office.make(version);
            const QStringList statements = statementsOfAStart(0);
            // The steps after the first due one are those of the next version's rows.
            const auto isStored = [](const QString &statement) { return statement.contains(u"'TzAuto',"_s); };
            const auto end = version > 0 ? std::find_if(statements.cbegin() + 3, statements.cend(), isStored) : statements.cend();
            const auto last = std::min(end - statements.cbegin() + 1, statements.size());
            for (int number = 1; number <= last; number += stride())
                QTest::addRow("%.3f, %d: %s", version, number, qPrintable(statements[number - 1].left(60))) << version << number;
        }
    }

    void upgradeOfAnOfficeBrokenOffAnywhereLosesNoRow()
    {
        QFETCH(double, version);
        QFETCH(int, statement);
        m_office.make(version);
        const auto atFirst = m_office.rows();
        QCOMPARE(statementsOfAStart(statement).size(), statement);
        // The server leaves a table out of its lists while it ends what was going on there.
        for (auto table = atFirst.begin(); table != atFirst.end(); ++table)
            QTRY_COMPARE(m_office.rows().value(table.key()), table.value());
        // Somebody worked with the tables that were there already.
        m_office.addRows();
        const auto before = m_office.rows();
        finishesByItself();
        const auto after = m_office.rows();
        for (auto table = before.begin(); table != before.end(); ++table)
            QCOMPARE(after.value(table.key()), table.value());
    }

    void suiteStepsBrokenOffAnywhereLoseNoRow_data()
    {
        QTest::addColumn<int>("statement");
        makeWithSuiteBehind();
        const QStringList statements = statementsOfAStart(0);
        QVERIFY(statements.size() > 30);
        for (int number = 1; number <= statements.size(); number += stride())
            QTest::addRow("%d: %s", number, qPrintable(statements[number - 1].left(60))) << number;
    }

    void suiteStepsBrokenOffAnywhereLoseNoRow()
    {
        QFETCH(int, statement);
        makeWithSuiteBehind();
        const auto before = m_office.rows();
        QCOMPARE(statementsOfAStart(statement).size(), statement);
        finishesByItself();
        const auto after = m_office.rows();
        for (auto table = before.begin(); table != before.end(); ++table)
            QCOMPARE(after.value(table.key()), table.value());
    }

    // As earlier programs could leave it, when two of them started at once. The first start may find columns that it did not expect,
    // and says so; the second one passes over them.
    void versionBehindItsTablesLosesNoRow_data()
    {
        QTest::addColumn<double>("version");
        for (const double version : versions)
            QTest::addRow("%.3f", version) << version;
    }

    void versionBehindItsTablesLosesNoRow()
    {
        QFETCH(double, version);
        m_office.make(6.211);
        CTblProperties::DBWriteSetting(u"Schema"_s, u"TzAuto"_s, version);
        const auto before = m_office.rows();
        static_cast<void>(upgradeAll());
        g_pDlgWarning->takeShown();
        QCOMPARE(m_office.rows(), before);
        finishesByItself();
        QCOMPARE(m_office.rows(), before);
    }

    void programsThatStartAtOnceDoNotDisturbEachOther_data()
    {
        QTest::addColumn<double>("version");
        for (int round = 1; round <= 3; ++round)
            QTest::addRow("first start, round %d", round) << -1.0;
        QTest::newRow("office of 4.22") << 4.22;
        QTest::newRow("office of 4.673") << 4.673;
    }

    void programsThatStartAtOnceDoNotDisturbEachOther()
    {
        QFETCH(double, version);
        if (version < 0)
            m_database.recreate();
        else
            m_office.make(version);
        const auto before = m_office.rows();
        Program programs[3];
        for (Program &program : programs)
            program.prepare(m_database.settings(), m_dumps.path());
        for (Program &program : programs)
            program.go();
        for (Program &program : programs)
            QVERIFY2(program.waitFor("done"), program.process.readAllStandardError().constData());
        finishesByItself();
        const auto after = m_office.rows();
        for (auto table = before.begin(); table != before.end(); ++table)
            QCOMPARE(after.value(table.key()), table.value());
        QCOMPARE(QDir(m_dumps.path()).entryList({u"*.sql.zst"_s}).size(), version < 0 ? 0 : 1);
    }

    void killedProgramIsFollowedByTheOneThatWaits_data()
    {
        QTest::addColumn<QString>("killedAt");
        QTest::newRow("at the alteration of the cars") << u"ALTER TABLE AutomobilInformations ADD COLUMN iMonth"_s;
        QTest::newRow("between dropping and creating") << u"DROP TABLE IF EXISTS CarModels"_s;
        QTest::newRow("in the last step") << u"ALTER TABLE AutomobilDemands"_s;
    }

    void killedProgramIsFollowedByTheOneThatWaits()
    {
        QFETCH(QString, killedAt);
        m_office.make(4.673);
        const QStringList statements = statementsOfAStart(0);
        int number = 0;
        while (number < statements.size() && !statements[number].startsWith(killedAt))
            ++number;
        QVERIFY(number < statements.size());
        m_office.make(4.673);
        const auto before = m_office.rows();

        StatementProxy proxy(m_database.settings().socketPath);
        KConnectionSettings settings = m_database.settings();
        settings.socketPath = proxy.socketPath();
        Program first;
        Program second;
        first.prepare(settings, m_dumps.path());
        second.prepare(m_database.settings(), m_dumps.path());
        const qint64 victim = first.process.processId();
        // It is halted there until the other one waits for it, and then killed.
        proxy.breakAfter(number + 1, [&] {
            QProcess::execute(u"kill"_s, {u"-STOP"_s, QString::number(victim)});
            m_reached.release();
        });
        first.go();
        QVERIFY(m_reached.tryAcquire(1, 30000));
        second.go();
        QVERIFY(second.waitFor("waiting"));
        QVERIFY(KLease::isAlive(u"upgrade"_s));
        first.process.kill();
        QVERIFY2(second.waitFor("done"), second.process.readAllStandardError().constData());
        finishesByItself();
        const auto after = m_office.rows();
        for (auto table = before.begin(); table != before.end(); ++table)
            QCOMPARE(after.value(table.key()), table.value());
    }

private:
    void makeWithSuiteBehind()
    {
        m_office.make(6.211);
        m_database.run(u"UPDATE Properties SET sValue='0' WHERE sSection='Schema' AND sKey='Suite'"_s);
    }

    QSemaphore m_reached;
};

static const RegisteredTest<TestUpgradeBrokenOff, QApplication> registeredUpgradeBrokenOff;
#include "TestUpgradeBrokenOff.moc"
