// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/TodayCharts.h"

#include "host/today/ChartLegend.h"
#include "host/today/DayCurves.h"
#include "host/today/MonthBars.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int belowChartHeading = 6;

ElidedLabel *chartHeading(const QString &text, QWidget *parent)
{
    auto *label = new ElidedLabel(text, parent);
    LookFonts::apply(label, LookFonts::Use::Label);
    return label;
}

}

TodayCharts::TodayCharts(QWidget *parent)
    : QWidget(parent)
    , m_bars(new MonthBars(this))
    , m_curves(new DayCurves(this))
    , m_curvesHead(new QWidget(this))
{
    const QString months = u"قراردادهای شش ماه"_s;
    const QString days = u"درآمد و هزینه این ماه"_s;
    m_bars->setAccessibleName(months);
    m_curves->setAccessibleName(days);
    auto *legend = new QHBoxLayout(m_curvesHead);
    legend->setContentsMargins({});
    legend->setSpacing(LookSizes::unit);
    legend->addWidget(chartHeading(days, m_curvesHead), 1);
    legend->addWidget(new ChartLegend(HostColors::Role::Chart, u"درآمد"_s, m_curvesHead));
    legend->addWidget(new ChartLegend(HostColors::Role::ChartOther, u"هزینه"_s, m_curvesHead));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(belowChartHeading);
    column->addWidget(chartHeading(months, this));
    column->addWidget(m_bars, 5);
    column->addWidget(m_curvesHead);
    column->addWidget(m_curves, 4);
}

void TodayCharts::setMonths(const QList<std::pair<QString, int>> &months)
{
    m_month = months.isEmpty() ? QString() : months.constFirst().first;
    m_bars->setMonths(months);
}

void TodayCharts::setDays(const QList<double> &income, const QList<double> &expenses)
{
    m_curves->setDays(m_month, income, expenses);
    const bool isTold = !income.isEmpty() || !expenses.isEmpty();
    m_curvesHead->setVisible(isTold);
    m_curves->setVisible(isTold);
}
