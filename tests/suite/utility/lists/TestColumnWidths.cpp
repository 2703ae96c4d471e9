// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/ColumnWidths.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <numeric>

using namespace ColumnWidths;

class TestColumnWidths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsShareTheRoom_data()
    {
        QTest::addColumn<QVector<Column>>("columns");
        QTest::addColumn<int>("room");
        QTest::addColumn<QVector<int>>("widths");
        QTest::newRow("as they want") << QVector<Column>{{100, 0}, {200, 0}} << 300 << QVector<int>{100, 200};
        QTest::newRow("more room") << QVector<Column>{{100, 0}, {200, 0}} << 600 << QVector<int>{200, 400};
        QTest::newRow("less room") << QVector<Column>{{100, 0}, {200, 0}} << 210 << QVector<int>{70, 140};
        QTest::newRow("one needs more than its share") << QVector<Column>{{100, 150}, {100, 20}, {100, 20}} << 300 << QVector<int>{150, 75, 75};
        // What the first takes leaves the second less than it needs, too.
        QTest::newRow("one after the other") << QVector<Column>{{100, 160}, {100, 80}, {100, 20}} << 300 << QVector<int>{160, 80, 60};
        QTest::newRow("hidden") << QVector<Column>{{0, 0}, {100, 0}} << 150 << QVector<int>{0, 150};
        QTest::newRow("too narrow to read") << QVector<Column>{{100, 0}, {200, 0}} << 90 << QVector<int>{60, 120};
        QTest::newRow("needs more than there is") << QVector<Column>{{100, 120}, {100, 130}} << 200 << QVector<int>{120, 130};
        QTest::newRow("none") << QVector<Column>{} << 200 << QVector<int>{};
    }

    void columnsShareTheRoom()
    {
        QFETCH(QVector<Column>, columns);
        QFETCH(int, room);
        QFETCH(QVector<int>, widths);
        QCOMPARE(shared(columns, room), widths);
    }

    void noneIsLessThanItNeedsAndNothingIsLeftOver()
    {
        const QVector<Column> columns{{40, 45}, {80, 30}, {80, 92}, {150, 70}, {50, 101}, {80, 60}};
        for (int room = 420; room < 1400; room += 7) {
            const QVector<int> widths = shared(columns, room);
            for (int i = 0; i < columns.size(); ++i)
                QVERIFY(widths[i] >= columns[i].least);
            const int sum = std::accumulate(widths.cbegin(), widths.cend(), 0);
            QVERIFY2(sum <= room && sum > room - columns.size(), qPrintable(QString::number(room)));
        }
    }
};

static const RegisteredTest<TestColumnWidths, QCoreApplication> registeredColumnWidths;
#include "TestColumnWidths.moc"
