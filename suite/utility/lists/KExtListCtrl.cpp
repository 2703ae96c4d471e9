// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KExtListCtrl.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

#include "suite/utility/values/CodeText.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/NumberDelegate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int saveDelayMilliseconds = 500;

class CellDelegate : public NumberDelegate
{
public:
    using NumberDelegate::NumberDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        NumberDelegate::initStyleOption(option, index);
        // A cell with colours of its own keeps them in the selected row.
        const QVariant mark = index.data(Qt::BackgroundRole);
        const QVariant text = index.data(Qt::ForegroundRole);
        if (mark.isValid() && text.isValid()) {
            option->palette.setBrush(QPalette::Highlight, mark.value<QBrush>());
            option->palette.setBrush(QPalette::HighlightedText, text.value<QBrush>());
        }
        if (!index.data(KListModel::LeftToRightRole).toBool())
            return;
        option->direction = Qt::LeftToRight;
        option->text = CodeText::shown(option->text);
    }
};

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

// -1 when none is shown.
int lastShownSection(const QHeaderView &header)
{
    for (int visual = header.count() - 1; visual >= 0; --visual) {
        if (const int section = header.logicalIndex(visual); !header.isSectionHidden(section))
            return section;
    }
    return -1;
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
{
    setModel(m_model);
    setItemDelegate(new CellDelegate(this));
    setLayoutDirection(Qt::RightToLeft);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
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
    header()->setHighlightSections(false);
    connect(header(), &QHeaderView::sectionClicked, this, &KExtListCtrl::columnClicked);

    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(saveDelayMilliseconds);
    connect(&m_saveTimer, &QTimer::timeout, this, &KExtListCtrl::saveLayout);
    const auto layoutChanged = [this] {
        if (m_applyingLayout)
            return;
        m_userLayout = true;
        if (!m_settingName.isEmpty())
            m_saveTimer.start();
    };
    connect(header(), &QHeaderView::sectionResized, this, [this, layoutChanged](int section) {
        // The last column stretches by itself, and the header does so when it pleases: with the list, or because rows came
        // and a scroll bar with them. That is no act of the user.
        if (section != lastShownSection(*header()))
            layoutChanged();
    });
    connect(header(), &QHeaderView::sectionMoved, this, layoutChanged);
    // A reset drops the selection without a word of its own.
    connect(m_model, &QAbstractItemModel::modelReset, this, &KExtListCtrl::reportKey);
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
    for (int i = 0; i < columns.size(); ++i)
        header()->setSectionHidden(i, columns[i].width == 0);
    m_applyingLayout = false;
    fitColumns();
    applyLayout();
}

// Columns that the user never touched share the list's width in the proportion of their own, as long as that leaves them
// readable; else they keep their own width and the list scrolls. What a column needs for its amounts is taken from the others.
void KExtListCtrl::fitColumns()
{
    constexpr double narrowest = 0.6;
    const int unit = fontMetrics().averageCharWidth();
    const QVector<KListModel::Column> &columns = m_model->columns();
    double total = 0;
    for (const KListModel::Column &column : columns)
        total += column.width * unit / 4.0;
    const double share = total > 0 ? viewport()->width() / total : 1;
    QVector<double> widths;
    double others = 0;
    double lacking = 0;
    for (int i = 0; i < columns.size(); ++i) {
        const double width = columns[i].width * unit / 4.0 * (share < narrowest ? 1 : share);
        const double needed = width > 0 ? amountWidth(i) : 0;
        (needed > width ? lacking : others) += needed > width ? needed - width : width;
        widths.append(qMax(width, needed));
    }
    const double left = lacking > 0 && others > lacking ? (others - lacking) / others : 1;
    m_applyingLayout = true;
    for (int i = 0; i < columns.size(); ++i)
        header()->resizeSection(i, static_cast<int>(amountWidth(i) >= widths[i] ? widths[i] : widths[i] * left));
    m_applyingLayout = false;
}

// 0 for a column without amounts.
double KExtListCtrl::amountWidth(int column) const
{
    const QString longest = m_model->longestAmount(column);
    if (longest.isEmpty())
        return 0;
    // Rows that stand out are bold.
    QFont bold = font();
    bold.setBold(true);
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return QFontMetrics(bold).horizontalAdvance(longest) + 2 * margin + 1;
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
    m_settingName = name;
    applyLayout();
}

// What was kept for another number of columns is of no use.
void KExtListCtrl::applyLayout()
{
    const int columns = header()->count();
    if (m_settingName.isEmpty() || columns == 0)
        return;
    m_applyingLayout = true;
    const QVector<int> widths = parted(ReadSetting(m_settingName, u"sWidths"_s, QString()));
    if (widths.size() == columns) {
        m_userLayout = true;
        for (int i = 0; i < columns; ++i)
            header()->resizeSection(i, qMax(widths[i], header()->minimumSectionSize()));
    }
    const QVector<int> order = parted(ReadSetting(m_settingName, u"sOrder"_s, QString()));
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
    WriteSetting(m_settingName, u"sWidths"_s, joined(widths));
    WriteSetting(m_settingName, u"sOrder"_s, joined(order));
}

void KExtListCtrl::setRows(QVector<KListModel::Row> rows)
{
    m_model->setRows(std::move(rows));
    if (!m_userLayout)
        fitColumns();
}

bool KExtListCtrl::removeKey(int key)
{
    return m_model->removeKey(key);
}

int KExtListCtrl::count() const
{
    return m_model->rowCount();
}

int KExtListCtrl::currentRow() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
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
    setCurrentIndex(index);
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
}

void KExtListCtrl::reportKey()
{
    const int key = currentKey();
    if (key == m_reportedKey)
        return;
    m_reportedKey = key;
    Q_EMIT currentKeyChanged(key);
}

void KExtListCtrl::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy)) {
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
    const int row = currentRow();
    if (row < 0)
        return;
    QStringList texts;
    for (int visual = 0; visual < header()->count(); ++visual) {
        const int column = header()->logicalIndex(visual);
        if (!header()->isSectionHidden(column))
            texts.append(cellText(row, column));
    }
    QApplication::clipboard()->setText(texts.join(QLatin1Char('\t')));
}
