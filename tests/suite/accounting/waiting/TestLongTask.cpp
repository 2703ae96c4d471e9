// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/waiting/LongTask.h"
#include "tests/support/RegisteredTest.h"

#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

// A long work on a thread of its own: told, stopped, and what it throws.
class TestLongTask : public QObject
{
    Q_OBJECT

    // Goes on until it is stopped.
    static void endless(const LongTask::Progress &progress)
    {
        for (int step = 0;; ++step) {
            if (!progress(step, 100))
                throw LongTask::Stopped();
            QThread::msleep(1);
        }
    }

private Q_SLOTS:
    void runsElsewhereAndEnds()
    {
        LongTask task;
        QSignalSpy ended(&task, &LongTask::ended);
        QThread *where = nullptr;
        task.start([&](const LongTask::Progress &) { where = QThread::currentThread(); });
        QVERIFY(ended.wait());
        QVERIFY(where && where != QThread::currentThread());
        QVERIFY(!task.error());
    }

    void isStoppedAtItsNextStep()
    {
        LongTask task;
        QSignalSpy ended(&task, &LongTask::ended);
        QSignalSpy progressed(&task, &LongTask::progressed);
        task.start(&TestLongTask::endless);
        QVERIFY(progressed.wait());
        task.stop();
        QVERIFY(ended.wait());
        QVERIFY_THROWS_EXCEPTION(LongTask::Stopped, std::rethrow_exception(task.error()));
    }

    void whatItThrowsComesOver()
    {
        LongTask task;
        QSignalSpy ended(&task, &LongTask::ended);
        task.start([](const LongTask::Progress &) { throw std::runtime_error("broken"); });
        QVERIFY(ended.wait());
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, std::rethrow_exception(task.error()));
    }

    // A window that goes leaves no thread behind.
    void goesWithItsOwner()
    {
        std::atomic_bool over = false;
        {
            LongTask task;
            QSignalSpy progressed(&task, &LongTask::progressed);
            task.start([&](const LongTask::Progress &progress) {
                try {
                    endless(progress);
                } catch (const LongTask::Stopped &) {
                    over = true;
                    throw;
                }
            });
            QVERIFY(progressed.wait());
        }
        QVERIFY(over);
    }
};

static const RegisteredTest<TestLongTask, QCoreApplication> registeredLongTask;
#include "TestLongTask.moc"
