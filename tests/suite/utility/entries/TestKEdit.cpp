// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KEdit.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

#include "suite/utility/values/Money.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

void paste(KEdit &edit, const QString &text)
{
    QApplication::clipboard()->setText(text);
    edit.paste();
}

}

class TestKEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textStandsAtTheFormsSideWhateverItIs();
    void cleanup() { setDefaultMoneyDecimals(0); }
    void typed_data();
    void typed();
    void pasted_data();
    void pasted();
    void decimalsOfTheOffice();
    void refusedDecimalsAreHintedAt_data();
    void refusedDecimalsAreHintedAt();
    void refusedPointTakesItsDecimalsWithIt_data();
    void refusedPointTakesItsDecimalsWithIt();
    void hintMarksAnEntryThatStaysValid();
    void caretStaysBehindItsDigit_data();
    void caretStaysBehindItsDigit();
    void deletingPassesTheSeparator();
    void lettersDoNotReplaceASelectedAmount();
    void setNumberIsNoEdit();
    void aSetNumberComesBackExactly();
    void notFiniteIsZero();
    void setTextIsAnEdit();
    void screenReaderSetsText();
    void screenReaderReplacesText();
    void sameNumberIsNoChange();
    void outOfRange_data();
    void outOfRange();
    void rightAgainAfterOutOfRange();
    void itsOwnDescriptionOutlivesAnError();
    void aSetNumberOutOfRangeIsMarked();
    void aSetNumberThatEqualsItsBoundIsInRange();
    void finishedEntryIsShownAsANumber();
    void negativeOnlyWhereTheRangeAllows();
    void maxLength();
    void typedTextKeepsAsciiDigits();
    void setTextOfATextLineStaysAsGiven();
    void numbersReadLeftToRight();
    void clickIntoANumberSelectsIt();
    void nothingIsTypedIntoAReadOnlyLine();
};

void TestKEdit::typed_data()
{
    QTest::addColumn<KEdit::Kind>("kind");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<double>("number");
    const auto row = [](const char *name, KEdit::Kind kind, const QString &keys, const char *shown, double number) {
        QTest::newRow(name) << kind << keys << QString::fromLatin1(shown) << number;
    };
    using enum KEdit::Kind;
    row("money is grouped", Money, u"1250000"_s, "1,250,000", 1250000);
    row("Persian digits", Money, u"۱۲۵۰۰۰۰"_s, "1,250,000", 1250000);
    row("Arabic digits", Money, u"١٢٥٠"_s, "1,250", 1250);
    row("letters and blanks are refused", Money, u"1a2 ب3"_s, "123", 123);
    row("typed separators are refused", Money, u"1,250"_s, "1,250", 1250);
    row("leading zeros go", Money, u"007"_s, "7", 7);
    row("a zero stays", Money, u"0"_s, "0", 0);
    row("no decimals where the unit has none", Money, u"2500000.7"_s, "2,500,000.", 2500000);
    row("decimals of zeros do not multiply", Money, u"1000.50"_s, "1,000.", 1000);
    row("a slash begins decimals", Money, u"5000/25"_s, "5,000.", 5000);
    row("the Persian point with Persian digits", Money, u"۵۰۰۰٫۲۵"_s, "5,000.", 5000);
    row("the Persian point with Arabic digits", Money, u"٥٠٠٠٫٢٥"_s, "5,000.", 5000);
    row("no sign where it cannot be negative", Money, u"-5"_s, "5", 5);
    row("percent with decimals", Percent, u"4.5"_s, "4.5", 4.5);
    row("percent with a slash", Percent, u"۴/۵"_s, "4.5", 4.5);
    row("percent with the Persian point", Percent, u"4٫25"_s, "4.25", 4.25);
    row("a second point is refused", Percent, u"4.5.1"_s, "4.5", 4.5);
    row("a point first", Percent, u".5"_s, "0.5", 0.5);
    row("four decimals of a percent", Percent, u"1.23456"_s, "1.2345", 1.2345);
    row("whole number is not grouped", Integer, u"10000"_s, "10000", 10000);
    row("whole number without decimals", Integer, u"1.5"_s, "1.", 1);
    row("whole number with a slash", Integer, u"۱۲/۷"_s, "12.", 12);
}

