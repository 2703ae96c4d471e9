// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KExtListCtrl.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

// Number, name, a note that is off at first, a plate that the list holds without showing it.
std::unique_ptr<KExtListCtrl> peopleList()
{
    QVector<KListModel::Column> columns{{u"ردیف"_s}, {u"نام"_s}, {u"یادداشت"_s}, {u"پلاک"_s}};
    const QStringList keys{u"row"_s, u"name"_s, u"note"_s, u"plate"_s};
    for (int i = 0; i < columns.size(); ++i)
        columns[i].key = keys.at(i);
    columns[0].countsRows = true;
    columns[2].optional = true;
    columns[3].width = 0;
    auto list = std::make_unique<KExtListCtrl>();
    list->resize(600, 300);
    list->setColumns(columns);
    const auto row = [](int key, int number, const QString &name, const QString &plate) {
        return KListModel::Row{key, {{QString::number(number), number}, {name}, {u"note"_s + name}, {plate}}};
    };
    list->setRows({row(11, 1, u"رضا"_s, u"12 ب 345"_s), row(12, 2, u"مریم"_s, u"77 ط 123"_s), row(13, 3, u"رضایی"_s, {}), row(14, 4, u"بهزاد"_s, {})});
    return list;
}

QList<int> keysOf(const KExtListCtrl &list)
{
    QList<int> keys;
    for (int row = 0; row < list.count(); ++row)
        keys.append(list.listModel()->keyAt(row));
    return keys;
}

}

// A list of which only the rows with some words are in sight.
class TestNarrowedList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyRowsWithTheWordsAreThere()
    {
        const auto list = peopleList();
        list->narrow(u"رضا"_s);
        QCOMPARE(keysOf(*list), (QList<int>{11, 13}));
        QCOMPARE(list->listModel()->allRows(), 4);
        QCOMPARE(list->listModel()->rowOfKey(13), 1);
        QCOMPARE(list->listModel()->rowOfKey(12), -1);
        // Numbered as they are seen, on paper too.
        QCOMPARE(list->cellText(1, u"row"), u"2"_s);
        QCOMPARE(list->listModel()->rows().at(1).cells.at(0).value.toInt(), 2);
        list->narrow({});
        QCOMPARE(keysOf(*list), (QList<int>{11, 12, 13, 14}));
        QCOMPARE(list->cellText(2, u"row"), u"3"_s);
    }

    // The number of a row is not what one looks for, nor what is off; a plate is, though the list has no room for it.
    void whatIsSearchedIsWhatTheListHolds()
    {
        const auto list = peopleList();
        list->narrow(u"4"_s);
        QCOMPARE(keysOf(*list), QList<int>{11});
        list->narrow(u"note"_s);
        QCOMPARE(list->count(), 0);
        list->setColumnShown(u"note", true);
        QCOMPARE(list->count(), 4);
        list->setColumnShown(u"note", false);
        QCOMPARE(list->count(), 0);
        list->narrow(u"۷۷ط"_s);
        QCOMPARE(keysOf(*list), QList<int>{12});
    }

    void theSelectedRowStaysWhileItIsInSight()
    {
        const auto list = peopleList();
        list->selectKey(13);
        QSignalSpy told(list.get(), &KExtListCtrl::currentKeyChanged);
        list->narrow(u"رضا"_s);
        QCOMPARE(list->currentKey(), 13);
        QCOMPARE(told.count(), 0);
        list->narrow(u"مریم"_s);
        QCOMPARE(list->currentKey(), 12);
        QCOMPARE(told.count(), 1);
        list->narrow(u"هیچ"_s);
        QCOMPARE(list->currentKey(), 0);
        list->narrow({});
        QCOMPARE(list->currentKey(), 11);
    }

    void newRowsAreNarrowedToo()
    {
        const auto list = peopleList();
        list->narrow(u"رضا"_s);
        list->setRows({{21, {{u"1"_s, 1}, {u"رضا"_s}}}, {22, {{u"2"_s, 2}, {u"زهرا"_s}}}});
        QCOMPARE(keysOf(*list), QList<int>{21});
        list->listModel()->appendRow({23, {{u"3"_s, 3}, {u"رضا"_s}}});
        QCOMPARE(keysOf(*list), (QList<int>{21, 23}));
        QVERIFY(list->removeKey(21));
        QVERIFY(!list->removeKey(22));
        QCOMPARE(keysOf(*list), QList<int>{23});
        list->narrow({});
        QCOMPARE(keysOf(*list), (QList<int>{22, 23}));
        QCOMPARE(list->cellText(1, u"row"), u"2"_s);
    }
};

static const RegisteredTest<TestNarrowedList, QApplication> registeredNarrowedList;
#include "TestNarrowedList.moc"
