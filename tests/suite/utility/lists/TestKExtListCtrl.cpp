// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KExtListCtrl.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QHeaderView>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QScrollBar>
#include <QPainter>
#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include <numeric>

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

const QVector<KListModel::Column> columns{
    {u"ردیف"_s, Qt::AlignCenter, 40},
    {u"فروشنده"_s, Qt::AlignRight, 80},
    {u"تاریخ عقد"_s, Qt::AlignCenter, 80, u"dateContract"_s, true},
    {u"مانده"_s, Qt::AlignRight, 100},
};

QVector<KListModel::Row> rows(int count)
{
    QVector<KListModel::Row> result;
    for (int i = 1; i <= count; ++i) {
        result.append({100 + i,
                       {{QString::number(i), i},
                        {u"شخص %1"_s.arg(i)},
                        {shamsiText(QDate(2026, 11, 20).addDays(i))},
                        {u"-%1"_s.arg(i), -double(i)}}});
    }
    return result;
}

const QString settingName = u"AutomobilContracts\\List"_s;

}

class TestKExtListCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_list.reset(); }
    void selectionByKeyAndRow();
    void currentKeyIsToldOncePerChange();
    void refillingDropsTheSelection();
    void removingTheSelectedRow();
    void enterActivatesTheRow();
    void enterWithoutARowRises();
    void doubleClickOnARow();
    void doubleClickBesideTheRows();
    void rightClickSelectsAndTells();
    void rightClickBesideTheRows();
    void rightClickLeftOnAnotherRow();
    void aClickOnATitleTellsItsColumn();
    void titlesCarryTheMark();
    void markedCellKeepsItsColourInTheSelectedRow();
    void theMenuKeysAskForTheSelectedRowsMenu_data();
    void theMenuKeysAskForTheSelectedRowsMenu();
    void theMarkAtTheEndOfTheSelectedRowAsksForItsMenu();
    void aRightClickOnTheMarkIsOneOnTheRow();
    void theMarkIsOnTheSelectedRowAlone();
    void theMarkStaysUnderThePointer();
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

private:
    QPoint placeOf(int row) const;
    QPoint placeBesideRows() const;
    QImage drawn(int column, Qt::LayoutDirection direction) const;

    QTemporaryDir m_folder;
    std::unique_ptr<KExtListCtrl> m_list;
};

void TestKExtListCtrl::initTestCase()
{
    setSettingsFile(m_folder.filePath(u"settings.ini"_s));
}

void TestKExtListCtrl::init()
{
    m_list = std::make_unique<KExtListCtrl>();
    m_list->setColumns(columns);
    m_list->setRows(rows(5));
    m_list->resize(700, 400);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
}

QPoint TestKExtListCtrl::placeOf(int row) const
{
    return m_list->visualRect(m_list->listModel()->index(row, 1)).center();
}

QPoint TestKExtListCtrl::placeBesideRows() const
{
    return {m_list->viewport()->width() / 2, m_list->viewport()->height() - 5};
}

void TestKExtListCtrl::selectionByKeyAndRow()
{
    QCOMPARE(m_list->currentKey(), 0);
    QCOMPARE(m_list->currentRow(), -1);
    QCOMPARE(m_list->count(), 5);
    QVERIFY(m_list->selectKey(103));
    QCOMPARE(m_list->currentRow(), 2);
    m_list->selectRow(4);
    QCOMPARE(m_list->currentKey(), 105);
    QVERIFY(!m_list->selectKey(999));
    QCOMPARE(m_list->currentKey(), 0);
    m_list->selectRow(0);
    m_list->selectRow(-1);
    QCOMPARE(m_list->currentRow(), -1);
    QCOMPARE(m_list->cellText(1, 1), u"شخص 2"_s);
    QCOMPARE(m_list->cellText(9, 1), QString());
}

void TestKExtListCtrl::currentKeyIsToldOncePerChange()
{
    QSignalSpy told(m_list.get(), &KExtListCtrl::currentKeyChanged);
    m_list->selectRow(1);
    m_list->selectRow(1);
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.takeFirst().first().toInt(), 102);
    QTest::keyClick(m_list.get(), Qt::Key_Down);
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.takeFirst().first().toInt(), 103);
}

void TestKExtListCtrl::refillingDropsTheSelection()
{
    m_list->selectRow(1);
    QSignalSpy told(m_list.get(), &KExtListCtrl::currentKeyChanged);
    m_list->setRows(rows(3));
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.first().first().toInt(), 0);
    QCOMPARE(m_list->currentKey(), 0);
}

