// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupDue.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestBackupDue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void due_data()
    {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutesAgo"); // -1: there is no backup
        QTest::addColumn<qint64>("held");
        QTest::addColumn<qint64>("now");
        QTest::addColumn<bool>("due");
        QTest::addColumn<bool>("dueAtClosing");
        const auto row = [](const char *name, int hours, int minutesAgo, qint64 held, qint64 now, bool due, bool dueAtClosing) {
            QTest::newRow(name) << hours << minutesAgo << held << now << due << dueAtClosing;
        };
        row("first backup ever", 1, -1, 0, 0, true, true);
        row("nothing changed", 1, 600, 5, 5, false, false);
        row("changed a while ago", 1, 60, 5, 6, true, true);
        row("changed just now", 1, 59, 5, 6, false, true);
        row("every four hours", 4, 239, 5, 6, false, true);
        row("every four hours, late", 4, 241, 5, 6, true, true);
        row("log shorter than it was", 1, 61, 9, 3, true, true);
        row("never by itself", 0, 6000, 5, 6, false, true);
        row("never by itself, none yet", 0, -1, 0, 0, false, true);
        row("clock was set back", 1, -120, 5, 6, true, true);
    }

    void due()
    {
        QFETCH(int, hours);
        QFETCH(int, minutesAgo);
        QFETCH(qint64, held);
        QFETCH(qint64, now);
        const QDateTime moment(QDate(2026, 11, 22), QTime(14, 0), Qt::UTC);
        BackupDue rule;
        rule.everyHours = hours;
        if (minutesAgo != -1)
            rule.last = moment.addSecs(-60LL * minutesAgo);
        rule.lastChange = held;
        rule.changeNow = now;
        QTEST(rule.isDue(moment), "due");
        QTEST(rule.isDueAtClosing(), "dueAtClosing");
        rule.atClosing = false;
        QVERIFY(!rule.isDueAtClosing());
        QCOMPARE(rule.next(moment).isValid(), hours > 0);
    }
};

static const RegisteredTest<TestBackupDue> registeredBackupDue;
#include "TestBackupDue.moc"
