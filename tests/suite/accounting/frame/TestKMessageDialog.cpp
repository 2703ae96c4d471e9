// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/CDlgMessage.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/look/LookMarks.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Seen
{
    QString text;
    QStringList buttons;
    bool rightToLeft = false;
    Qt::Alignment alignment; // of the text, as the eye sees it
    QString focused;
    QStringList filled; // the primary buttons
};

// The label that holds the text.
QLabel *labelOf(const CDlgMessage &box)
{
    for (QLabel *label : box.findChildren<QLabel *>()) {
        if (label->text() == box.text())
            return label;
    }
    return nullptr;
}

// Works on the message as soon as it is open; closes it if that leaves it open.
void withMessage(const QString &text, const std::function<void(CDlgMessage &)> &work)
{
    bool came = false;
    QTimer::singleShot(50, [&] {
        if (auto *box = qobject_cast<CDlgMessage *>(QApplication::activeModalWidget())) {
            came = true;
            QCoreApplication::processEvents();
            work(*box);
            box->reject();
        }
    });
    g_pDlgMessage->Show(text);
    if (!came)
        QTest::qFail("the message did not come up", __FILE__, __LINE__);
}

// Looks at the message box as soon as it is open and then presses a key in it.
Seen pressWhenShown(Qt::Key key, const std::function<void()> &show)
{
    Seen seen;
    QTimer::singleShot(50, [&] {
        auto *box = qobject_cast<CDlgMessage *>(QApplication::activeModalWidget());
        if (!box)
            return;
        seen.text = box->text();
        seen.rightToLeft = box->layoutDirection() == Qt::RightToLeft;
        if (const QLabel *label = labelOf(*box))
            seen.alignment = QStyle::visualAlignment(label->layoutDirection(), label->alignment());
        for (const QPushButton *button : box->buttons()) {
            seen.buttons.append(button->text());
            if (LookMarks::button(button) == LookMarks::Button::Primary)
                seen.filled.append(button->text());
        }
        seen.buttons.sort();
        if (const auto *button = qobject_cast<QPushButton *>(box->focusWidget()))
            seen.focused = button->text();
        QTest::keyClick(box, key);
        // A key that does not close the box must not hang the test.
        QTimer::singleShot(500, box, &QDialog::reject);
    });
    show();
    return seen;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

}

class TestKMessageDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void writtenFileHasAButtonForItsFolder();
    void unknownEndIsLookedAtAgainByTheFirstKey();
    void messageHasOneButtonAndClosesByKey_data();
    void messageHasOneButtonAndClosesByKey();
    void questionIsAnsweredByKey_data();
    void questionIsAnsweredByKey();
    void preparedAnswersAreGivenInOrder();
    void answerAllShowsNoBoxAndKeepsTheTexts();
    void markupIsShownAsTyped();
    void shortTextStandsInOneLine();
    void longTextScrollsAndTheButtonsStayInSight();
    void copyTakesTheText();
    void screenReaderHearsAnAlert();
};

void TestKMessageDialog::cleanup()
{
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
        dialog->answerAll(false);
}

void TestKMessageDialog::unknownEndIsLookedAtAgainByTheFirstKey()
{
    for (const bool again : {true, false}) {
        bool pressed = !again;
        const Seen seen = pressWhenShown(again ? Qt::Key_Return : Qt::Key_Escape, [&] { pressed = g_pDlgWarning->ShowUnknown(u"نامعلوم"_s); });
        QCOMPARE(seen.buttons, sorted({u"باشه"_s, u"نگاه دوباره"_s}));
        QCOMPARE(seen.focused, u"نگاه دوباره"_s);
        QCOMPARE(pressed, again);
    }
    // A program without a user would look for ever.
    g_pDlgWarning->answerAll(true);
    QVERIFY(!g_pDlgWarning->ShowUnknown(u"نامعلوم"_s));
    g_pDlgWarning->answerAll(false);
}

void TestKMessageDialog::writtenFileHasAButtonForItsFolder()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        bool opened = true;
        const Seen seen = pressWhenShown(key, [&] { opened = g_pDlgMessage->ShowWritten(u"ذخیره شد."_s); });
        QCOMPARE(seen.buttons, sorted({u"باشه"_s, u"باز کردن پوشه"_s}));
        QCOMPARE(seen.focused, u"باشه"_s);
        QVERIFY(!opened);
    }
    bool opened = false;
    QTimer::singleShot(50, [] {
        const QWidget *box = QApplication::activeModalWidget();
        for (QPushButton *button : box->findChildren<QPushButton *>()) {
            if (button->text() == u"باز کردن پوشه"_s)
                button->click();
        }
    });
    opened = g_pDlgMessage->ShowWritten(u"ذخیره شد."_s);
    QVERIFY(opened);
    g_pDlgMessage->answerAll(true);
    QVERIFY(!g_pDlgMessage->ShowWritten(u"ذخیره شد."_s));
    g_pDlgMessage->answerAll(false);
}

void TestKMessageDialog::messageHasOneButtonAndClosesByKey_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Esc") << int(Qt::Key_Escape);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void TestKMessageDialog::messageHasOneButtonAndClosesByKey()
{
    QFETCH(int, key);
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage}) {
        const Seen seen = pressWhenShown(Qt::Key(key), [dialog] { dialog->Show(u"متن پیام"_s); });
        QCOMPARE(seen.text, u"متن پیام"_s);
        QCOMPARE(seen.buttons, QStringList{u"باشه"_s});
        QCOMPARE(seen.filled, QStringList{u"باشه"_s});
        QVERIFY(seen.rightToLeft);
        QVERIFY(seen.alignment & Qt::AlignRight);
    }
}