void TestKExtListCtrl::removingTheSelectedRow()
{
    m_list->selectRow(4);
    QVERIFY(m_list->removeKey(105));
    QVERIFY(!m_list->removeKey(105));
    QCOMPARE(m_list->count(), 4);
    QVERIFY(m_list->currentKey() != 105);
    while (m_list->count() > 0)
        QVERIFY(m_list->removeKey(m_list->listModel()->keyAt(0)));
    QCOMPARE(m_list->currentKey(), 0);
}

void TestKExtListCtrl::enterActivatesTheRow()
{
    QSignalSpy activated(m_list.get(), &KExtListCtrl::rowActivated);
    m_list->selectRow(1);
    QTest::keyClick(m_list.get(), Qt::Key_Return);
    QTest::keyClick(m_list.get(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(activated.size(), 2);
    QCOMPARE(activated.first().first().toInt(), 102);
}

void TestKExtListCtrl::enterWithoutARowRises()
{
    QSignalSpy activated(m_list.get(), &KExtListCtrl::rowActivated);
    m_list->selectRow(-1);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(m_list.get(), &enter);
    QVERIFY(!enter.isAccepted());
    QCOMPARE(activated.size(), 0);
}

void TestKExtListCtrl::doubleClickOnARow()
{
    QSignalSpy activated(m_list.get(), &KExtListCtrl::rowActivated);
    QSignalSpy empty(m_list.get(), &KExtListCtrl::emptyAreaActivated);
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, placeOf(2));
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, placeOf(2));
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.first().first().toInt(), 103);
    QCOMPARE(empty.size(), 0);
    QCOMPARE(m_list->currentKey(), 103);
}

void TestKExtListCtrl::doubleClickBesideTheRows()
{
    QSignalSpy activated(m_list.get(), &KExtListCtrl::rowActivated);
    QSignalSpy empty(m_list.get(), &KExtListCtrl::emptyAreaActivated);
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, placeBesideRows());
    QCOMPARE(activated.size(), 0);
    QCOMPARE(empty.size(), 1);
}

void TestKExtListCtrl::rightClickSelectsAndTells()
{
    QSignalSpy clicked(m_list.get(), &KExtListCtrl::rowRightClicked);
    QTest::mouseClick(m_list->viewport(), Qt::RightButton, {}, placeOf(3));
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.first().first().toInt(), 104);
    QCOMPARE(m_list->currentKey(), 104);
}

void TestKExtListCtrl::rightClickBesideTheRows()
{
    QSignalSpy clicked(m_list.get(), &KExtListCtrl::rowRightClicked);
    QTest::mouseClick(m_list->viewport(), Qt::RightButton, {}, placeBesideRows());
    QCOMPARE(clicked.size(), 0);
}

void TestKExtListCtrl::rightClickLeftOnAnotherRow()
{
    QSignalSpy clicked(m_list.get(), &KExtListCtrl::rowRightClicked);
    QTest::mousePress(m_list->viewport(), Qt::RightButton, {}, placeOf(0));
    QTest::mouseRelease(m_list->viewport(), Qt::RightButton, {}, placeOf(3));
    QCOMPARE(clicked.size(), 0);
}

void TestKExtListCtrl::aClickOnATitleTellsItsColumn()
{
    QSignalSpy clicked(m_list.get(), &KExtListCtrl::columnClicked);
    const QHeaderView *header = m_list->header();
    for (int column : {2, 2, 0}) {
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    }
    QCOMPARE(clicked.size(), 3);
    QCOMPARE(clicked[0].first().toInt(), 2);
    QCOMPARE(clicked[2].first().toInt(), 0);
    // The order of the rows is the caller's.
    QCOMPARE(m_list->listModel()->keyAt(0), 101);
}

void TestKExtListCtrl::titlesCarryTheMark()
{
    m_list->setSortMark(2);
    QCOMPARE(m_list->model()->headerData(2, Qt::Horizontal).toString(), u"تاریخ عقد*"_s);
}

void TestKExtListCtrl::markedCellKeepsItsColourInTheSelectedRow()
{
    QVector<KListModel::Row> marked = rows(2);
    marked[1].markedCell = 1;
    m_list->setRows(marked);
    m_list->selectRow(1);
    const auto ground = [this](int column) {
        const QRect cell = m_list->visualRect(m_list->listModel()->index(1, column));
        return m_list->viewport()->grab().toImage().pixelColor(cell.left() + 10, cell.center().y());
    };
    const auto isMark = [](const QColor &color) {
        // A style may lay the colour of the focus over it.
        const QColor mark = HostColors::of(HostColors::Role::DangerSoft);
        return qAbs(color.red() - mark.red()) + qAbs(color.green() - mark.green()) + qAbs(color.blue() - mark.blue()) < 50;
    };
    QVERIFY(isMark(ground(1)));
    QVERIFY(!isMark(ground(0)));
}

