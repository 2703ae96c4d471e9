// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDateEdit.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

const QDate someDay(2026, 11, 20); // 1405/08/29, a Friday

QDateTime midnight(const QDate &date)
{
    return QDateTime(date, QTime(0, 0), Qt::UTC);
}

QWidget *openPopup()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->windowType() == Qt::Popup && widget->isVisible())
            return widget;
    }
    return nullptr;
}

QAbstractButton *buttonNamed(const QWidget *popup, const QString &name)
{
    for (auto *button : popup->findChildren<QAbstractButton *>()) {
        if (button->accessibleName() == name || button->text() == name)
            return button;
    }
    return nullptr;
}

}

class TestKDateEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedForms_data();
    void typedForms();
    void halfTypedIsNoDate();
    void anErrorIsToldWhenTheTypingEnds();
    void lettersAreRefused();
    void emptied();
    void setDateTimeKeepsTheTimeUntilEdited();
    void setDateTimeIsNoEdit();
    void invalidDateTimeEmptiesTheLine();
    void keys_data();
    void keys();
    void keysStopAtTheCalendarsEnds();
    void keysOnAnEmptyLineGiveToday();
    void checkBoxStartsUnchecked();
    void checkingAnEmptyLineGivesToday();
    void enteringADateChecks();
    void emptyingUnchecks();
    void uncheckingKeepsTheDate();
    void aRefusedDateThatDoesNotCountIsNoError();
    void spaceTogglesTheBox();
    void screenReaderEntersADate();
    void screenReaderFindsTheBox();
    void popupByKeyboard();
    void popupOpensOnTodayWithoutADate();
    void popupByMouse();
    void popupSteps_data();
    void popupSteps();
    void popupTodayAndClear();
    void popupLeft();
    void readOnly();
    void digitsReadLeftToRight();
};

void TestKDateEdit::typedForms_data()
{
    QTest::addColumn<QString>("keys");
    for (const QString &keys :
         {u"1405/08/29"_s, u"1405/8/29"_s, u"14050829"_s,
          u"1405-08-29"_s,
          u"1405.8.29"_s, u"۱۴۰۵/۰۸/۲۹"_s, u"١٤٠٥٠٨٢٩"_s})
        QTest::newRow(qPrintable(keys)) << keys;
}

void TestKDateEdit::typedForms()
{
    QFETCH(QString, keys);
    KDateEdit edit;
    QSignalSpy edited(&edit, &KDateEdit::dateEdited);
    Hand::typeInto(edit, keys);
    QCOMPARE(edit.dateTime(), midnight(someDay));
    QCOMPARE(edit.dateTime().timeSpec(), Qt::UTC);
    QVERIFY(edit.isEntryValid());
    QCOMPARE(edited.last().first().toDateTime(), midnight(someDay));
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.text(), u"1405/08/29"_s);
}

void TestKDateEdit::halfTypedIsNoDate()
{
    KDateEdit edit;
    Hand::typeInto(edit, u"1405/08/"_s);
    QVERIFY(!edit.dateTime().isValid());
    QVERIFY(!edit.isEntryValid());
    QVERIFY(!edit.entryError().isEmpty());
    QCOMPARE(edit.accessibleDescription(), edit.entryError());
    Hand::typeInto(edit, u"29"_s);
    QVERIFY(edit.isEntryValid());
    QCOMPARE(edit.accessibleDescription(), QString());
    edit.setText(u"1404/12/30"_s);
    QVERIFY(!edit.isEntryValid());
    QCOMPARE(edit.text(), u"1404/12/30"_s);
}

