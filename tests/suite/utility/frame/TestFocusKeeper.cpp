// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/FocusKeeper.h"

#include <QApplication>
#include <QDialog>
#include <QTest>

#include "tests/support/RegisteredTest.h"

// Who has the keys once a dialog has closed.
class TestFocusKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowBehindADialogGetsTheKeysBack()
    {
        const FocusKeeper keeper(qApp);
        QWidget window;
        window.show();
        QDialog dialog(&window);
        dialog.open();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        dialog.reject();
        QTRY_VERIFY(window.isActiveWindow());
    }

    void anotherDialogGoesBeforeTheWindow()
    {
        const FocusKeeper keeper(qApp);
        QWidget window;
        window.show();
        QDialog first(&window);
        first.open();
        QDialog second(&first);
        second.open();
        QVERIFY(QTest::qWaitForWindowActive(&second));
        second.reject();
        QTRY_VERIFY(first.isActiveWindow());
    }
};

static const RegisteredTest<TestFocusKeeper, QApplication> registeredFocusKeeper;
#include "TestFocusKeeper.moc"