void TestKEdit::typed()
{
    QFETCH(KEdit::Kind, kind);
    QFETCH(QString, keys);
    QFETCH(QString, shown);
    QFETCH(double, number);
    KEdit edit(kind);
    QSignalSpy edited(&edit, &KEdit::numberEdited);
    QSignalSpy changed(&edit, &KEdit::numberChanged);
    Hand::typeInto(edit, keys);
    QCOMPARE(edit.text(), shown);
    QCOMPARE(edit.number(), number);
    QVERIFY(edit.isEntryValid());
    QCOMPARE(edited.size(), changed.size());
    QCOMPARE(edited.isEmpty() ? 0.0 : edited.last().first().toDouble(), number);
}

void TestKEdit::pasted_data()
{
    QTest::addColumn<KEdit::Kind>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    const auto row = [](const char *name, KEdit::Kind kind, const QString &text, double number) {
        QTest::newRow(name) << kind << text << number;
    };
    using enum KEdit::Kind;
    row("grouped", Money, u"1,250,000"_s, 1250000);
    row("grouped in Persian", Money, u"۱٬۲۵۰٬۰۰۰"_s, 1250000);
    row("grouped by the Persian comma", Money, u"۱،۲۵۰،۰۰۰"_s, 1250000);
    row("grouped by points", Money, u"1.250.000"_s, 1250000);
    row("with the unit behind", Money, u"1,250,000 ریال"_s, 1250000);
    row("with direction marks", Money, u"\u200E1,250\u200F"_s, 1250);
    row("decimals are cut, not joined on", Money, u"1,234.50"_s, 1234);
    row("only letters", Money, u"هیچ"_s, 0);
    row("percent sign behind", Percent, u"9%"_s, 9);
    row("decimals behind a slash are cut, not joined on", Money, u"5000/25"_s, 5000);
    row("decimals behind the Persian point are cut", Money, u"۵٬۰۰۰٫۲۵"_s, 5000);
    row("points that part no groups", Money, u"1000.50.5"_s, 1000);
    row("a date is no amount of its digits", Money, u"1405/08/29"_s, 1405);
    row("whole number with decimals", Integer, u"12.7"_s, 12);
}

void TestKEdit::pasted()
{
    QFETCH(KEdit::Kind, kind);
    QFETCH(QString, text);
    KEdit edit(kind);
    paste(edit, text);
    QTEST(edit.number(), "number");
}

void TestKEdit::decimalsOfTheOffice()
{
    setDefaultMoneyDecimals(2);
    KEdit edit(KEdit::Kind::Money);
    Hand::typeInto(edit, u"1234.567"_s);
    QCOMPARE(edit.text(), u"1,234.56"_s);
    QCOMPARE(edit.number(), 1234.56);
    edit.setNumber(7);
    QCOMPARE(edit.text(), u"7.00"_s);
}

void TestKEdit::refusedDecimalsAreHintedAt_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("pastes");
    QTest::addColumn<QString>("hint");
    const QString none = u"اعشار پذیرفته نمی‌شود."_s;
    const QString two = u"حداکثر 2 رقم اعشار پذیرفته می‌شود."_s;
    QTest::newRow("typed") << 0 << u"1000.5"_s << false << none;
    QTest::newRow("pasted") << 0 << u"1000.5"_s << true << none;
    QTest::newRow("a third decimal typed") << 2 << u"1000.505"_s << false << two;
    QTest::newRow("a third decimal pasted") << 2 << u"1000/505"_s << true << two;
    QTest::newRow("decimals that the unit has") << 2 << u"1000.50"_s << false << QString();
    QTest::newRow("a point alone") << 0 << u"1000."_s << false << QString();
}

