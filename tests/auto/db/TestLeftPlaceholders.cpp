// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/LeftPlaceholders.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSession.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

template <class Record>
int addRecord()
{
    Record record;
    record.AddNew();
    record.m_iCode = Record::nextCode();
    record.Update(true);
    return record.m_iID;
}

}

// What programs that died left in the tables of contracts, cars and demands.
class TestLeftPlaceholders : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    const QString m_dead = u"a program that died"_s;

    QString count(const QString &table) { return m_database.value(u"SELECT COUNT(*) FROM "_s + table); }

    template <class Record>
    int begin(const QString &session)
    {
        const int key = addRecord<Record>();
        Placeholders::add({Record().GetTableName(), key}, session);
        return key;
    }

private Q_SLOTS:
    void init()
    {
        prepareModuleTables(m_database);
        GetDBSetting()->SetClosedDB(false);
    }
    void cleanup() { OfficeSession::end(); }

    void thoseOfADeadProgramGoWithAllThatBelongsToThem()
    {
        const int contract = begin<CTblAutomobilContracts>(m_dead);
        const int car = begin<CTblAutomobilInformations>(m_dead);
        const int demand = begin<CTblAutomobilDemands>(m_dead);
        for (const auto &[kind, key] : {std::pair(69, contract), std::pair(68, car), std::pair(70, demand)})
            m_database.run(u"INSERT INTO FileDocs(iTable,iRecordID,sName) VALUES(%1,%2,'a')"_s.arg(kind).arg(key));
        for (const auto &[kind, key] : {std::pair(69, contract), std::pair(68, car)})
            m_database.run(u"INSERT INTO CustomFieldRecords(iTable,iRecordID,iFieldID) VALUES(%1,%2,%1)"_s.arg(kind).arg(key));
        m_database.run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iNum) VALUES(%1,1)"_s.arg(contract));
        m_database.run(u"INSERT INTO Alarms(iTable,iRecordID) VALUES(70,%1)"_s.arg(demand));
        QCOMPARE(LeftPlaceholders::remove(), 3);
        for (const char *table : {"AutomobilContracts", "AutomobilInformations", "AutomobilDemands", "FileDocs", "CustomFieldRecords",
                                  "AutomobilPayments", "Alarms", "Placeholders"})
            QCOMPARE(count(QLatin1String(table)), u"0"_s);
        QCOMPARE(LeftPlaceholders::remove(), 0);
    }

    void savedRecordsAndThoseOfLivingProgramsStay()
    {
        const int saved = addRecord<CTblAutomobilContracts>();
        const int own = begin<CTblAutomobilContracts>(OfficeSession::key());
        const auto lease = KLease::tryTake(u"Session elsewhere"_s, u"another desk"_s);
        const int elsewhere = begin<CTblAutomobilContracts>(u"elsewhere"_s);
        begin<CTblAutomobilContracts>(m_dead);
        QCOMPARE(LeftPlaceholders::remove(), 1);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iID ORDER BY iID) FROM AutomobilContracts"_s),
                 u"%1,%2,%3"_s.arg(saved).arg(own).arg(elsewhere));
        QCOMPARE(count(u"Placeholders"_s), u"2"_s);
    }

    void oneWhoseRowIsGoneLeavesTheTable()
    {
        Placeholders::add({u"AutomobilContracts"_s, 77}, m_dead);
        QCOMPARE(LeftPlaceholders::remove(), 1);
        QCOMPARE(count(u"Placeholders"_s), u"0"_s);
    }

    void oneThatIsBeingSavedStays()
    {
        const int key = begin<CTblAutomobilContracts>(m_dead);
        // Another desk, which the others took for dead, saves it after all.
        constexpr int other = 1;
        KConnection::configure(other, KConnection::settings(0));
        KTransaction saving(other);
        CTblAutomobilContracts contract(other);
        QVERIFY(contract.lockRecord(key));
        Placeholders::confirm(u"AutomobilContracts"_s, key, other);
        QCOMPARE(LeftPlaceholders::remove(), 0);
        saving.commit();
        QCOMPARE(LeftPlaceholders::remove(), 0);
        QCOMPARE(count(u"AutomobilContracts"_s), u"1"_s);
    }

    void whatCannotBeDeletedStaysAsItIs()
    {
        begin<CTblAutomobilContracts>(m_dead);
        m_database.run(u"CREATE TRIGGER keep BEFORE DELETE ON FileDocs FOR EACH ROW SIGNAL SQLSTATE '45000'"_s);
        m_database.run(u"INSERT INTO FileDocs(iTable,iRecordID) SELECT 69,iID FROM AutomobilContracts"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"FileDocs"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"FileDocs"_s));
        QCOMPARE(LeftPlaceholders::remove(), 0);
        QCOMPARE(count(u"AutomobilContracts"_s), u"1"_s);
        QCOMPARE(count(u"Placeholders"_s), u"1"_s);
    }

    void inAClosedDatabaseNothingIsRemoved()
    {
        begin<CTblAutomobilContracts>(m_dead);
        GetDBSetting()->SetClosedDB(true);
        QCOMPARE(LeftPlaceholders::remove(), 0);
        QCOMPARE(count(u"AutomobilContracts"_s), u"1"_s);
    }
};

static const RegisteredTest<TestLeftPlaceholders, QCoreApplication> registeredLeftPlaceholders;
#include "TestLeftPlaceholders.moc"
