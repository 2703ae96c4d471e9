// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/utility/lists/KExtListCtrlTest.h"

#include "suite/utility/look/LookSizes.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

#include <numeric>

using namespace Qt::StringLiterals;

// Columns, their widths and order, and how cells are drawn.
class TestKExtListCtrlColumns : public KExtListCtrlTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepSettings(); }
    void init() { begin(); }
    void cleanup() { end(); }
    void noColumnIsNarrowerThanItsTitle();
    void figuresOfRowsThatComeLaterAreNotCut();
    void aTextThatIsCutHasATip();
    void rowsAndTitlesAreHighEnough();
    void cellIsBroughtIntoView();
    void widthsAndOrderAreKept();
    void widthsAreWrittenWhenTheListGoes();
    void layoutOfOtherColumnsIsNotTaken_data();
    void layoutOfOtherColumnsIsNotTaken();
    void untouchedColumnsShareTheListsWidth();
    void aScrollBarThatComesWithTheRowsIsNoActOfTheUser();
    void columnOfNoWidthIsNotShown();
    void nothingIsKeptWithoutAName();
    void copiedTextIsPlain();
    void datesAndNumbersAreDrawnLeftToRight();
    void codesAreDrawnLeftToRightLettersToo();
    void rowsAreReadable();
    void tenThousandRows();
};

void TestKExtListCtrlColumns::noColumnIsNarrowerThanItsTitle()
{
    const QHeaderView *header = m_list->header();
    const auto all = [this, header] {
        for (int i = 0; i < columns.size(); ++i) {
            if (header->sectionSize(i) < header->sectionSizeHint(i))
                return false;
        }
        return true;
    };
    m_list->resize(120, 300);
    QTRY_VERIFY(all());
    // Nor by hand, nor where it was kept so.
    m_list->header()->resizeSection(2, 10);
    QVERIFY(all());
    WriteSetting(u"Narrow\\List"_s, u"sWidths"_s, u"10,10,10,10"_s);
    m_list->SetSettingName(u"Narrow\\List"_s);
    QVERIFY(all());
}

namespace {

class GrowingFigures : public KListModel::Source
{
public:
    QStringList figures;

    int count() const override { return int(figures.size()); }
    KListModel::Row row(int number) const override { return {number + 1, {{figures[number]}, {u"یک متن بلند بلند بلند"_s}}}; }
    int rowOfKey(int key) const override { return key - 1; }
};

}

// Neither longer ones nor, of as many digits, wider ones.
void TestKExtListCtrlColumns::figuresOfRowsThatComeLaterAreNotCut()
{
    m_list->SetSettingName({});
    m_list->setColumns({{u"ک"_s, Qt::AlignRight, 10}, {u"نام"_s, Qt::AlignRight, 300}});
    const auto source = std::make_shared<GrowingFigures>();
    m_list->listModel()->setSource(source);
    for (const QString &figure : {u"1111111111"_s, u"8888888888"_s, u"0214455667788"_s}) {
        source->figures.append(figure);
        m_list->listModel()->sourceGrew();
        const int last = m_list->count() - 1;
        QVERIFY2(m_list->columnWidth(0) >= m_list->sizeHintForIndex(m_list->model()->index(last, 0)).width(), qPrintable(figure));
    }
}

void TestKExtListCtrlColumns::aTextThatIsCutHasATip()
{
    m_list->setColumns({{u"شرح"_s, Qt::AlignRight, 80}, {u"نام"_s, Qt::AlignRight, 80}});
    const QString text = u"پژو پارس نقره‌ای، تحویل پس از ترخیص، با دو کلید و دفترچه"_s;
    m_list->setRows({{1, {{text}, {u"کوتاه"_s}}}});
    m_list->header()->resizeSection(0, 60);
    const auto tipOf = [this](int column) {
        const QPoint point = m_list->visualRect(m_list->listModel()->index(0, column)).center();
        QHelpEvent help(QEvent::ToolTip, point, m_list->viewport()->mapToGlobal(point));
        QApplication::sendEvent(m_list->viewport(), &help);
        return QToolTip::text();
    };
    QCOMPARE(tipOf(1), QString());
    QCOMPARE(tipOf(0), text);
}

void TestKExtListCtrlColumns::rowsAndTitlesAreHighEnough()
{
    const int row = m_list->visualRect(m_list->listModel()->index(0, 0)).height();
    QVERIFY(row >= LookSizes::scaled(LookSizes::row));
    QVERIFY(row >= m_list->fontMetrics().height() + LookSizes::unit);
    QVERIFY(m_list->header()->height() >= LookSizes::scaled(LookSizes::titleRow));
}