void TestKEdit::refusedDecimalsAreHintedAt()
{
    QFETCH(int, decimals);
    QFETCH(QString, text);
    QFETCH(bool, pastes);
    QFETCH(QString, hint);
    setDefaultMoneyDecimals(decimals);
    KEdit edit(KEdit::Kind::Money);
    if (pastes)
        paste(edit, text);
    else
        Hand::typeInto(edit, text);
    QCOMPARE(edit.notice(), hint);
    QCOMPARE(edit.accessibleDescription(), hint);
    QVERIFY(edit.isEntryValid());
    // The rest of the entry was taken, and finishing it is the end of the hint.
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.notice(), QString());
    QCOMPARE(edit.text(), DToMoney(edit.number()));
}

void TestKEdit::refusedPointTakesItsDecimalsWithIt_data()
{
    QTest::addColumn<QString>("before"); // | is the caret
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("after");
    QTest::newRow("before digits of the whole") << u"2|500"_s << u".7"_s << u"2|500"_s;
    QTest::newRow("in the whole of an amount with decimals") << u"2|5.50"_s << u"/99"_s << u"2|5.50"_s;
    QTest::newRow("a second point behind the first") << u"25.5|"_s << u".7"_s << u"25.5|"_s;
}

void TestKEdit::refusedPointTakesItsDecimalsWithIt()
{
    QFETCH(QString, before);
    QFETCH(QString, keys);
    KEdit edit(KEdit::Kind::Percent);
    edit.setDecimals(2);
    edit.setRange(0, 10000);
    edit.setText(QString(before).remove(u'|'));
    edit.setCursorPosition(int(before.indexOf(u'|')));
    Hand::typeInto(edit, keys);
    QTEST(edit.text().insert(edit.cursorPosition(), u'|'), "after");
    QVERIFY(!edit.notice().isEmpty());
    // Any other key ends it.
    QTest::keyClick(&edit, Qt::Key_Home);
    Hand::typeInto(edit, u"1"_s);
    QVERIFY(edit.text().startsWith(u'1'));
}

void TestKEdit::hintMarksAnEntryThatStaysValid()
{
    const QString hint = u"کمیسیون این مبلغ را وارد کنید"_s;
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(5);
    edit.setHint(hint);
    QCOMPARE(edit.notice(), hint);
    QCOMPARE(edit.accessibleDescription(), hint);
    QVERIFY(edit.isEntryValid());
    // Passing through the line leaves the hint, an edit answers it.
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.notice(), hint);
    Hand::typeInto(edit, u"7"_s);
    QCOMPARE(edit.notice(), QString());
    edit.setHint(hint);
    edit.setHint({});
    QCOMPARE(edit.accessibleDescription(), QString());
    // What is refused comes before what is only to be considered.
    edit.setRange(0, 10);
    edit.setHint(hint);
    edit.setNumber(11);
    QCOMPARE(edit.notice(), edit.entryError());
    QVERIFY(!edit.isEntryValid());
}

void TestKEdit::caretStaysBehindItsDigit_data()
{
    QTest::addColumn<QString>("before"); // | is the caret
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("after");
    QTest::newRow("at the end") << u"123|"_s << u"4"_s << u"1,234|"_s;
    QTest::newRow("at the start") << u"|123"_s << u"9"_s << u"9|,123"_s;
    QTest::newRow("in the middle") << u"1,2|34"_s << u"5"_s << u"12,5|34"_s;
    QTest::newRow("two digits") << u"1,2|34"_s << u"56"_s << u"125,6|34"_s;
    QTest::newRow("behind a separator") << u"1,|234"_s << u"5"_s << u"15|,234"_s;
}

void TestKEdit::caretStaysBehindItsDigit()
{
    QFETCH(QString, before);
    QFETCH(QString, keys);
    KEdit edit(KEdit::Kind::Money);
    edit.setText(QString(before).remove(u'|'));
    edit.setCursorPosition(int(before.indexOf(u'|')));
    Hand::typeInto(edit, keys);
    QTEST(edit.text().insert(edit.cursorPosition(), u'|'), "after");
}

