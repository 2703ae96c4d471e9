// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/TodayBoard.h"

#include "suite/utility/look/LookSizes.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <numeric>

namespace {

constexpr int columnGap = 12;
constexpr int ranks[] = {118, 112, 100};
constexpr int threeColumns = 1168; // what a page of 1200 leaves
constexpr int twoColumns = 868;

// The columns' edges within the width, from the leading side.
struct Edges
{
    int left;
    int width;
};

std::vector<Edges> edgesOf(int columns, int width)
{
    const int room = width - (columns - 1) * LookSizes::scaled(columnGap);
    const int all = std::accumulate(std::begin(ranks), std::begin(ranks) + columns, 0);
    std::vector<Edges> edges;
    int left = 0;
    for (int column = 0; column < columns; ++column) {
        const int own = column == columns - 1 ? width - left : room * ranks[column] / all;
        edges.push_back({left, own});
        left += own + LookSizes::scaled(columnGap);
    }
    return edges;
}

int heightOf(const QLayoutItem &item, int width)
{
    const int wanted = item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
    return std::max(wanted, item.minimumSize().height());
}

}

TodayBoard::TodayBoard(QWidget *page)
    : QLayout(page)
{
    setContentsMargins(0, 0, 0, 0);
}

TodayBoard::~TodayBoard()
{
    for (const Card &card : m_cards)
        delete card.item;
}

void TodayBoard::addCard(QWidget *card, int column, int rank)
{
    addChildWidget(card);
    const auto behind = std::ranges::find_if(m_cards, [&](const Card &other) { return std::pair(other.column, other.rank) > std::pair(column, rank); });
    m_cards.insert(behind, {new QWidgetItem(card), column, rank});
    invalidate();
}

void TodayBoard::addItem(QLayoutItem *item)
{
    m_cards.push_back({item});
}

int TodayBoard::count() const
{
    return static_cast<int>(m_cards.size());
}

QLayoutItem *TodayBoard::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_cards[static_cast<std::size_t>(index)].item : nullptr;
}

QLayoutItem *TodayBoard::takeAt(int index)
{
    QLayoutItem *item = itemAt(index);
    if (item)
        m_cards.erase(m_cards.begin() + index);
    return item;
}

QSize TodayBoard::sizeHint() const
{
    return {LookSizes::scaled(threeColumns), heightForWidth(LookSizes::scaled(threeColumns))};
}

QSize TodayBoard::minimumSize() const
{
    QSize size(0, 0);
    for (const Card &card : m_cards) {
        if (!card.item->isEmpty())
            size = size.expandedTo({card.item->minimumSize().width(), 0});
    }
    return size;
}

int TodayBoard::heightForWidth(int width) const
{
    return lay(QRect(0, 0, width, 0), false);
}

void TodayBoard::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    lay(rect, true);
}

int TodayBoard::columnsOf(int width)
{
    if (width >= LookSizes::scaled(threeColumns))
        return 3;
    return width >= LookSizes::scaled(twoColumns) ? 2 : 1;
}

int TodayBoard::lay(const QRect &rect, bool apply) const
{
    const int columns = columnsOf(rect.width());
    const std::vector<Edges> edges = edgesOf(columns, rect.width());
    const int gap = LookSizes::scaled(columnGap);
    std::vector<std::vector<QLayoutItem *>> stacks(edges.size());
    for (const Card &card : m_cards) {
        if (!card.item->isEmpty())
            stacks[static_cast<std::size_t>(std::min(card.column, columns - 1))].push_back(card.item);
    }
    int tallest = 0;
    std::vector<int> heights;
    for (std::size_t column = 0; column < stacks.size(); ++column) {
        int height = stacks[column].empty() ? 0 : -gap;
        for (const QLayoutItem *item : stacks[column])
            height += gap + heightOf(*item, edges[column].width);
        heights.push_back(height);
        tallest = std::max(tallest, height);
    }
    if (!apply)
        return tallest;
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::RightToLeft;
    for (std::size_t column = 0; column < stacks.size(); ++column) {
        int top = 0;
        for (QLayoutItem *item : stacks[column]) {
            // The last card of a column takes what is left beside the tallest one.
            const int height = item == stacks[column].back() ? tallest - top : heightOf(*item, edges[column].width);
            const QRect place(rect.left() + edges[column].left, rect.top() + top, edges[column].width, height);
            item->setGeometry(QStyle::visualRect(direction, rect, place));
            top += height + gap;
        }
    }
    return tallest;
}
