// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListCommands.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookMarks.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

using C = KListCommand;

// A list with the commands that most have.
struct Page
{
    QWidget window;
    KExtListCtrl *list = new KExtListCtrl(&window);
    QStringList ran;
    KListCommands *commands;

    Page()
    {
        list->setColumns({{u"نام"_s, Qt::AlignRight, 80}});
        list->setRows({{1, {{u"یک"_s}}}, {2, {{u"دو"_s}}}});
        commands = new KListCommands(
            {command(u"new"_s, u"جديد"_s, C::HiddenInReadOnly, QKeySequence(Qt::Key_Insert)),
             command(u"edit"_s, u"ويرايش"_s, C::NeedsRow | C::HiddenInReadOnly, QKeySequence(Qt::Key_F2)),
             command(u"delete"_s, u"حذف"_s, C::NeedsRow | C::HiddenInReadOnly, QKeySequence(QKeySequence::Delete)),
             command(u"show"_s, u"نمايش"_s, C::NeedsRow), command(u"print"_s, u"چاپ"_s, C::StartsGroup | C::PrintsList, QKeySequence(QKeySequence::Print)),
             command(u"settle"_s, u"تسويه با فروشنده"_s, C::NeedsRow | C::StartsGroup, QKeySequence(Qt::CTRL | Qt::Key_T)),
             command(u"settings"_s, u"تنظيمات"_s, C::HiddenInSelect), command(u"reset"_s, u"پيش فرض"_s, C::NotDisplayed),
             command(u"statement"_s, u"صورتحساب"_s, C::NeedsRow | C::InRowMenu, QKeySequence(Qt::Key_F6))},
            {list, nullptr,
             [](QWidget *parent) {
                 auto *arrow = new QToolButton(parent);
                 (new QMenu(u"خروجی های دیگر"_s, arrow))->addAction(u"ذخیره PDF"_s);
                 return arrow;
             },
             [](const std::function<void()> &work) { work(); }},
            &window);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(list);
        layout->addWidget(commands);
        commands->setMode(false, false);
        commands->setRowSelected(false);
        QObject::connect(list, &KExtListCtrl::currentKeyChanged, commands, [this](int key) { commands->setRowSelected(key > 0); });
    }
    KListCommand command(const QString &id, const QString &caption, int options, const QKeySequence &key = {})
    {
        return {id, caption, options, [this, id] { ran << id; }, key, u":/icons/edit.svg"_s};
    }
    bool show(int width)
    {
        window.resize(width, 300);
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    }
    // Room for the commands alone, besides the window's margins.
    int allFit() const { return commands->sizeHint().width() + 2 * window.layout()->contentsMargins().left() + 2; }
    QStringList inLine() const
    {
        QStringList shown;
        for (const QString &id : {u"new"_s, u"edit"_s, u"delete"_s, u"show"_s, u"print"_s, u"settle"_s, u"settings"_s}) {
            if (commands->button(id)->isVisible())
                shown << id;
        }
        return shown;
    }
    QMenu *menu(const QString &name) const
    {
        for (QMenu *menu : window.findChildren<QMenu *>()) {
            if (menu->accessibleName() == name)
                return menu;
        }
        return nullptr;
    }
    // As it stands open.
    static QStringList captions(const QMenu *menu)
    {
        QStringList texts;
        for (const QAction *action : menu->actions())
            texts << (action->isSeparator() ? u"-"_s : action->text());
        return texts;
    }
    QStringList openMore() const
    {
        QTest::mouseClick(commands->moreButton(), Qt::LeftButton);
        QMenu *more = menu(u"بیشتر"_s);
        return more->isVisible() ? captions(more) : QStringList();
    }
};