void TestKDateEdit::anErrorIsToldWhenTheTypingEnds()
{
    QWidget form;
    QLineEdit other(&form);
    KDateEdit edit(&form);
    form.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    edit.setFocus();
    Hand::typeInto(edit, u"1405/13"_s);
    QVERIFY(!edit.isEntryValid());
    QCOMPARE(edit.accessibleDescription(), QString());
    other.setFocus();
    QCOMPARE(edit.text(), u"1405/13"_s);
    QCOMPARE(edit.accessibleDescription(), edit.entryError());
    edit.setFocus();
    edit.selectAll();
    Hand::typeInto(edit, u"14050829"_s);
    QCOMPARE(edit.accessibleDescription(), QString());
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.text(), u"1405/08/29"_s);
    QVERIFY(edit.isEntryValid());
}

void TestKDateEdit::lettersAreRefused()
{
    KDateEdit edit;
    edit.setDate(someDay);
    edit.selectAll();
    Hand::typeInto(edit, u"aش "_s);
    QCOMPARE(edit.date(), someDay);
}

void TestKDateEdit::emptied()
{
    KDateEdit edit;
    edit.setDate(someDay);
    QSignalSpy edited(&edit, &KDateEdit::dateEdited);
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QVERIFY(!edit.dateTime().isValid());
    QVERIFY(edit.isEntryValid());
    QCOMPARE(edited.size(), 1);
    QVERIFY(!edited.first().first().toDateTime().isValid());
}

void TestKDateEdit::setDateTimeKeepsTheTimeUntilEdited()
{
    const QDateTime afternoon(someDay, QTime(14, 30), Qt::UTC);
    KDateEdit edit;
    edit.setDateTime(afternoon);
    QCOMPARE(edit.text(), u"1405/08/29"_s);
    QCOMPARE(edit.dateTime(), afternoon);
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.dateTime(), afternoon);
    QTest::keyClick(&edit, Qt::Key_Up);
    QCOMPARE(edit.dateTime(), midnight(someDay.addDays(1)));
    // A value in the clock of the place is taken by what the clock shows.
    edit.setDateTime(QDateTime(someDay, QTime(23, 59), Qt::LocalTime));
    QCOMPARE(edit.dateTime(), QDateTime(someDay, QTime(23, 59), Qt::UTC));
}

void TestKDateEdit::setDateTimeIsNoEdit()
{
    KDateEdit edit;
    QSignalSpy edited(&edit, &KDateEdit::dateEdited);
    QSignalSpy changed(&edit, &KDateEdit::dateTimeChanged);
    edit.setDate(someDay);
    edit.setDate(someDay);
    QCOMPARE(edited.size(), 0);
    QCOMPARE(changed.size(), 1);
}

void TestKDateEdit::invalidDateTimeEmptiesTheLine()
{
    KDateEdit edit;
    edit.setDate(someDay);
    edit.setDateTime({});
    QCOMPARE(edit.text(), QString());
    QVERIFY(!edit.dateTime().isValid());
    edit.setDate({});
    QVERIFY(!edit.dateTime().isValid());
}

void TestKDateEdit::keys_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("to");
    const auto row = [](const char *name, const char *from, Qt::Key key, Qt::KeyboardModifiers modifiers,
                        const char *to) {
        QTest::newRow(name) << QString::fromLatin1(from) << key << modifiers << QString::fromLatin1(to);
    };
    row("next day", "1405/08/29", Qt::Key_Up, Qt::NoModifier, "1405/08/30");
    row("next day into the next month", "1405/08/30", Qt::Key_Up, Qt::NoModifier, "1405/09/01");
    row("day before", "1405/01/01", Qt::Key_Down, Qt::NoModifier, "1404/12/29");
    row("day before into a leap year", "1404/01/01", Qt::Key_Down, Qt::NoModifier, "1403/12/30");
    row("next month", "1405/08/29", Qt::Key_PageUp, Qt::NoModifier, "1405/09/29");
    row("next month is shorter", "1405/06/31", Qt::Key_PageUp, Qt::NoModifier, "1405/07/30");
    row("month before", "1405/01/15", Qt::Key_PageDown, Qt::NoModifier, "1404/12/15");
    row("next year", "1405/08/29", Qt::Key_PageUp, Qt::ShiftModifier, "1406/08/29");
    row("year before from a leap day", "1403/12/30", Qt::Key_PageDown, Qt::ShiftModifier, "1402/12/29");
    row("page keys with Ctrl are not the field's", "1405/08/29", Qt::Key_PageUp, Qt::ControlModifier, "1405/08/29");
}

