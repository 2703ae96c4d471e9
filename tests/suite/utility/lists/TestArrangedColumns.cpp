// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KExtListCtrl.h"

#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString arranged = u"Cars\\List"_s;
constexpr int plate = 2;

std::unique_ptr<KExtListCtrl> carList(const QString &user = u"sara"_s)
{
    QVector<KListModel::Column> columns{{u"ردیف"_s}, {u"نام"_s}, {u"پلاک"_s}, {u"VIN"_s}};
    const QStringList keys{u"row"_s, u"name"_s, u"plate"_s, u"vin"_s};
    for (int i = 0; i < columns.size(); ++i)
        columns[i].key = keys.at(i);
    columns[plate].width = 0;
    columns[plate].widthOnceOn = 60;
    columns[3].optional = true;
    auto list = std::make_unique<KExtListCtrl>();
    list->resize(700, 300);
    list->setColumns(columns);
    list->setColumnsArrangeable();
    list->setLayoutUser(user);
    list->SetSettingName(arranged);
    list->show();
    return list;
}

QStringList menuTexts(KExtListCtrl &list)
{
    list.showColumnMenu(QPoint());
    auto *menu = list.findChild<QMenu *>();
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts << (action->isChecked() ? u"+"_s : QString()) + action->text();
    menu->close();
    return texts;
}

}

// Columns that a user shows, hides and orders.
class TestArrangedColumns : public QObject
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

    void everyColumnIsInTheMenuOfTheTitles()
    {
        const auto list = carList();
        const QStringList ways{{}, u"ترتیب ستون‌ها ..."_s, u"بازگشت به حالت نخست"_s};
        QCOMPARE(menuTexts(*list), (QStringList{u"+ردیف"_s, u"+نام"_s, u"پلاک"_s, u"VIN"_s} + ways));
        list->setColumnShown(u"plate", true);
        list->setColumnShown(u"name", false);
        QVERIFY(!list->isColumnHidden(plate) && list->isColumnHidden(1));
        QVERIFY(list->header()->sectionSize(plate) >= list->header()->sectionSizeHint(plate));
        QCOMPARE(menuTexts(*list), (QStringList{u"+ردیف"_s, u"نام"_s, u"+پلاک"_s, u"VIN"_s} + ways));
    }

    void theLastColumnStays()
    {
        const auto list = carList();
        list->setColumnShown(u"name", false);
        QVERIFY(!list->isColumnSwitchable(0));
        list->setColumnShown(u"row", false);
        QVERIFY(list->isColumnShown(u"row"));
    }

    void eachUserHasHisOwn()
    {
        {
            const auto list = carList();
            list->setColumnShown(u"plate", true);
            list->header()->moveSection(0, 1);
            list->header()->resizeSection(1, 150);
        }
        const auto again = carList();
        QVERIFY(again->isColumnShown(u"plate"));
        QCOMPARE(again->columnOrder().constFirst(), 1);
        QCOMPARE(again->header()->sectionSize(1), 150);
        const auto other = carList(u"reza"_s);
        QVERIFY(!other->isColumnShown(u"plate"));
        QCOMPARE(other->columnOrder().constFirst(), 0);
    }

    // What the computer's users had in common before.
    void aNewUserBeginsWithWhatTheComputerHad()
    {
        WriteSetting(arranged, u"sOrder"_s, u"1,0,2,3"_s);
        QCOMPARE(carList()->columnOrder().constFirst(), 1);
        carList()->resetColumns();
        QCOMPARE(carList()->columnOrder().constFirst(), 0);
        QCOMPARE(carList(u"reza"_s)->columnOrder().constFirst(), 1);
    }

    void aResetBringsBackHowTheListWas()
    {
        {
            const auto list = carList();
            list->arrangeColumns({3, 1, 0, 2}, {3, 0});
            QCOMPARE(list->columnOrder(), (QList<int>{3, 1, 0, 2}));
            QVERIFY(list->isColumnShown(3) && !list->isColumnShown(1) && !list->isColumnShown(plate));
            list->header()->resizeSection(3, 150);
            QSignalSpy told(list.get(), &KExtListCtrl::shownColumnsChanged);
            list->resetColumns();
            QCOMPARE(told.count(), 1);
            QCOMPARE(list->columnOrder(), (QList<int>{0, 1, 2, 3}));
            QTRY_COMPARE(list->header()->length(), list->viewport()->width());
        }
        const auto again = carList();
        QCOMPARE(again->columnOrder(), (QList<int>{0, 1, 2, 3}));
        QVERIFY(again->isColumnShown(1) && !again->isColumnShown(3));
    }

    void whatIsArrangedIsKept()
    {
        carList()->arrangeColumns({1, 0, 3, 2}, {1, 3});
        const auto again = carList();
        QCOMPARE(again->columnOrder(), (QList<int>{1, 0, 3, 2}));
        QVERIFY(again->isColumnShown(1) && again->isColumnShown(3) && !again->isColumnShown(0));
    }
};

static const RegisteredTest<TestArrangedColumns, QApplication> registeredArrangedColumns;
#include "TestArrangedColumns.moc"
