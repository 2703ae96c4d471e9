// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <utility>

// How many there were in each of the last months, as bars: the running month at the left, which stands out, the ones before it towards the right.
class MonthBars : public QWidget
{
    Q_OBJECT

public:
    explicit MonthBars(QWidget *parent = nullptr);

    // Name and count of each month, the running one first.
    void setMonths(const QList<std::pair<QString, int>> &months);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF barOf(qsizetype place) const;
    int labelHeight() const;

    QList<std::pair<QString, int>> m_months;
};
