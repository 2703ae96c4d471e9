// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentState.h"

#include "auto/contracts/instalments/LateFee.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestInstalmentState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stateFollowsFromWhatWasReceived_data()
    {
        QTest::addColumn<double>("due");
        QTest::addColumn<double>("received");
        QTest::addColumn<bool>("marked");
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("rest");
        const auto row = [](const char *name, double due, double received, bool marked, InstalmentState::Kind kind, double rest) {
            QTest::newRow(name) << due << received << marked << int(kind) << rest;
        };
        row("nothing received", 112, 0, false, InstalmentState::Unpaid, 112);
        row("a part", 112, 50, false, InstalmentState::Partly, 62);
        row("the smallest part", 112, 0.01, false, InstalmentState::Partly, 111.99);
        row("all", 112, 112, false, InstalmentState::Paid, 0);
        row("all but what no unit shows", 112, 111.99995, false, InstalmentState::Paid, 0);
        row("more than all", 112, 200, false, InstalmentState::Paid, 0);
        row("all in three parts of a third", 100, 33.33 + 33.33 + 33.34, false, InstalmentState::Paid, 0);
        row("marked without a receipt", 112, 0, true, InstalmentState::Paid, 0);
        row("marked, and a part received", 112, 50, true, InstalmentState::Partly, 62);
        row("more paid back than received", 112, -5, false, InstalmentState::Unpaid, 112);
        row("an instalment of nothing", 0, 0, false, InstalmentState::Paid, 0);
    }

    void stateFollowsFromWhatWasReceived()
    {
        QFETCH(double, due);
        QFETCH(double, received);
        QFETCH(bool, marked);
        QFETCH(int, kind);
        QFETCH(double, rest);
        const InstalmentState state = InstalmentState::of(due, received, marked);
        QCOMPARE(int(state.kind), kind);
        QVERIFY2(qAbs(state.rest - rest) < 1e-9, qPrintable(QString::number(state.rest)));
    }

    void lateFeeIsTakenForTheDaysAfterGrace_data()
    {
        QTest::addColumn<double>("rest");
        QTest::addColumn<int>("days");
        QTest::addColumn<double>("percent");
        QTest::addColumn<int>("grace");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("fee");
        QTest::newRow("ten days at half a percent") << 1000. << 10 << 0.5 << 0 << 0 << 50.;
        QTest::newRow("after three days of grace") << 1000. << 10 << 0.5 << 3 << 0 << 35.;
        QTest::newRow("the last day of grace") << 1000. << 3 << 0.5 << 3 << 0 << 0.;
        QTest::newRow("the first day after") << 1000. << 4 << 0.5 << 3 << 0 << 5.;
        QTest::newRow("due today") << 1000. << 0 << 0.5 << 0 << 0 << 0.;
        QTest::newRow("not due yet") << 1000. << -4 << 0.5 << 0 << 0 << 0.;
        QTest::newRow("no fee is taken") << 1000. << 10 << 0. << 0 << 0 << 0.;
        QTest::newRow("nothing is open") << 0. << 10 << 0.5 << 0 << 0 << 0.;
        QTest::newRow("in whole units") << 333. << 1 << 0.5 << 0 << 0 << 2.;
        QTest::newRow("in two decimals") << 333. << 1 << 0.5 << 0 << 2 << 1.67;
        QTest::newRow("grace below nothing is none") << 1000. << 1 << 1. << -5 << 0 << 10.;
    }

    void lateFeeIsTakenForTheDaysAfterGrace()
    {
        QFETCH(double, rest);
        QFETCH(int, days);
        QFETCH(double, percent);
        QFETCH(int, grace);
        QFETCH(int, decimals);
        QTEST(LateFee::of(rest, days, percent, grace, decimals), "fee");
    }
};

static const RegisteredTest<TestInstalmentState, QCoreApplication> registeredInstalmentState;
#include "TestInstalmentState.moc"
