// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/PlanTrace.h"
#include "auto/db/RecordSaving.h"
#include "auto/editor/NewRecord.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// What the log of changes keeps of every kind of record, against what the tables say.
class TestRecordTraces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void init();
    void cleanupTestCase() { m_office.reset(); }

    void everySubjectNamesItsTable();
    void eachColumnIsNotedAsSqlShowsIt_data();
    void eachColumnIsNotedAsSqlShowsIt();
    void whatChangesNothingIsNotNoted();
    void whatIsRolledBackIsNotNoted();
    void passwordsAreNeverNoted();
    void newRecordIsOneEntry();
    void discardedRecordLeavesNothing();
    void rightsAreNotedByForm();
    void copiedRightsAreNoted();
    void deletedBrandNotesItsModelsAndClasses();
    void archivedDemandsAreNotedOneByOne();
    void planIsNotedByItsChangedLines();
    void deletedRecordKeepsItsName();
    void contractHistoryHoldsItsPlan();
    void filesAndCustomValuesAreNotedOfTheirRecord();
    void deletedReminderIsNoted();

private:
    QString scalar(const QString &sql) { return m_office->database().value(sql); }
    int notes(const QString &condition = u"TRUE"_s) { return scalar(u"SELECT COUNT(*) FROM Changes WHERE "_s + condition).toInt(); }
    QList<KChangedValue> lastValues() { return KChangedValues::fromJson(scalar(u"SELECT sValues FROM Changes ORDER BY iID DESC LIMIT 1"_s).toUtf8()); }

    std::unique_ptr<TestOffice> m_office;
};

namespace {

// A value other than the one before, that every column of the kind takes.
QVariant otherValue(const KMySQL::Column &column, int round)
{
    using Kind = KColumn::Kind;
    switch (column.kind) {
    case Kind::Long: return round + 1;
    case Kind::Bool: return round % 2;
    case Kind::Double: return 1000.5 * (round + 1);
    case Kind::Date: return QDateTime(QDate(2026, 1, 1 + round), QTime(0, 0), Qt::UTC);
    case Kind::LongBlob: return QByteArray(10 + round, 'x');
    case Kind::Text: break;
    }
    return u"م%1"_s.arg(round);
}

QString sqlText(const KMySQL::Column &column)
{
    using Kind = KColumn::Kind;
    if (column.kind == Kind::Date)
        return u"DATE_FORMAT(%1,'%Y-%m-%dT%H:%i:%s')"_s.arg(column.name);
    return column.kind == Kind::LongBlob ? u"CONCAT(LENGTH(%1),' B')"_s.arg(column.name) : column.name;
}

bool isSameText(const KMySQL::Column &column, const QVariant &noted, const QString &stored)
{
    if (column.kind == KColumn::Kind::Double || column.kind == KColumn::Kind::Long || column.kind == KColumn::Kind::Bool)
        return noted.toDouble() == stored.toDouble();
    return noted.toString() == stored;
}

}

void TestRecordTraces::init()
{
    m_office->clear();
    m_office->database().run(u"DELETE FROM Changes"_s);
}

void TestRecordTraces::everySubjectNamesItsTable()
{
    QVERIFY(RecordSubjects::all().size() > 25);
    for (const RecordSubject *subject : RecordSubjects::all()) {
        QVERIFY2(!subject->kind.isEmpty(), qPrintable(subject->table));
        QVERIFY2(subject->make && subject->make(0), qPrintable(subject->table));
        QVERIFY2(subject->form.isEmpty() || KSecurity::formCaption(subject->form) != subject->form, qPrintable(subject->form));
    }
}

void TestRecordTraces::eachColumnIsNotedAsSqlShowsIt_data()
{
    QTest::addColumn<QString>("table");
    for (const RecordSubject *subject : RecordSubjects::all()) {
        // Kinds that are noted without a row of their own have no class.
        if (subject->make(0)->GetTableName() == subject->table && !subject->table.startsWith(u"Properties"_s))
            QTest::newRow(qPrintable(subject->table)) << subject->table;
    }
}

