// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/reminders/CTblAlarm.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "tests/support/ObservedStatements.h"
#include "tests/suite/crm/reminders/Alarms.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCTblAlarm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void descriptionForTheForm();
    void descriptionOfNoneIsEmpty();
    void dueAreTheUsersOpenOnesOfThePast();
    void demandOfAnOpenEditorRemindsNobody();
    void loginTellsWhatDoesNotRepeatOnce();
    void loginTellsWhatRepeatsUntilDone();
    void loginTellsTheOldestFirst();
    void dueOnesOfALoginAreOneStatement();
    void toldInAClosedDatabaseIsNotWritten();
    void postponedIsToldAnew();
    void anotherUsersReminderIsNotTouched();
    void doneTwiceStaysDone();
    void closedDatabaseRefusesChanges();
    void remindersOfADeletedRecordGoWithIt();
    void isDueByTheMinute();

private:
    int me() const { return GetDBSetting()->GetUserID(); }
    QStringList told();

    Office m_office;
};

void TestCTblAlarm::init()
{
    m_office.reset();
    m_office.db.run(u"DELETE FROM Alarms"_s);
}

// What a login tells, which is then told.
QStringList TestCTblAlarm::told()
{
    const QList<CTblAlarm::Due> due = CTblAlarm::dueAtLogin(me());
    CTblAlarm::markTold(due);
    QStringList texts;
    for (const CTblAlarm::Due &one : due)
        texts.append(one.desc);
    return texts;
}

void TestCTblAlarm::descriptionForTheForm()
{
    const int id = Alarms::add(me(), 0, u"تماس با خریدار"_s, [](CTblAlarm &alarm) {
        alarm.m_date = QDateTime(QDate(2026, 11, 20), QTime(9, 5), Qt::UTC);
    });
    QCOMPARE(CTblAlarm::GetDesc(id), u"1405/08/29 ساعت 09:05 - تماس با خریدار"_s);
    QVERIFY(CTblAlarm::setDone(id, me()));
    QCOMPARE(CTblAlarm::GetDesc(id), u"1405/08/29 ساعت 09:05 - تماس با خریدار (انجام شد)"_s);
}

void TestCTblAlarm::descriptionOfNoneIsEmpty()
{
    QCOMPARE(CTblAlarm::GetDesc(0), QString());
    QCOMPARE(CTblAlarm::GetDesc(-1), QString());
    const int id = Alarms::add(me(), 5, u"رفت"_s);
    QVERIFY(CTblAlarm::deleteAlarm(id, me()));
    QCOMPARE(CTblAlarm::GetDesc(id), QString());
}

void TestCTblAlarm::dueAreTheUsersOpenOnesOfThePast()
{
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
    Alarms::add(me(), -60, u"گذشته"_s);
    Alarms::add(me(), 60, u"آینده"_s);
    Alarms::add(m_office.clerk(), -60, u"دیگری"_s);
    Alarms::add(me(), -60, u"انجام شده"_s, [](CTblAlarm &alarm) { alarm.m_iStatus = CTblAlarm::statusDone; });
    Alarms::add(me(), 0, u"بی تاریخ"_s, [](CTblAlarm &alarm) { alarm.m_date = {}; });
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
    QCOMPARE(CTblAlarm::dueCount(m_office.clerk()), 1);
    QCOMPARE(told(), QStringList{u"گذشته"_s});
}

void TestCTblAlarm::demandOfAnOpenEditorRemindsNobody()
{
    m_office.db.run(u"DELETE FROM Placeholders"_s);
    Alarms::add(me(), -60, u"تقاضای باز"_s, [](CTblAlarm &alarm) {
        alarm.m_iTable = RecordKind::AutomobilDemandReminder;
        alarm.m_iRecordID = 5;
    });
    Alarms::add(me(), -60, u"چیز دیگر"_s, [](CTblAlarm &alarm) { alarm.m_iRecordID = 5; });
    Placeholders::add({u"AutomobilDemands"_s, 5}, u"another desk"_s);
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
    QCOMPARE(told(), QStringList{u"چیز دیگر"_s});
    Placeholders::confirm(u"AutomobilDemands"_s, 5);
    QCOMPARE(told(), QStringList{u"تقاضای باز"_s});
}

void TestCTblAlarm::loginTellsWhatDoesNotRepeatOnce()
{
    Alarms::add(me(), -1, u"یک بار"_s);
    QCOMPARE(told(), QStringList{u"یک بار"_s});
    QCOMPARE(told(), QStringList());
    // It is still to be done.
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
}

void TestCTblAlarm::loginTellsWhatRepeatsUntilDone()
{
    const int id = Alarms::add(me(), -1, u"هر بار"_s, Alarms::repeats);
    QCOMPARE(told(), QStringList{u"هر بار"_s});
    QCOMPARE(told(), QStringList{u"هر بار"_s});
    QVERIFY(CTblAlarm::setDone(id, me()));
    QCOMPARE(told(), QStringList());
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
}

void TestCTblAlarm::loginTellsTheOldestFirst()
{
    Alarms::add(me(), -5, u"دوم"_s);
    Alarms::add(me(), -500, u"اول"_s, Alarms::repeats);
    Alarms::add(me(), -1, u"سوم"_s);
    QCOMPARE(told(), (QStringList{u"اول"_s, u"دوم"_s, u"سوم"_s}));
}

