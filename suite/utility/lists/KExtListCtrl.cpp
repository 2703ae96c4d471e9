// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KExtListCtrl.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

#include "suite/utility/lists/CellDelegate.h"
#include "suite/utility/lists/ColumnWidths.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/ListLook.h"
#include "suite/utility/lists/OptionalColumns.h"
#include "suite/utility/lists/RowMenuMark.h"
#include "suite/utility/look/LookSizes.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int saveDelayMilliseconds = 500;
const QString widthsSetting = u"sWidths"_s;
const QString orderSetting = u"sOrder"_s;
// So many show how long the figures of a list are.
constexpr int tellingRows = 200;

QString joined(const QVector<int> &numbers)
{
    QStringList texts;
    for (int number : numbers)
        texts.append(QString::number(number));
    return texts.join(QLatin1Char(','));
}

QVector<int> parted(const QString &text)
{
    QVector<int> numbers;
    for (const QString &part : text.split(QLatin1Char(','), Qt::SkipEmptyParts))
        numbers.append(part.toInt());
    return numbers;
}

// Whether the numbers are 0 to count - 1 in any order.
bool isOrder(QVector<int> numbers, int count)
{
    std::sort(numbers.begin(), numbers.end());
    for (int i = 0; i < numbers.size(); ++i) {
        if (numbers[i] != i)
            return false;
    }
    return numbers.size() == count;
}

}

KExtListCtrl::KExtListCtrl(QWidget *parent)
    : QTreeView(parent)
    , m_model(new KListModel(this))
    , m_menuMark(new RowMenuMark(this))
    , m_optional(new OptionalColumns(this, m_model, m_settings))
{
    setModel(m_model);
    setItemDelegate(new CellDelegate(*m_menuMark, this));
    setLayoutDirection(Qt::RightToLeft);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    ListLook::apply(this);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    // The right button has a meaning of its own here; no menu follows it.
    setContextMenuPolicy(Qt::PreventContextMenu);

    header()->setSectionsClickable(true);
    header()->setSectionsMovable(true);
    header()->setFirstSectionMovable(true);
    header()->setStretchLastSection(true);
    connect(header(), &QHeaderView::sectionClicked, this, &KExtListCtrl::columnClicked);

    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(saveDelayMilliseconds);
    connect(&m_saveTimer, &QTimer::timeout, this, &KExtListCtrl::saveLayout);
    followLayout();
    connect(m_optional, &OptionalColumns::switched, this, &KExtListCtrl::columnSwitched);
    connect(m_optional, &OptionalColumns::orderAsked, this, &KExtListCtrl::columnOrderAsked);
    connect(m_optional, &OptionalColumns::resetAsked, this, &KExtListCtrl::resetColumns);
    connect(m_menuMark, &RowMenuMark::clicked, this, &KExtListCtrl::requestRowMenu);
    // A reset drops the selection without a word of its own.
    connect(m_model, &QAbstractItemModel::modelReset, this, &KExtListCtrl::reportKey);
    connect(m_model, &QAbstractItemModel::modelReset, m_menuMark, &RowMenuMark::rowsMoved);
    connect(m_model, &QAbstractItemModel::rowsRemoved, m_menuMark, &RowMenuMark::rowsMoved);
    // Rows of a source come by and by; the first ones tell how long its figures are.
    connect(m_model, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &, int first) {
        if (first < tellingRows && !m_userLayout)
            fitColumns();
    });
}

// What the user does to widths and order is kept a little later.
void KExtListCtrl::followLayout()
{
    const auto layoutChanged = [this] {
        if (m_applyingLayout)
            return;
        m_userLayout = true;
        if (m_settings.isKept())
            m_saveTimer.start();
    };
    connect(header(), &QHeaderView::sectionResized, this, [this, layoutChanged](int section, int, int size) {
        if (const int least = leastWidth(section); size > 0 && size < least) {
            header()->resizeSection(section, least);
            return;
        }
        // The last column stretches by itself, and the header does so when it pleases: with the list, or because rows came
        // and a scroll bar with them. That is no act of the user.
        if (section != ListLook::lastShown(*header()))
            layoutChanged();
    });
    connect(header(), &QHeaderView::sectionMoved, this, layoutChanged);
}

KExtListCtrl::~KExtListCtrl()
{
    if (m_saveTimer.isActive())
        saveLayout();
}

void KExtListCtrl::setColumns(const QVector<KListModel::Column> &columns)
{
    m_applyingLayout = true;
    m_userLayout = false;
    m_model->setColumns(columns);
    // Without this a column of no width would come back as narrow as the header lets one be.
    m_optional->apply();
    m_applyingLayout = false;
    fitColumns();
    applyLayout();
}