void TestRecordTraces::eachColumnIsNotedAsSqlShowsIt()
{
    QFETCH(QString, table);
    const std::unique_ptr<KMySQL> record = RecordSubjects::of(table)->make(0);
    const auto valueOf = [&](const KMySQL::Column &column, qint32 key) {
        return scalar(u"SELECT %1 FROM %2 WHERE iID=%3"_s.arg(sqlText(column), table).arg(key));
    };
    record->AddNew();
    int round = 1;
    for (const KMySQL::Column &column : record->columns()) {
        if (column.name != u"iID"_s)
            column.setValue(otherValue(column, round++ % 20));
    }
    record->Update(true);
    const qint32 key = record->value(u"iID").toInt();
    const QString ofRecord = u"sTable='%1' AND iRecordID=%2"_s.arg(table).arg(key);
    QCOMPARE(notes(ofRecord + u" AND iKind=0"_s), 1);
    QHash<QString, QVariant> added;
    for (const KChangedValue &value : lastValues()) {
        QVERIFY2(!value.before.isValid(), qPrintable(value.column));
        if (!value.isSecret)
            added.insert(value.column, value.after);
    }
    for (const KMySQL::Column &column : record->columns()) {
        if (column.name != u"iID"_s && !column.isEmpty() && added.contains(column.name))
            QVERIFY2(isSameText(column, added.value(column.name), valueOf(column, key)), qPrintable(column.name));
    }

    for (const KMySQL::Column &column : record->columns()) {
        if (column.name == u"iID"_s || column.name == u"sPasswordHash"_s || RecordSubjects::of(table)->derived.contains(column.name))
            continue;
        QVERIFY(record->IsRecordExist(u"iID"_s, key));
        const QString before = valueOf(column, key);
        m_office->database().run(u"DELETE FROM Changes"_s);
        record->Edit();
        column.setValue(otherValue(column, 21 + (column.kind == KColumn::Kind::Bool ? column.value().toInt() : 0) - (column.kind == KColumn::Kind::Date ? 1 : 0)));
        record->Update(true);
        QVERIFY2(notes(ofRecord + u" AND iKind=1"_s) == 1, qPrintable(column.name));
        bool isThere = false;
        for (const KChangedValue &value : lastValues()) {
            if (value.column != column.name)
                continue;
            isThere = true;
            QVERIFY2(isSameText(column, value.before, before), qPrintable(column.name + u": "_s + before));
            QVERIFY2(isSameText(column, value.after, valueOf(column, key)), qPrintable(column.name));
        }
        QVERIFY2(isThere, qPrintable(column.name));
    }

    QVERIFY(record->IsRecordExist(u"iID"_s, key));
    m_office->database().run(u"DELETE FROM Changes"_s);
    record->Delete();
    QCOMPARE(scalar(u"SELECT COUNT(*) FROM %1 WHERE iID=%2"_s.arg(table).arg(key)), u"0"_s);
    QCOMPARE(notes(ofRecord + u" AND iKind=2"_s), 1);
    for (const KChangedValue &value : lastValues())
        QVERIFY2(!value.after.isValid(), qPrintable(value.column));
}

void TestRecordTraces::whatChangesNothingIsNotNoted()
{
    const int key = m_office->addContract();
    const int before = notes();
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    contract.Edit();
    contract.m_sExplain = contract.m_sExplain;
    contract.Update(true);
    QCOMPARE(notes(), before);
}

void TestRecordTraces::whatIsRolledBackIsNotNoted()
{
    {
        KTransaction transaction;
        m_office->addContract();
        QVERIFY(notes() == 0 || notes() == 1); // another connection may not see it yet
    }
    QCOMPARE(notes(), 0);
}

void TestRecordTraces::passwordsAreNeverNoted()
{
    const int user = CTblUsers::create(u"writer"_s, u"first-secret"_s, u"نویسنده"_s, false);
    QVERIFY(CTblUsers::changePassword(user, u"first-secret"_s, u"second-secret"_s));
    QVERIFY(notes(u"sTable='Users'"_s) >= 2);
    QVERIFY(notes(u"sValues LIKE '%sPasswordHash%'"_s) >= 1);
    QCOMPARE(notes(u"sValues LIKE '%secret%' OR sValues LIKE '%argon2%'"_s), 0);
    const QString hash = scalar(u"SELECT sPasswordHash FROM Users WHERE iID=%1"_s.arg(user));
    QCOMPARE(notes(u"INSTR(sValues,'%1')>0"_s.arg(hash)), 0);
    m_office->database().run(u"DELETE FROM Users WHERE iID=%1"_s.arg(user));
}

void TestRecordTraces::newRecordIsOneEntry()
{
    const int key = NewRecord::add<CTblAutomobilDemands>([](CTblAutomobilDemands &demand) { demand.m_sDesc = u"پیش‌نویس"_s; });
    QCOMPARE(notes(), 0);
    RecordSaving::save<CTblAutomobilDemands>({key, 0, [](CTblAutomobilDemands &demand) { demand.m_dAmountFrom = 500; }});
    QCOMPARE(notes(), 1);
    QCOMPARE(notes(u"sTable='AutomobilDemands' AND iKind=0 AND iRecordID=%1"_s.arg(key)), 1);
    QStringList columns;
    for (const KChangedValue &value : lastValues())
        columns.append(value.column);
    QVERIFY(columns.contains(u"sDesc"_s) && columns.contains(u"dAmountFrom"_s) && columns.contains(u"iCode"_s));
    // The second save is a change like any other.
    RecordSaving::save<CTblAutomobilDemands>({key, 0, [](CTblAutomobilDemands &demand) { demand.m_dAmountFrom = 600; }});
    QCOMPARE(notes(u"iKind=1"_s), 1);
    QCOMPARE(lastValues().size(), 1);
    QCOMPARE(lastValues().constFirst().before.toDouble(), 500.0);
    QCOMPARE(lastValues().constFirst().after.toDouble(), 600.0);
}