void TestKDateEdit::keys()
{
    QFETCH(QString, from);
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, to);
    KDateEdit edit;
    edit.setDate(parseShamsi(from));
    QSignalSpy edited(&edit, &KDateEdit::dateEdited);
    QTest::keyClick(&edit, key, modifiers);
    QCOMPARE(edit.text(), to);
    QCOMPARE(edit.date(), parseShamsi(to));
    QCOMPARE(edited.size(), from == to ? 0 : 1);
}

void TestKDateEdit::keysStopAtTheCalendarsEnds()
{
    KDateEdit edit;
    edit.setDate(parseShamsi(u"1498/12/30"));
    QTest::keyClick(&edit, Qt::Key_Up);
    QTest::keyClick(&edit, Qt::Key_PageUp);
    QCOMPARE(edit.text(), u"1498/12/30"_s);
}

void TestKDateEdit::keysOnAnEmptyLineGiveToday()
{
    KDateEdit edit;
    QTest::keyClick(&edit, Qt::Key_Down);
    QCOMPARE(edit.date(), QDate::currentDate());
}

void TestKDateEdit::checkBoxStartsUnchecked()
{
    KDateEdit plain;
    QVERIFY(plain.isChecked());
    QVERIFY(!plain.isCheckable());
    KDateEdit edit;
    edit.setCheckable(true);
    QVERIFY(edit.isCheckable());
    QVERIFY(!edit.isChecked());
    edit.setDate(someDay);
    QVERIFY(!edit.isChecked());
    QCOMPARE(edit.date(), someDay);
    edit.setCheckable(false);
    QVERIFY(edit.isChecked());
}

void TestKDateEdit::checkingAnEmptyLineGivesToday()
{
    KDateEdit edit;
    edit.setCheckable(true);
    QSignalSpy checked(&edit, &KDateEdit::checkedChanged);
    edit.findChild<QCheckBox *>()->click();
    QVERIFY(edit.isChecked());
    QCOMPARE(edit.date(), QDate::currentDate());
    QCOMPARE(checked.size(), 1);
}

void TestKDateEdit::enteringADateChecks()
{
    KDateEdit edit;
    edit.setCheckable(true);
    bool checkedWhenTold = false;
    connect(&edit, &KDateEdit::dateEdited, this, [&] { checkedWhenTold = edit.isChecked(); });
    Hand::typeInto(edit, u"14050829"_s);
    QVERIFY(edit.isChecked());
    QVERIFY(checkedWhenTold);
    QCOMPARE(edit.date(), someDay);
}

void TestKDateEdit::emptyingUnchecks()
{
    KDateEdit edit;
    edit.setCheckable(true);
    edit.setDate(someDay);
    edit.setChecked(true);
    edit.clear();
    QVERIFY(!edit.isChecked());
    QCOMPARE(edit.text(), QString());
}

void TestKDateEdit::uncheckingKeepsTheDate()
{
    KDateEdit edit;
    edit.setCheckable(true);
    Hand::typeInto(edit, u"14050829"_s);
    edit.setChecked(false);
    QCOMPARE(edit.date(), someDay);
    QCOMPARE(edit.text(), u"14050829"_s);
    QVERIFY(!edit.isChecked());
}

void TestKDateEdit::aRefusedDateThatDoesNotCountIsNoError()
{
    KDateEdit edit;
    edit.setCheckable(true);
    Hand::typeInto(edit, u"1405/13"_s);
    QVERIFY(!edit.isEntryValid());
    edit.setChecked(false);
    QVERIFY(edit.isEntryValid());
}

