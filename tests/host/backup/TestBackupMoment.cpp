// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupMoment.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestBackupMoment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMomentIsReadAsPeopleWriteIt_data()
    {
        const QDateTime afternoon(QDate(2026, 11, 22), QTime(14, 20), Qt::UTC);
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDateTime>("time");
        QTest::newRow("Shamsi") << u"1405/09/01 14:20"_s << afternoon;
        QTest::newRow("short") << u"1405/9/1 14:20"_s << afternoon;
        QTest::newRow("Persian digits") << u"۱۴۰۵/۰۹/۰۱ ۱۴:۲۰"_s << afternoon;
        QTest::newRow("seconds") << u"1405/09/01 14:20:07"_s << afternoon.addSecs(7);
        QTest::newRow("ISO") << u"2026-11-22T14:20"_s << afternoon;
        QTest::newRow("ISO with seconds") << u"2026-11-22T14:20:59"_s << afternoon.addSecs(59);
        QTest::newRow("ISO with a blank") << u" 2026-11-22 14:20 "_s << afternoon;
        QTest::newRow("midnight") << u"1405/09/01 0:00"_s << QDateTime(QDate(2026, 11, 22), QTime(0, 0), Qt::UTC);
        QTest::newRow("leap day") << u"1403/12/30 12:00"_s << QDateTime(QDate(2025, 3, 20), QTime(12, 0), Qt::UTC);
        QTest::newRow("no such leap day") << u"1404/12/30 12:00"_s << QDateTime();
        QTest::newRow("no such month") << u"1405/13/01 12:00"_s << QDateTime();
        QTest::newRow("no such hour") << u"1405/09/01 24:00"_s << QDateTime();
        QTest::newRow("no such minute") << u"1405/09/01 12:60"_s << QDateTime();
        QTest::newRow("no time") << u"1405/09/01"_s << QDateTime();
        QTest::newRow("no date") << u"14:20"_s << QDateTime();
        QTest::newRow("another zone") << u"2026-11-22T14:20Z"_s << QDateTime();
        QTest::newRow("words") << u"yesterday"_s << QDateTime();
        QTest::newRow("nothing") << QString() << QDateTime();
    }

    void aMomentIsReadAsPeopleWriteIt()
    {
        QFETCH(const QString, text);
        QFETCH(const QDateTime, time);
        const std::optional<BackupMoment> moment = BackupMoment::fromText(text);
        QCOMPARE(moment.has_value(), time.isValid());
        if (!moment)
            return;
        QVERIFY(!moment->lastMinute);
        QCOMPARE(moment->time, time);
        // What is shown names the same time.
        QVERIFY(moment->shown().contains(time.time().toString(u"HH:mm:ss"_s)));
    }

    void theLastMinuteHasAName()
    {
        for (const QString &text : {u"now"_s, u" NOW "_s}) {
            const std::optional<BackupMoment> moment = BackupMoment::fromText(text);
            QVERIFY(moment && moment->lastMinute);
            QCOMPARE(moment->shown(), u"آخرین دقیقه"_s);
        }
    }
};

static const RegisteredTest<TestBackupMoment, QCoreApplication> registeredBackupMoment;
#include "TestBackupMoment.moc"