void TestRecordTraces::discardedRecordLeavesNothing()
{
    const int key = NewRecord::add<CTblAutomobilContracts>([](CTblAutomobilContracts &) {});
    NewRecord::discard<CTblAutomobilContracts>(key);
    QCOMPARE(scalar(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"0"_s);
    QCOMPARE(notes(), 0);
}

void TestRecordTraces::rightsAreNotedByForm()
{
    const int user = CTblUsers::create(u"rights"_s, u"secret"_s, u"ر"_s, false);
    KSecurity::setRights(user, u"Persons"_s, KSecurity::Access | KSecurity::Read);
    m_office->database().run(u"DELETE FROM Changes"_s);
    KSecurity::setRights(user, u"Persons"_s, KSecurity::Access);
    QCOMPARE(notes(), 1);
    QCOMPARE(notes(u"sTable='Rights' AND iRecordID=%1"_s.arg(user)), 1);
    HistoryWords words;
    const QList<HistoryEntry::Line> lines = words.lines(u"Rights"_s, lastValues());
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.constFirst().caption, u"اشخاص"_s);
    QCOMPARE(lines.constFirst().before, u"دسترسی، مشاهده"_s);
    QCOMPARE(lines.constFirst().after, u"دسترسی"_s);
    KSecurity::setRights(user, u"Persons"_s, KSecurity::Access);
    QCOMPARE(notes(), 1);
    m_office->database().run(u"DELETE FROM Users WHERE iID=%1"_s.arg(user));
}

void TestRecordTraces::copiedRightsAreNoted()
{
    const int from = CTblUsers::create(u"from"_s, u"secret"_s, u"ر"_s, false);
    const int to = CTblUsers::create(u"to"_s, u"secret"_s, u"ر"_s, false);
    KSecurity::setRights(from, u"Persons"_s, KSecurity::Access);
    KSecurity::setRights(to, u"Cheques"_s, KSecurity::Access);
    m_office->database().run(u"DELETE FROM Changes"_s);
    KSecurity::copyRights(from, to);
    QCOMPARE(notes(), 1);
    QCOMPARE(lastValues().size(), 2);
    m_office->database().run(u"DELETE FROM Users WHERE iID IN (%1,%2)"_s.arg(from).arg(to));
}

void TestRecordTraces::deletedBrandNotesItsModelsAndClasses()
{
    const int brand = m_office->addBrand(u"پژو"_s);
    const int model = m_office->addModel(brand, u"206"_s);
    m_office->addClass(model, u"تیپ 2"_s);
    m_office->addClass(model, u"تیپ 5"_s);
    m_office->database().run(u"DELETE FROM Changes"_s);
    CTblCarBrands record;
    QVERIFY(record.IsRecordExist(u"iID"_s, brand));
    record.Delete();
    QCOMPARE(notes(u"sTable='CarBrands' AND iKind=2"_s), 1);
    QCOMPARE(notes(u"sTable='CarModels' AND iKind=2 AND iRecordID=%1"_s.arg(model)), 1);
    QCOMPARE(notes(u"sTable='CarClasses' AND iKind=2"_s), 2);
    QCOMPARE(scalar(u"SELECT COUNT(*) FROM CarClasses"_s), u"0"_s);
}

void TestRecordTraces::archivedDemandsAreNotedOneByOne()
{
    const QDateTime old(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC);
    for (int i = 0; i < 3; ++i)
        m_office->addDemand([&](CTblAutomobilDemands &demand) { demand.m_dateCreate = i == 2 ? QDateTime(QDate(2100, 1, 1), QTime(0, 0), Qt::UTC) : old; });
    m_office->database().run(u"DELETE FROM Changes"_s);
    QCOMPARE(CTblAutomobilDemands::archiveOlderThan(30, m_office->adminID()), 2);
    QCOMPARE(notes(u"sTable='AutomobilDemands' AND iKind=3"_s), 2);
}

