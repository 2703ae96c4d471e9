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

namespace {

using Demand = CTblAutomobilDemands;
using DemandJoin = CTblAutomobilDemandJoins;

QString tablePath(const char *file)
{
    return QStringLiteral(TZ_TEST_SOURCE "/") + QString::fromLatin1(file);
}

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
        m_database.run(QStringLiteral("INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a'),(69,%1,'b')").arg(demand));
        m_database.run(QStringLiteral("INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a'),(69,%1,'b')").arg(demand));
    }

    QString related(int kind, int demand)
    {
        return m_database.value(QStringLiteral("SELECT (SELECT COUNT(*) FROM FileDocs WHERE iTable=%1 AND iRecordID=%2)"
                                               "+(SELECT COUNT(*) FROM Alarms WHERE iTable=%1 AND iRecordID=%2)")
                                    .arg(kind)
                                    .arg(demand));
    }

private Q_SLOTS:
    void initTestCase() { prepareModuleTables(m_database); }
    void init()
    {
        for (const char *table : {"AutomobilDemands", "FileDocs", "Alarms", "Items", "Persons"})
            m_database.run(QStringLiteral("DELETE FROM ") + QLatin1String(table));
    }

    void bindingsStandInOrderWithCaptionsAndLookups()
    {
        Demand demand;
        QCOMPARE(demand.columns().size(), size_t(21));
        QCOMPARE(ColumnTable::bound(demand), ColumnTable::wanted(tablePath("AutomobilDemands_columns.tsv")));
        QCOMPARE(demand.GetTableName(), QStringLiteral("AutomobilDemands"));
        DemandJoin join;
        QCOMPARE(join.columns().size(), size_t(20));
        QCOMPARE(ColumnTable::bound(join), ColumnTable::wanted(tablePath("AutomobilDemandJoins_columns.tsv")));
    }

    void joinedViewReadsItsSourceToTheLetter()
    {
        const ObservedStatements statements({QStringLiteral("SELECT")});
        DemandJoin demands;
        demands.m_filter = QStringLiteral("ad.iStatus=0 GROUP BY ad.iID");
        demands.Open(true, true, true);
        QCOMPARE(statements.taken().size(), 1);
        const QString statement = statements.taken().first();
        QVERIFY(statement.startsWith(QStringLiteral("SELECT ad.iID,ad.iCode,ad.iPersonID,")));
        QVERIFY(statement.contains(QStringLiteral(
            " FROM AutomobilDemands ad INNER JOIN Persons p ON ad.iPersonID=p.iID LEFT OUTER JOIN Items it ON"
            " (ad.iAutomobilType=it.iID OR ad.iColor=it.iID) WHERE ")));
        QVERIFY(statement.endsWith(QStringLiteral(" WHERE ad.iStatus=0 GROUP BY ad.iID")));
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
            if (column.name == QStringLiteral("iID"))
                continue;
            ++number;
            const QVariant value = column.kind == KMySQL::ColumnKind::Date ? QVariant(moment.addDays(number))
                : column.kind == KMySQL::ColumnKind::Text                  ? QVariant(QStringLiteral("م%1").arg(number))
                : column.kind == KMySQL::ColumnKind::Double                ? QVariant(number + 0.5)
                                                                           : QVariant(number);
            demand.setValue(column.name, value);
            written.insert(column.name, value);
        }
        demand.Update(true);
        Demand again;
        QVERIFY(again.IsRecordExist(QStringLiteral("iID"), qint32(demand.GetLastInsertedID())));
        for (auto it = written.cbegin(); it != written.cend(); ++it)
            QVERIFY2(again.value(it.key()) == it.value(), qPrintable(it.key()));
    }

    void nextCodeIsOneMoreThanTheHighestAndOneInAnEmptyTable()
    {
        const ObservedStatements statements({QStringLiteral("SELECT")});
        QCOMPARE(Demand::nextCode(), 1);
        QCOMPARE(statements.taken(), QStringList{QStringLiteral("SELECT MAX(iCode) FROM AutomobilDemands")});
        add([](Demand &demand) { demand.m_iCode = 40; });
        add([](Demand &demand) { demand.m_iCode = 12; });
        QCOMPARE(Demand::nextCode(), 41);
    }

    void archivingAndTakingBackGoByTheCodeNotTheKey()
    {
        const int first = add([](Demand &demand) { demand.m_iCode = 5; });
        const int second = add([first](Demand &demand) { demand.m_iCode = first; });
        const ObservedStatements statements({QStringLiteral("UPDATE")});
        Demand::archive(first, 3);
        const QString archived = QStringLiteral("SELECT GROUP_CONCAT(iID) FROM AutomobilDemands WHERE iArchiveUserID=3"
                                                " AND dateArchive IS NOT NULL");
        QCOMPARE(m_database.value(archived), QString::number(second));
        Demand::unarchive(first);
        QCOMPARE(m_database.value(archived), QString());
        QCOMPARE(statements.taken(),
                 (QStringList{
                     QStringLiteral("UPDATE AutomobilDemands SET iArchiveUserID=3, dateArchive=NOW() WHERE iCode=%1").arg(first),
                     QStringLiteral("UPDATE AutomobilDemands SET iArchiveUserID=0, dateArchive=NOW() WHERE iCode=%1").arg(first)}));
    }

    void reminderIsSetByTheKey()
    {
        const int key = add();
        add();
        Demand::setAlarm(key, 9);
        QCOMPARE(m_database.value(QStringLiteral("SELECT GROUP_CONCAT(iID) FROM AutomobilDemands WHERE iAlarmID=9")),
                 QString::number(key));
    }

    void deletingADemandRemovesItsFilesAndRemindersWithIt()
    {
        const int key = add();
        const int other = add();
        addRelatedRecords(key);
        addRelatedRecords(other);
        Demand demand;
        QVERIFY(demand.IsRecordExist(QStringLiteral("iID"), key));
        QVERIFY(demand.Delete());
        QCOMPARE(related(70, key), QStringLiteral("0"));
        QCOMPARE(related(70, other), QStringLiteral("2"));
        // What lies under the same number but belongs to a contract stays.
        QCOMPARE(related(69, key), QStringLiteral("2"));
        QCOMPARE(m_database.value(QStringLiteral("SELECT GROUP_CONCAT(iID) FROM AutomobilDemands")), QString::number(other));
    }

    void failedDeletionOfTheRemindersKeepsAll()
    {
        const int key = add();
        addRelatedRecords(key);
        Demand demand;
        QVERIFY(demand.IsRecordExist(QStringLiteral("iID"), key));
        m_database.run(QStringLiteral("RENAME TABLE Alarms TO AlarmsAway"));
        bool failed = false;
        try {
            demand.Delete();
        } catch (const CMySQLException &) {
            failed = true;
        }
        m_database.run(QStringLiteral("RENAME TABLE AlarmsAway TO Alarms"));
        QVERIFY(failed);
        QCOMPARE(related(70, key), QStringLiteral("2"));
        QCOMPARE(m_database.value(QStringLiteral("SELECT COUNT(*) FROM AutomobilDemands")), QStringLiteral("1"));
    }
};

static const RegisteredTest<TestDemandRecords, QCoreApplication> registered;
#include "TestDemandRecords.moc"
