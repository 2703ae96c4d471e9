// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KListModel.h"
#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDate>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QVector<KListModel::Column> modelColumns{
    {u"ردیف"_s, Qt::AlignCenter, 40},
    {u"فروشنده"_s, Qt::AlignRight, 80},
    {u"مبلغ"_s, Qt::AlignRight, 80, u"dAmount"_s},
};

KListModel::Row row(int key, const QString &name, double amount)
{
    return {key, {{QString::number(key), key}, {name}, {QString::number(amount), amount}}};
}

}

class TestKListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheRulesOfAModel();
    void cells();
    void missingCellsAreEmpty();
    void keys();
    void rowsAreCountedAnewAfterARemovedOne();
    void removeKey();
    void sortRoleGivesTheRawValue();
    void alignmentIsAsSeen();
    void titles();
    void indexesOutside();
    void tenThousandRowsFillAtOnce();
    void rowsOfASourceAreMadeWhenTheyAreShown();
    void sourceKeepsTheRulesOfAModel();
    void anOverdueRowIsInDangerAndMediumNotBold();
    void aCellMayWarnByItself();
    void amountsEndAtTheRight();
    void theLongestFigureIsOneThatMustNotBeCut();
    void rowsThatStandOut();
};

void TestKListModel::keepsTheRulesOfAModel()
{
    KListModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setColumns(modelColumns);
    model.setRows({row(5, u"الف"_s, 1), row(7, u"ب"_s, 2)});
    model.appendRow(row(9, u"ج"_s, 3));
    QVERIFY(model.removeKey(7));
    model.setSortMark(1);
    model.setRows({row(1, u"د"_s, 4)});
    model.clear();
    QCOMPARE(model.rowCount(), 0);
}

void TestKListModel::cells()
{
    KListModel model;
    model.setColumns(modelColumns);
    model.setRows({row(5, u"الف"_s, 10)});
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.index(0, 1).data().toString(), u"الف"_s);
    QCOMPARE(model.index(0, 1).data(KListModel::KeyRole).toInt(), 5);
    QVERIFY(!model.index(0, 1).data(Qt::DecorationRole).isValid());
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
}

void TestKListModel::missingCellsAreEmpty()
{
    KListModel model;
    model.setColumns(modelColumns);
    model.setRows({{3, {{u"1"_s}}}});
    QCOMPARE(model.index(0, 2).data().toString(), QString());
    QVERIFY(!model.index(0, 2).data(KListModel::SortRole).isValid());
}

void TestKListModel::keys()
{
    KListModel model;
    model.setColumns(modelColumns);
    model.setRows({row(5, {}, 0), row(7, {}, 0)});
    QCOMPARE(model.keyAt(1), 7);
    QCOMPARE(model.keyAt(2), 0);
    QCOMPARE(model.keyAt(-1), 0);
    QCOMPARE(model.rowOfKey(7), 1);
    QCOMPARE(model.rowOfKey(6), -1);
}

void TestKListModel::rowsAreCountedAnewAfterARemovedOne()
{
    KListModel model;
    KListModel::Column number{u"ردیف"_s};
    number.countsRows = true;
    model.setColumns({{u"نام"_s}, number});
    const auto row = [](int key, int number) {
        return KListModel::Row{key, {{QString::number(key)}, {QString::number(number), number}}};
    };
    model.setRows({row(50, 1), row(60, 2), row(70, 3), row(80, 4)});
    const QAbstractItemModelTester tester(&model);
    QSignalSpy changed(&model, &KListModel::dataChanged);
    QVERIFY(model.removeKey(60));
    for (int at = 0; at < 3; ++at) {
        QCOMPARE(model.index(at, 1).data().toString(), QString::number(at + 1));
        QCOMPARE(model.index(at, 1).data(KListModel::SortRole).toInt(), at + 1);
    }
    QCOMPARE(model.index(1, 0).data().toString(), u"70"_s);
    QCOMPARE(changed.size(), 1);
    QVERIFY(model.removeKey(80));
    QCOMPARE(changed.size(), 1);
}

void TestKListModel::removeKey()
{
    KListModel model;
    model.setColumns(modelColumns);
    model.setRows({row(5, {}, 0), row(7, {}, 0)});
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QVERIFY(!model.removeKey(6));
    QCOMPARE(removed.size(), 0);
    QVERIFY(model.removeKey(5));
    QCOMPARE(removed.size(), 1);
    QCOMPARE(model.keyAt(0), 7);
}

