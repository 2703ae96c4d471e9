// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/prices/PriceHistory.h"

#include <QWidget>

// The prices of a car over the time, oldest at the right: each stands until the next.
class PriceChart : public QWidget
{
    Q_OBJECT

public:
    explicit PriceChart(QWidget *parent = nullptr);

    // Oldest first. until: where the last one ends.
    void setPrices(const QList<PriceHistory::Entry> &prices, const QDateTime &until);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPointF place(const QDateTime &when, double price, const QRectF &room) const;

    QList<PriceHistory::Entry> m_prices;
    QDateTime m_until;
};