void TestKEdit::deletingPassesTheSeparator()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(1234567);
    edit.setCursorPosition(2); // 1,|234,567
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QCOMPARE(edit.text(), u"234,567"_s);
    QCOMPARE(edit.cursorPosition(), 0);
    edit.setCursorPosition(3); // 234|,567
    QTest::keyClick(&edit, Qt::Key_Delete);
    QCOMPARE(edit.text(), u"23,467"_s);
    QCOMPARE(edit.number(), 23467.0);
}

void TestKEdit::lettersDoNotReplaceASelectedAmount()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(500);
    edit.selectAll();
    Hand::typeInto(edit, u"aش"_s);
    QCOMPARE(edit.number(), 500.0);
    Hand::typeInto(edit, u"7"_s);
    QCOMPARE(edit.number(), 7.0);
}

void TestKEdit::setNumberIsNoEdit()
{
    KEdit edit(KEdit::Kind::Money);
    QSignalSpy edited(&edit, &KEdit::numberEdited);
    QSignalSpy changed(&edit, &KEdit::numberChanged);
    edit.setNumber(1500);
    QCOMPARE(edit.text(), u"1,500"_s);
    QCOMPARE(edited.size(), 0);
    QCOMPARE(changed.size(), 1);
    edit.setNumber(1500);
    QCOMPARE(changed.size(), 1);
}

void TestKEdit::aSetNumberComesBackExactly()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(1234.5678);
    QCOMPARE(edit.text(), u"1,235"_s);
    QCOMPARE(edit.number(), 1234.5678);
    // Passing through the line without typing is no edit.
    edit.show();
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_Return);
    edit.clearFocus();
    QCOMPARE(edit.number(), 1234.5678);
}

void TestKEdit::notFiniteIsZero()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(qQNaN());
    QCOMPARE(edit.number(), 0.0);
    edit.setNumber(qInf());
    QCOMPARE(edit.text(), u"0"_s);
}

void TestKEdit::setTextIsAnEdit()
{
    KEdit edit(KEdit::Kind::Percent);
    QSignalSpy edited(&edit, &KEdit::numberEdited);
    edit.setText(u"12"_s);
    QCOMPARE(edited.size(), 1);
    QCOMPARE(edited.first().first().toDouble(), 12.0);
}

void TestKEdit::screenReaderSetsText()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setAccessibleName(u"مبلغ قرارداد :"_s);
    QSignalSpy edited(&edit, &KEdit::numberEdited);
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(reader);
    QCOMPARE(reader->role(), QAccessible::EditableText);
    QCOMPARE(reader->text(QAccessible::Name), u"مبلغ قرارداد :"_s);
    reader->setText(QAccessible::Value, u"۸۵۰۰۰۰۰۰۰"_s);
    QCOMPARE(reader->text(QAccessible::Value), u"850,000,000"_s);
    QCOMPARE(edited.size(), 1);
    QCOMPARE(edited.first().first().toDouble(), 850000000.0);
}

void TestKEdit::screenReaderReplacesText()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(5);
    QSignalSpy edited(&edit, &KEdit::numberEdited);
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(reader && reader->editableTextInterface());
    reader->editableTextInterface()->replaceText(0, 1, u"1200"_s);
    QCOMPARE(edit.text(), u"1,200"_s);
    QCOMPARE(edited.size(), 1);
}

void TestKEdit::sameNumberIsNoChange()
{
    KEdit edit(KEdit::Kind::Percent);
    edit.setNumber(4);
    QSignalSpy edited(&edit, &KEdit::numberEdited);
    Hand::typeInto(edit, u".0"_s);
    QCOMPARE(edit.text(), u"4.0"_s);
    QCOMPARE(edited.size(), 0);
}

