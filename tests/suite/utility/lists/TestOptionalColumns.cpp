// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KExtListCtrl.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "suite/utility/lists/OptionalColumns.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString layout = u"Contracts\\List"_s;
constexpr int first = 3; // of the optional ones

QVector<KListModel::Column> withOptional()
{
    QVector<KListModel::Column> columns{{u"ردیف"_s}, {u"فروشنده"_s}, {u"خریدار"_s}, {u"دریافت از فروشنده"_s}, {u"دریافت از خریدار"_s}};
    columns[first].key = u"seller"_s;
    columns[first + 1].key = u"buyer"_s;
    columns[first].optional = columns[first + 1].optional = true;
    return columns;
}

std::unique_ptr<KExtListCtrl> listOf(const QVector<KListModel::Column> &columns, const QString &setting = layout)
{
    auto list = std::make_unique<KExtListCtrl>();
    list->resize(700, 300);
    list->setColumns(columns);
    list->SetSettingName(setting);
    list->setRows({{101, {{u"1"_s, 1}, {u"رضا"_s}, {u"مریم"_s}, {u"تسویه"_s}, {u"50٪"_s}}}});
    list->show();
    return list;
}

QMenu *menuOf(const KExtListCtrl &list)
{
    return list.findChild<QMenu *>(QString(), Qt::FindChildrenRecursively);
}

}

// Columns that a list shows once its user switches them on.
class TestOptionalColumns : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