void TestKMessageDialog::questionIsAnsweredByKey_data()
{
    QTest::addColumn<bool>("withCancel");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("answer");
    QTest::newRow("Enter takes the safe answer") << false << int(Qt::Key_Return) << int(KMessageDialog::No);
    QTest::newRow("Esc is No") << false << int(Qt::Key_Escape) << int(KMessageDialog::No);
    QTest::newRow("Esc cancels") << true << int(Qt::Key_Escape) << int(KMessageDialog::Cancel);
    QTest::newRow("Enter takes the safe answer of three") << true << int(Qt::Key_Return) << int(KMessageDialog::No);
}

void TestKMessageDialog::questionIsAnsweredByKey()
{
    QFETCH(bool, withCancel);
    QFETCH(int, key);
    QFETCH(int, answer);
    KMessageDialog::Answer given = KMessageDialog::Yes;
    const Seen seen = pressWhenShown(Qt::Key(key), [&] {
        given = withCancel ? g_pDlgYesNo->AskOrCancel(u"مطمئن؟"_s) : g_pDlgYesNo->Ask(u"مطمئن؟"_s);
    });
    QCOMPARE(int(given), answer);
    QStringList buttons{u"بله"_s, u"خیر"_s};
    if (withCancel)
        buttons.append(u"انصراف"_s);
    QCOMPARE(seen.buttons, sorted(buttons));
    QCOMPARE(seen.focused, u"خیر"_s);
    QCOMPARE(seen.filled, QStringList{u"خیر"_s});
}

void TestKMessageDialog::preparedAnswersAreGivenInOrder()
{
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    QCOMPARE(g_pDlgYesNo->Ask(u"یک"_s), KMessageDialog::No);
    QCOMPARE(g_pDlgYesNo->Ask(u"دو"_s), KMessageDialog::Yes);
    QCOMPARE(g_pDlgYesNo->takeShown(), (QStringList{u"یک"_s, u"دو"_s}));
}

void TestKMessageDialog::answerAllShowsNoBoxAndKeepsTheTexts()
{
    g_pDlgWarning->answerAll(true);
    g_pDlgYesNo->answerAll(true);
    g_pDlgWarning->Show(u"هشدار"_s);
    QCOMPARE(g_pDlgYesNo->Ask(u"پرسش"_s), KMessageDialog::Yes);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"هشدار"_s});
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
}

void TestKMessageDialog::markupIsShownAsTyped()
{
    const QString markup = u"<b>نام</b>"_s;
    const Seen seen = pressWhenShown(Qt::Key_Return, [&markup] { g_pDlgMessage->Show(markup); });
    QCOMPARE(seen.text, markup);
    bool plain = false;
    withMessage(markup, [&plain](CDlgMessage &box) { plain = labelOf(box) && labelOf(box)->textFormat() == Qt::PlainText; });
    QVERIFY(plain);
}

void TestKMessageDialog::shortTextStandsInOneLine()
{
    withMessage(u"قرارداد ذخیره شد."_s, [](CDlgMessage &box) {
        const QLabel *label = labelOf(box);
        QVERIFY(label->width() >= label->fontMetrics().horizontalAdvance(label->text()));
        QCOMPARE(box.findChild<QScrollArea *>()->verticalScrollBar()->maximum(), 0);
        // Nothing but the buttons has the keys.
        QCOMPARE(box.findChild<QScrollArea *>()->focusPolicy(), Qt::NoFocus);
        QVERIFY(box.width() < box.screen()->availableSize().width() / 2);
    });
}

void TestKMessageDialog::longTextScrollsAndTheButtonsStayInSight()
{
    const QString text = QString(u"سطری که آن را کسی تا پایان بخواند و چیزی از آن نیفتد.\n"_s).repeated(120);
    withMessage(text, [](CDlgMessage &box) {
        const QSize room = box.screen()->availableSize();
        QVERIFY(box.width() <= room.width() && box.height() <= room.height());
        const QPushButton *button = box.buttons().constFirst();
        QVERIFY(box.rect().contains(QRect(button->mapTo(&box, QPoint()), button->size())));
        const auto *scroll = box.findChild<QScrollArea *>();
        QCOMPARE(scroll->horizontalScrollBar()->maximum(), 0);
        QVERIFY(scroll->verticalScrollBar()->maximum() > 0);
        QTest::keyClick(box.focusWidget(), Qt::Key_PageDown);
        QVERIFY(scroll->verticalScrollBar()->value() > 0);
        QTest::keyClick(box.focusWidget(), Qt::Key_PageUp);
        QCOMPARE(scroll->verticalScrollBar()->value(), 0);
    });
}

void TestKMessageDialog::copyTakesTheText()
{
    withMessage(u"شماره 1234"_s, [](CDlgMessage &box) {
        QTest::keyClick(box.focusWidget(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), u"شماره 1234"_s);
    });
}

void TestKMessageDialog::screenReaderHearsAnAlert()
{
    withMessage(u"متن"_s, [](CDlgMessage &box) {
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&box);
        QVERIFY(reader);
        QCOMPARE(reader->role(), QAccessible::AlertMessage);
        QCOMPARE(reader->text(QAccessible::Name), u"پیام"_s);
    });
}

static const RegisteredTest<TestKMessageDialog, QApplication> registeredKMessageDialog;
#include "TestKMessageDialog.moc"
