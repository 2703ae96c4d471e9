// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/IncomeChart.h"

#include "auto/reports/income/BarAmounts.h"
#include "suite/utility/look/FittedFont.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/values/Money.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QChartView>
#include <QEvent>
#include <QGraphicsLayout>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// What a chart is drawn in: on the screen in the look in use, on paper in the light one.
struct Inks
{
    BarAmounts::Inks amounts;
    QColor income;
    QColor expenses;
    QColor grid;
    QFont font;
};

Inks inksOf(HostColors::Look look, const QFont &font)
{
    using HostColors::Role;
    const auto of = [look](Role role) { return HostColors::of(role, look); };
    return {{of(Role::Text), of(Role::OnAccent), of(Role::Surface)}, of(Role::Chart), of(Role::ChartOther), of(Role::Line), font};
}

QBarSet *addSet(QAbstractBarSeries *series, const QString &name, const QColor &color)
{
    auto *set = new QBarSet(name);
    set->setColor(color);
    set->setBorderColor(Qt::transparent);
    series->append(set);
    return set;
}

// A stack of which only one part is ever present, so that each bar has its side's colour and all have one width.
QHorizontalStackedBarSeries *makeSeries(const IncomeBars &bars, const Inks &inks)
{
    auto *series = new QHorizontalStackedBarSeries;
    QBarSet *income = addSet(series, u"درآمد ها"_s, inks.income);
    QBarSet *expenses = addSet(series, u"هزینه ها"_s, inks.expenses);
    // A category axis counts from below.
    for (auto bar = bars.bars.crbegin(); bar != bars.bars.crend(); ++bar) {
        const double length = BarAmounts::drawnLength(bars, *bar);
        income->append(bar->isIncome ? length : 0);
        expenses->append(bar->isIncome ? 0 : length);
    }
    return series;
}

QBarCategoryAxis *makeNames(const IncomeBars &bars)
{
    auto *names = new QBarCategoryAxis;
    QStringList fromBelow;
    for (const IncomeBars::Bar &bar : bars.bars)
        fromBelow.prepend(bar.name);
    names->append(fromBelow);
    names->setGridLineVisible(false);
    return names;
}

// Grows from the right. Its labels are texts, as only texts can be grouped like amounts elsewhere.
QCategoryAxis *makeAmounts(const IncomeBars &bars)
{
    auto *amounts = new QCategoryAxis;
    amounts->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    amounts->setReverse(true);
    amounts->setStartValue(bars.lowest);
    const int steps = qRound((bars.highest - bars.lowest) / bars.step);
    for (int i = 0; i <= steps; ++i) {
        const double amount = bars.lowest + i * bars.step;
        amounts->append(DToMoney(amount, 0), amount);
    }
    amounts->setRange(bars.lowest, BarAmounts::axisEnd(bars));
    amounts->setLabelsVisible(!bars.bars.isEmpty());
    return amounts;
}

void setInks(QChart &chart, const Inks &inks)
{
    chart.setBackgroundBrush(inks.amounts.background);
    chart.setTitleFont(inks.font);
    chart.setTitleBrush(inks.amounts.text);
    chart.legend()->setLabelColor(inks.amounts.text);
    chart.legend()->setFont(inks.font);
    const QList<QAbstractAxis *> axes = chart.axes();
    for (QAbstractAxis *axis : axes) {
        axis->setLabelsFont(inks.font);
        axis->setLabelsColor(inks.amounts.text);
        axis->setLinePenColor(inks.grid);
        axis->setGridLineColor(inks.grid);
    }
}

// Returns the font of the names. A name that is higher than its bar's room would be shown as three dots: with many bars the letters are smaller.
QFont fitNames(QChart &chart, const QFont &font, qsizetype bars)
{
    constexpr double paddingOfANameInItsRoom = 9; // of the library, above and below together
    const QList<QAbstractAxis *> axes = chart.axes(Qt::Vertical);
    if (axes.isEmpty() || bars == 0)
        return font;
    const QFont fitting = FittedFont::of(font, chart.plotArea().height() / double(bars) - paddingOfANameInItsRoom);
    if (axes.constFirst()->labelsFont() != fitting)
        axes.constFirst()->setLabelsFont(fitting);
    return fitting;
}

