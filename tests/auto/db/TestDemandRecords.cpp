// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilDemandJoins.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/auto/db/ColumnTable.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Demand = CTblAutomobilDemands;
using DemandJoin = CTblAutomobilDemandJoins;

}

class TestDemandRecords : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    static int add(const std::function<void(Demand &)> &set = {})
    {
        Demand demand;
        demand.Open(true, false, true);
        demand.AddNew();
        demand.m_iCode = Demand::nextCode();
        if (set)
            set(demand);
        demand.Update(true);
        return static_cast<int>(demand.GetLastInsertedID());
    }

    // The file and the reminder of a demand, and each one of another kind of record under the same number.
    void addRelatedRecords(int demand)
    {
        m_database.run(u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a'),(69,%1,'b')"_s.arg(demand));
        m_database.run(u"INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a'),(69,%1,'b')"_s.arg(demand));
    }

    QString related(int kind, int demand)
    {
        return m_database.value(u"SELECT (SELECT COUNT(*) FROM FileDocs WHERE iTable=%1 AND iRecordID=%2)"
                                "+(SELECT COUNT(*) FROM Alarms WHERE iTable=%1 AND iRecordID=%2)"_s
                                    .arg(kind)
                                    .arg(demand));
    }

private Q_SLOTS:
    void initTestCase() { prepareModuleTables(m_database); }
    void init()
    {
        for (const char *table : {"AutomobilDemands", "FileDocs", "Alarms", "Items", "Persons"})
            m_database.run(u"DELETE FROM "_s + QLatin1String(table));
    }

    void bindingsStandInOrderWithCaptionsAndLookups()
    {
        Demand demand;
        QCOMPARE(demand.columns().size(), size_t(21));
        QCOMPARE(ColumnTable::bound(demand), ColumnTable::wanted(u"AutomobilDemands_columns.tsv"_s));
        QCOMPARE(demand.GetTableName(), u"AutomobilDemands"_s);
        DemandJoin join;
        QCOMPARE(join.columns().size(), size_t(20));
        QCOMPARE(ColumnTable::bound(join), ColumnTable::wanted(u"AutomobilDemandJoins_columns.tsv"_s));
    }

    void joinedViewReadsItsSourceToTheLetter()
    {
        const ObservedStatements statements({u"SELECT"_s});
        DemandJoin demands;
        demands.m_filter = "ad.iStatus=0 GROUP BY ad.iID";
        demands.Open(true, true, true);
        QCOMPARE(statements.taken().size(), 1);
        const QString statement = statements.taken().first();
        QVERIFY(statement.startsWith(u"SELECT ad.iID,ad.iCode,ad.iPersonID,"_s));
        QVERIFY(statement.contains(u" FROM AutomobilDemands ad INNER JOIN Persons p ON ad.iPersonID=p.iID LEFT OUTER JOIN Items it ON"
                                   " (ad.iAutomobilType=it.iID OR ad.iColor=it.iID) WHERE "_s));
        QVERIFY(statement.endsWith(u" WHERE ad.iStatus=0 GROUP BY ad.iID"_s));
    }

    void reminderIsNotPartOfTheJoinedView()
    {
        DemandJoin join;
        QVERIFY(!join.column(u"ad.iAlarmID"));
    }

    void constructionSetsZeroEmptyAndNoDate()
    {
        Demand demand;
        for (const KMySQL::Column &column : demand.columns()) {
            const QVariant value = demand.value(column.name);
            QVERIFY2(column.kind == KMySQL::ColumnKind::Date       ? !value.toDateTime().isValid()
                         : column.kind == KMySQL::ColumnKind::Text ? value.toString().isEmpty()
                                                                   : value.toDouble() == 0,
                     qPrintable(column.name));
        }
        const int before = Demand::liveCount();
        {
            const Demand another;
            QCOMPARE(Demand::liveCount(), before + 1);
        }
        QCOMPARE(Demand::liveCount(), before);
    }

    void everyColumnComesBackAsItWasWritten()
    {
        const QDateTime moment(QDate(2026, 3, 21), QTime(10, 20, 30), Qt::UTC);
        Demand demand;
        demand.Open(true, false, true);
        demand.AddNew();
        QHash<QString, QVariant> written;
        int number = 10;
        for (const KMySQL::Column &column : demand.columns()) {
            if (column.name == u"iID"_s)
                continue;
            ++number;
            const QVariant value = column.kind == KMySQL::ColumnKind::Date ? QVariant(moment.addDays(number))
                : column.kind == KMySQL::ColumnKind::Text                  ? QVariant(u"م%1"_s.arg(number))
                : column.kind == KMySQL::ColumnKind::Double                ? QVariant(number + 0.5)
                                                                           : QVariant(number);
            demand.setValue(column.name, value);
            written.insert(column.name, value);
        }
        demand.Update(true);
        Demand again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(demand.GetLastInsertedID())));
        for (auto it = written.cbegin(); it != written.cend(); ++it)
            QVERIFY2(again.value(it.key()) == it.value(), qPrintable(it.key()));
    }

    void nextCodeIsOneMoreThanTheHighestAndOneInAnEmptyTable()
    {
        const ObservedStatements statements({u"SELECT"_s});
        QCOMPARE(Demand::nextCode(), 1);
        QCOMPARE(statements.taken().size(), 1); // with what an import has reserved
        QVERIFY(statements.taken().constFirst().startsWith(u"SELECT MAX(iCode) FROM AutomobilDemands UNION ALL SELECT sValue FROM Properties "_s));
        add([](Demand &demand) { demand.m_iCode = 40; });
        add([](Demand &demand) { demand.m_iCode = 12; });
        QCOMPARE(Demand::nextCode(), 41);
    }

    void archivingAndTakingBackGoByTheCodeNotTheKey()
    {
        const int first = add([](Demand &demand) { demand.m_iCode = 5; });
        const int second = add([first](Demand &demand) { demand.m_iCode = first; });
        const ObservedStatements statements({u"UPDATE"_s});
        Demand::archive(first, 3);
        const QString archived = u"SELECT GROUP_CONCAT(iID) FROM AutomobilDemands WHERE iArchiveUserID=3"
                                 " AND dateArchive IS NOT NULL"_s;
        QCOMPARE(m_database.value(archived), QString::number(second));
        Demand::unarchive(first);
        QCOMPARE(m_database.value(archived), QString());
        QCOMPARE(statements.taken(),
                 (QStringList{
                     u"UPDATE AutomobilDemands SET iArchiveUserID=3, dateArchive=NOW() WHERE iCode=%1"_s.arg(first),
                     u"UPDATE AutomobilDemands SET iArchiveUserID=0, dateArchive=NOW() WHERE iCode=%1"_s.arg(first)}));
    }

    void reminderIsSetByTheKey()
    {
        const int key = add();
        add();
        Demand::setAlarm(key, 9);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iID) FROM AutomobilDemands WHERE iAlarmID=9"_s),
                 QString::number(key));
    }

    void deletingADemandRemovesItsFilesAndRemindersWithIt()
    {
        const int key = add();
        const int other = add();
        addRelatedRecords(key);
        addRelatedRecords(other);
        Demand demand;
        QVERIFY(demand.IsRecordExist(u"iID"_s, key));
        QVERIFY(demand.Delete());
        QCOMPARE(related(70, key), u"0"_s);
        QCOMPARE(related(70, other), u"2"_s);
        // Rows under the same number that belong to a contract stay.
        QCOMPARE(related(69, key), u"2"_s);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iID) FROM AutomobilDemands"_s), QString::number(other));
    }

    void failedDeletionOfTheRemindersKeepsAll()
    {
        const int key = add();
        addRelatedRecords(key);
        Demand demand;
        QVERIFY(demand.IsRecordExist(u"iID"_s, key));
        m_database.run(u"RENAME TABLE Alarms TO AlarmsAway"_s);
        bool failed = false;
        try {
            demand.Delete();
        } catch (const CMySQLException &) {
            failed = true;
        }
        m_database.run(u"RENAME TABLE AlarmsAway TO Alarms"_s);
        QVERIFY(failed);
        QCOMPARE(related(70, key), u"2"_s);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"1"_s);
    }
};

static const RegisteredTest<TestDemandRecords, QCoreApplication> registeredDemandRecords;
#include "TestDemandRecords.moc"
