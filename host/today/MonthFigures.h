// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

#include <QFrame>

#include <array>

class ElidedLabel;
class KChip;
class TodayCharts;

// The card of the running month: how many contracts, for how much, with which commission, and how that stands to the month before.
class MonthFigures : public QFrame
{
    Q_OBJECT

public:
    explicit MonthFigures(QWidget *parent = nullptr);

    void show(const TodayFigures &figures, const QString &unit);

    // "186.5 میلیون", so that a figure of many digits can be read at a glance.
    static QString roundText(double amount);
    // "2 بیش از آبان", "3٪ کمتر از آبان", "برابر آبان"; the second by percent.
    static QString compared(int now, int before, const QString &month);
    static QString comparedAmount(double now, double before, const QString &month);

private:
    struct Figure
    {
        ElidedLabel *value = nullptr;
        KChip *change = nullptr;
    };

    Figure addFigure(class QGridLayout *grid, int column, const QString &title);

    ElidedLabel *m_title;
    ElidedLabel *m_unit;
    Figure m_contracts;
    Figure m_amount;
    Figure m_commission;
    ElidedLabel *m_cars;
    TodayCharts *m_charts;
};