void TestKDateEdit::spaceTogglesTheBox()
{
    KDateEdit edit;
    edit.setCheckable(true);
    edit.setDate(someDay);
    QTest::keyClick(&edit, Qt::Key_Space);
    QVERIFY(edit.isChecked());
    QTest::keyClick(&edit, Qt::Key_Space);
    QVERIFY(!edit.isChecked());
    QCOMPARE(edit.date(), someDay);
}

void TestKDateEdit::screenReaderEntersADate()
{
    KDateEdit edit;
    edit.setAccessibleName(u"تاريخ عقد :"_s);
    QSignalSpy edited(&edit, &KDateEdit::dateEdited);
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(reader);
    QCOMPARE(reader->role(), QAccessible::EditableText);
    QCOMPARE(reader->text(QAccessible::Name), u"تاريخ عقد :"_s);
    reader->setText(QAccessible::Value, u"۱۴۰۵۰۸۲۹"_s);
    QCOMPARE(edited.size(), 1);
    QCOMPARE(edit.date(), someDay);
    QCOMPARE(reader->text(QAccessible::Value), u"1405/08/29"_s);
    reader->editableTextInterface()->replaceText(0, 10, u"1405/09/01"_s);
    QCOMPARE(edit.date(), someDay.addDays(2));
}

void TestKDateEdit::screenReaderFindsTheBox()
{
    KDateEdit edit;
    edit.setAccessibleName(u"تاريخ عقد از :"_s);
    edit.setCheckable(true);
    edit.show();
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&edit);
    QAccessibleInterface *box = nullptr;
    for (int i = 0; i < reader->childCount(); ++i) {
        if (reader->child(i)->role() == QAccessible::CheckBox)
            box = reader->child(i);
    }
    QVERIFY(box);
    QCOMPARE(box->text(QAccessible::Name), u"تاريخ عقد از :"_s);
    box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(edit.isChecked());
}

void TestKDateEdit::popupByKeyboard()
{
    KDateEdit edit;
    edit.setDate(someDay);
    edit.show();
    QTest::keyClick(&edit, Qt::Key_F4);
    QWidget *popup = openPopup();
    QVERIFY(popup);
    QCOMPARE(popup->accessibleName(), u"جمعه 29 آبان 1405"_s);
    QTest::keyClick(popup, Qt::Key_Right); // towards the past
    QTest::keyClick(popup, Qt::Key_Up);
    QTest::keyClick(popup, Qt::Key_Return);
    QVERIFY(!openPopup());
    QCOMPARE(edit.text(), u"1405/08/21"_s);
    QTest::keyClick(&edit, Qt::Key_Down, Qt::AltModifier);
    QVERIFY(openPopup());
    QTest::keyClick(openPopup(), Qt::Key_Escape);
    QCOMPARE(edit.text(), u"1405/08/21"_s);
}

void TestKDateEdit::popupOpensOnTodayWithoutADate()
{
    KDateEdit edit;
    edit.setCheckable(true);
    edit.show();
    edit.showPopup();
    QVERIFY(openPopup());
    QTest::keyClick(openPopup(), Qt::Key_Return);
    QCOMPARE(edit.date(), QDate::currentDate());
    QVERIFY(edit.isChecked());
}

void TestKDateEdit::popupByMouse()
{
    KDateEdit edit;
    edit.setDate(someDay);
    edit.show();
    QSignalSpy edited(&edit, &KDateEdit::dateEdited);
    edit.showPopup();
    QWidget *popup = openPopup();
    QVERIFY(popup);
    QAbstractButton *first = buttonNamed(popup, u"جمعه 1 آبان 1405"_s);
    QAbstractButton *last = buttonNamed(popup, u"شنبه 30 آبان 1405"_s);
    QVERIFY(first && last);
    QVERIFY(!buttonNamed(popup, u"یکشنبه 1 آذر 1405"_s));
    // Saturday stands rightmost, Friday leftmost.
    QVERIFY(last->x() > first->x());
    QVERIFY(last->y() > first->y());
    QTest::mouseClick(first, Qt::LeftButton);
    QVERIFY(!openPopup());
    QCOMPARE(edit.text(), u"1405/08/01"_s);
    QCOMPARE(edited.size(), 1);
}

