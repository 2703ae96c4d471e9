// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/RegisteredTest.h"

#include "suite/db/records/RowMerge.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

// Two windows that had read one row.
class TestRowMerge : public QObject
{
    Q_OBJECT

    // The figures of a deal, which count as one field, and a text beside them.
    static KRowValues row(int amount, int tax, const QString &note)
    {
        return {{u"dAmount"_s, double(amount)}, {u"dTax"_s, double(tax)}, {u"sNote"_s, note}};
    }
    static RowMerge::Sides sides(const KRowValues &theirs, const KRowValues &mine)
    {
        RowMerge::Sides sides;
        sides.opened = row(100, 9, u"a"_s);
        sides.theirs = theirs;
        sides.mine = mine;
        sides.groups = {{u"dTax"_s, u"dAmount"_s, u"dNotThere"_s}};
        return sides;
    }
    static QStringList columns(const QList<RowConflict> &conflicts)
    {
        QStringList names;
        for (const RowConflict &conflict : conflicts)
            names.append(conflict.column);
        return names;
    }

private Q_SLOTS:
    void eachFieldGoesToTheSideThatChangedIt_data()
    {
        QTest::addColumn<KRowValues>("theirs");
        QTest::addColumn<KRowValues>("mine");
        QTest::addColumn<KRowValues>("result");
        QTest::addColumn<QStringList>("conflicts");
        const KRowValues opened = row(100, 9, u"a"_s);
        QTest::newRow("nobody") << opened << opened << opened << QStringList();
        QTest::newRow("I") << opened << row(200, 18, u"b"_s) << row(200, 18, u"b"_s) << QStringList();
        QTest::newRow("they") << row(200, 18, u"b"_s) << opened << row(200, 18, u"b"_s) << QStringList();
        QTest::newRow("I the note, they the figures") << row(200, 18, u"a"_s) << row(100, 9, u"b"_s) << row(200, 18, u"b"_s)
                                                      << QStringList();
        QTest::newRow("both the same") << row(200, 18, u"b"_s) << row(200, 18, u"b"_s) << row(200, 18, u"b"_s) << QStringList();
        QTest::newRow("both the note") << row(100, 9, u"b"_s) << row(100, 9, u"c"_s) << KRowValues() << QStringList{u"sNote"_s};
        // Two figures that were each changed by one side would make a third deal that nobody agreed on.
        QTest::newRow("different figures") << row(200, 9, u"a"_s) << row(100, 10, u"a"_s) << KRowValues()
                                           << QStringList{u"dAmount"_s, u"dTax"_s};
        QTest::newRow("figures and note") << row(200, 9, u"b"_s) << row(300, 9, u"c"_s) << KRowValues()
                                          << QStringList{u"dAmount"_s, u"sNote"_s};
        QTest::newRow("they back to nothing") << row(100, 9, QString()) << row(100, 9, u"a"_s) << row(100, 9, QString())
                                              << QStringList();
    }
    void eachFieldGoesToTheSideThatChangedIt()
    {
        QFETCH(KRowValues, theirs);
        QFETCH(KRowValues, mine);
        QFETCH(KRowValues, result);
        QFETCH(QStringList, conflicts);
        const RowMerge merge = RowMerge::of(sides(theirs, mine));
        QCOMPARE(columns(merge.conflicts), conflicts);
        if (conflicts.isEmpty())
            QCOMPARE(merge.result, result);
    }

    void conflictNamesAllThreeValues()
    {
        const RowMerge merge = RowMerge::of(sides(row(100, 9, u"b"_s), row(100, 9, u"c"_s)));
        QCOMPARE(merge.conflicts, (QList<RowConflict>{{u"sNote"_s, u"a"_s, u"b"_s, u"c"_s}}));
    }

    // A window that tidies a text up as it writes it has not changed it.
    void whatTheWindowWritesByItselfIsNoChange()
    {
        RowMerge::Sides both = sides(row(100, 9, u"b"_s), row(100, 9, u"A"_s));
        QCOMPARE(columns(RowMerge::of(both).conflicts), QStringList{u"sNote"_s});
        both.untouched = row(100, 9, u"A"_s);
        QCOMPARE(RowMerge::of(both).result, row(100, 9, u"b"_s));
        both.theirs = both.opened;
        QCOMPARE(RowMerge::of(both).result, row(100, 9, u"A"_s));
    }

    void answerHoldsForTheRowThatWasShown_data()
    {
        QTest::addColumn<bool>("takeTheirs");
        QTest::addColumn<KRowValues>("result");
        QTest::newRow("theirs") << true << row(200, 18, u"b"_s);
        QTest::newRow("mine") << false << row(300, 27, u"c"_s);
    }
    void answerHoldsForTheRowThatWasShown()
    {
        QFETCH(bool, takeTheirs);
        QFETCH(KRowValues, result);
        RowMerge::Sides both = sides(row(200, 18, u"b"_s), row(300, 27, u"c"_s));
        for (const RowConflict &conflict : RowMerge::of(both).conflicts)
            both.answers.insert(conflict.column, {conflict.theirs, takeTheirs});
        QCOMPARE(RowMerge::of(both).result, result);

        both.theirs = row(200, 18, u"d"_s);
        QCOMPARE(columns(RowMerge::of(both).conflicts), QStringList{u"sNote"_s});
        both.theirs = row(201, 18, u"b"_s);
        QCOMPARE(columns(RowMerge::of(both).conflicts), (QStringList{u"dAmount"_s, u"dTax"_s}));
    }

    void nullAndEmptyAreOne_data()
    {
        QTest::addColumn<QVariant>("left");
        QTest::addColumn<QVariant>("right");
        QTest::addColumn<bool>("same");
        const QDateTime noon(QDate(2025, 3, 21), QTime(12, 0), Qt::UTC);
        QTest::newRow("null and empty text") << QVariant(QString()) << QVariant(u""_s) << true;
        QTest::newRow("missing and empty text") << QVariant() << QVariant(u""_s) << true;
        QTest::newRow("no date") << QVariant(QDateTime()) << QVariant() << true;
        QTest::newRow("date and none") << QVariant(noon) << QVariant(QDateTime()) << false;
        QTest::newRow("zero is a number") << QVariant(0) << QVariant() << false;
        QTest::newRow("two dates") << QVariant(noon) << QVariant(noon.addSecs(1)) << false;
        QTest::newRow("no bytes") << QVariant(QByteArray()) << QVariant(QByteArray("")) << true;
    }
    void nullAndEmptyAreOne()
    {
        QFETCH(QVariant, left);
        QFETCH(QVariant, right);
        QTEST(isSameValue(left, right), "same");
        QTEST(isSameValue(right, left), "same");
    }
};

static const RegisteredTest<TestRowMerge, QCoreApplication> registeredRowMerge;

#include "TestRowMerge.moc"