void TestRecordTraces::planIsNotedByItsChangedLines()
{
    const int key = m_office->addContract();
    const QDate day(2026, 3, 21);
    const QList<PlanTrace::Line> before{{1, day, 1000, 0}, {2, day.addDays(30), 1000, 0}};
    QList<PlanTrace::Line> after = before;
    after[1].amount = 1500;
    m_office->database().run(u"DELETE FROM Changes"_s);
    PlanTrace::noteRows(key, KChange::Kind::Changed, before, before);
    QCOMPARE(notes(), 0);
    PlanTrace::noteRows(key, KChange::Kind::Changed, before, after);
    HistoryWords words;
    const QList<HistoryEntry::Line> lines = words.lines(PlanTrace::name(), lastValues());
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.constFirst().caption, u"اقساط"_s);
    QCOMPARE(lines.constFirst().before, u"قسط 2: 1405/01/31، 1,000"_s);
    QCOMPARE(lines.constFirst().after, u"قسط 2: 1405/01/31، 1,500"_s);
}

void TestRecordTraces::deletedRecordKeepsItsName()
{
    const int key = m_office->addBrand(u"سمند"_s);
    CTblCarBrands record;
    QVERIFY(record.IsRecordExist(u"iID"_s, key));
    record.Delete();
    const QList<HistoryEntry> entries = HistoryRows::read(HistoryRows::ofRecord(u"CarBrands"_s, key));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0).action, u"حذف"_s);
    QCOMPARE(entries.at(0).title, u"سمند"_s);
    QCOMPARE(entries.at(1).action, u"ثبت"_s);
    QCOMPARE(entries.at(1).title, u"سمند"_s);
    QCOMPARE(entries.at(1).user, u"مدیر"_s);
}

void TestRecordTraces::contractHistoryHoldsItsPlan()
{
    const int key = m_office->addContract();
    const int other = m_office->addContract();
    PlanTrace::notePaid(key, 1, true);
    PlanTrace::notePaid(other, 1, true);
    const QList<HistoryEntry> entries = HistoryRows::read(HistoryRows::ofRecord(u"AutomobilContracts"_s, key));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.constFirst().kind, u"اقساط قرارداد"_s);
    QCOMPARE(entries.constFirst().lines.constFirst().after, u"قسط 1 پرداخت شده"_s);
}

void TestRecordTraces::filesAndCustomValuesAreNotedOfTheirRecord()
{
    const int key = m_office->addContract();
    const int field = CTblCustomFields::define(CTblAutomobilContracts::recordKind, u"رنگ پوشه"_s, CTblCustomFields::Text);
    m_office->database().run(u"DELETE FROM Changes"_s);
    CTblCustomFieldRecords::changeValues(CTblAutomobilContracts::recordKind, key, {{field, u"آبی"_s}});
    CTblCustomFieldRecords::changeValues(CTblAutomobilContracts::recordKind, key, {{field, u"آبی"_s}});
    QCOMPARE(notes(), 1);
    QCOMPARE(notes(u"sTable='AutomobilContracts' AND iKind=1 AND iRecordID=%1"_s.arg(key)), 1);
    QCOMPARE(HistoryWords().lines(u"AutomobilContracts"_s, lastValues()).constFirst().caption, u"رنگ پوشه"_s);
    QTemporaryFile scan;
    QVERIFY(scan.open() && scan.write("x") == 1 && scan.flush());
    const int file = CTblFileDocs::addFile(CTblAutomobilContracts::recordKind, key, CTblFileDocs::General, m_office->adminID(), scan.fileName());
    QCOMPARE(lastValues().constFirst().after.toString(), QFileInfo(scan.fileName()).fileName());
    QVERIFY(CTblFileDocs::deleteFile(file, m_office->adminID()));
    QCOMPARE(lastValues().constFirst().before.toString(), QFileInfo(scan.fileName()).fileName());
    QCOMPARE(notes(), 3);
    CTblFileDocs::addFile(CTblAutomobilContracts::recordKind, key, CTblFileDocs::Personal, m_office->adminID(), scan.fileName());
    QCOMPARE(lastValues().constFirst().after.toString(), u"فایل شخصی"_s);
    CTblCustomFields::remove(field);
}

void TestRecordTraces::deletedReminderIsNoted()
{
    CTblAlarm alarm;
    alarm.AddNew();
    alarm.m_iUserID = m_office->adminID();
    alarm.m_sDesc = u"تماس"_s;
    alarm.m_date = QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC);
    alarm.Update(true);
    QVERIFY(CTblAlarm::deleteAlarm(alarm.m_iID, m_office->adminID()));
    QCOMPARE(notes(u"sTable='Alarms' AND iKind=2"_s), 1);
}

static const RegisteredTest<TestRecordTraces, QApplication> registeredRecordTraces;
#include "TestRecordTraces.moc"
