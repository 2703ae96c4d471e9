// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/frame/KWaitNotice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestKWaitNotice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysThatItWaitsAndForHowLong();
    void isGivenUpByKey_data();
    void isGivenUpByKey();
    void isGivenUpByTheButton();
    void timersOfOthersArePutOffAndNotLost();
    void cursorIsNormalOverTheNotice();
    void fieldKeepsItsTextAndItsPlace();
};

namespace {

QWidget *notice()
{
    return QApplication::activeModalWidget();
}

QString shownText()
{
    return notice() ? notice()->findChild<QLabel *>()->text() : QString();
}

}

void TestKWaitNotice::saysThatItWaitsAndForHowLong()
{
    KWaitNotice waits;
    QVERIFY(waits.goOn(1000ms));
    QVERIFY(notice());
    QCOMPARE(shownText(), u"در انتظار پاسخ پایگاه داده... (1 ثانیه)"_s);
    QCOMPARE(notice()->layoutDirection(), Qt::RightToLeft);
    QVERIFY(waits.goOn(2600ms));
    QCOMPARE(shownText(), u"در انتظار پاسخ پایگاه داده... (2 ثانیه)"_s);
    waits.ended();
    QVERIFY(!notice());
    // The next one is a wait of its own.
    QVERIFY(waits.goOn(1000ms));
    QVERIFY(notice());
    waits.ended();
}

void TestKWaitNotice::isGivenUpByKey_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("Esc") << Qt::Key_Escape << false;
    // What somebody was about to type into the window below.
    QTest::newRow("blank") << Qt::Key_Space << true;
    QTest::newRow("Enter") << Qt::Key_Return << true;
    QTest::newRow("letter") << Qt::Key_N << true;
}

void TestKWaitNotice::isGivenUpByKey()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, goesOn);
    KWaitNotice waits;
    QVERIFY(waits.goOn(1000ms));
    QWidget *focused = notice()->focusWidget() ? notice()->focusWidget() : notice();
    QTest::keyClick(focused, key);
    QCOMPARE(waits.goOn(1100ms), goesOn);
    waits.ended();
    QVERIFY(waits.goOn(1000ms));
    waits.ended();
}

void TestKWaitNotice::isGivenUpByTheButton()
{
    KWaitNotice waits;
    QVERIFY(waits.goOn(1000ms));
    auto *button = notice()->findChild<QPushButton *>();
    QCOMPARE(button->text(), u"انصراف"_s);
    QTest::keyClick(notice(), Qt::Key_Tab);
    QVERIFY(button->hasFocus());
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!waits.goOn(1100ms));
    waits.ended();
}

void TestKWaitNotice::timersOfOthersArePutOffAndNotLost()
{
    KWaitNotice waits;
    int fired = 0;
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, [&fired] { ++fired; });
    timer.start(1);
    QTimer::singleShot(1, this, [&fired] { ++fired; });
    for (int round = 0; round < 5; ++round) {
        QTest::qSleep(2);
        QVERIFY(waits.goOn(1000ms));
    }
    QCOMPARE(fired, 0);
    waits.ended();
    QTRY_COMPARE(fired, 2);
}

void TestKWaitNotice::cursorIsNormalOverTheNotice()
{
    KWaitNotice waits;
    const KWaitCursor cursor;
    QVERIFY(waits.goOn(1000ms));
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    waits.ended();
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

void TestKWaitNotice::fieldKeepsItsTextAndItsPlace()
{
    QDialog window;
    QLineEdit first(&window);
    QLineEdit second(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    second.setFocus();
    second.setText(u"۲۰۶"_s);
    {
        KWaitNotice waits;
        QVERIFY(waits.goOn(1000ms));
        QVERIFY(notice() != &window);
        waits.ended();
    }
    QTRY_VERIFY(second.hasFocus());
    QCOMPARE(second.text(), u"۲۰۶"_s);
}

static const RegisteredTest<TestKWaitNotice, QApplication> registeredKWaitNotice;
#include "TestKWaitNotice.moc"
