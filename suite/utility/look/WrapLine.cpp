// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/WrapLine.h"

#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QStyle>
#include <QWidget>

#include <algorithm>

WrapLine::WrapLine(QWidget *parent)
    : QLayout(parent)
{
    setContentsMargins({});
    setSpacing(LookSizes::unit);
}

WrapLine::~WrapLine()
{
    // A nested layout takes itself out while it is deleted.
    while (const QLayoutItem *item = takeAt(0))
        delete item;
}

void WrapLine::addTogether(std::initializer_list<QWidget *> widgets)
{
    auto *together = new QHBoxLayout;
    together->setSpacing(LookSizes::unit);
    for (QWidget *widget : widgets)
        together->addWidget(widget);
    addChildLayout(together);
    addItem(together);
}

int WrapLine::lay(const QRect &rect, bool apply) const
{
    const QMargins margins = contentsMargins();
    const QRect inner = rect.marginsRemoved(margins);
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int left = inner.left();
    int top = inner.top();
    int height = 0;
    std::vector<std::pair<QLayoutItem *, QRect>> line;
    const auto endLine = [&] {
        for (const auto &[item, place] : line) {
            QRect own = place;
            own.moveTop(place.top() + (height - place.height()) / 2);
            if (apply)
                item->setGeometry(QStyle::visualRect(direction, inner, own));
        }
        line.clear();
    };
    for (QLayoutItem *item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint().boundedTo(QSize(std::max(1, inner.width()), QLAYOUTSIZE_MAX));
        if (!line.empty() && left + size.width() > inner.right() + 1) {
            endLine();
            top += height + spacing();
            left = inner.left();
            height = 0;
        }
        line.emplace_back(item, QRect(QPoint(left, top), size));
        height = std::max(height, size.height());
        left += size.width() + spacing();
    }
    endLine();
    return top + height - rect.top() + margins.bottom();
}

int WrapLine::heightForWidth(int width) const
{
    return lay(QRect(0, 0, width, 0), false);
}

QSize WrapLine::minimumSize() const
{
    int width = 0;
    for (const QLayoutItem *item : m_items) {
        if (!item->isEmpty())
            width = std::max(width, item->minimumSize().width());
    }
    const QMargins margins = contentsMargins();
    width += margins.left() + margins.right();
    return {width, heightForWidth(std::max(width, geometry().width()))};
}

QSize WrapLine::sizeHint() const
{
    int width = 0;
    for (const QLayoutItem *item : m_items) {
        if (!item->isEmpty())
            width += item->sizeHint().width() + spacing();
    }
    const QMargins margins = contentsMargins();
    width += margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

void WrapLine::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    lay(rect, true);
}

void WrapLine::addItem(QLayoutItem *item)
{
    m_items.push_back(item);
    invalidate();
}

int WrapLine::count() const
{
    return int(m_items.size());
}

QLayoutItem *WrapLine::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[std::size_t(index)] : nullptr;
}

QLayoutItem *WrapLine::takeAt(int index)
{
    QLayoutItem *taken = itemAt(index);
    std::erase(m_items, taken);
    return taken;
}