void TestCTblAlarm::dueOnesOfALoginAreOneStatement()
{
    for (int minute = 1; minute <= 20; ++minute)
        Alarms::add(me(), -minute, u"کار"_s);
    const ObservedStatements observed({u"SELECT"_s, u"UPDATE"_s});
    const QList<CTblAlarm::Due> due = CTblAlarm::dueAtLogin(me());
    QCOMPARE(due.size(), 20);
    QCOMPARE(observed.taken().size(), 1);
    CTblAlarm::markTold(due);
    QCOMPARE(observed.taken().filter(u"UPDATE"_s).size(), 1);
    QCOMPARE(CTblAlarm::dueCount(me()), 20);
    QCOMPARE(observed.taken().filter(u"COUNT(*)"_s).size(), 1);
}

void TestCTblAlarm::toldInAClosedDatabaseIsNotWritten()
{
    Alarms::add(me(), -1, u"بسته"_s);
    GetDBSetting()->SetClosedDB(true);
    QCOMPARE(told(), QStringList{u"بسته"_s});
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Alarms WHERE dateTold IS NOT NULL"_s), u"0"_s);
}

void TestCTblAlarm::postponedIsToldAnew()
{
    const int id = Alarms::add(me(), -60, u"بعدا"_s);
    QCOMPARE(told().size(), 1);
    const QDateTime now = GetDBSetting()->GetDBServerDate();
    QVERIFY(CTblAlarm::postpone(id, me(), now.addSecs(3600)));
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
    QVERIFY(CTblAlarm::postpone(id, me(), now.addSecs(-1)));
    QCOMPARE(told(), QStringList{u"بعدا"_s});
}

void TestCTblAlarm::anotherUsersReminderIsNotTouched()
{
    const int id = Alarms::add(m_office.clerk(), -60, u"کار دیگری"_s);
    QVERIFY(!CTblAlarm::setDone(id, me()));
    QVERIFY(!CTblAlarm::postpone(id, me(), GetDBSetting()->GetDBServerDate().addDays(1)));
    QVERIFY(!CTblAlarm::deleteAlarm(id, me()));
    QCOMPARE(CTblAlarm::dueCount(m_office.clerk()), 1);
    QVERIFY(CTblAlarm::deleteAlarm(id, m_office.clerk()));
    QVERIFY(!CTblAlarm::setDone(id, m_office.clerk()));
}

void TestCTblAlarm::doneTwiceStaysDone()
{
    const int id = Alarms::add(me(), -60, u"کار"_s);
    QVERIFY(CTblAlarm::setDone(id, me()));
    QVERIFY(CTblAlarm::setDone(id, me()));
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
}

void TestCTblAlarm::closedDatabaseRefusesChanges()
{
    const int id = Alarms::add(me(), -60, u"کار"_s);
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblAlarm::setDone(id, me()));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblAlarm::postpone(id, me(), QDateTime(QDate(2030, 1, 1), QTime(), Qt::UTC)));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblAlarm::deleteAlarm(id, me()));
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
}

void TestCTblAlarm::remindersOfADeletedRecordGoWithIt()
{
    const auto of = [](int kind, int key) {
        return [kind, key](CTblAlarm &alarm) {
            alarm.m_iTable = kind;
            alarm.m_iRecordID = key;
        };
    };
    const int mine = Alarms::add(me(), 5, u"تقاضا"_s, of(RecordKind::AutomobilDemandReminder, 12));
    const int clerks =
        Alarms::add(m_office.clerk(), 5, u"تقاضا"_s, of(RecordKind::AutomobilDemandReminder, 12));
    const int neighbour = Alarms::add(me(), 5, u"تقاضا"_s, of(RecordKind::AutomobilDemandReminder, 13));
    const int otherKind = Alarms::add(me(), 5, u"قرارداد"_s, of(RecordKind::AutomobilContract, 12));
    CTblAlarm::DeleteAllRelatedRecords(RecordKind::AutomobilDemandReminder, 12);
    QVERIFY(CTblAlarm::GetDesc(mine).isEmpty() && CTblAlarm::GetDesc(clerks).isEmpty());
    QVERIFY(!CTblAlarm::GetDesc(neighbour).isEmpty() && !CTblAlarm::GetDesc(otherKind).isEmpty());
}

void TestCTblAlarm::isDueByTheMinute()
{
    CTblAlarm alarm;
    alarm.m_date = QDateTime(QDate(2026, 1, 1), QTime(10, 0), Qt::UTC);
    QVERIFY(!alarm.isDue(alarm.m_date.addSecs(-1)));
    QVERIFY(alarm.isDue(alarm.m_date));
    alarm.m_iStatus = CTblAlarm::statusDone;
    QVERIFY(!alarm.isDue(alarm.m_date));
    alarm.m_iStatus = CTblAlarm::statusOpen;
    alarm.m_date = {};
    QVERIFY(!alarm.isDue(QDateTime(QDate(2026, 1, 1), QTime(10, 0), Qt::UTC)));
}

static const RegisteredTest<TestCTblAlarm, QApplication> registeredCTblAlarm;
#include "TestCTblAlarm.moc"