bool KExtListCtrl::isColumnShown(int column) const
{
    return m_optional->isShown(column);
}

bool KExtListCtrl::isColumnShown(QStringView column) const
{
    return isColumnShown(columnOf(column));
}

void KExtListCtrl::setColumnShown(QStringView column, bool shown)
{
    m_optional->switchColumn(columnOf(column), shown);
}

bool KExtListCtrl::hasOptionalColumns() const
{
    return m_optional->exist();
}

void KExtListCtrl::addOptionalColumnsTo(QMenu *menu)
{
    m_optional->addTo(menu);
}

void KExtListCtrl::setColumnsArrangeable()
{
    m_optional->setArrangeable();
}

bool KExtListCtrl::isColumnSwitchable(int column) const
{
    return m_optional->isSwitchable(column);
}

QList<int> KExtListCtrl::columnOrder() const
{
    QList<int> order;
    for (int visual = 0; visual < header()->count(); ++visual)
        order.append(header()->logicalIndex(visual));
    return order;
}

void KExtListCtrl::arrangeColumns(const QList<int> &order, const QList<int> &shown)
{
    for (int visual = 0; visual < order.size(); ++visual)
        header()->moveSection(header()->visualIndex(order.at(visual)), visual);
    for (const int column : shown)
        m_optional->switchColumn(column, true);
    for (const int column : order) {
        if (!shown.contains(column))
            m_optional->switchColumn(column, false);
    }
}

void KExtListCtrl::resetColumns()
{
    m_applyingLayout = true;
    for (int column = 0; column < header()->count(); ++column)
        header()->moveSection(header()->visualIndex(column), column);
    m_optional->reset();
    m_applyingLayout = false;
    m_saveTimer.stop();
    m_settings.write(widthsSetting, {});
    m_settings.write(orderSetting, {});
    m_userLayout = false;
    fitColumns();
    if (!m_narrowedBy.isEmpty())
        narrowModel();
    Q_EMIT shownColumnsChanged();
}

void KExtListCtrl::showColumnMenu(const QPoint &place)
{
    m_optional->showMenu(place);
}

QString KExtListCtrl::optionalColumnsName()
{
    return OptionalColumns::name();
}

// In a layout of the user's own it takes the width that it asks for; else the columns share the room anew.
void KExtListCtrl::columnSwitched(int column, bool on)
{
    m_applyingLayout = true;
    header()->setSectionHidden(column, !on);
    if (on && m_userLayout)
        header()->resizeSection(column, qMax(m_model->columns()[column].shownWidth() * fontMetrics().averageCharWidth() / 4, leastWidth(column)));
    m_applyingLayout = false;
    if (!m_userLayout)
        fitColumns();
    if (!m_narrowedBy.isEmpty())
        narrowModel();
    Q_EMIT shownColumnsChanged();
}

// Columns that the user never touched share the list's width.
void KExtListCtrl::fitColumns()
{
    const int unit = fontMetrics().averageCharWidth();
    const QVector<KListModel::Column> &columns = m_model->columns();
    QVector<ColumnWidths::Column> wishes;
    for (int i = 0; i < columns.size(); ++i)
        wishes.append(isColumnShown(i) ? ColumnWidths::Column{columns[i].shownWidth() * unit / 4.0, qMax(double(leastWidth(i)), figureWidth(i))}
                                       : ColumnWidths::Column());
    const QVector<int> widths = ColumnWidths::shared(wishes, viewport()->width());
    m_applyingLayout = true;
    for (int i = 0; i < columns.size(); ++i)
        header()->resizeSection(i, widths[i]);
    m_applyingLayout = false;
}

// What the column's title needs, also with the mark of the order. 0 for a column that is not shown.
int KExtListCtrl::leastWidth(int column) const
{
    const int title = ListLook::titleWidth(*header(), column);
    return title == 0 || m_model->columns()[column].sortKey.isEmpty() ? title : title + header()->fontMetrics().horizontalAdvance(KListModel::sortMark());
}

namespace {

// Of all figures of that length: the digits differ in width.
int widestOf(QString figure, const QFontMetrics &metrics)
{
    QChar widest = u'0';
    for (QChar digit = u'0'; digit <= u'9'; digit = QChar(digit.unicode() + 1)) {
        if (metrics.horizontalAdvance(digit) > metrics.horizontalAdvance(widest))
            widest = digit;
    }
    for (QChar &c : figure) {
        if (c >= u'0' && c <= u'9')
            c = widest;
    }
    return metrics.horizontalAdvance(figure);
}

}