void TestKListModel::sortRoleGivesTheRawValue()
{
    KListModel model;
    model.setColumns(modelColumns);
    model.setRows({row(1, u"ب"_s, 100), row(2, u"الف"_s, 20),
                   row(3, u"ج"_s, 3)});
    QCOMPARE(model.index(0, 1).data(KListModel::SortRole).toString(), u"ب"_s);
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(&model);
    sorted.setSortRole(KListModel::SortRole);
    sorted.sort(2);
    QCOMPARE(sorted.index(0, 0).data(KListModel::KeyRole).toInt(), 3);
    QCOMPARE(sorted.index(2, 0).data(KListModel::KeyRole).toInt(), 1);
}

void TestKListModel::alignmentIsAsSeen()
{
    KListModel model;
    model.setColumns(modelColumns);
    model.setRows({row(1, {}, 0)});
    const Qt::Alignment name(model.index(0, 1).data(Qt::TextAlignmentRole).toInt());
    QVERIFY(name & Qt::AlignRight);
    QVERIFY(name & Qt::AlignAbsolute);
    QVERIFY(Qt::Alignment(model.index(0, 0).data(Qt::TextAlignmentRole).toInt()) & Qt::AlignHCenter);
}

void TestKListModel::titles()
{
    KListModel model;
    model.setColumns(modelColumns);
    QSignalSpy changed(&model, &QAbstractItemModel::headerDataChanged);
    model.setSortMark(2);
    model.setSortMark(2);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), u"مبلغ*"_s);
    QCOMPARE(model.columns()[2].title, u"مبلغ"_s);
    model.setSortMark(9);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), u"مبلغ"_s);
    QVERIFY(!model.headerData(9, Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
    QCOMPARE(model.columns()[2].sortKey, u"dAmount"_s);
}

void TestKListModel::indexesOutside()
{
    KListModel model;
    model.setColumns(modelColumns);
    QVERIFY(!model.data({}).isValid());
    QVERIFY(!model.index(0, 0).isValid());
    model.setRows({row(1, {}, 0)});
    QVERIFY(!model.index(0, 3).isValid());
}

void TestKListModel::tenThousandRowsFillAtOnce()
{
    KListModel model;
    model.setColumns(modelColumns);
    QVector<KListModel::Row> rows;
    for (int key = 1; key <= 10000; ++key)
        rows.append(row(key, u"نام"_s, key));
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.setRows(std::move(rows));
    QCOMPARE(reset.size(), 1);
    QCOMPARE(inserted.size(), 0);
    QCOMPARE(model.rowCount(), 10000);
    QCOMPARE(model.rowOfKey(10000), 9999);
}

namespace {

class Numbers : public KListModel::Source
{
public:
    int count() const override { return rows; }
    KListModel::Row row(int number) const override
    {
        ++made;
        return ::row(number + 1, name, number);
    }
    int rowOfKey(int key) const override { return key >= 1 && key <= rows ? key - 1 : -1; }

    int rows = 0;
    QString name = u"الف"_s;
    mutable int made = 0;
};

}

void TestKListModel::rowsOfASourceAreMadeWhenTheyAreShown()
{
    const auto source = std::make_shared<Numbers>();
    source->rows = 400'000;
    KListModel model;
    model.setColumns(modelColumns);
    model.setSource(source);
    QCOMPARE(model.rowCount(), 400'000);
    QCOMPARE(source->made, 0);
    for (int column = 0; column < 3; ++column)
        QVERIFY(model.index(399'999, column).data().isValid());
    QCOMPARE(source->made, 1);
    QCOMPARE(model.keyAt(5), 6);
    QCOMPARE(source->made, 2);
    source->name = u"ب"_s;
    QCOMPARE(model.index(5, 1).data().toString(), u"الف"_s);
    model.sourceChanged();
    QCOMPARE(model.index(5, 1).data().toString(), u"ب"_s);
    const int made = source->made;
    QCOMPARE(model.rowOfKey(400'000), 399'999);
    QCOMPARE(model.rowOfKey(0), -1);
    QCOMPARE(source->made, made);
    source->rows = 400'002;
    QCOMPARE(model.rowCount(), 400'000);
    QCOMPARE(model.rowOfKey(400'001), -1); // not told of yet
    model.sourceGrew();
    QCOMPARE(model.rowCount(), 400'002);
    QCOMPARE(model.rows().size(), 400'002);
    QCOMPARE(model.rows().constLast().key, 400'002);
}

void TestKListModel::sourceKeepsTheRulesOfAModel()
{
    KListModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const auto source = std::make_shared<Numbers>();
    model.setColumns(modelColumns);
    model.setSource(source);
    source->rows = 3;
    model.sourceGrew();
    model.sourceGrew();
    model.sourceChanged();
    model.setRows({row(1, u"د"_s, 4)});
    model.sourceGrew(); // the list has rows of its own again
    QCOMPARE(model.rowCount(), 1);
    model.setSource(nullptr);
    QCOMPARE(model.rowCount(), 0);
}

void TestKListModel::rowsThatStandOut()
{
    KListModel model;
    model.setColumns(modelColumns);
    KListModel::Row heading = row(0, u"درآمدها"_s, 0);
    heading.heading = true;
    KListModel::Row marked = row(1, u"نشانی"_s, 0);
    marked.markedCell = 1;
    model.setRows({heading, marked, row(2, u"ساده"_s, 0)});
    QVERIFY(model.index(0, 0).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(model.index(0, 0).data(Qt::BackgroundRole).isValid());
    using namespace HostColors;
    QCOMPARE(model.index(1, 1).data(Qt::BackgroundRole).value<QBrush>().color(), of(Role::DangerSoft));
    QCOMPARE(model.index(1, 1).data(Qt::ForegroundRole).value<QBrush>().color(), of(Role::Danger));
    QVERIFY(!model.index(1, 0).data(Qt::BackgroundRole).isValid());
    QVERIFY(!model.index(2, 1).data(Qt::FontRole).isValid());
    QVERIFY(!model.index(2, 1).data(Qt::ForegroundRole).isValid());
    // In the colours of the look in use, also after it has changed.
    setLook(Look::Dark);
    const QColor dark = model.index(1, 1).data(Qt::ForegroundRole).value<QBrush>().color();
    setLook(Look::Light);
    QCOMPARE(dark, of(Role::Danger, Look::Dark));
}

void TestKListModel::anOverdueRowIsInDangerAndMediumNotBold()
{
    KListModel model;
    model.setColumns(modelColumns);
    KListModel::Row overdue = row(1, u"نام"_s, 0);
    overdue.warning = true;
    model.setRows({overdue});
    QCOMPARE(model.index(0, 1).data(Qt::FontRole).value<QFont>().weight(), QFont::Medium);
    QCOMPARE(model.index(0, 1).data(Qt::ForegroundRole).value<QBrush>().color(), HostColors::of(HostColors::Role::Danger));
    QVERIFY(!model.index(0, 1).data(Qt::BackgroundRole).isValid());
}

void TestKListModel::aCellMayWarnByItself()
{
    KListModel model;
    model.setColumns(modelColumns);
    KListModel::Row expired = row(1, u"نام"_s, 0);
    expired.cells[1].warning = true;
    model.setRows({expired});
    QCOMPARE(model.index(0, 1).data(Qt::FontRole).value<QFont>().weight(), QFont::Medium);
    QCOMPARE(model.index(0, 1).data(Qt::ForegroundRole).value<QBrush>().color(), HostColors::of(HostColors::Role::Danger));
    QVERIFY(!model.index(0, 0).data(Qt::FontRole).isValid());
    QVERIFY(!model.index(0, 0).data(Qt::ForegroundRole).isValid());
}

// Digits of the same weight stand below each other, in whatever alignment the column's texts have.
void TestKListModel::amountsEndAtTheRight()
{
    KListModel model;
    model.setColumns({{u"مبلغ"_s, Qt::AlignCenter, 80}});
    model.setRows({{1, {{u"2,818,800"_s, 2818800.0}}}, {2, {{u"-"_s}}}, {3, {{u"12"_s, 12}}}});
    const auto alignment = [&model](int row) { return Qt::Alignment(model.index(row, 0).data(Qt::TextAlignmentRole).toInt()); };
    QVERIFY(alignment(0) & Qt::AlignRight);
    QVERIFY(alignment(0) & Qt::AlignAbsolute);
    QVERIFY(alignment(1) & Qt::AlignHCenter);
    QVERIFY(alignment(2) & Qt::AlignHCenter);
}

void TestKListModel::theLongestFigureIsOneThatMustNotBeCut()
{
    KListModel model;
    model.setColumns({{u"a"_s}, {u"b"_s, Qt::AlignRight, 80, {}, true}, {u"c"_s, Qt::AlignRight, 80, {}, false, true}, {u"d"_s}});
    model.setRows({{1, {{u"12,000"_s, 12000.0}, {u"1405/01/02"_s}, {u"12 ب 345"_s}, {u"a long text"_s}}},
                   {2, {{u"7"_s, 7}, {}, {u"1"_s}, {u"x"_s}}}});
    QCOMPARE(model.longestFigure(0), u"12,000"_s);
    QCOMPARE(model.longestFigure(1), u"1405/01/02"_s);
    QCOMPARE(model.longestFigure(2), u"12 ب 345"_s);
    QCOMPARE(model.longestFigure(3), QString());
}

static const RegisteredTest<TestKListModel, QApplication> registeredKListModel;
#include "TestKListModel.moc"
