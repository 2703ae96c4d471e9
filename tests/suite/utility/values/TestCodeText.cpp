// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/CodeText.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The mark, where a reader sees it.
QString marked(const char *text)
{
    return QString::fromUtf8(text).replace(u'|', CodeText::mark);
}

// As from a keyboard of any language.
void typeText(KEdit &edit, const QString &text)
{
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(&edit, &press);
    }
}

}

class TestCodeText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markStandsBehindEachRunOfPersianLetters_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("shown");
        auto row = [](const char *name, const char *shown) {
            QTest::newRow(name) << QString::fromUtf8(shown).remove(u'|') << marked(shown);
        };
        row("empty", "");
        row("Latin alone", "NAAM01CA2CR123456");
        row("plate", "|12 ب| 345 ایران| 67");
        row("plate without blanks", "|12ب|345-67");
        row("letter at the end", "|345 ب");
        row("blank at the end", "|345 ب ");
        row("two words are one run", "|تهران بزرگ| 12");
        row("Persian alone", "|ایران");
    }

    void markStandsBehindEachRunOfPersianLetters()
    {
        QFETCH(QString, code);
        QFETCH(QString, shown);
        QCOMPARE(CodeText::shown(code), shown);
        QCOMPARE(CodeText::plain(shown), code);
        // What is shown already is shown as before.
        QCOMPARE(CodeText::shown(CodeText::plain(shown)), shown);
    }

    void caretStaysBehindTheCharacterThatItStoodBehind_data()
    {
        QTest::addColumn<int>("inCode");
        QTest::addColumn<int>("inShown");
        // |12ب|345
        QTest::newRow("start") << 0 << 0;
        QTest::newRow("before the letter") << 2 << 3;
        QTest::newRow("behind the letter and its mark") << 3 << 5;
        QTest::newRow("end") << 6 << 8;
    }

    void caretStaysBehindTheCharacterThatItStoodBehind()
    {
        QFETCH(int, inCode);
        QFETCH(int, inShown);
        qsizetype caret = inCode;
        CodeText::shown(u"12ب345"_s, &caret);
        QCOMPARE(caret, inShown);
    }

    void plateIsTypedAndCorrectedAsIfThereWereNoMarks()
    {
        KEdit edit(KEdit::Kind::Code);
        typeText(edit, u"۱۲ب345"_s);
        QCOMPARE(edit.plainText(), u"12ب345"_s);
        QCOMPARE(edit.text(), marked("|12ب|345"));
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QCOMPARE(edit.plainText(), u"12"_s);
        typeText(edit, u"ج678"_s);
        edit.setCursorPosition(5);
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QCOMPARE(edit.plainText(), u"12678"_s);
        edit.setText(u"12ب345"_s);
        edit.setCursorPosition(4);
        QTest::keyClick(&edit, Qt::Key_Delete);
        QCOMPARE(edit.plainText(), u"12ب45"_s);
    }

    void codeIsLimitedByItsOwnCharacters()
    {
        KEdit edit(KEdit::Kind::Code);
        edit.setCodeLength(6);
        typeText(edit, u"12ب3456"_s);
        QCOMPARE(edit.plainText(), u"12ب345"_s);
        edit.setCursorPosition(0);
        typeText(edit, u"9"_s);
        QCOMPARE(edit.plainText(), u"12ب345"_s);
        QCOMPARE(edit.cursorPosition(), 0);
    }

    void copiedCodeHoldsNoMarks_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("left");
        QTest::newRow("Ctrl+C") << "copy"
                                << "12 ب 345";
        QTest::newRow("Ctrl+X") << "cut"
                                << "";
        QTest::newRow("the menu's cut") << "menu"
                                        << "";
    }

    void copiedCodeHoldsNoMarks()
    {
        QFETCH(QString, way);
        QFETCH(QString, left);
        KEdit edit(KEdit::Kind::Code);
        edit.setText(u"12 ب 345"_s);
        edit.show();
        edit.selectAll();
        QApplication::clipboard()->setText(u"before"_s);
        if (way == u"menu"_s) {
            QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
            QApplication::sendEvent(&edit, &event);
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            // Undo and redo come before, and a line.
            menu->actions().at(3)->trigger();
            menu->close();
        } else {
            QTest::keyClick(&edit, way == u"copy"_s ? Qt::Key_C : Qt::Key_X, Qt::ControlModifier);
        }
        QTRY_COMPARE(QApplication::clipboard()->text(), u"12 ب 345"_s);
        QCOMPARE(edit.plainText(), left);
    }

    void codeThatIsOnlyShownIsNotCut()
    {
        KEdit edit(KEdit::Kind::Code);
        edit.setText(u"12 ب 345"_s);
        edit.setReadOnly(true);
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(edit.plainText(), u"12 ب 345"_s);
    }

    void codeReadsFromTheLeftInsideAPageThatReadsFromTheRight()
    {
        QWidget page;
        page.setLayoutDirection(Qt::RightToLeft);
        KEdit edit(KEdit::Kind::Code, &page);
        QCOMPARE(edit.layoutDirection(), Qt::LeftToRight);
        QVERIFY(edit.alignment() & Qt::AlignRight);
        // A line goes by its first letter, whatever direction it is told.
        edit.setText(u"12 ب 345"_s);
        QVERIFY(!edit.text().isRightToLeft());
    }
};

static const RegisteredTest<TestCodeText, QApplication> registeredCodeText;

#include "TestCodeText.moc"
