// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/FormGrid.h"

#include "suite/utility/look/ItemHeight.h"
#include "suite/utility/look/LookSizes.h"

#include <QLabel>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int mostColumns = 8;
constexpr int narrowestColumn = 96;

// What a page's margins and a card's padding leave of its width.
int insideOf(int page)
{
    return LookSizes::scaled(page) - 2 * (LookSizes::windowMargin + LookSizes::cardPadding);
}

QLayoutItem *itemOf(QWidget *widget)
{
    return widget ? new QWidgetItemV2(widget) : nullptr;
}

QRect mirrored(const QRect &rect, const QRect &around, Qt::LayoutDirection direction)
{
    return QStyle::visualRect(direction, around, rect);
}

// Where a control stands that has its own width, a check box or a button: at the leading edge of its column.
QRect inCell(QLayoutItem *item, const QRect &cell)
{
    QRect rect = cell;
    const QWidget *widget = item->widget();
    const bool keepsWidth = widget && (widget->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed || widget->sizePolicy().horizontalPolicy() == QSizePolicy::Maximum);
    if (keepsWidth)
        rect.setWidth(std::min(cell.width(), item->sizeHint().width()));
    return rect;
}

}

FormGrid::FormGrid(QWidget *card, Extent extent)
    : QLayout(card)
    , m_extent(extent)
{
    setContentsMargins(LookSizes::cardPadding - 1, LookSizes::unit - 1, LookSizes::cardPadding - 1, LookSizes::unit + 1);
    setSpacing(LookSizes::unit);
}

FormGrid::~FormGrid()
{
    // A nested layout takes itself out while it is deleted.
    while (const QLayoutItem *item = takeAt(0))
        delete item;
}

void FormGrid::add(Field field)
{
    field.startsRow = std::exchange(m_startsRow, field.isLine);
    for (QLayoutItem *item : {field.label, field.note, field.control}) {
        if (!item)
            continue;
        if (QWidget *widget = item->widget())
            addChildWidget(widget);
        else if (QLayout *layout = item->layout())
            adoptLayout(layout);
        m_items.push_back(item);
    }
    m_fields.push_back(field);
    invalidate();
}

void FormGrid::addField(QLabel *label, QWidget *note, QWidget *control, int span)
{
    add({itemOf(label), itemOf(note), itemOf(control), span});
}

void FormGrid::addField(QLabel *label, QWidget *note, QLayout *controls, int span)
{
    add({itemOf(label), itemOf(note), controls, span});
}

void FormGrid::addCell(QWidget *cell, int span)
{
    add({nullptr, nullptr, itemOf(cell), span});
}

void FormGrid::addCell(QLayout *cell, int span)
{
    add({nullptr, nullptr, cell, span});
}

void FormGrid::addLine(QWidget *line)
{
    startRow();
    add({nullptr, nullptr, itemOf(line), mostColumns, false, true});
}

void FormGrid::startRow()
{
    m_startsRow = true;
}

int FormGrid::columnsFor(int width) const
{
    if (m_extent == Extent::Full && width >= insideOf(LookSizes::wide))
        return mostColumns;
    // Half of a wide page has the room of four columns of a whole one.
    const int half = (insideOf(LookSizes::wide) - LookSizes::halfGutter) / 2;
    const int four = m_extent == Extent::Half ? half : insideOf(LookSizes::narrow);
    return width >= four ? 4 : 2;
}

std::vector<FormGrid::Column> FormGrid::columnsOf(int width) const
{
    const int count = columnsFor(width);
    std::vector<int> gutters(std::size_t(count - 1), LookSizes::gutter);
    if (count == mostColumns)
        gutters[mostColumns / 2 - 1] = LookSizes::halfGutter;
    int room = width;
    for (const int gutter : gutters)
        room -= gutter;
    std::vector<Column> columns;
    int gone = 0;
    for (int i = 0; i < count; ++i) {
        // Rounded so that the halves are those of two cards side by side.
        const int from = gone + room * i / count;
        columns.push_back({from, gone + room * (i + 1) / count});
        if (i < count - 1)
            gone += gutters[std::size_t(i)];
    }
    return columns;
}

std::vector<FormGrid::Column> FormGrid::columns() const
{
    return columnsOf(contentsRect().width());
}

bool FormGrid::isShown(const Field &field)
{
    return !field.control->isEmpty();
}

std::vector<FormGrid::Row> FormGrid::rowsOf(int columns) const
{
    std::vector<Row> rows;
    int at = 0;
    bool starts = false;
    for (const Field &field : m_fields) {
        starts = starts || field.startsRow;
        if (!isShown(field))
            continue;
        const int span = std::min(field.span, columns);
        // Across the gutter between the halves a field would be wider than the others of its span.
        constexpr int half = mostColumns / 2;
        if (columns == mostColumns && span <= half && at < half && at + span > half)
            at = half;
        if (rows.empty() || starts || at + span > columns) {
            rows.emplace_back();
            at = 0;
        }
        rows.back().push_back({&field, at, span});
        at += span;
        starts = false;
    }
    return rows;
}