void TestKExtListCtrl::theMenuKeysAskForTheSelectedRowsMenu_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("menu key") << int(Qt::Key_Menu) << Qt::KeyboardModifiers();
    QTest::newRow("Shift+F10") << int(Qt::Key_F10) << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void TestKExtListCtrl::theMenuKeysAskForTheSelectedRowsMenu()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QSignalSpy asked(m_list.get(), &KExtListCtrl::rowMenuRequested);
    m_list->selectRow(1);
    QTest::keyClick(m_list.get(), Qt::Key(key), modifiers);
    QCOMPARE(asked.size(), 0);
    m_list->setRowMenuOffered(true);
    QTest::keyClick(m_list.get(), Qt::Key(key), modifiers);
    QCOMPARE(asked.size(), 1);
    const QPoint place = m_list->viewport()->mapFromGlobal(asked.first().first().toPoint());
    const QRect row = m_list->visualRect(m_list->listModel()->index(1, 1));
    QVERIFY(place.y() >= row.top() && place.y() <= row.bottom() + 1);
    m_list->selectRow(-1);
    QTest::keyClick(m_list.get(), Qt::Key(key), modifiers);
    QCOMPARE(asked.size(), 1);
}

void TestKExtListCtrl::theMarkAtTheEndOfTheSelectedRowAsksForItsMenu()
{
    m_list->setRowMenuOffered(true);
    QSignalSpy asked(m_list.get(), &KExtListCtrl::rowMenuRequested);
    QSignalSpy activated(m_list.get(), &KExtListCtrl::rowActivated);
    const auto end = [this](int row) {
        const QRect cell = m_list->visualRect(m_list->listModel()->index(row, 0));
        return QPoint(cell.height() / 2, cell.center().y());
    };
    // Without the mark it is a row like everywhere.
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, end(2));
    QCoreApplication::processEvents();
    QCOMPARE(asked.size(), 0);
    QCOMPARE(m_list->currentRow(), 2);
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, end(2));
    QTRY_COMPARE(asked.size(), 1);
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, end(2));
    QCOMPARE(activated.size(), 0);
    // Pressed here, left there.
    QTest::mousePress(m_list->viewport(), Qt::LeftButton, {}, end(2));
    QTest::mouseRelease(m_list->viewport(), Qt::LeftButton, {}, end(3));
    QCoreApplication::processEvents();
    QCOMPARE(asked.size(), 1);
}

void TestKExtListCtrl::aRightClickOnTheMarkIsOneOnTheRow()
{
    m_list->setRowMenuOffered(true);
    m_list->selectRow(2);
    QSignalSpy asked(m_list.get(), &KExtListCtrl::rowMenuRequested);
    QSignalSpy clicked(m_list.get(), &KExtListCtrl::rowRightClicked);
    const QRect cell = m_list->visualRect(m_list->listModel()->index(2, 0));
    QTest::mouseClick(m_list->viewport(), Qt::RightButton, {}, QPoint(cell.height() / 2, cell.center().y()));
    QCoreApplication::processEvents();
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(asked.size(), 0);
}

void TestKExtListCtrl::theMarkIsOnTheSelectedRowAlone()
{
    m_list->selectRow(1);
    const auto ends = [this] {
        const QImage all = m_list->viewport()->grab().toImage();
        QVector<QImage> images;
        for (int row = 0; row < 3; ++row) {
            const QRect cell = m_list->visualRect(m_list->listModel()->index(row, 0));
            images.append(all.copy(0, cell.top(), cell.height(), cell.height()));
        }
        return images;
    };
    const QVector<QImage> without = ends();
    m_list->setRowMenuOffered(true);
    const QVector<QImage> with = ends();
    QCOMPARE(with[0], without[0]);
    QVERIFY(with[1] != without[1]);
    QCOMPARE(with[2], without[2]);
}

void TestKExtListCtrl::theMarkStaysUnderThePointer()
{
    m_list->setRows(rows(100));
    m_list->setRowMenuOffered(true);
    const auto marked = [this] {
        const QImage all = m_list->viewport()->grab().toImage();
        QVector<int> found;
        for (int row = m_list->indexAt(QPoint(1, 1)).row(); row < m_list->count(); ++row) {
            const QRect cell = m_list->visualRect(m_list->listModel()->index(row, 0));
            if (cell.bottom() > m_list->viewport()->height())
                break;
            const QImage end = all.copy(3, cell.top() + 3, cell.height() - 6, cell.height() - 6);
            bool isPlain = true;
            for (int i = 0; i < end.width() * end.height(); ++i)
                isPlain = isPlain && end.pixel(i % end.width(), i / end.width()) == end.pixel(0, 0);
            if (!isPlain)
                found.append(row);
        }
        return found;
    };
    m_list->selectRow(-1);
    QCOMPARE(marked(), QVector<int>());
    const QPointF pointer = m_list->visualRect(m_list->listModel()->index(2, 0)).center();
    QHoverEvent hover(QEvent::HoverMove, pointer, m_list->viewport()->mapToGlobal(pointer), pointer);
    QCoreApplication::sendEvent(m_list->viewport(), &hover);
    QCOMPARE(marked(), QVector<int>{2});
    m_list->verticalScrollBar()->setValue(1);
    QCOMPARE(marked(), QVector<int>{m_list->indexAt(pointer.toPoint()).row()});
    QVERIFY(m_list->indexAt(pointer.toPoint()).row() > 2);
    // Fewer rows than the pointer is low.
    m_list->setRows(rows(2));
    QCOMPARE(marked(), QVector<int>());
}

