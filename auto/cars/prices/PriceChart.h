// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/prices/PriceHistory.h"

#include <QWidget>

// The prices of a car one after the other, the oldest at the right. Each is a step of the same width: a car is priced twice on one day and then
// stands for months.
class PriceChart : public QWidget
{
    Q_OBJECT

public:
    explicit PriceChart(QWidget *parent = nullptr);

    // Oldest first.
    void setPrices(const QList<PriceHistory::Entry> &prices);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // Where the step of that number begins, at the height of the price.
    QPointF place(qsizetype step, double price, const QRectF &room) const;

    QList<PriceHistory::Entry> m_prices;
};