void TestKEdit::outOfRange_data()
{
    QTest::addColumn<KEdit::Kind>("kind");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<double>("number");
    const auto row = [](const char *name, KEdit::Kind kind, double minimum, double maximum, const char *text,
                        bool valid,
                        double number) {
        QTest::newRow(name) << kind << minimum << maximum << QString::fromLatin1(text) << valid << number;
    };
    using enum KEdit::Kind;
    row("percent 0", Percent, 0, 100, "0", true, 0);
    row("percent 100", Percent, 0, 100, "100", true, 100);
    row("percent just above 100", Percent, 0, 100, "100.01", false, 100);
    row("percent 150", Percent, 0, 100, "150", false, 100);
    row("percent empty", Percent, 0, 100, "", true, 0);
    row("rows 1", Integer, 1, 10000, "1", true, 1);
    row("rows 10000", Integer, 1, 10000, "10000", true, 10000);
    row("rows 10001", Integer, 1, 10000, "10001", false, 10000);
    row("rows 0", Integer, 1, 10000, "0", false, 1);
    row("rows of thirty digits", Integer, 1, 10000, "999999999999999999999999999999", false, 10000);
    row("money beyond what is exact", Money, 0, 999999999999999.0, "1000000000000000", false, 999999999999999.0);
}

void TestKEdit::outOfRange()
{
    QFETCH(KEdit::Kind, kind);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QString, text);
    QFETCH(bool, valid);
    KEdit edit(kind);
    edit.setRange(minimum, maximum);
    edit.setText(u"5"_s);
    edit.setText(text);
    QCOMPARE(edit.isEntryValid(), valid);
    QCOMPARE(edit.entryError().isEmpty(), valid);
    QTEST(edit.number(), "number");
}

void TestKEdit::rightAgainAfterOutOfRange()
{
    KEdit edit(KEdit::Kind::Percent);
    Hand::typeInto(edit, u"150"_s);
    QVERIFY(!edit.isEntryValid());
    QCOMPARE(edit.text(), u"150"_s);
    QVERIFY(edit.entryError().contains(u"100"_s));
    QCOMPARE(edit.accessibleDescription(), edit.entryError());
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QVERIFY(edit.isEntryValid());
    QCOMPARE(edit.accessibleDescription(), QString());
    QCOMPARE(edit.number(), 15.0);
}

void TestKEdit::itsOwnDescriptionOutlivesAnError()
{
    const QString own = u"ردیف 2"_s;
    KEdit edit(KEdit::Kind::Percent);
    edit.setAccessibleDescription(own);
    edit.setText(u"150"_s);
    QCOMPARE(edit.accessibleDescription(), own + QLatin1Char(' ') + edit.entryError());
    edit.setRange(0, 90);
    QCOMPARE(edit.accessibleDescription(), own + QLatin1Char(' ') + edit.entryError());
    edit.setText(u"15"_s);
    QCOMPARE(edit.accessibleDescription(), own);
}

void TestKEdit::aSetNumberOutOfRangeIsMarked()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(-5);
    QVERIFY(!edit.isEntryValid());
    QCOMPARE(edit.number(), -5.0);
    QCOMPARE(edit.text(), u"-5"_s);
}

// A computed amount may miss its bound by the noise of its sums: 0.7 + 0.1 - 0.8 is no debt.
void TestKEdit::aSetNumberThatEqualsItsBoundIsInRange()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(0.7 + 0.1 - 0.8);
    QVERIFY(edit.number() < 0);
    QVERIFY(edit.isEntryValid());
    QCOMPARE(edit.text(), u"0"_s);
    edit.setNumber(-0.001);
    QVERIFY(!edit.isEntryValid());
    KEdit percent(KEdit::Kind::Percent);
    percent.setText(u"100.0001"_s);
    QVERIFY(!percent.isEntryValid());
}

void TestKEdit::finishedEntryIsShownAsANumber()
{
    setDefaultMoneyDecimals(2);
    KEdit edit(KEdit::Kind::Money);
    Hand::typeInto(edit, u"1500."_s);
    QCOMPARE(edit.text(), u"1,500."_s);
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.text(), u"1,500.00"_s);
    KEdit empty(KEdit::Kind::Money);
    QTest::keyClick(&empty, Qt::Key_Return);
    QCOMPARE(empty.text(), QString());
}