// 0 for a column without figures.
double KExtListCtrl::figureWidth(int column) const
{
    const QString longest = m_model->longestFigure(column);
    if (longest.isEmpty())
        return 0;
    // Headings are bold, and so no other row needs more: what warns is only medium.
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return widestOf(longest, metrics) + 2 * margin + 1 + (m_menuMark->standsIn(column) ? ListLook::rowHeight(fontMetrics()) : 0);
}

void KExtListCtrl::resizeEvent(QResizeEvent *event)
{
    // The header stretches its last column with the list; that is no act of the user.
    m_applyingLayout = true;
    QTreeView::resizeEvent(event);
    m_applyingLayout = false;
    if (!m_userLayout)
        fitColumns();
}

void KExtListCtrl::SetSettingName(const QString &name)
{
    m_settings.setSection(name);
    m_optional->read();
    m_applyingLayout = true;
    m_optional->apply();
    m_applyingLayout = false;
    if (!m_userLayout)
        fitColumns();
    applyLayout();
}

// What was kept for another number of columns is of no use. Optional ones may have come since, and are not shown then.
void KExtListCtrl::applyLayout()
{
    const int columns = header()->count();
    if (!m_settings.isKept() || columns == 0)
        return;
    m_applyingLayout = true;
    QVector<int> widths = parted(m_settings.read(widthsSetting));
    QVector<int> order = parted(m_settings.read(orderSetting));
    for (int i = int(widths.size()); !widths.isEmpty() && i < columns && order.size() == i && m_model->columns()[i].optional; ++i) {
        widths.append(0);
        order.append(i);
    }
    if (widths.size() == columns) {
        m_userLayout = true;
        for (int i = 0; i < columns; ++i)
            header()->resizeSection(i, qMax(widths[i], qMax(leastWidth(i), header()->minimumSectionSize())));
    }
    if (isOrder(order, columns)) {
        for (int visual = 0; visual < columns; ++visual)
            header()->moveSection(header()->visualIndex(order[visual]), visual);
    }
    m_applyingLayout = false;
}

void KExtListCtrl::saveLayout()
{
    m_saveTimer.stop();
    QVector<int> widths;
    QVector<int> order;
    for (int i = 0; i < header()->count(); ++i) {
        widths.append(header()->sectionSize(i));
        order.append(header()->logicalIndex(i));
    }
    m_settings.write(widthsSetting, joined(widths));
    m_settings.write(orderSetting, joined(order));
}

void KExtListCtrl::setRows(QVector<KListModel::Row> rows)
{
    m_model->setRows(std::move(rows));
    if (!m_userLayout)
        fitColumns();
}

void KExtListCtrl::appendRows(QVector<KListModel::Row> rows)
{
    const int key = currentKey();
    const int top = verticalScrollBar()->value();
    m_model->appendRows(std::move(rows));
    if (!m_userLayout)
        fitColumns();
    if (key > 0 && currentKey() != key && m_model->rowOfKey(key) >= 0)
        selectKey(key);
    verticalScrollBar()->setValue(top);
}

bool KExtListCtrl::removeKey(int key)
{
    return m_model->removeKey(key);
}

int KExtListCtrl::count() const
{
    return m_model->rowCount();
}

void KExtListCtrl::narrow(const QString &text)
{
    m_narrowedBy = text;
    narrowModel();
}

void KExtListCtrl::narrowModel()
{
    QList<int> columns;
    for (int column = 0; column < header()->count(); ++column) {
        const KListModel::Column &shown = m_model->columns().at(column);
        // What a list holds without showing it at first, a plate, is found too.
        if ((isColumnShown(column) || shown.width == 0) && !shown.countsRows)
            columns.append(column);
    }
    const int key = currentKey();
    m_narrowing = true;
    m_model->narrow(m_narrowedBy, columns);
    selectRow(qMax(0, m_model->rowOfKey(key)));
    m_narrowing = false;
    reportKey();
}

// Of several marked rows the one that was met last; where that is no longer marked, the first of them.
int KExtListCtrl::currentRow() const
{
    const QItemSelectionModel *marked = selectionModel();
    if (!marked->hasSelection())
        return -1;
    if (const QModelIndex current = marked->currentIndex(); marked->isSelected(current))
        return current.row();
    int first = -1;
    for (const QItemSelectionRange &range : marked->selection())
        first = first < 0 ? range.top() : qMin(first, range.top());
    return first;
}

void KExtListCtrl::setSeveralMarkable()
{
    setSelectionMode(ExtendedSelection);
}

