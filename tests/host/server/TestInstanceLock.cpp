// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/InstanceLock.h"
#include "host/server/ServerError.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <future>

using namespace Qt::StringLiterals;

class TestInstanceLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSecondStartOnTheSameFolderIsToldSo()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        InstanceLock first(folder);
        InstanceLock second(folder);
        QVERIFY(first.acquire());
        QVERIFY(first.acquire());
        QVERIFY(!second.acquire());
        QVERIFY(second.inUseMessage().contains(folder.path()));
    }

    void aSecondStartRaisesTheFirstOnesWindow()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        InstanceLock first(folder);
        QVERIFY(first.acquire());
        QSignalSpy raised(&first, &InstanceLock::raiseRequested);
        std::future<bool> answer = std::async(std::launch::async, [folder] {
            InstanceLock second(folder);
            return !second.acquire() && second.raiseOther();
        });
        QTRY_COMPARE(raised.count(), 1);
        while (answer.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready)
            QCoreApplication::processEvents();
        QVERIFY(answer.get());
    }

    void aHolderThatDoesNotAnswerIsNotTakenForRaised()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        InstanceLock first(folder);
        QVERIFY(first.acquire());
        // No event loop runs here, as in a program that hangs.
        InstanceLock second(folder);
        QVERIFY(!second.raiseOther(200));
    }

    void theFolderIsFreeWhenItsHolderIsGone()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        {
            InstanceLock first(folder);
            QVERIFY(first.acquire());
        }
        InstanceLock second(folder);
        QVERIFY(second.acquire());
    }

    void aStaleSocketOfAKilledHolderIsReplaced()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        QFile stale(folder.socketPath(u"host"_s));
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.close();
        InstanceLock holder(folder);
        QVERIFY(holder.acquire());
        QSignalSpy raised(&holder, &InstanceLock::raiseRequested);
        std::future<bool> answer = std::async(std::launch::async, [folder] { return InstanceLock(folder).raiseOther(); });
        QTRY_COMPARE(raised.count(), 1);
        QVERIFY(answer.get());
    }

    void aLockThatCannotBeMadeIsAnError()
    {
        const QTemporaryDir temporary;
        InstanceLock lock(DataFolder(temporary.filePath(u"never made"_s)));
        QVERIFY_THROWS_EXCEPTION(ServerError, lock.acquire());
    }
};

static const RegisteredTest<TestInstanceLock, QCoreApplication> registeredInstanceLock;
#include "TestInstanceLock.moc"
