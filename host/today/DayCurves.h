// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QWidget>

// Income and expenses as they grew over the days of a month, the first day at the right, the last one that is known at the left, where each
// curve ends in a dot. Expenses are dashed, so that the colour is not all that tells them apart.
class DayCurves : public QWidget
{
    Q_OBJECT

public:
    explicit DayCurves(QWidget *parent = nullptr);

    // One value per day, each with those of the days before it; both equally long. The month's name stands beside the days.
    void setDays(const QString &month, const QList<double> &income, const QList<double> &expenses);
    // What the pointer is told of a day: "12 آذر", and both amounts. day: from 0.
    QString dayText(qsizetype day) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Scale
    {
        double lowest = 0;
        double highest = 1;
    };

    Scale scale() const;
    QRectF plot() const;
    QPointF pointOf(const QList<double> &values, qsizetype day, const Scale &scale) const;
    QString dayName(qsizetype day) const;

    QString m_month;
    QList<double> m_income;
    QList<double> m_expenses;
};
