// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/AlarmFilter.h"
#include "suite/crm/reminders/AlarmTime.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(AlarmTime::Delay)

namespace {

QDateTime at(int year, int month, int day, int hour, int minute, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
}

}

class TestAlarmTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dateAndTimeInOneLine();
    void newReminderIsForTheNextMorning();
    void postponed_data();
    void postponed();
    void filterOfAUser_data();
    void filterOfAUser();
};

void TestAlarmTime::dateAndTimeInOneLine()
{
    QCOMPARE(AlarmTime::text(at(2026, 11, 20, 9, 5)), u"1405/08/29 ساعت 09:05"_s);
    QCOMPARE(AlarmTime::timeOfDay(at(2026, 11, 20, 23, 59)), u"23:59"_s);
    QCOMPARE(AlarmTime::text({}), QString());
    QCOMPARE(AlarmTime::timeOfDay({}), QString());
}

void TestAlarmTime::newReminderIsForTheNextMorning()
{
    QCOMPARE(AlarmTime::proposed(at(2026, 3, 20, 23, 59, 59)), at(2026, 3, 21, 9, 0));
    QCOMPARE(AlarmTime::proposed(at(2026, 3, 20, 0, 0)), at(2026, 3, 21, 9, 0));
}

void TestAlarmTime::postponed_data()
{
    QTest::addColumn<AlarmTime::Delay>("delay");
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<QDateTime>("until");
    const QDateTime now = at(2026, 12, 30, 23, 30, 45);
    using AlarmTime::Delay;
    QTest::newRow("an hour from now, into the next day") << Delay::OneHour << now << at(2026, 12, 31, 0, 30);
    QTest::newRow("tomorrow at its own time") << Delay::Tomorrow << now << at(2026, 12, 31, 8, 15);
    QTest::newRow("three days, over the year") << Delay::ThreeDays << now << at(2027, 1, 2, 8, 15);
    QTest::newRow("a week") << Delay::OneWeek << now << at(2027, 1, 6, 8, 15);
}

// A reminder of months ago counts from today.
void TestAlarmTime::postponed()
{
    QFETCH(AlarmTime::Delay, delay);
    QFETCH(QDateTime, now);
    QTEST(AlarmTime::postponed(at(2026, 5, 1, 8, 15, 30), now, delay), "until");
}

void TestAlarmTime::filterOfAUser_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("withDone");
    QTest::addColumn<QString>("condition");
    QTest::newRow("open ones") << "" << false << "iUserID=7 AND iStatus=0";
    QTest::newRow("all") << "" << true << "iUserID=7";
    QTest::newRow("with a text") << "call" << false << "iUserID=7 AND iStatus=0 AND sDesc LIKE '%call%'";
}

void TestAlarmTime::filterOfAUser()
{
    QFETCH(QString, text);
    QFETCH(bool, withDone);
    QTEST(KListFilter::condition(alarmFilters(), {{u"description"_s, text}, {u"done"_s, withDone}}, 7).text(), "condition");
}

static const RegisteredTest<TestAlarmTime, QCoreApplication> registeredAlarmTime;
#include "TestAlarmTime.moc"
