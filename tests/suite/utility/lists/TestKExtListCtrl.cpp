// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/utility/lists/KExtListCtrlTest.h"

#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QHeaderView>
#include <QHoverEvent>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// Rows and selection, the mouse, the keys, and the mark of the selected row.
class TestKExtListCtrl : public KExtListCtrlTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepSettings(); }
    void init() { begin(); }
    void cleanup() { end(); }
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
};

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

static const RegisteredTest<TestKExtListCtrl, QApplication> registeredKExtListCtrl;
#include "TestKExtListCtrl.moc"