// An amount in words alone in its row.
bool FormGrid::isText(const Row &row)
{
    return std::ranges::all_of(row, [](const Placed &placed) {
        return !placed.field->label && qobject_cast<QLabel *>(placed.field->control->widget());
    });
}

int FormGrid::layRow(const Row &row, const QRect &rect, int top, bool apply) const
{
    const std::vector<Column> columns = columnsOf(rect.width());
    const bool hasLabels = std::ranges::any_of(row, [](const Placed &placed) { return placed.field->label; });
    int labelHeight = 0;
    int controlHeight = row.front().field->isLine ? 0 : LookSizes::scaled(isText(row) ? LookSizes::labelLine : LookSizes::control);
    for (const Placed &placed : row) {
        const int width = columns[std::size_t(placed.column + placed.span - 1)].to - columns[std::size_t(placed.column)].from;
        if (hasLabels && placed.field->label)
            labelHeight = std::max({labelHeight, LookSizes::scaled(LookSizes::labelLine), placed.field->label->sizeHint().height()});
        controlHeight = std::max(controlHeight, itemHeight(placed.field->control, width));
    }
    if (!apply)
        return labelHeight + controlHeight;
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    for (const Placed &placed : row) {
        const int from = rect.left() + columns[std::size_t(placed.column)].from;
        const int to = rect.left() + columns[std::size_t(placed.column + placed.span - 1)].to;
        const Field &field = *placed.field;
        int used = 0;
        if (field.label && !field.label->isEmpty()) {
            used = std::min(to - from, field.label->sizeHint().width());
            field.label->setGeometry(mirrored({from, top, used, labelHeight}, rect, direction));
            used += LookSizes::unit;
        }
        if (field.note)
            field.note->setGeometry(mirrored({from + used, top, std::max(0, to - from - used), labelHeight}, rect, direction));
        const QRect cell(from, top + labelHeight, to - from, controlHeight);
        QRect own = inCell(field.control, cell);
        // A control of several lines fills the row; any other has its own height in the middle of it.
        const int height = std::min(controlHeight, itemHeight(field.control, own.width()));
        own.setHeight(std::max(height, field.label && !field.control->hasHeightForWidth() ? std::min(LookSizes::scaled(LookSizes::control), controlHeight) : height));
        if (!field.label)
            own.moveTop(cell.top() + (cell.height() - own.height()) / 2);
        field.control->setGeometry(mirrored(own, rect, direction));
    }
    return labelHeight + controlHeight;
}

int FormGrid::lay(const QRect &rect, bool apply) const
{
    const QMargins margins = contentsMargins();
    const QRect inner = rect.marginsRemoved(margins);
    int bottom = inner.top();
    for (const Row &row : rowsOf(columnsFor(inner.width()))) {
        // What belongs to the row above stands close to it.
        const int gap = bottom == inner.top() || isText(row) ? 0 : row.front().field->isLine ? spacing() / 2
                                                                                             : spacing();
        bottom += gap;
        bottom += layRow(row, inner, bottom, apply);
    }
    return bottom - inner.top() + margins.top() + margins.bottom();
}

int FormGrid::heightForWidth(int width) const
{
    return lay(QRect(0, 0, width, 0), false);
}

QSize FormGrid::minimumSize() const
{
    const QMargins margins = contentsMargins();
    int width = 2 * LookSizes::scaled(narrowestColumn) + LookSizes::gutter;
    for (const Field &field : m_fields) {
        if (isShown(field) && !field.isLine && field.label)
            width = std::max(width, field.label->minimumSize().width());
    }
    width += margins.left() + margins.right();
    return {width, heightForWidth(std::max(width, geometry().width()))};
}

QSize FormGrid::sizeHint() const
{
    // Four columns, as a window of its own has them.
    const int width = LookSizes::scaled(LookSizes::narrow);
    return {width, heightForWidth(width)};
}

void FormGrid::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    showNotes();
    lay(rect, true);
}

// A note says something of its control, and goes with it.
void FormGrid::showNotes() const
{
    for (const Field &field : m_fields) {
        QWidget *note = field.note ? field.note->widget() : nullptr;
        if (note && note->isHidden() == isShown(field))
            note->setVisible(isShown(field));
    }
}

void FormGrid::addItem(QLayoutItem *item)
{
    add({nullptr, nullptr, item, 1});
}

int FormGrid::count() const
{
    return int(m_items.size());
}

QLayoutItem *FormGrid::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[std::size_t(index)] : nullptr;
}

QLayoutItem *FormGrid::takeAt(int index)
{
    QLayoutItem *taken = itemAt(index);
    if (!taken)
        return nullptr;
    std::erase(m_items, taken);
    for (Field &field : m_fields) {
        for (QLayoutItem **part : {&field.label, &field.note, &field.control}) {
            if (*part == taken)
                *part = nullptr;
        }
    }
    std::erase_if(m_fields, [](const Field &field) { return !field.control; });
    return taken;
}