private Q_SLOTS:
    void init()
    {
        setSettingsFile({});
        QFile::remove(m_folder.filePath(u"settings.ini"_s));
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
    }
    void cleanupTestCase() { setSettingsFile({}); }

    void atFirstTheyAreNeitherShownNorCopied()
    {
        const auto list = listOf(withOptional());
        QVERIFY(list->hasOptionalColumns());
        QVERIFY(list->isColumnHidden(first) && list->isColumnHidden(first + 1));
        QVERIFY(!list->isColumnShown(u"seller"));
        list->selectRow(0);
        QTest::keySequence(list.get(), QKeySequence::Copy);
        QCOMPARE(QApplication::clipboard()->text(), u"1\tرضا\tمریم"_s);
        QTRY_COMPARE(list->header()->length(), list->viewport()->width());
    }

    void oneThatIsSwitchedOnSharesTheRoomAndIsKept()
    {
        {
            const auto list = listOf(withOptional());
            QSignalSpy told(list.get(), &KExtListCtrl::shownColumnsChanged);
            list->setColumnShown(u"buyer", true);
            list->setColumnShown(u"buyer", true);
            QCOMPARE(told.count(), 1);
            QVERIFY(!list->isColumnHidden(first + 1) && list->isColumnHidden(first));
            QTRY_COMPARE(list->header()->length(), list->viewport()->width());
            QVERIFY(list->header()->sectionSize(first + 1) >= list->header()->sectionSizeHint(first + 1));
        }
        QVERIFY(ReadSetting(layout, u"sWidths"_s, QString()).isEmpty());
        const auto again = listOf(withOptional());
        QVERIFY(again->isColumnShown(u"buyer") && !again->isColumnShown(u"seller"));
        QVERIFY(!again->isColumnHidden(first + 1) && again->isColumnHidden(first));
        again->setColumnShown(u"buyer", false);
        QVERIFY(listOf(withOptional())->isColumnHidden(first + 1));
        // Another list has its own.
        again->setColumnShown(u"seller", true);
        QVERIFY(listOf(withOptional(), u"Other\\List"_s)->isColumnHidden(first));
    }

    void otherColumnsAreNotSwitched()
    {
        auto columns = withOptional();
        columns[1].key = u"name"_s;
        const auto list = listOf(columns);
        list->setColumnShown(u"name", false);
        QVERIFY(!list->isColumnHidden(1));
        QVERIFY(ReadSetting(layout, u"sShown"_s, QString()).isEmpty());
    }

    // The layout that a user has from before the optional columns came stays.
    void keptLayoutOutlivesNewOptionalColumns()
    {
        auto before = withOptional();
        before.resize(first);
        {
            const auto list = listOf(before);
            list->header()->resizeSection(0, 211);
            list->header()->moveSection(0, 1);
        }
        const auto list = listOf(withOptional());
        QCOMPARE(list->header()->sectionSize(0), 211);
        QCOMPARE(list->header()->visualIndex(0), 1);
        list->setColumnShown(u"seller", true);
        QCOMPARE(list->header()->sectionSize(0), 211);
        QVERIFY(list->header()->sectionSize(first) >= list->header()->sectionSizeHint(first));
    }

    void layoutIsKeptWithThemOnAndOff_data()
    {
        QTest::addColumn<bool>("on");
        QTest::newRow("on") << true;
        QTest::newRow("off") << false;
    }

    void layoutIsKeptWithThemOnAndOff()
    {
        QFETCH(bool, on);
        {
            const auto list = listOf(withOptional());
            // The last one shown stretches.
            list->setColumnShown(u"seller", on);
            list->setColumnShown(u"buyer", on);
            list->header()->resizeSection(0, 187);
            if (on)
                list->header()->resizeSection(first, 199);
            list->header()->moveSection(1, 0);
        }
        const auto again = listOf(withOptional());
        QCOMPARE(again->header()->sectionSize(0), 187);
        QCOMPARE(again->header()->visualIndex(1), 0);
        QCOMPARE(again->isColumnHidden(first), !on);
        if (on)
            QCOMPARE(again->header()->sectionSize(first), 199);
    }

    void aRightClickOnTheTitlesOffersThemTicked()
    {
        const auto list = listOf(withOptional());
        list->setColumnShown(u"buyer", true);
        QWidget *titles = list->header()->viewport();
        QContextMenuEvent click(QContextMenuEvent::Mouse, titles->rect().center(), titles->mapToGlobal(titles->rect().center()));
        QApplication::sendEvent(titles, &click);
        QMenu *menu = menuOf(*list);
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(menu->actions().size(), 2);
        QCOMPARE(menu->actions().at(0)->text(), u"دریافت از فروشنده"_s);
        QVERIFY(!menu->actions().at(0)->isChecked() && menu->actions().at(1)->isChecked());
        menu->actions().at(0)->trigger();
        QVERIFY(list->isColumnShown(u"seller"));
        menu->close();
    }

    // In a list whose row has a menu of its own, they stand in that.
    void theMenuKeysOfferThemWhereNoRowHasAMenu_data()
    {
        QTest::addColumn<bool>("offered");
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("here");
        QTest::newRow("no row menu") << false << 0 << true;
        QTest::newRow("no row") << true << -1 << true;
        QTest::newRow("row menu") << true << 0 << false;
    }

    void theMenuKeysOfferThemWhereNoRowHasAMenu()
    {
        QFETCH(bool, offered);
        QFETCH(int, row);
        QFETCH(bool, here);
        const auto list = listOf(withOptional());
        list->setRowMenuOffered(offered);
        list->selectRow(row);
        QSignalSpy rowMenu(list.get(), &KExtListCtrl::rowMenuRequested);
        QTest::keyClick(list.get(), Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(menuOf(*list) && menuOf(*list)->isVisible(), here);
        QCOMPARE(rowMenu.count(), here ? 0 : 1);
        if (here) {
            QTest::keyClick(menuOf(*list), Qt::Key_Return);
            QVERIFY(list->isColumnShown(u"seller"));
        }
    }

    void aListWithoutThemHasNoSuchMenu()
    {
        auto columns = withOptional();
        columns.resize(first);
        const auto list = listOf(columns);
        QVERIFY(!list->hasOptionalColumns());
        QTest::keyClick(list.get(), Qt::Key_Menu);
        QVERIFY(!menuOf(*list));
    }
};

static const RegisteredTest<TestOptionalColumns, QApplication> registeredOptionalColumns;
#include "TestOptionalColumns.moc"