QList<int> KExtListCtrl::markedRows() const
{
    QList<int> rows;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

int KExtListCtrl::currentKey() const
{
    return m_model->keyAt(currentRow());
}

void KExtListCtrl::selectRow(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    if (!index.isValid()) {
        clearSelection();
        setCurrentIndex({});
        return;
    }
    // Not by the view, which would obey a Ctrl that is still down from closing an editor, and mark nothing.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

bool KExtListCtrl::selectKey(int key)
{
    const int row = m_model->rowOfKey(key);
    selectRow(row);
    return row >= 0;
}

void KExtListCtrl::selectCell(int row, int column)
{
    selectRow(row);
    if (const QModelIndex index = m_model->index(row, column); index.isValid()) {
        setCurrentIndex(index);
        scrollTo(index);
    }
}

QString KExtListCtrl::cellText(int row, int column) const
{
    return m_model->index(row, column).data().toString();
}

QString KExtListCtrl::cellText(int row, QStringView column) const
{
    const int found = columnOf(column);
    Q_ASSERT_X(found >= 0, "KExtListCtrl", "no such column");
    return cellText(row, found);
}

int KExtListCtrl::columnOf(QStringView key) const
{
    return m_model->columnOf(key);
}

void KExtListCtrl::setSortMark(int column)
{
    m_model->setSortMark(column);
}

void KExtListCtrl::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    reportKey();
    Q_EMIT marksChanged();
}

// Among marked rows another one becomes the current one without a change of the marks.
void KExtListCtrl::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    if (selectionMode() != ExtendedSelection)
        return;
    reportKey();
    viewport()->update();
}

void KExtListCtrl::reportKey()
{
    const int key = currentKey();
    if (m_narrowing || key == m_reportedKey)
        return;
    m_reportedKey = key;
    Q_EMIT currentKeyChanged(key);
}

void KExtListCtrl::setRowMenuOffered(bool offered)
{
    m_menuMark->setOffered(offered);
    // The last column's figures make room for the mark.
    if (!m_userLayout)
        fitColumns();
}

bool KExtListCtrl::isRowMenuOffered() const
{
    return m_menuMark->isOffered();
}

QString KExtListCtrl::rowMenuName()
{
    return RowMenuMark::name();
}

void KExtListCtrl::requestRowMenu()
{
    const QModelIndex row = m_model->index(currentRow(), 0);
    if (!row.isValid() || !isRowMenuOffered())
        return;
    scrollTo(row);
    Q_EMIT rowMenuRequested(viewport()->mapToGlobal(m_menuMark->place(row).bottomLeft()));
}

void KExtListCtrl::drawRow(QPainter *painter, const QStyleOptionViewItem &options, const QModelIndex &index) const
{
    QTreeView::drawRow(painter, options, index);
    // Of several marked rows the bar tells which one the commands are about.
    if (selectionModel()->isSelected(index) && !m_menuMark->isCurrent(index)) {
        const QRect row = visualRect(index.siblingAtColumn(header()->logicalIndexAt(viewport()->width() - 1)));
        painter->fillRect(QRect(row.right() - LookSizes::rowBar + 1, row.top(), LookSizes::rowBar, row.height() - 1), palette().color(QPalette::Highlight));
    }
    m_menuMark->paint(*painter, index);
}

void KExtListCtrl::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isMenu = event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (isMenu && isRowMenuOffered() && currentRow() >= 0) {
        requestRowMenu();
    } else if (isMenu && hasOptionalColumns()) {
        m_optional->showMenu();
    } else if (event->matches(QKeySequence::Copy)) {
        copyRow();
    } else if (!isEnter) {
        QTreeView::keyPressEvent(event);
    } else if (currentRow() >= 0 && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        event->accept();
        Q_EMIT rowActivated(currentKey());
    } else {
        event->ignore();
    }
}

void KExtListCtrl::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid())
        Q_EMIT rowActivated(m_model->keyAt(index.row()));
    else
        Q_EMIT emptyAreaActivated();
}

void KExtListCtrl::mousePressEvent(QMouseEvent *event)
{
    QTreeView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    m_rightPressedKey = event->button() == Qt::RightButton ? m_model->keyAt(index.row()) : 0;
}

// Both halves of the click must meet the same row: what hangs on it can be a deletion.
void KExtListCtrl::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeView::mouseReleaseEvent(event);
    const int pressed = std::exchange(m_rightPressedKey, 0);
    if (event->button() != Qt::RightButton || pressed == 0)
        return;
    if (m_model->keyAt(indexAt(event->position().toPoint()).row()) == pressed && currentKey() == pressed)
        Q_EMIT rowRightClicked(pressed);
}

void KExtListCtrl::copyRow() const
{
    QStringList lines;
    for (const int row : markedRows()) {
        QStringList texts;
        for (int visual = 0; visual < header()->count(); ++visual) {
            const int column = header()->logicalIndex(visual);
            if (!header()->isSectionHidden(column))
                texts.append(cellText(row, column));
        }
        lines.append(texts.join(QLatin1Char('\t')));
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}