void TestKDateEdit::popupSteps_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("shown");
    using M = Qt::KeyboardModifiers;
    QTest::newRow("month before") << u"ماه قبل"_s << Qt::Key_PageUp << M()
                                  << u"چهارشنبه 29 مهر 1405"_s;
    QTest::newRow("next month") << u"ماه بعد"_s << Qt::Key_PageDown << M()
                                << u"یکشنبه 29 آذر 1405"_s;
    QTest::newRow("year before") << u"سال قبل"_s << Qt::Key_PageUp << M(Qt::ShiftModifier)
                                 << u"پنجشنبه 29 آبان 1404"_s;
    QTest::newRow("next year") << u"سال بعد"_s << Qt::Key_PageDown << M(Qt::ShiftModifier)
                               << u"شنبه 29 آبان 1406"_s;
}

void TestKDateEdit::popupSteps()
{
    QFETCH(QString, button);
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, shown);
    KDateEdit edit;
    edit.setDate(someDay);
    edit.show();
    edit.showPopup();
    QTest::keyClick(openPopup(), key, modifiers);
    QCOMPARE(openPopup()->accessibleName(), shown);
    openPopup()->close();
    edit.showPopup();
    QVERIFY(buttonNamed(openPopup(), button));
    buttonNamed(openPopup(), button)->click();
    QCOMPARE(openPopup()->accessibleName(), shown);
    openPopup()->close();
    QCOMPARE(edit.date(), someDay);
}

void TestKDateEdit::popupTodayAndClear()
{
    KDateEdit edit;
    edit.setDate(someDay.addYears(-1));
    edit.show();
    edit.showPopup();
    buttonNamed(openPopup(), u"امروز"_s)->click();
    QCOMPARE(edit.date(), QDate::currentDate());
    QVERIFY(!openPopup());
    edit.showPopup();
    buttonNamed(openPopup(), u"پاک کردن"_s)->click();
    QVERIFY(!edit.dateTime().isValid());
    QVERIFY(!openPopup());
}

void TestKDateEdit::popupLeft()
{
    KDateEdit edit;
    edit.setDate(someDay);
    edit.show();
    edit.showPopup();
    for (Qt::Key key : {Qt::Key_End, Qt::Key_Down, Qt::Key_Home, Qt::Key_Left})
        QTest::keyClick(openPopup(), key);
    QCOMPARE(openPopup()->accessibleName(), u"دوشنبه 2 آذر 1405"_s);
    QTest::keyClick(openPopup(), Qt::Key_Escape);
    QVERIFY(!openPopup());
    QCOMPARE(edit.date(), someDay);
}

void TestKDateEdit::readOnly()
{
    KDateEdit edit;
    edit.setCheckable(true);
    edit.setDate(someDay);
    edit.setReadOnly(true);
    edit.show();
    QTest::keyClick(&edit, Qt::Key_Up);
    QTest::keyClick(&edit, Qt::Key_F4);
    Hand::typeInto(edit, u"1 "_s);
    QVERIFY(!openPopup());
    QCOMPARE(edit.date(), someDay);
    QVERIFY(!edit.isChecked());
    QVERIFY(!edit.findChild<QCheckBox *>()->isEnabled());
    edit.setReadOnly(false);
    QTest::keyClick(&edit, Qt::Key_Up);
    QCOMPARE(edit.date(), someDay.addDays(1));
}

void TestKDateEdit::digitsReadLeftToRight()
{
    QWidget form;
    form.setLayoutDirection(Qt::RightToLeft);
    KDateEdit edit(&form);
    edit.setDate(someDay);
    QCOMPARE(edit.layoutDirection(), Qt::LeftToRight);
    for (const QChar c : edit.text())
        QVERIFY(c.unicode() < 128);
}

static const RegisteredTest<TestKDateEdit, QApplication> registeredKDateEdit;
#include "TestKDateEdit.moc"