void TestKEdit::negativeOnlyWhereTheRangeAllows()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setRange(-1e9, 1e9);
    Hand::typeInto(edit, u"-12-34"_s);
    QCOMPARE(edit.text(), u"-1,234"_s);
    QCOMPARE(edit.number(), -1234.0);
}

void TestKEdit::maxLength()
{
    KEdit edit;
    edit.setMaxLength(5);
    Hand::typeInto(edit, u"توضیحات"_s);
    QCOMPARE(edit.text(), u"توضیح"_s);
    edit.clear();
    paste(edit, u"1234567"_s);
    QCOMPARE(edit.text(), u"12345"_s);
}

void TestKEdit::typedTextKeepsAsciiDigits()
{
    KEdit edit;
    Hand::typeInto(edit, u"پلاک ۱۲"_s);
    QCOMPARE(edit.text(), u"پلاک 12"_s);
    edit.setCursorPosition(0);
    Hand::typeInto(edit, u"٣"_s);
    QCOMPARE(edit.text(), u"3پلاک 12"_s);
    QCOMPARE(edit.cursorPosition(), 1);
}

void TestKEdit::setTextOfATextLineStaysAsGiven()
{
    KEdit edit;
    edit.setText(u"علي ۱۲ 1,5"_s);
    QCOMPARE(edit.text(), u"علي ۱۲ 1,5"_s);
    QCOMPARE(edit.number(), 0.0);
}

void TestKEdit::numbersReadLeftToRight()
{
    QWidget form;
    form.setLayoutDirection(Qt::RightToLeft);
    KEdit money(KEdit::Kind::Money, &form);
    KEdit text(&form);
    QCOMPARE(money.layoutDirection(), Qt::LeftToRight);
    QCOMPARE(money.alignment() & Qt::AlignHorizontal_Mask, Qt::Alignment(Qt::AlignRight));
    QCOMPARE(text.layoutDirection(), Qt::RightToLeft);
    money.setKind(KEdit::Kind::Text);
    QCOMPARE(money.layoutDirection(), Qt::RightToLeft);
}

void TestKEdit::clickIntoANumberSelectsIt()
{
    QWidget form;
    KEdit first(&form);
    KEdit money(KEdit::Kind::Money, &form);
    money.setNumber(1500);
    money.setGeometry(0, 50, 200, 30);
    form.resize(300, 100);
    form.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    first.setFocus();
    QTest::mouseClick(&money, Qt::LeftButton, {}, QPoint(100, 15));
    QCOMPARE(money.selectedText(), u"1,500"_s);
    QTest::mouseClick(&money, Qt::LeftButton, {}, QPoint(100, 15));
    QVERIFY(!money.hasSelectedText());
}

void TestKEdit::nothingIsTypedIntoAReadOnlyLine()
{
    KEdit edit(KEdit::Kind::Money);
    edit.setNumber(1500);
    edit.setReadOnly(true);
    edit.setCursorPosition(2);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    Hand::typeInto(edit, u"7"_s);
    QCOMPARE(edit.number(), 1500.0);
}

void TestKEdit::textStandsAtTheFormsSideWhateverItIs()
{
    KEdit edit;
    edit.resize(300, 30);
    // The two ends of the text; the line knows where they are once it is painted.
    const auto ends = [&edit](const QString &text) {
        edit.setText(text);
        edit.home(false);
        edit.grab();
        const int start = edit.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
        edit.end(false);
        edit.grab();
        return std::minmax({start, edit.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x()});
    };
    const QStringList texts{QString(), u"09121234567"_s, u"abc"_s, u"علی"_s};
    edit.setLayoutDirection(Qt::RightToLeft);
    for (const QString &text : texts)
        QVERIFY2(ends(text).second > 280, qPrintable(text));
    edit.setLayoutDirection(Qt::LeftToRight);
    for (const QString &text : texts)
        QVERIFY2(ends(text).first < 20, qPrintable(text));
}

static const RegisteredTest<TestKEdit, QApplication> registeredKEdit;
#include "TestKEdit.moc"
