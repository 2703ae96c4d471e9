// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialog.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A window with the area between two other fields.
class SampleDialog : public KDialog
{
public:
    KTextArea *area = nullptr;
    QLineEdit *behind = nullptr;

    SampleDialog()
    {
        auto *layout = new QVBoxLayout(this);
        area = new KTextArea(this);
        behind = new QLineEdit(this);
        layout->addWidget(area);
        layout->addWidget(behind);
        layout->addWidget(createButtons());
    }

    void showActive()
    {
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
        area->setFocus();
    }
};

// As a keyboard does: to the offers while they are up, which pass it on.
void type(QWidget *field, const QString &text)
{
    for (const QChar letter : text) {
        QWidget *target = QApplication::activePopupWidget() ? QApplication::activePopupWidget() : field;
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(target, &press);
    }
}

const QStringList stored = {u"هزینه دفترخانه\nو ثبت سند"_s, u"هزینه تعویض پلاک"_s,
                            u"کارت خودرو"_s};

}

class TestKTextArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthIsRefusedOnlyAboveTheLimit_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("good");
        QTest::newRow("empty") << 0 << true;
        QTest::newRow("249") << 249 << true;
        QTest::newRow("250") << 250 << true;
        QTest::newRow("251") << 251 << false;
        QTest::newRow("1000") << 1000 << false;
    }

    void lengthIsRefusedOnlyAboveTheLimit()
    {
        QFETCH(int, length);
        QFETCH(bool, good);
        KTextArea area;
        area.setMaxLength(250);
        area.setText(QString(length, u'ا'));
        QCOMPARE(area.isEntryValid(), good);
        QCOMPARE(area.entryError().isEmpty(), good);
        // Nothing that was typed is lost.
        QCOMPARE(area.text().size(), length);
    }

    void theErrorTellsLimitAndLengthAndGoesWithIt()
    {
        KTextArea area;
        area.setMaxLength(5);
        area.setText(u"ab\ndef"_s);
        QVERIFY(area.entryError().contains(u"5"_s));
        QVERIFY(area.entryError().contains(u"6"_s));
        QCOMPARE(area.accessibleDescription(), area.entryError());
        area.setText(u"ab\nde"_s);
        QVERIFY(area.isEntryValid());
        QVERIFY(area.accessibleDescription().isEmpty());
        area.setMaxLength(2);
        QVERIFY(!area.isEntryValid());
        area.setMaxLength(0);
        QVERIFY(area.isEntryValid());
    }

    void aRefusedEntryIsMarked()
    {
        KTextArea area;
        area.resize(area.sizeHint());
        area.setMaxLength(1);
        area.setText(u"a"_s);
        const QImage good = area.grab().toImage();
        area.setMaxLength(0);
        area.setText(u"a"_s);
        QCOMPARE(area.grab().toImage(), good);
        area.setMaxLength(1);
        area.setText(u"ab"_s);
        const QImage marked = area.grab().toImage();
        const QPoint edge(area.viewport()->x() + area.viewport()->width() / 2, area.viewport()->y() + 1);
        QVERIFY(marked.pixelColor(edge).red() > marked.pixelColor(edge).green() + 60);
        QVERIFY(good.pixelColor(edge).red() <= good.pixelColor(edge).green() + 10);
    }

    void tabLeavesAndControlEnterConfirms()
    {
        SampleDialog dialog;
        dialog.showActive();
        QTest::keyClick(dialog.area, Qt::Key_Return);
        QCOMPARE(dialog.area->text(), u"\n"_s);
        QTest::keyClick(dialog.area, Qt::Key_Tab);
        QCOMPARE(dialog.focusWidget(), dialog.behind);
        QCOMPARE(dialog.area->text(), u"\n"_s);
        dialog.area->setFocus();
        QTest::keyClick(dialog.area, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.area->text(), u"\n"_s);
    }

    void readOnlyIsSunken()
    {
        KTextArea area;
        const QColor open = area.palette().color(QPalette::Base);
        area.setReadOnly(true);
        QCOMPARE(area.palette().color(QPalette::Base), HostColors::of(HostColors::Role::Sunken));
        area.setReadOnly(false);
        QCOMPARE(area.palette().color(QPalette::Base), open);
    }

    void textBeginsWhereItsWindowBegins_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("Persian") << u"تعرفه"_s;
        QTest::newRow("Latin") << u"ELX"_s;
    }

    // Read from the right, whatever letters the first line begins with.
    void textBeginsWhereItsWindowBegins()
    {
        QFETCH(QString, text);
        SampleDialog dialog;
        dialog.setLayoutDirection(Qt::RightToLeft);
        dialog.area->setText(text);
        dialog.resize(600, 200);
        dialog.showActive();
        dialog.area->moveCursor(QTextCursor::Start);
        QVERIFY(dialog.area->cursorRect().x() > dialog.area->viewport()->width() / 2);
        dialog.area->moveCursor(QTextCursor::End);
        QVERIFY(dialog.area->cursorRect().x() > dialog.area->viewport()->width() / 2);
    }

    void typingAPartOffersTheStoredTextsThatHoldIt()
    {
        SampleDialog dialog;
        dialog.area->setCompletions(stored);
        dialog.showActive();
        type(dialog.area, u"هزینه"_s);
        QAbstractItemView *offers = dialog.area->completer()->popup();
        QTRY_VERIFY(offers->isVisible());
        QCOMPARE(dialog.area->completer()->completionCount(), 2);
        // On one line each.
        QCOMPARE(offers->model()->index(0, 0).data().toString(), u"هزینه دفترخانه و ثبت سند"_s);
        QTest::keyClick(offers, Qt::Key_Down);
        QTest::keyClick(offers, Qt::Key_Return);
        QCOMPARE(dialog.area->text(), stored.at(0));
        QVERIFY(!offers->isVisible());
        QVERIFY(dialog.isVisible());
    }

    void whatIsOfferedCanBeWavedAway()
    {
        SampleDialog dialog;
        dialog.area->setCompletions(stored);
        dialog.showActive();
        type(dialog.area, u"کارت"_s);
        QAbstractItemView *offers = dialog.area->completer()->popup();
        QTRY_VERIFY(offers->isVisible());
        QTest::keyClick(offers, Qt::Key_Escape);
        QVERIFY(!offers->isVisible());
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.area->text(), u"کارت"_s);
        // An entry that no stored text contains brings no offers.
        type(dialog.area, u"خوان"_s);
        QVERIFY(!offers->isVisible());
        QCOMPARE(dialog.area->text(), u"کارتخوان"_s);
    }

    void offersStandUnderTheFieldInBothDirections_data()
    {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("right to left") << Qt::RightToLeft;
        QTest::newRow("left to right") << Qt::LeftToRight;
    }

    void offersStandUnderTheFieldInBothDirections()
    {
        QFETCH(Qt::LayoutDirection, direction);
        SampleDialog dialog;
        dialog.setLayoutDirection(direction);
        dialog.area->setCompletions(stored);
        dialog.showActive();
        type(dialog.area, u"پلاک"_s);
        const QWidget *offers = dialog.area->completer()->popup();
        QTRY_VERIFY(offers->isVisible());
        const QRect field(dialog.area->mapToGlobal(QPoint()), dialog.area->size());
        QVERIFY(offers->x() >= field.left());
        QVERIFY(offers->geometry().right() <= field.right());
        QVERIFY(offers->y() > field.top());
        QVERIFY(offers->y() < field.bottom());
    }

    void lettersFromAnInputMethodOfferToo()
    {
        SampleDialog dialog;
        dialog.area->setCompletions(stored);
        dialog.showActive();
        QInputMethodEvent event;
        event.setCommitString(u"پلاک"_s);
        QApplication::sendEvent(dialog.area, &event);
        QTRY_VERIFY(dialog.area->completer()->popup()->isVisible());
        QCOMPARE(dialog.area->completer()->currentCompletion(), stored.at(1));
    }

    void settingATextOffersNothing()
    {
        SampleDialog dialog;
        dialog.area->setCompletions(stored);
        dialog.showActive();
        dialog.area->setText(u"هزینه"_s);
        QVERIFY(!dialog.area->completer()->popup()->isVisible());
    }
};

static const RegisteredTest<TestKTextArea, QApplication> registeredKTextArea;
#include "TestKTextArea.moc"
