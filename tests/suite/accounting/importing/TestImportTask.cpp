// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportTask.h"
#include "tests/support/RegisteredTest.h"

#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

// A long work on a thread of its own: told, stopped, and what it throws.
class TestImportTask : public QObject
{
    Q_OBJECT

    // Goes on until it is stopped.
    static void endless(const Importing::Progress &progress)
    {
        for (int step = 0;; ++step) {
            if (!progress(step, 100))
                throw Importing::Stopped();
            QThread::msleep(1);
        }
    }

private Q_SLOTS:
    void runsElsewhereAndEnds()
    {
        ImportTask task;
        QSignalSpy ended(&task, &ImportTask::ended);
        QThread *where = nullptr;
        task.start([&](const Importing::Progress &) { where = QThread::currentThread(); });
        QVERIFY(ended.wait());
        QVERIFY(where && where != QThread::currentThread());
        QVERIFY(!task.error());
    }

    void isStoppedAtItsNextStep()
    {
        ImportTask task;
        QSignalSpy ended(&task, &ImportTask::ended);
        QSignalSpy progressed(&task, &ImportTask::progressed);
        task.start(&TestImportTask::endless);
        QVERIFY(progressed.wait());
        task.stop();
        QVERIFY(ended.wait());
        QVERIFY_THROWS_EXCEPTION(Importing::Stopped, std::rethrow_exception(task.error()));
    }

    void whatItThrowsComesOver()
    {
        ImportTask task;
        QSignalSpy ended(&task, &ImportTask::ended);
        task.start([](const Importing::Progress &) { throw std::runtime_error("broken"); });
        QVERIFY(ended.wait());
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, std::rethrow_exception(task.error()));
    }

    // A window that goes leaves no thread behind.
    void goesWithItsOwner()
    {
        std::atomic_bool over = false;
        {
            ImportTask task;
            QSignalSpy progressed(&task, &ImportTask::progressed);
            task.start([&](const Importing::Progress &progress) {
                try {
                    endless(progress);
                } catch (const Importing::Stopped &) {
                    over = true;
                    throw;
                }
            });
            QVERIFY(progressed.wait());
        }
        QVERIFY(over);
    }
};

static const RegisteredTest<TestImportTask, QCoreApplication> registeredImportTask;
#include "TestImportTask.moc"
