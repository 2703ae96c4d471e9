// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KSortOrder.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestKSortOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSecondClickOnATitleTurnsTheOrderRound()
    {
        KSortOrder order;
        for (const bool descending : {false, true, false}) {
            order = order.clicked(3);
            QCOMPARE(order.column, 3);
            QCOMPARE(order.descending, descending);
        }
        order = order.clicked(3).clicked(4);
        QCOMPARE(order.column, 4);
        QVERIFY(!order.descending);
    }

    void theExpressionHoldsTheDirectionAndGivesItBack()
    {
        const QString key = u"iStatus,date"_s;
        QCOMPARE((KSortOrder{1, false}.expression(key)), key);
        const QString down = KSortOrder{1, true}.expression(key);
        QCOMPARE(down, u"iStatus,date DESC"_s);
        QVERIFY(KSortOrder::isDescending(down));
        QVERIFY(!KSortOrder::isDescending(key));
        QCOMPARE(KSortOrder::sortKey(down), key);
        QCOMPARE(KSortOrder::sortKey(key), key);
    }
};

static const RegisteredTest<TestKSortOrder> registeredKSortOrder;
#include "TestKSortOrder.moc"
