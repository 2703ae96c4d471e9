// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandArchiving.h"

#include "auto/settings/ContractSettings.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/Placeholders.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int user = 3;

void keepDays(bool on, int days)
{
    KSecurity::setUser(1, true);
    ContractSettings settings = ContractSettings::load();
    settings.archiveDemands = on;
    settings.demandDays = days;
    settings.save();
}

}

class TestDemandArchiving : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    // created: an expression of the server.
    void addDemand(const QString &created, int status = 0, int archivedBy = 0)
    {
        m_database.run(u"INSERT INTO AutomobilDemands (iCode,iPersonID,dateCreate,iStatus,iArchiveUserID)"
                       " VALUES (1,1,%1,%2,%3)"_s
                           .arg(created)
                           .arg(status)
                           .arg(archivedBy));
    }

    QString archived()
    {
        return m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands WHERE iArchiveUserID=%1"
                                " AND DATE(dateArchive)=CURDATE()"_s
                                    .arg(user));
    }

private Q_SLOTS:
    void initTestCase() { prepareModuleTables(m_database); }
    void init()
    {
        m_database.run(u"DELETE FROM AutomobilDemands"_s);
        keepDays(true, 30);
    }

    void demandsOfTheExactDayStayAndOlderOnesGo_data()
    {
        QTest::addColumn<QString>("created");
        QTest::addColumn<bool>("goes");
        const auto row = [](const char *name, const char *created, bool goes) {
            QTest::newRow(name) << QString::fromLatin1(created) << goes;
        };
        row("today", "NOW()", false);
        row("the exact day, at its beginning", "CURDATE() - INTERVAL 30 DAY", false);
        row("the exact day, at its end", "CURDATE() - INTERVAL 30 DAY + INTERVAL '23:59:59' HOUR_SECOND", false);
        row("a day more, at its end", "CURDATE() - INTERVAL 31 DAY + INTERVAL '23:59:59' HOUR_SECOND", true);
        row("a day more, at its beginning", "CURDATE() - INTERVAL 31 DAY", true);
        row("years ago", "'2019-03-21 10:00:00'", true);
        row("not known when", "NULL", false);
        row("a day that is still to come", "CURDATE() + INTERVAL 40 DAY", false);
    }

    void demandsOfTheExactDayStayAndOlderOnesGo()
    {
        QFETCH(QString, created);
        QFETCH(bool, goes);
        addDemand(created);
        QCOMPARE(DemandArchiving::archiveOldOnes(user), goes ? 1 : 0);
        QCOMPARE(archived(), goes ? u"1"_s : u"0"_s);
    }

    void inactiveAndArchivedDemandsAreLeftAsTheyAre()
    {
        const QString old = u"'2019-03-21'"_s;
        addDemand(old, 1);
        addDemand(old, 0, 8);
        addDemand(old);
        QCOMPARE(DemandArchiving::archiveOldOnes(user), 1);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iArchiveUserID,dateArchive IS NULL ORDER BY iID) FROM AutomobilDemands"_s),
                 u"01,81,30"_s);
    }

    void onlyWhereTheOfficeHasSetItWithDaysAboveZero_data()
    {
        QTest::addColumn<bool>("on");
        QTest::addColumn<int>("days");
        QTest::addColumn<bool>("goes");
        QTest::newRow("set") << true << 30 << true;
        QTest::newRow("set with one day") << true << 1 << true;
        QTest::newRow("not set") << false << 30 << false;
        QTest::newRow("set with no days") << true << 0 << false;
        QTest::newRow("set with days below zero") << true << -5 << false;
        QTest::newRow("set with more days than the calendar has") << true << 2147483647 << false;
    }

    void onlyWhereTheOfficeHasSetItWithDaysAboveZero()
    {
        QFETCH(bool, on);
        QFETCH(int, days);
        QFETCH(bool, goes);
        keepDays(on, days);
        addDemand(u"'2019-03-21'"_s);
        QCOMPARE(DemandArchiving::archiveOldOnes(user) == 1, goes);
        QCOMPARE(archived() == u"1"_s, goes);
    }

    void demandOfAnOpenEditorIsNotArchived()
    {
        addDemand(u"'2019-03-21'"_s);
        Placeholders::add({u"AutomobilDemands"_s, m_database.value(u"SELECT iID FROM AutomobilDemands"_s).toInt()}, u"another desk"_s);
        QCOMPARE(DemandArchiving::archiveOldOnes(user), 0);
        m_database.run(u"DELETE FROM Placeholders"_s);
        QCOMPARE(DemandArchiving::archiveOldOnes(user), 1);
    }

    void anyNumberOfDemandsIsOneStatement()
    {
        for (int i = 0; i < 5; ++i)
            addDemand(u"'2019-03-21'"_s);
        const ObservedStatements statements({u"UPDATE"_s});
        QCOMPARE(DemandArchiving::archiveOldOnes(user), 5);
        QCOMPARE(statements.taken().size(), 1);
        QCOMPARE(archived(), u"5"_s);
    }
};

static const RegisteredTest<TestDemandArchiving, QCoreApplication> registeredDemandArchiving;
#include "TestDemandArchiving.moc"