QAction *named(const QMenu *menu, const QString &text)
{
    for (QAction *action : menu->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

}

class TestKListCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withRoomAllAreInTheLine()
    {
        Page page;
        QVERIFY(page.show(page.allFit()));
        QCOMPARE(page.inLine(), (QStringList{u"new"_s, u"edit"_s, u"delete"_s, u"show"_s, u"print"_s, u"settle"_s, u"settings"_s}));
        QVERIFY(!page.commands->moreButton());
        QVERIFY(!page.commands->isOffered(u"reset"));
        QVERIFY(!page.commands->isOffered(u"nothing"));
    }

    void theLastOnesGoIntoTheMenu()
    {
        Page page;
        QVERIFY(page.show(page.allFit() - 60));
        QVERIFY(page.commands->moreButton()->isVisible());
        const QStringList line = page.inLine();
        QCOMPARE(line, (QStringList{u"new"_s, u"edit"_s, u"delete"_s, u"show"_s, u"print"_s, u"settle"_s, u"settings"_s}.mid(0, line.size())));
        QVERIFY(!line.contains(u"settings"_s));
        QVERIFY(page.commands->isOffered(u"settings"));
        QVERIFY(page.openMore().contains(u"تنظيمات"_s));
        named(page.menu(u"بیشتر"_s), u"تنظيمات"_s)->trigger();
        QCOMPARE(page.ran, QStringList{u"settings"_s});
    }

    // However narrow, each command is in the line or in the menu, in the same order, and nothing lies outside.
    void nothingIsLostAtAnyWidth()
    {
        Page page;
        QVERIFY(page.show(page.allFit()));
        const QStringList order{u"جديد"_s, u"ويرايش"_s, u"حذف"_s, u"نمايش"_s, u"چاپ"_s, u"تسويه با فروشنده"_s, u"تنظيمات"_s};
        for (int width = page.allFit(); width > 160; width -= 41) {
            page.window.resize(width, 300);
            QCoreApplication::processEvents();
            QStringList found;
            for (const QString &id : page.inLine()) {
                const QPushButton *button = page.commands->button(id);
                found << button->text();
                QVERIFY2(page.window.rect().contains(QRect(button->mapTo(&page.window, QPoint()), button->size())), qPrintable(id));
                QVERIFY(button->width() >= button->sizeHint().width());
            }
            if (page.commands->moreButton() && page.commands->moreButton()->isVisible()) {
                found << page.openMore();
                page.menu(u"بیشتر"_s)->close();
            }
            found.removeAll(u"-"_s);
            found.removeAll(u"خروجی های دیگر"_s);
            QCOMPARE(found, order);
        }
    }

    void theWaysToTakeTheListOutGoWithItsCommand()
    {
        Page page;
        QVERIFY(page.show(230));
        const QStringList menu = page.openMore();
        QVERIFY(!page.inLine().contains(u"print"_s));
        QCOMPARE(menu.indexOf(u"خروجی های دیگر"_s), menu.indexOf(u"چاپ"_s) + 1);
        // Its group begins there.
        QCOMPARE(menu.value(menu.indexOf(u"چاپ"_s) - 1), u"-"_s);
    }

    void aCommandInTheMenuKeepsItsKeyItsStateAndItsTip()
    {
        Page page;
        QVERIFY(page.show(230));
        page.openMore();
        const QAction *settle = named(page.menu(u"بیشتر"_s), u"تسويه با فروشنده"_s);
        QVERIFY(settle && !settle->isEnabled());
        QCOMPARE(settle->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_T));
        QCOMPARE(settle->toolTip(), page.commands->button(u"settle")->toolTip());
        page.menu(u"بیشتر"_s)->close();
        QVERIFY(!page.commands->run(u"settle"));
        page.list->selectRow(0);
        page.list->setFocus();
        QTest::keyClick(page.list, Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(page.ran, QStringList{u"settle"_s});
        QVERIFY(page.commands->run(u"settle"));
        QCOMPARE(page.ran.size(), 2);
        page.openMore();
        QVERIFY(named(page.menu(u"بیشتر"_s), u"تسويه با فروشنده"_s)->isEnabled());
    }

    void theFocusOfACommandThatGoesIntoTheMenuGoesToItsButton()
    {
        Page page;
        QVERIFY(page.show(page.allFit()));
        page.commands->button(u"settings")->setFocus();
        page.window.resize(300, 300);
        QTRY_VERIFY(!page.commands->button(u"settings")->isVisible());
        QCOMPARE(page.window.focusWidget(), page.commands->moreButton());
        QTest::keyClick(page.commands->moreButton(), Qt::Key_Space);
        QVERIFY(page.menu(u"بیشتر"_s)->isVisible());
    }

    void whatAModeDoesNotOfferIsInNeither()
    {
        Page page;
        QVERIFY(page.show(230));
        page.commands->setMode(true, true);
        QCOMPARE(page.inLine(), QStringList{u"show"_s});
        QVERIFY(!page.commands->isOffered(u"new"));
        QVERIFY(!page.commands->run(u"new"));
        page.list->setFocus();
        QTest::keyClick(page.list, Qt::Key_Insert);
        QVERIFY(page.ran.isEmpty());
        QVERIFY(!page.openMore().contains(u"تنظيمات"_s));
    }

    void theCommandThatAddsARowIsTheFilledOne()
    {
        Page page;
        QCOMPARE(LookMarks::button(page.commands->button(u"new")), LookMarks::Button::Primary);
        QCOMPARE(LookMarks::button(page.commands->button(u"edit")), LookMarks::Button::Normal);
        QCOMPARE(page.commands->adding()->id, u"new"_s);
        // The window that picks a row has its own.
        page.commands->setMode(false, true);
        QCOMPARE(LookMarks::button(page.commands->button(u"new")), LookMarks::Button::Normal);
        page.commands->setMode(true, false);
        QVERIFY(!page.commands->adding());
    }

    void theRowsMenuHasItsCommandsWithTheRemovingOneLast()
    {
        Page page;
        QVERIFY(page.show(230));
        page.list->selectRow(1);
        page.list->setFocus();
        QTest::keyClick(page.list, Qt::Key_Menu);
        QMenu *menu = page.menu(u"فرمان‌های ردیف"_s);
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(Page::captions(menu), (QStringList{u"ويرايش"_s, u"نمايش"_s, u"تسويه با فروشنده"_s, u"صورتحساب"_s, u"-"_s, u"حذف"_s}));
        QCOMPARE(named(menu, u"حذف"_s)->shortcut(), QKeySequence(QKeySequence::Delete));
        QCOMPARE(menu->activeAction(), named(menu, u"ويرايش"_s));
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(page.ran, QStringList{u"edit"_s});
        QVERIFY(!menu->isVisible());
        // What changes nothing is left on a closed database.
        page.commands->setMode(true, false);
        QTest::keyClick(page.list, Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(Page::captions(menu), (QStringList{u"نمايش"_s, u"تسويه با فروشنده"_s, u"صورتحساب"_s}));
    }

    void aCommandOfTheRowsMenuAloneTakesNoRoom()
    {
        Page page;
        for (const int width : {page.allFit(), page.allFit() - 60, 230}) {
            QVERIFY(page.show(width));
            QVERIFY(!page.commands->button(u"statement")->isVisible());
        }
        QVERIFY(!page.openMore().contains(u"صورتحساب"_s));
        page.menu(u"بیشتر"_s)->close();
        QVERIFY(page.commands->isOffered(u"statement"));
        QVERIFY(!page.commands->run(u"statement"));
        page.list->selectRow(0);
        page.list->setFocus();
        QTest::keyClick(page.list, Qt::Key_F6);
        QCOMPARE(page.ran, QStringList{u"statement"_s});
    }

    void aRightClickOpensNoMenu()
    {
        Page page;
        QVERIFY(page.show(600));
        const QPoint row = page.list->visualRect(page.list->model()->index(0, 0)).center();
        QTest::mouseClick(page.list->viewport(), Qt::RightButton, {}, row);
        QContextMenuEvent click(QContextMenuEvent::Mouse, row, page.list->viewport()->mapToGlobal(row));
        QApplication::sendEvent(page.list->viewport(), &click);
        QCoreApplication::processEvents();
        QVERIFY(!QApplication::activePopupWidget());
    }
};

static const RegisteredTest<TestKListCommands, QApplication> registeredKListCommands;
#include "TestKListCommands.moc"