void TestKExtListCtrl::noColumnIsNarrowerThanItsTitle()
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
void TestKExtListCtrl::figuresOfRowsThatComeLaterAreNotCut()
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

void TestKExtListCtrl::aTextThatIsCutHasATip()
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

void TestKExtListCtrl::rowsAndTitlesAreHighEnough()
{
    const int row = m_list->visualRect(m_list->listModel()->index(0, 0)).height();
    QVERIFY(row >= LookSizes::scaled(LookSizes::row));
    QVERIFY(row >= m_list->fontMetrics().height() + LookSizes::unit);
    QVERIFY(m_list->header()->height() >= LookSizes::scaled(LookSizes::titleRow));
}

void TestKExtListCtrl::cellIsBroughtIntoView()
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

void TestKExtListCtrl::widthsAndOrderAreKept()
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

void TestKExtListCtrl::widthsAreWrittenWhenTheListGoes()
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

void TestKExtListCtrl::layoutOfOtherColumnsIsNotTaken_data()
{
    QTest::addColumn<QString>("widths");
    QTest::addColumn<QString>("order");
    QTest::newRow("too few") << u"10,20"_s << u"1,0"_s;
    QTest::newRow("too many") << u"1,2,3,4,5"_s << u"4,3,2,1,0"_s;
    QTest::newRow("not an order") << u"a"_s << u"0,0,1,2"_s;
    QTest::newRow("out of range") << u""_s << u"1,2,3,4"_s;
    QTest::newRow("rubbish") << u"x,y,z"_s << u"-1,,;"_s;
}

void TestKExtListCtrl::layoutOfOtherColumnsIsNotTaken()
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

void TestKExtListCtrl::untouchedColumnsShareTheListsWidth()
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

void TestKExtListCtrl::aScrollBarThatComesWithTheRowsIsNoActOfTheUser()
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
void TestKExtListCtrl::columnOfNoWidthIsNotShown()
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

void TestKExtListCtrl::nothingIsKeptWithoutAName()
{
    m_list->header()->resizeSection(1, 99);
    m_list.reset();
    QCOMPARE(ReadSetting(QString(), u"sWidths"_s, u"none"_s), u"none"_s);
}

void TestKExtListCtrl::copiedTextIsPlain()
{
    m_list->selectRow(0);
    QTest::keySequence(m_list.get(), QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"1\tشخص 1\t1405/08/30\t-1"_s);
}

// A cell of the first row, drawn alone.
QImage TestKExtListCtrl::drawn(int column, Qt::LayoutDirection direction) const
{
    QStyleOptionViewItem option;
    option.initFrom(m_list.get());
    option.direction = direction;
    option.rect = QRect(0, 0, 150, 24);
    option.font = m_list->font();
    QImage image(150, 24, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    m_list->itemDelegate()->paint(&painter, option, m_list->listModel()->index(0, column));
    return image;
}

void TestKExtListCtrl::datesAndNumbersAreDrawnLeftToRight()
{
    // A cell of either kind must look as it does in a list that reads from the left.
    QImage blank(150, 24, QImage::Format_RGB32);
    blank.fill(Qt::white);
    for (int column : {2, 3}) {
        QCOMPARE(drawn(column, Qt::RightToLeft), drawn(column, Qt::LeftToRight));
        QVERIFY(drawn(column, Qt::RightToLeft) != blank);
    }
}

void TestKExtListCtrl::codesAreDrawnLeftToRightLettersToo()
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

void TestKExtListCtrl::rowsAreReadable()
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

void TestKExtListCtrl::tenThousandRows()
{
    m_list->setRows(rows(10000));
    m_list->grab();
    QCOMPARE(m_list->count(), 10000);
    m_list->selectRow(9999);
    QVERIFY(m_list->viewport()->rect().intersects(m_list->visualRect(m_list->listModel()->index(9999, 0))));
}

static const RegisteredTest<TestKExtListCtrl, QApplication> registeredKExtListCtrl;
#include "TestKExtListCtrl.moc"
