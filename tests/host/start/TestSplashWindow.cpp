// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/SplashWindow.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestSplashWindow : public QObject
{
    Q_OBJECT

    static QPushButton *giveUp(const SplashWindow &splash) { return splash.findChild<QPushButton *>(); }

private Q_SLOTS:
    void waitingForAnotherProgramCanBeGivenUp_data()
    {
        QTest::addColumn<bool>("byKeyboard");
        QTest::newRow("pressed") << false;
        QTest::newRow("Esc") << true;
    }

    void waitingForAnotherProgramCanBeGivenUp()
    {
        QFETCH(bool, byKeyboard);
        SplashWindow splash;
        splash.showWaiting(u"راه‌اندازی"_s);
        QVERIFY(!giveUp(splash)->isVisible());
        QVERIFY(splash.showWaitingOrGiveUp(u"دیگری در حال ارتقای پایگاه داده است"_s));
        QVERIFY(giveUp(splash)->isVisible());
        QVERIFY(splash.rect().contains(giveUp(splash)->geometry()));
        QVERIFY(QTest::qWaitForWindowActive(&splash));
        if (byKeyboard)
            QTest::keyClick(&splash, Qt::Key_Escape);
        else
            QTest::mouseClick(giveUp(splash), Qt::LeftButton);
        QVERIFY(!splash.showWaitingOrGiveUp(u"دیگری در حال ارتقای پایگاه داده است"_s));
    }

    void nextWaitingStartsAnew()
    {
        SplashWindow splash;
        static_cast<void>(splash.showWaitingOrGiveUp(u"یک"_s));
        giveUp(splash)->click();
        QVERIFY(!splash.showWaitingOrGiveUp(u"یک"_s));
        splash.showWaiting(u"آماده‌سازی"_s);
        QVERIFY(!giveUp(splash)->isVisible());
        QVERIFY(splash.showWaitingOrGiveUp(u"دو"_s));
    }
};

static const RegisteredTest<TestSplashWindow, QApplication> registeredSplashWindow;
#include "TestSplashWindow.moc"
