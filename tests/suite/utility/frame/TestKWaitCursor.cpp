// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KWaitCursor.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QTest>

#include <stdexcept>

class TestKWaitCursor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsForItsLifetime();
    void nested();
    void goesWithAnException();
};

void TestKWaitCursor::showsForItsLifetime()
{
    {
        const KWaitCursor wait;
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestKWaitCursor::nested()
{
    const KWaitCursor outer;
    {
        const KWaitCursor inner;
    }
    QVERIFY(QGuiApplication::overrideCursor());
}

void TestKWaitCursor::goesWithAnException()
{
    QGuiApplication::restoreOverrideCursor();
    try {
        const KWaitCursor wait;
        throw std::runtime_error("fill failed");
    } catch (const std::runtime_error &) {
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

static const RegisteredTest<TestKWaitCursor, QApplication> registeredKWaitCursor;
#include "TestKWaitCursor.moc"
