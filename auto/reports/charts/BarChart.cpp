// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/charts/BarChart.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/values/Money.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QChartView>
#include <QEvent>
#include <QGraphicsLayout>
#include <QHorizontalBarSeries>
#include <QLegend>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int axisSteps = 4;
constexpr double million = 1e6;
constexpr double longestPlain = 1e7; // larger ones are shown in millions

struct Scale
{
    double unit = 1;
    double lowest = 0;
    double highest = 1;
    double step = 1;
};

Scale scaleOf(const QList<ChartFigures::Bar> &bars)
{
    Scale scale;
    double low = 0;
    double high = 0;
    for (const ChartFigures::Bar &bar : bars) {
        low = std::min({low, bar.first, bar.second});
        high = std::max({high, bar.first, bar.second});
    }
    scale.unit = std::max(high, -low) >= longestPlain ? million : 1;
    const double range = std::max(1.0, (high - low) / scale.unit);
    const double magnitude = std::pow(10, std::floor(std::log10(range / axisSteps)));
    scale.step = std::max(1.0, std::ceil(range / axisSteps / magnitude) * magnitude);
    scale.lowest = std::floor(low / scale.unit / scale.step) * scale.step;
    scale.highest = std::max(scale.step, std::ceil(high / scale.unit / scale.step) * scale.step);
    return scale;
}

QAbstractBarSeries *seriesOf(const BarChart::Words &words, const QList<ChartFigures::Bar> &bars, double unit, HostColors::Look look)
{
    auto *series = new QHorizontalBarSeries;
    const auto add = [&](const QString &name, HostColors::Role ink, double ChartFigures::Bar::*value) {
        auto *set = new QBarSet(name);
        set->setColor(HostColors::of(ink, look));
        set->setBorderColor(Qt::transparent);
        // A category axis counts from below.
        for (auto bar = bars.crbegin(); bar != bars.crend(); ++bar)
            set->append((*bar).*value / unit);
        series->append(set);
    };
    add(words.first, HostColors::Role::Chart, &ChartFigures::Bar::first);
    if (!words.second.isEmpty())
        add(words.second, HostColors::Role::ChartOther, &ChartFigures::Bar::second);
    return series;
}

QCategoryAxis *amountAxis(const Scale &scale)
{
    auto *axis = new QCategoryAxis;
    axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    axis->setReverse(true);
    axis->setStartValue(scale.lowest);
    const int steps = qRound((scale.highest - scale.lowest) / scale.step);
    for (int i = 0; i <= steps; ++i) {
        const double amount = scale.lowest + i * scale.step;
        axis->append(DToMoney(amount, 0), amount);
    }
    // Room for half of the last label.
    axis->setRange(scale.lowest, scale.highest + scale.step / 2);
    return axis;
}

QBarCategoryAxis *nameAxis(const QList<ChartFigures::Bar> &bars)
{
    auto *axis = new QBarCategoryAxis;
    QStringList names;
    for (const ChartFigures::Bar &bar : bars)
        names.prepend(bar.name);
    axis->append(names);
    axis->setGridLineVisible(false);
    return axis;
}

void dress(QChart &chart, const QFont &font, HostColors::Look look)
{
    const QColor text = HostColors::of(HostColors::Role::Text, look);
    const QColor line = HostColors::of(HostColors::Role::Line, look);
    chart.setBackgroundBrush(HostColors::of(HostColors::Role::Surface, look));
    chart.setTitleFont(font);
    chart.setTitleBrush(text);
    chart.legend()->setLabelColor(text);
    chart.legend()->setFont(font);
    const QList<QAbstractAxis *> axes = chart.axes();
    for (QAbstractAxis *axis : axes) {
        axis->setLabelsFont(font);
        axis->setLabelsColor(text);
        axis->setLinePenColor(line);
        axis->setGridLineColor(line);
    }
}

std::unique_ptr<QChart> makeBarChart(const BarChart::Words &words, const QList<ChartFigures::Bar> &all, const QFont &font, HostColors::Look look)
{
    const QList<ChartFigures::Bar> bars = all.first(std::min<qsizetype>(BarChart::mostBars, all.size()));
    const Scale scale = scaleOf(bars);
    auto chart = std::make_unique<QChart>();
    QAbstractBarSeries *series = seriesOf(words, bars, scale.unit, look);
    chart->addSeries(series);
    chart->setLayoutDirection(Qt::RightToLeft);
    chart->setLocalizeNumbers(false);
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    chart->setBackgroundRoundness(0);
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->legend()->setReverseMarkers(true);
    chart->legend()->setVisible(!words.second.isEmpty());
    chart->setTitle(scale.unit > 1 ? u"%1 (میلیون)"_s.arg(words.title) : words.title);
    QBarCategoryAxis *names = nameAxis(bars);
    QCategoryAxis *amounts = amountAxis(scale);
    chart->addAxis(names, Qt::AlignRight);
    chart->addAxis(amounts, Qt::AlignBottom);
    series->attachAxis(names);
    series->attachAxis(amounts);
    dress(*chart, font, look);
    return chart;
}

}

BarChart::BarChart(QWidget *parent)
    : QWidget(parent)
    , m_view(new QChartView)
{
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setFrameShape(QFrame::NoFrame);
    // There is nothing to do in it by the keyboard; the list beside it has the same figures.
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setMinimumSize(360, 380);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    rebuild();
}

void BarChart::setBars(const Words &words, const QList<ChartFigures::Bar> &bars)
{
    m_words = words;
    m_bars = bars;
    m_view->setAccessibleName(u"نمودار %1"_s.arg(words.title));
    rebuild();
}

const QChart *BarChart::chart() const
{
    return m_view->chart();
}

void BarChart::rebuild()
{
    const std::unique_ptr<QChart> before(m_view->chart());
    m_view->setChart(makeBarChart(m_words, m_bars, font(), HostColors::look()).release());
}

void BarChart::draw(QPainter &painter, const QRectF &rectangle, const QString &heading) const
{
    constexpr double width = 1000; // about as much as a screen shows, on the width of a sheet
    const QSizeF size(width, width * rectangle.height() / rectangle.width());
    QGraphicsScene scene;
    std::unique_ptr<QChart> chart = makeBarChart(m_words, m_bars, font(), HostColors::Look::Light);
    chart->setTitle(heading.toHtmlEscaped() + u"<br>"_s + chart->title());
    chart->resize(size);
    scene.addItem(chart.release());
    scene.render(&painter, rectangle, QRectF({}, size));
}

void BarChart::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        rebuild();
}
