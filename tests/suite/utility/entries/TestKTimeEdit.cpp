// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KTimeEdit.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class TestKTimeEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void typed_data();
    void typed();
    void shownInAsciiDigits();
    void arrowsStepThePartUnderTheCaret();
    void wheelCountsOnlyWithTheFocus();
};

void TestKTimeEdit::typed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QTime>("time");
    QTest::newRow("ASCII digits") << "1830" << QTime(18, 30);
    QTest::newRow("Persian digits") << "۱۸۳۰" << QTime(18, 30);
    QTest::newRow("Arabic digits") << "٠٧٠٥" << QTime(7, 5);
    QTest::newRow("the end of the day") << "2359" << QTime(23, 59);
    QTest::newRow("letters are refused") << "ب18x30" << QTime(18, 30);
}

void TestKTimeEdit::typed()
{
    QFETCH(QString, text);
    KTimeEdit edit;
    edit.show();
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    edit.setFocus();
    edit.setSelectedSection(QDateTimeEdit::HourSection);
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, QString(c), Qt::NoModifier);
    QTEST(edit.time(), "time");
}

void TestKTimeEdit::shownInAsciiDigits()
{
    KTimeEdit edit;
    edit.setTime(QTime(9, 5));
    QCOMPARE(edit.text(), u"09:05"_s);
}

void TestKTimeEdit::arrowsStepThePartUnderTheCaret()
{
    KTimeEdit edit;
    edit.setTime(QTime(9, 5));
    edit.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClick(&edit, Qt::Key_Up);
    QCOMPARE(edit.time(), QTime(10, 5));
    edit.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(&edit, Qt::Key_Down);
    QCOMPARE(edit.time(), QTime(10, 4));
}

void TestKTimeEdit::wheelCountsOnlyWithTheFocus()
{
    QWidget window;
    KTimeEdit edit(&window);
    QLineEdit other(&window);
    edit.setTime(QTime(9, 5));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto turn = [&edit] {
        QWheelEvent event(QPointF(5, 5), edit.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&edit, &event);
    };
    other.setFocus();
    turn();
    QCOMPARE(edit.time(), QTime(9, 5));
    edit.setFocus();
    edit.setSelectedSection(QDateTimeEdit::HourSection);
    turn();
    QCOMPARE(edit.time(), QTime(10, 5));
}

static const RegisteredTest<TestKTimeEdit, QApplication> registeredKTimeEdit;
#include "TestKTimeEdit.moc"
