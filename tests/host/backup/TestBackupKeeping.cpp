// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupKeeping.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QDateTime keepingNow(QDate(2026, 11, 22), QTime(14, 0), Qt::UTC); // a Sunday, 1405/09/01

// "3d": taken three days ago at noon; "5h": hours ago. Then v verified, f failed, s a safety copy.
BackupKeeping::Backup backupOf(const QString &text)
{
    const int number = text.left(text.indexOf(QRegularExpression(u"[dh]"_s))).toInt();
    BackupKeeping::Backup backup;
    backup.taken = text.contains(u'd') ? QDateTime(keepingNow.date().addDays(-number), QTime(12, 0), Qt::UTC) : keepingNow.addSecs(-3600LL * number);
    backup.verified = text.contains(u'v');
    backup.failed = text.contains(u'f');
    backup.isSafetyCopy = text.contains(u's');
    return backup;
}

}

class TestBackupKeeping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outdated_data()
    {
        QTest::addColumn<QString>("backups");
        QTest::addColumn<int>("daily");
        QTest::addColumn<int>("weekly");
        QTest::addColumn<int>("monthly");
        QTest::addColumn<QString>("gone");
        const auto row = [](const char *name, const QString &backups, int daily, int weekly, int monthly, const QString &gone) {
            QTest::newRow(name) << backups << daily << weekly << monthly << gone;
        };
        row("none", u""_s, 7, 4, 12, u""_s);
        row("the only one, however old", u"900d"_s, 0, 0, 0, u""_s);
        row("all of the last day stay", u"1h 2h 3h 20h"_s, 1, 0, 0, u""_s);
        row("one of each day", u"1d 2d 3d 4d"_s, 2, 0, 0, u"3d 4d"_s);
        row("the order in the list does not matter", u"4d 1d 3d 2d"_s, 2, 0, 0, u"4d 3d"_s);
        row("days without a backup do not count", u"1d 10d 20d"_s, 3, 0, 0, u""_s);
        row("the newest verified one stays", u"1d 2d 30dv 40dv"_s, 1, 0, 0, u"2d 40dv"_s);
        row("a failed one stands in for nothing", u"1df 2d 3d"_s, 1, 0, 0, u"3d"_s);
        row("failed ones go where their day has a good one", u"1d 2d 2df 3df"_s, 7, 4, 12, u"2df"_s);
        row("failed ones of long ago go", u"1d 40df"_s, 7, 4, 12, u"40df"_s);
        row("a safety copy of the last month stays", u"1d 20ds 40ds"_s, 1, 0, 0, u"40ds"_s);
        // The week began yesterday, on Saturday.
        row("weeks begin on Saturday", u"1d 2d 3d 8d 9d"_s, 0, 3, 0, u"3d 8d"_s);
        // The month began today.
        row("months are those of the Shamsi calendar", u"0d 1d 29d 30d 31d 60d"_s, 0, 0, 3, u"29d 30d 60d"_s);
        row("days, weeks and months together", u"0d 1d 2d 9d 16d 40d"_s, 2, 2, 2, u"9d 16d 40d"_s);
    }

    void outdated()
    {
        QFETCH(QString, backups);
        QFETCH(QString, gone);
        QFETCH(int, daily);
        QFETCH(int, weekly);
        QFETCH(int, monthly);
        const QStringList texts = backups.split(u' ', Qt::SkipEmptyParts);
        QList<BackupKeeping::Backup> all;
        for (const QString &text : texts)
            all.append(backupOf(text));
        QStringList removed;
        for (const int index : BackupKeeping::outdated(all, {daily, weekly, monthly}, keepingNow))
            removed << texts.at(index);
        QCOMPARE(removed.join(u' '), gone);
    }
};

static const RegisteredTest<TestBackupKeeping> registeredBackupKeeping;
#include "TestBackupKeeping.moc"
