// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/NumberDelegate.h"

#include "suite/utility/entries/CutNumber.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KLinesView.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr double one = 1'234'567'890;
constexpr double other = 9'876'543'210;
constexpr int narrow = 40;
constexpr int wide = 300;

// What a list shows of an amount in a column of that width.
QImage listed(double amount, int width, bool heading = false)
{
    KExtListCtrl list;
    list.setColumns({{u"مبلغ"_s, Qt::AlignCenter, 80}, {u"شرح"_s, Qt::AlignRight, 80}});
    KListModel::Row row{1, {{DToMoney(amount), amount}, {u"x"_s}}};
    row.heading = heading;
    list.setRows({row});
    list.resize(500, 200);
    list.show();
    list.header()->resizeSection(0, width);
    return list.viewport()->grab(list.visualRect(list.model()->index(0, 0))).toImage();
}

QImage inGrid(double amount, int width)
{
    KLinesModel model({{u"مبلغ"_s, KLinesModel::Kind::Money, 80}, {u"شرح"_s, KLinesModel::Kind::Text, 80}});
    model.setLines({{{{}, amount}, {u"x"_s}}});
    KLinesView view(&model);
    view.resize(500, 200);
    view.show();
    view.horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    view.horizontalHeader()->resizeSection(0, width);
    return view.viewport()->grab(view.visualRect(model.index(0, 0))).toImage();
}

QImage inLine(double amount, int width, bool focused = false)
{
    QWidget window;
    KEdit edit(KEdit::Kind::Money, &window);
    edit.setNumber(amount);
    edit.setReadOnly(!focused);
    edit.setGeometry(0, 0, width, 30);
    window.resize(400, 60);
    window.show();
    if (focused) {
        window.activateWindow();
        edit.setFocus();
        if (!QTest::qWaitForWindowActive(&window) || !edit.hasFocus())
            return {};
        edit.deselect();
    } else {
        edit.clearFocus();
    }
    return edit.grab().toImage();
}

}

// Amounts without room: two that differ look alike, because neither is shown.
class TestNumberDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aListMarksAnAmountThatDoesNotFit_data()
    {
        QTest::addColumn<bool>("heading");
        QTest::newRow("row") << false;
        QTest::newRow("bold") << true;
    }

    void aListMarksAnAmountThatDoesNotFit()
    {
        QFETCH(bool, heading);
        QCOMPARE(listed(one, narrow, heading), listed(other, narrow, heading));
        QVERIFY(listed(one, wide, heading) != listed(other, wide, heading));
        QVERIFY(listed(7, narrow, heading) != listed(8, narrow, heading));
        // The cell is not merely empty.
        QVERIFY(listed(one, narrow, heading) != listed(7, narrow, heading));
    }

    void aGridMarksAnAmountThatDoesNotFit()
    {
        QCOMPARE(inGrid(one, narrow), inGrid(other, narrow));
        QVERIFY(inGrid(one, wide) != inGrid(other, wide));
        QVERIFY(inGrid(7, narrow) != inGrid(8, narrow));
    }

    void aFieldMarksAnAmountThatDoesNotFit()
    {
        QCOMPARE(inLine(one, narrow), inLine(other, narrow));
        QVERIFY(inLine(one, wide) != inLine(other, wide));
        QVERIFY(inLine(7, narrow) != inLine(8, narrow));
        // Who types sees what is typed.
        QVERIFY(!inLine(one, narrow, true).isNull());
        QVERIFY(inLine(one, narrow, true) != inLine(other, narrow, true));
    }

    void columnsThatNobodySizedGiveAmountsTheirRoom()
    {
        KExtListCtrl list;
        list.setColumns({{u"شرح"_s, Qt::AlignRight, 200}, {u"مبلغ"_s, Qt::AlignCenter, 20}, {u"x"_s, Qt::AlignRight, 100}});
        list.resize(400, 200);
        list.show();
        const auto shown = [&list](double amount) {
            list.setRows({{1, {{u"x"_s}, {DToMoney(amount), amount}, {}}}});
            return list.viewport()->grab(list.visualRect(list.model()->index(0, 1))).toImage();
        };
        QVERIFY(shown(one) != shown(other));
        QVERIFY(list.header()->length() <= list.viewport()->width());
        // Widths that the user drew stay.
        list.header()->resizeSection(1, narrow);
        QCOMPARE(shown(one), shown(other));
        QCOMPARE(list.header()->sectionSize(1), narrow);
    }

    void textsAreStillShortened()
    {
        KExtListCtrl list;
        list.setColumns({{u"شرح"_s, Qt::AlignRight, 80}, {u"x"_s, Qt::AlignRight, 80}});
        list.resize(500, 200);
        list.show();
        list.header()->resizeSection(0, narrow);
        const auto shown = [&list](const QString &text) {
            list.setRows({{1, {{text}, {}}}});
            return list.viewport()->grab(list.visualRect(list.model()->index(0, 0))).toImage();
        };
        QVERIFY(shown(u"abcdefghijklmnop"_s) != shown(u"qrstuvwxyzabcdef"_s));
    }

    void theTipShowsTheWholeAmount()
    {
        KExtListCtrl list;
        list.setColumns({{u"مبلغ"_s, Qt::AlignCenter, 80}, {u"x"_s, Qt::AlignRight, 80}});
        list.setRows({{1, {{DToMoney(one), one}, {}}}});
        list.resize(500, 200);
        list.show();
        list.header()->resizeSection(0, narrow);
        const QPoint middle = list.visualRect(list.model()->index(0, 0)).center();
        QHelpEvent asks(QEvent::ToolTip, middle, list.viewport()->mapToGlobal(middle));
        QApplication::sendEvent(list.viewport(), &asks);
        QCOMPARE(QToolTip::text(), DToMoney(one));
        QToolTip::hideText();

        KEdit edit(KEdit::Kind::Money);
        edit.setNumber(other);
        edit.resize(narrow, 30);
        QHelpEvent asksEdit(QEvent::ToolTip, QPoint(5, 5), edit.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&edit, &asksEdit);
        QCOMPARE(QToolTip::text(), DToMoney(other));
    }
};

static const RegisteredTest<TestNumberDelegate, QApplication> registeredNumberDelegate;
#include "TestNumberDelegate.moc"
