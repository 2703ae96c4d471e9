// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/PriceChart.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

using namespace Qt::StringLiterals;

PriceChart::PriceChart(QWidget *parent)
    : QWidget(parent)
{
    setAccessibleName(u"نمودار قیمت"_s);
    setMinimumHeight(LookSizes::scaled(110));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PriceChart::setPrices(const QList<PriceHistory::Entry> &prices)
{
    m_prices = prices;
    QStringList texts;
    for (const PriceHistory::Entry &entry : m_prices)
        texts.append(DToMoney(entry.price));
    setAccessibleDescription(texts.join(u"، "_s));
    update();
}

QSize PriceChart::sizeHint() const
{
    return {LookSizes::scaled(520), LookSizes::scaled(110)};
}

// From 0, so that a small change does not look like a large one.
QPointF PriceChart::place(qsizetype step, double price, const QRectF &room) const
{
    const auto dearer = [](const PriceHistory::Entry &a, const PriceHistory::Entry &b) { return a.price < b.price; };
    const double highest = std::max(1.0, std::max_element(m_prices.cbegin(), m_prices.cend(), dearer)->price);
    return {room.right() - double(step) / double(m_prices.size()) * room.width(), room.bottom() - price / highest * room.height()};
}

void PriceChart::paintEvent(QPaintEvent *)
{
    if (m_prices.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double margin = LookSizes::unit;
    const QRectF room = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    painter.setPen(QPen(HostColors::of(HostColors::Role::Line), 1));
    painter.drawLine(room.bottomLeft(), room.bottomRight());
    QPainterPath steps(place(0, m_prices.constFirst().price, room));
    for (qsizetype i = 0; i < m_prices.size(); ++i) {
        steps.lineTo(place(i, m_prices.at(i).price, room));
        steps.lineTo(place(i + 1, m_prices.at(i).price, room));
    }
    painter.setPen(QPen(HostColors::of(HostColors::Role::Chart), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(steps);
    painter.setBrush(HostColors::of(HostColors::Role::Chart));
    painter.setPen(Qt::NoPen);
    for (qsizetype i = 0; i < m_prices.size(); ++i)
        painter.drawEllipse(place(i, m_prices.at(i).price, room), 3.5, 3.5);
}
