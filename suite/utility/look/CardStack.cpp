// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/CardStack.h"

#include "suite/utility/look/ItemHeight.h"
#include "suite/utility/look/LookSizes.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

bool isShownItem(const QLayoutItem *item)
{
    return item && !item->isEmpty();
}

}

CardStack::CardStack(QWidget *page)
    : QLayout(page)
{
    setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    setSpacing(LookSizes::cardGap);
}

CardStack::~CardStack()
{
    // A nested layout takes itself out while it is deleted.
    while (const QLayoutItem *item = takeAt(0))
        delete item;
}

void CardStack::addCard(QWidget *card, bool grows)
{
    addChildWidget(card);
    m_rows.push_back({new QWidgetItemV2(card), nullptr, grows});
    invalidate();
}

void CardStack::addPair(QWidget *first, QWidget *second)
{
    addChildWidget(first);
    addChildWidget(second);
    m_rows.push_back({new QWidgetItemV2(first), new QWidgetItemV2(second)});
    invalidate();
}

int CardStack::layRow(const Row &row, const QRect &rect, int top, int extra, bool apply) const
{
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    const auto put = [&](QLayoutItem *item, int left, int width, int height, int from) {
        if (apply)
            item->setGeometry(QStyle::visualRect(direction, rect, QRect(left, from, width, height)));
    };
    const bool both = isShownItem(row.first) && isShownItem(row.second);
    const int page = rect.width() + contentsMargins().left() + contentsMargins().right();
    if (both && page >= LookSizes::scaled(LookSizes::wide)) {
        const int half = (rect.width() - LookSizes::sideGap) / 2;
        const int height = std::max(itemHeight(row.first, half), itemHeight(row.second, half));
        put(row.first, rect.left(), half, height, top);
        put(row.second, rect.left() + rect.width() - half, half, height, top);
        return height;
    }
    int height = 0;
    for (QLayoutItem *item : {row.first, row.second}) {
        if (!isShownItem(item))
            continue;
        height += height > 0 ? spacing() : 0;
        const int own = itemHeight(item, rect.width()) + (row.grows ? extra : 0);
        put(item, rect.left(), rect.width(), own, top + height);
        height += own;
    }
    return height;
}

int CardStack::lay(const QRect &rect, bool apply) const
{
    const QMargins margins = contentsMargins();
    const QRect inner = rect.marginsRemoved(margins);
    int needed = 0;
    for (const Row &row : m_rows) {
        if (const int height = layRow(row, inner, 0, 0, false); height > 0)
            needed += height + spacing();
    }
    needed = std::max(0, needed - spacing());
    if (apply) {
        const int extra = std::max(0, inner.height() - needed);
        int top = inner.top();
        for (const Row &row : m_rows) {
            if (const int height = layRow(row, inner, top, extra, true); height > 0)
                top += height + spacing();
        }
    }
    return needed + margins.top() + margins.bottom();
}

int CardStack::heightForWidth(int width) const
{
    return lay(QRect(0, 0, width, 0), false);
}

QSize CardStack::minimumSize() const
{
    int width = 0;
    for (const Row &row : m_rows) {
        for (const QLayoutItem *item : {row.first, row.second}) {
            if (isShownItem(item))
                width = std::max(width, item->minimumSize().width());
        }
    }
    width += contentsMargins().left() + contentsMargins().right();
    return {width, heightForWidth(std::max(width, geometry().width()))};
}

QSize CardStack::sizeHint() const
{
    int width = 0;
    for (const Row &row : m_rows) {
        for (const QLayoutItem *item : {row.first, row.second}) {
            if (isShownItem(item))
                width = std::max(width, item->sizeHint().width());
        }
    }
    width += contentsMargins().left() + contentsMargins().right();
    return {width, heightForWidth(width)};
}

void CardStack::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    lay(rect, true);
}

void CardStack::addItem(QLayoutItem *item)
{
    m_rows.push_back({item});
    invalidate();
}

int CardStack::count() const
{
    int items = 0;
    for (const Row &row : m_rows)
        items += row.second ? 2 : 1;
    return items;
}

QLayoutItem *CardStack::itemAt(int index) const
{
    for (const Row &row : m_rows) {
        for (QLayoutItem *item : {row.first, row.second}) {
            if (item && index-- == 0)
                return item;
        }
    }
    return nullptr;
}

QLayoutItem *CardStack::takeAt(int index)
{
    QLayoutItem *taken = itemAt(index);
    if (!taken)
        return nullptr;
    for (Row &row : m_rows) {
        if (row.second == taken)
            row.second = nullptr;
        else if (row.first == taken)
            row.first = std::exchange(row.second, nullptr);
    }
    std::erase_if(m_rows, [](const Row &row) { return !row.first; });
    return taken;
}