std::unique_ptr<QChart> makeChart(const IncomeBars &bars, const QString &money, const Inks &inks)
{
    auto chart = std::make_unique<QChart>();
    QHorizontalStackedBarSeries *series = makeSeries(bars, inks);
    chart->addSeries(series);
    chart->setLayoutDirection(Qt::RightToLeft);
    chart->setLocalizeNumbers(false);
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    chart->setMargins({10, 10, 10, 10});
    chart->setBackgroundRoundness(0);
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->legend()->setReverseMarkers(true); // income first, which is on the right
    chart->setTitle(bars.unit > 1 ? u"درآمد ها و هزینه ها (میلیون %1)"_s.arg(money)
                                  : u"درآمد ها و هزینه ها (%1)"_s.arg(money));
    QBarCategoryAxis *names = makeNames(bars);
    QCategoryAxis *amounts = makeAmounts(bars);
    chart->addAxis(names, Qt::AlignRight);
    chart->addAxis(amounts, Qt::AlignBottom);
    series->attachAxis(names);
    series->attachAxis(amounts);
    setInks(*chart, inks);
    QObject::connect(chart.get(), &QChart::plotAreaChanged, chart.get(),
                     [chart = chart.get(), font = inks.font, count = bars.bars.size(),
                      texts = BarAmounts(chart.get(), bars, inks.amounts)]() mutable {
                         texts.place(fitNames(*chart, font, count));
                     });
    return chart;
}

}

IncomeChart::IncomeChart(const QString &moneyUnit, QWidget *parent)
    : QWidget(parent)
    , m_moneyUnit(moneyUnit)
    , m_view(new QChartView)
{
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setAccessibleName(u"نمودار درآمدها و هزینه ها"_s);
    m_view->setFrameShape(QFrame::NoFrame);
    // There is nothing to do in it by the keyboard; the list beside it has the same figures.
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setMinimumSize(360, 400);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    rebuild();
}

void IncomeChart::setReport(const ComprehensiveReport &report)
{
    m_bars = IncomeBars::of(report, u"سایر درآمدها"_s, u"سایر هزینه ها"_s);
    rebuild();
}

QStringList IncomeChart::categories() const
{
    QStringList names;
    for (const IncomeBars::Bar &bar : m_bars.bars)
        names.append(bar.name);
    return names;
}

const QChart *IncomeChart::chart() const
{
    return m_view->chart();
}

void IncomeChart::rebuild()
{
    Inks inks = inksOf(HostColors::look(), font());
    inks.amounts.text = palette().color(QPalette::WindowText);
    inks.amounts.background = palette().color(QPalette::Base);
    const std::unique_ptr<QChart> before(m_view->chart());
    m_view->setChart(makeChart(m_bars, m_moneyUnit, inks).release());
    auto *series = static_cast<QAbstractBarSeries *>(m_view->chart()->series().constFirst());
    connect(series, &QAbstractBarSeries::hovered, this, &IncomeChart::tell);
}

// The whole amount of the bar under the mouse.
void IncomeChart::tell(bool over, int index)
{
    const qsizetype position = m_bars.bars.size() - 1 - index;
    const bool shown = over && position >= 0 && position < m_bars.bars.size();
    const IncomeBars::Bar bar = m_bars.bars.value(position);
    QToolTip::showText(QCursor::pos(), shown ? bar.name + QLatin1String(" : ") + DToMoney(bar.amount) : QString(), this);
}

void IncomeChart::draw(QPainter &painter, const QRectF &rectangle, const QString &heading) const
{
    // About as much as a screen shows, on the width of a sheet.
    constexpr double width = 1000;
    const QSizeF size(width, width * rectangle.height() / rectangle.width());
    QGraphicsScene scene;
    std::unique_ptr<QChart> chart = makeChart(m_bars, m_moneyUnit, inksOf(HostColors::Look::Light, font()));
    chart->setTitle(heading.toHtmlEscaped() + u"<br>"_s + chart->title());
    chart->resize(size);
    scene.addItem(chart.release());
    scene.render(&painter, rectangle, QRectF({}, size));
}

void IncomeChart::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        rebuild();
}