void TestKExtListCtrlColumns::cellIsBroughtIntoView()
{
    m_list->setRows(rows(200));
    m_list->header()->resizeSection(1, 4 * m_list->width());
    const auto isInView = [this](int row, int column) {
        return m_list->viewport()->rect().intersects(m_list->visualRect(m_list->listModel()->index(row, column)));
    };
    QVERIFY(!isInView(150, 3));
    m_list->selectCell(150, 3);
    QVERIFY(isInView(150, 3));
    QCOMPARE(m_list->currentRow(), 150);
    m_list->selectCell(200, 0);
    QCOMPARE(m_list->currentRow(), -1);
}

void TestKExtListCtrlColumns::widthsAndOrderAreKept()
{
    m_list->SetSettingName(settingName);
    m_list->header()->resizeSection(1, 173);
    m_list->header()->moveSection(0, 2);
    // Written shortly after the last change, so that a crash later costs nothing.
    QTRY_VERIFY(!ReadSetting(settingName, u"sWidths"_s, QString()).isEmpty());
    setSettingsFile(settingsFile());

    KExtListCtrl nameFirst;
    nameFirst.SetSettingName(settingName);
    nameFirst.setColumns(columns);
    KExtListCtrl nameLast;
    nameLast.setColumns(columns);
    nameLast.SetSettingName(settingName);
    for (const KExtListCtrl *list : {&nameFirst, &nameLast}) {
        QCOMPARE(list->header()->sectionSize(1), 173);
        QCOMPARE(list->header()->visualIndex(0), 2);
        QCOMPARE(list->header()->visualIndex(1), 0);
    }
    KExtListCtrl other;
    other.SetSettingName(u"AutomobilDemands\\List"_s);
    other.setColumns(columns);
    QCOMPARE(other.header()->visualIndex(0), 0);
}

void TestKExtListCtrlColumns::widthsAreWrittenWhenTheListGoes()
{
    const QString name = u"Going\\List"_s;
    m_list->SetSettingName(name);
    m_list->header()->resizeSection(1, 151);
    m_list.reset();
    KExtListCtrl again;
    again.setColumns(columns);
    again.SetSettingName(name);
    QCOMPARE(again.header()->sectionSize(1), 151);
}

void TestKExtListCtrlColumns::layoutOfOtherColumnsIsNotTaken_data()
{
    QTest::addColumn<QString>("widths");
    QTest::addColumn<QString>("order");
    QTest::newRow("too few") << u"10,20"_s << u"1,0"_s;
    QTest::newRow("too many") << u"1,2,3,4,5"_s << u"4,3,2,1,0"_s;
    QTest::newRow("not an order") << u"a"_s << u"0,0,1,2"_s;
    QTest::newRow("out of range") << u""_s << u"1,2,3,4"_s;
    QTest::newRow("rubbish") << u"x,y,z"_s << u"-1,,;"_s;
}

void TestKExtListCtrlColumns::layoutOfOtherColumnsIsNotTaken()
{
    QFETCH(QString, widths);
    QFETCH(QString, order);
    WriteSetting(u"Bad\\List"_s, u"sWidths"_s, widths);
    WriteSetting(u"Bad\\List"_s, u"sOrder"_s, order);
    KExtListCtrl list;
    list.setColumns(columns);
    list.SetSettingName(u"Bad\\List"_s);
    for (int i = 0; i < columns.size(); ++i)
        QCOMPARE(list.header()->visualIndex(i), i);
    KExtListCtrl untouched;
    untouched.setColumns(columns);
    QCOMPARE(list.header()->sectionSize(1), untouched.header()->sectionSize(1));
}

void TestKExtListCtrlColumns::untouchedColumnsShareTheListsWidth()
{
    const int asked = std::accumulate(columns.cbegin(), columns.cend(), 0,
                                      [](int sum, const KListModel::Column &column) { return sum + column.width; });
    const int natural = asked * m_list->fontMetrics().averageCharWidth() / 4;
    auto sections = [this] {
        QVector<int> sizes;
        for (int i = 0; i + 1 < columns.size(); ++i)
            sizes << m_list->header()->sectionSize(i);
        return sizes;
    };
    m_list->resize(natural * 2, 300);
    QTRY_COMPARE(m_list->header()->length(), m_list->viewport()->width());
    const QVector<int> wide = sections();
    m_list->resize(natural, 300);
    QTRY_COMPARE(m_list->header()->length(), m_list->viewport()->width());
    QVERIFY(sections().first() < wide.first());
    // Too narrow to read: their own width, and the list scrolls.
    m_list->resize(natural / 2, 300);
    QTRY_VERIFY(m_list->header()->length() > m_list->viewport()->width());
    // A width that the user dragged stays.
    m_list->header()->resizeSection(1, 77);
    m_list->resize(natural * 2, 300);
    QCoreApplication::processEvents();
    QCOMPARE(m_list->header()->sectionSize(1), 77);
}

