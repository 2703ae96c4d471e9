// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KMadeAhead.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <atomic>
#include <stdexcept>

using namespace Qt::StringLiterals;

class TestKMadeAhead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesComeInTheirOrder()
    {
        KMadeAhead<int> made([](const auto &give) {
            for (int number = 0; number < 1000; ++number)
                give(number);
        });
        for (int number = 0; number < 1000; ++number)
            QCOMPARE(made.next(), std::optional(number));
        QCOMPARE(made.next(), std::nullopt);
        QCOMPARE(made.next(), std::nullopt);
    }

    void fewWaitForWhoeverIsSlow()
    {
        std::atomic<int> given = 0;
        KMadeAhead<int> made([&](const auto &give) {
            for (int number = 0; number < 1000; ++number) {
                give(number);
                ++given;
            }
        });
        QVERIFY(made.next().has_value());
        QTRY_VERIFY(given >= 4);
        QTest::qWait(50);
        QVERIFY2(given <= 5, qPrintable(QString::number(given)));
    }

    void whatMakingThrowsComesAfterWhatItGave()
    {
        KMadeAhead<QString> made([](const auto &give) {
            give(u"one"_s);
            throw std::runtime_error("no more");
        });
        QCOMPARE(made.next(), std::optional(u"one"_s));
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, made.next());
    }

    void makingEndsWithWhoeverAskedForIt()
    {
        std::atomic<int> given = 0;
        std::atomic<bool> isUndone = false;
        {
            KMadeAhead<int> made([&](const auto &give) {
                struct Undone
                {
                    std::atomic<bool> &flag;
                    ~Undone() { flag = true; }
                } undone{isUndone};
                for (;;)
                    give(++given);
            });
            QCOMPARE(made.next(), std::optional(1));
        }
        QVERIFY(isUndone);
    }
};

static const RegisteredTest<TestKMadeAhead, QCoreApplication> registeredKMadeAhead;

#include "TestKMadeAhead.moc"
