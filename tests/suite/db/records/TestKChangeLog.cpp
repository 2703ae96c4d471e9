// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/TestDatabase.h"

#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *logTable = "CREATE TABLE Changes (iID INT NOT NULL AUTO_INCREMENT, sTable VARCHAR(100), iRecordID INT, iKind INT, iUserID INT"
                                 ", sComputer VARCHAR(100), date DATETIME%s, PRIMARY KEY (iID)) ENGINE=InnoDB CHARSET=utf8";

class LoggedSample : public SampleRecord
{
public:
    using SampleRecord::SampleRecord;

protected:
    bool isLogged() const override { return true; }
    bool isSecret(QStringView column) const override { return column == u"sNote"; }
};

struct Noted
{
    int kind = 0;
    QString values;
};

QList<Noted> notes(qint32 key)
{
    CTblTemp query;
    query.FormatAndExecuteQuery("SELECT iKind,sValues FROM Changes WHERE sTable='Samples' AND iRecordID=%d ORDER BY iID", key);
    QList<Noted> found;
    for (; query.HasResultRow(); query.MoveNextResult())
        found.append({query.GetLongFieldValue(0), query.GetTextFieldValue(1)});
    return found;
}

void makeLog(const char *values)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery("DROP TABLE IF EXISTS Changes", true, true);
    statement.ExecuteQuery(QString::asprintf(logTable, values).toUtf8().constData(), true, true);
    KTableSchema::forgetAll();
}

qint32 addLogged()
{
    LoggedSample record;
    record.Open(true, false, true);
    record.AddNew();
    record.m_sName = u"پژو"_s;
    record.m_sNote = u"secret 1"_s;
    record.m_dAmount = 100;
    record.m_oPicture.data = QByteArray(5, 'x');
    record.Update(true);
    return record.m_iID;
}

}

// What the base of all records notes of each change.
class TestKChangeLog : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

private Q_SLOTS:
    void init()
    {
        SampleRecord::createTable();
        makeLog(", sValues MEDIUMTEXT CHARACTER SET utf8mb4");
    }

    void aNewRowIsNotedWithWhatItHolds()
    {
        const QList<Noted> found = notes(addLogged());
        QCOMPARE(found.size(), 1);
        QCOMPARE(found[0].kind, int(KChange::Kind::Added));
        QCOMPARE(found[0].values, u"[[\"sName\",null,\"پژو\"],[\"sNote\"],[\"dAmount\",null,100],[\"oPicture\",null,\"5 B\"]]"_s);
    }

    void aChangeIsNotedColumnByColumn()
    {
        LoggedSample record;
        QVERIFY(record.IsRecordExist(u"iID"_s, addLogged()));
        record.Edit();
        record.m_sName.clear();
        record.m_sNote = u"secret 2"_s;
        record.m_dAmount = 120.5;
        record.Update(true);
        const QList<Noted> found = notes(record.m_iID);
        QCOMPARE(found.size(), 2);
        QCOMPARE(found[1].kind, int(KChange::Kind::Changed));
        QCOMPARE(found[1].values, u"[[\"sName\",\"پژو\",\"\"],[\"sNote\"],[\"dAmount\",100,120.5]]"_s);
    }

    void whatIsNotChangedIsNotNoted()
    {
        LoggedSample record;
        QVERIFY(record.IsRecordExist(u"iID"_s, addLogged()));
        record.Edit();
        record.m_dAmount = 100;
        record.Update(true);
        QCOMPARE(notes(record.m_iID).size(), 1);
    }

    void aDeletedRowLeavesWhatItHeld()
    {
        LoggedSample record;
        QVERIFY(record.IsRecordExist(u"iID"_s, addLogged()));
        const qint32 key = record.m_iID;
        record.Delete();
        const QList<Noted> found = notes(key);
        QCOMPARE(found.size(), 2);
        QCOMPARE(found[1].kind, int(KChange::Kind::Deleted));
        QCOMPARE(found[1].values, u"[[\"sName\",\"پژو\",null],[\"sNote\"],[\"dAmount\",100,null],[\"oPicture\",\"5 B\",null]]"_s);
    }

    void whatIsRolledBackLeavesNoNote()
    {
        qint32 key = 0;
        {
            KTransaction transaction;
            key = addLogged();
            QCOMPARE(notes(key).size(), 1);
        }
        QVERIFY(notes(key).isEmpty());
    }

    void anOlderLogNotesWithoutValues()
    {
        makeLog("");
        const qint32 key = addLogged();
        CTblTemp query;
        query.FormatAndExecuteQuery("SELECT COUNT(*) FROM Changes WHERE iRecordID=%d", key);
        QCOMPARE(query.GetLongFieldValue(0), 1);
        const std::optional<KChange> last = KChangeLog::last(u"Samples"_s, key);
        QVERIFY(last.has_value());
        QCOMPARE(last->kind, KChange::Kind::Added);
    }
};

static const RegisteredTest<TestKChangeLog, QCoreApplication> registeredKChangeLog;

#include "TestKChangeLog.moc"
