// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/HistoryMerge.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestHistoryMerge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsOfOneSaveAreOne();
    void valuesComeFromBothEnds();
    void othersStayApart_data();
    void othersStayApart();
    void settingsAreOneRecord();
    void orderOfTheListDoesNotMatter();
    void whatWasTakenBackAtOnceStays();
};

namespace {

const QDateTime moment(QDate(2026, 11, 22), QTime(10, 0), Qt::UTC);

HistoryEntry entry(KChange::Kind kind, int seconds, const QList<KChangedValue> &values)
{
    static int next = 1000;
    HistoryEntry entry;
    entry.id = --next; // as they are listed: the newest is made first
    entry.table = u"Documents"_s;
    entry.key = 5;
    entry.change = {1, u"desk"_s, moment.addSecs(seconds), kind};
    entry.hasValues = true;
    entry.values = values;
    return entry;
}

}

void TestHistoryMerge::stepsOfOneSaveAreOne()
{
    const QList<HistoryEntry> merged = HistoryMerge::of({entry(KChange::Kind::Changed, 1, {{u"rows"_s, {}, u"a"_s}}), entry(KChange::Kind::Added, 0, {{u"iNum"_s, {}, 7}})});
    QCOMPARE(merged.size(), 1);
    QCOMPARE(merged.constFirst().change.kind, KChange::Kind::Added);
    QCOMPARE(merged.constFirst().values.size(), 2);
}

void TestHistoryMerge::valuesComeFromBothEnds()
{
    const QList<HistoryEntry> merged = HistoryMerge::of({entry(KChange::Kind::Changed, 1, {{u"a"_s, 2, 3}, {u"b"_s, 5, 4}}), entry(KChange::Kind::Changed, 0, {{u"a"_s, 1, 2}, {u"b"_s, 4, 5}})});
    QCOMPARE(merged.size(), 1);
    QCOMPARE(merged.constFirst().values.size(), 1);
    QCOMPARE(merged.constFirst().values.constFirst().before.toInt(), 1);
    QCOMPARE(merged.constFirst().values.constFirst().after.toInt(), 3);
}

void TestHistoryMerge::othersStayApart_data()
{
    QTest::addColumn<HistoryEntry>("newer");
    const QList<KChangedValue> values{{u"a"_s, 1, 2}};
    QTest::newRow("later") << entry(KChange::Kind::Changed, 3, values);
    QTest::newRow("deleted") << entry(KChange::Kind::Deleted, 0, values);
    HistoryEntry other = entry(KChange::Kind::Changed, 0, values);
    other.key = 6;
    QTest::newRow("another record") << other;
    other = entry(KChange::Kind::Changed, 0, values);
    other.change.userID = 2;
    QTest::newRow("another user") << other;
    other = entry(KChange::Kind::Changed, 0, values);
    other.hasValues = false;
    QTest::newRow("without values") << other;
}

void TestHistoryMerge::othersStayApart()
{
    QFETCH(HistoryEntry, newer);
    QCOMPARE(HistoryMerge::of({newer, entry(KChange::Kind::Changed, 0, {{u"a"_s, 0, 1}})}).size(), 2);
}

// Whoever saves settings is also noted under the section that their window begins with.
void TestHistoryMerge::settingsAreOneRecord()
{
    HistoryEntry first = entry(KChange::Kind::Changed, 0, {});
    first.table = u"Properties:Money"_s;
    first.key = 0;
    first.hasValues = false;
    HistoryEntry second = entry(KChange::Kind::Changed, 0, {{u"سال مالی"_s, u"1404"_s, u"1405"_s}});
    second.table = u"Properties:FiscalYear"_s;
    second.key = 0;
    for (const QList<HistoryEntry> &order : {QList<HistoryEntry>{first, second}, QList<HistoryEntry>{second, first}}) {
        const QList<HistoryEntry> merged = HistoryMerge::of(order);
        QCOMPARE(merged.size(), 1);
        QCOMPARE(merged.constFirst().table, second.table);
        QVERIFY(merged.constFirst().hasValues);
    }
}

// A list may be sorted by the oldest first, or by users.
void TestHistoryMerge::orderOfTheListDoesNotMatter()
{
    const QList<HistoryEntry> newestFirst{
        entry(KChange::Kind::Changed, 90000, {{u"a"_s, 3, 4}}),
        entry(KChange::Kind::Changed, 3001, {{u"b"_s, 1, 2}}),
        entry(KChange::Kind::Changed, 3000, {{u"a"_s, 2, 3}}),
        entry(KChange::Kind::Added, 0, {{u"a"_s, {}, 2}}),
    };
    QList<HistoryEntry> oldestFirst(newestFirst.crbegin(), newestFirst.crend());
    for (const QList<HistoryEntry> &order : {newestFirst, oldestFirst}) {
        const QList<HistoryEntry> merged = HistoryMerge::of(order);
        QCOMPARE(merged.size(), 3);
        QCOMPARE(merged.at(0).id, newestFirst.at(0).id);
        QCOMPARE(merged.at(1).id, newestFirst.at(1).id);
        QCOMPARE(merged.at(1).values.size(), 2);
        QCOMPARE(merged.at(2).change.kind, KChange::Kind::Added);
    }
}

void TestHistoryMerge::whatWasTakenBackAtOnceStays()
{
    QCOMPARE(HistoryMerge::of({entry(KChange::Kind::Changed, 1, {{u"a"_s, 2, 1}}), entry(KChange::Kind::Changed, 0, {{u"a"_s, 1, 2}})}).size(), 2);
}

static const RegisteredTest<TestHistoryMerge, QCoreApplication> registeredHistoryMerge;
#include "TestHistoryMerge.moc"