void TestKExtListCtrlColumns::aScrollBarThatComesWithTheRowsIsNoActOfTheUser()
{
    const QString setting = u"Brands\\List"_s;
    m_list->SetSettingName(setting);
    m_list->setRows(rows(100));
    QTRY_VERIFY(m_list->verticalScrollBar()->isVisible());
    QTRY_COMPARE(m_list->header()->length(), m_list->viewport()->width());
    QVERIFY(!m_list->horizontalScrollBar()->isVisible());
    m_list.reset();
    QVERIFY(ReadSetting(setting, u"sWidths"_s, QString()).isEmpty());
}

// Nor after its width was kept, nor in what is copied; the cell is there all the same.
void TestKExtListCtrlColumns::columnOfNoWidthIsNotShown()
{
    const QString setting = u"AutomobilInformations\\List"_s;
    auto withHidden = columns;
    withHidden[1].width = 0;
    for (int opening = 0; opening < 2; ++opening) {
        KExtListCtrl list;
        list.resize(600, 200);
        list.setColumns(withHidden);
        list.SetSettingName(setting);
        list.setRows(rows(1));
        list.show();
        QVERIFY(list.isColumnHidden(1));
        QCOMPARE(list.header()->sectionSize(1), 0);
        QCOMPARE(list.cellText(0, 1), u"شخص 1"_s);
        list.selectRow(0);
        QTest::keySequence(&list, QKeySequence::Copy);
        QCOMPARE(QApplication::clipboard()->text(), u"1\t1405/08/30\t-1"_s);
        list.header()->resizeSection(0, 77 + opening);
    }
    QVERIFY(!ReadSetting(setting, u"sWidths"_s, QString()).isEmpty());
}

void TestKExtListCtrlColumns::nothingIsKeptWithoutAName()
{
    m_list->header()->resizeSection(1, 99);
    m_list.reset();
    QCOMPARE(ReadSetting(QString(), u"sWidths"_s, u"none"_s), u"none"_s);
}

void TestKExtListCtrlColumns::copiedTextIsPlain()
{
    m_list->selectRow(0);
    QTest::keySequence(m_list.get(), QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"1\tشخص 1\t1405/08/30\t-1"_s);
}

void TestKExtListCtrlColumns::datesAndNumbersAreDrawnLeftToRight()
{
    // A cell of either kind must look as it does in a list that reads from the left.
    QImage blank(150, 24, QImage::Format_RGB32);
    blank.fill(Qt::white);
    for (int column : {2, 3}) {
        QCOMPARE(drawn(column, Qt::RightToLeft), drawn(column, Qt::LeftToRight));
        QVERIFY(drawn(column, Qt::RightToLeft) != blank);
    }
}

void TestKExtListCtrlColumns::codesAreDrawnLeftToRightLettersToo()
{
    const QString plate = u"12 ب 345 ایران 67"_s;
    // The same turned round by hand, and the other way.
    const QString turned = u"67 ایران 345 ب 12"_s;
    const auto align = Qt::AlignCenter;
    m_list->setColumns({{u"a"_s, align, 80, {}, false, true}, {u"b"_s, align}, {u"c"_s, align}});
    m_list->setRows({{1, {{plate}, {turned}, {plate}}}});
    QCOMPARE(drawn(0, Qt::RightToLeft), drawn(1, Qt::RightToLeft));
    QVERIFY(drawn(0, Qt::RightToLeft) != drawn(2, Qt::RightToLeft));
    QCOMPARE(m_list->cellText(0, 0), plate);
}

void TestKExtListCtrlColumns::rowsAreReadable()
{
    m_list->setAccessibleName(u"لیست قراردادها"_s);
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(m_list.get());
    QVERIFY(reader && reader->tableInterface());
    QCOMPARE(reader->text(QAccessible::Name), u"لیست قراردادها"_s);
    QAccessibleTableInterface *table = reader->tableInterface();
    QCOMPARE(table->rowCount(), 5);
    QCOMPARE(table->columnCount(), 4);
    QCOMPARE(table->columnDescription(1), u"فروشنده"_s);
    QCOMPARE(table->cellAt(2, 1)->text(QAccessible::Name), u"شخص 3"_s);
    QVERIFY(table->selectRow(2));
    QCOMPARE(m_list->currentKey(), 103);
}

void TestKExtListCtrlColumns::tenThousandRows()
{
    m_list->setRows(rows(10000));
    m_list->grab();
    QCOMPARE(m_list->count(), 10000);
    m_list->selectRow(9999);
    QVERIFY(m_list->viewport()->rect().intersects(m_list->visualRect(m_list->listModel()->index(9999, 0))));
}

static const RegisteredTest<TestKExtListCtrlColumns, QApplication> registeredKExtListCtrlColumns;
#include "TestKExtListCtrlColumns.moc"
