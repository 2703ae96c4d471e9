// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/IncomeChart.h"

#include "suite/accounting/CDBSetting.h"
#include "suite/utility/Money.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QEvent>
#include <QGraphicsLayout>
#include <QHorizontalStackedBarSeries>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using IncomeAndExpenses::Account;

struct Bar
{
    QString name;
    double amount = 0; // on its own side: income in credit and expenses in debit are above 0
};

// The side's largest accounts, and the rest of it as one.
QList<Bar> largest(QList<Account> accounts, double sign, const QString &rest)
{
    IncomeAndExpenses::sort(accounts, IncomeAndExpenses::Order::Amount, true);
    QList<Bar> bars;
    double others = 0;
    for (const Account &account : std::as_const(accounts)) {
        const double amount = sign * account.balance.net();
        if (bars.size() < IncomeChart::barsOfASide)
            bars.append({QStringLiteral("%1 - %2").arg(account.code).arg(account.name), amount});
        else
            others += amount;
    }
    if (accounts.size() > IncomeChart::barsOfASide)
        bars.append({rest, others});
    return bars;
}

// Long amounts are shown in millions: an axis has no room for a dozen digits.
double unitFor(const QList<Bar> &bars)
{
    constexpr double million = 1'000'000;
    double highest = 0;
    for (const Bar &bar : bars)
        highest = std::max(highest, std::abs(bar.amount));
    return highest >= 10 * million ? million : 1;
}

// Holds 0, and is never empty.
std::pair<double, double> rangeOf(const QList<Bar> &bars)
{
    std::pair<double, double> range(0, 0);
    for (const Bar &bar : bars) {
        range.first = std::min(range.first, bar.amount);
        range.second = std::max(range.second, bar.amount);
    }
    return range.first == range.second ? std::pair(0.0, 1.0) : range;
}

const QColor incomeColor(0x2e, 0x8b, 0x57);
const QColor expenseColor(0xc0, 0x5a, 0x2b);

}

IncomeChart::IncomeChart(QWidget *parent)
    : QWidget(parent)
    , m_view(new QChartView)
{
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setAccessibleName(QStringLiteral("نمودار درآمدها و هزینه ها"));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setMinimumSize(360, 260);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    rebuild();
}

void IncomeChart::setReport(const ComprehensiveReport &report)
{
    m_report = report;
    rebuild();
}

void IncomeChart::rebuild()
{
    const QList<Bar> income = largest(m_report.income.accounts, -1, QStringLiteral("سایر درآمدها"));
    const QList<Bar> expenses = largest(m_report.expenses.accounts, 1, QStringLiteral("سایر هزینه ها"));
    QList<Bar> bars = income + expenses;
    const double unit = unitFor(bars);
    auto *incomeSet = new QBarSet(QStringLiteral("درآمد ها"));
    auto *expenseSet = new QBarSet(QStringLiteral("هزینه ها"));
    m_categories.clear();
    // A category axis counts from below.
    for (qsizetype i = bars.size() - 1; i >= 0; --i) {
        const double amount = bars.at(i).amount / unit;
        incomeSet->append(i < income.size() ? amount : 0);
        expenseSet->append(i < income.size() ? 0 : amount);
        m_categories.prepend(bars.at(i).name);
    }
    auto *series = new QHorizontalStackedBarSeries;
    series->append(incomeSet);
    series->append(expenseSet);
    const auto tell = [this, bars](bool over, int index) {
        const qsizetype position = bars.size() - 1 - index;
        const bool shown = over && position >= 0 && position < bars.size();
        QToolTip::showText(QCursor::pos(),
                           shown ? bars.at(position).name + QLatin1String(" : ") + DToMoney(bars.at(position).amount) : QString(), this);
    };
    connect(series, &QAbstractBarSeries::hovered, this, tell);

    auto *chart = new QChart;
    chart->addSeries(series);
    chart->setLayoutDirection(Qt::RightToLeft);
    chart->setLocalizeNumbers(false);
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    chart->setBackgroundRoundness(0);
    chart->legend()->setAlignment(Qt::AlignBottom);
    const QString money = GetDBSetting()->MoneyUnitName();
    chart->setTitle(unit > 1 ? QStringLiteral("درآمد ها و هزینه ها (میلیون %1)").arg(money)
                             : QStringLiteral("درآمد ها و هزینه ها (%1)").arg(money));
    auto *names = new QBarCategoryAxis;
    names->append(QStringList(m_categories.crbegin(), m_categories.crend()));
    names->setGridLineVisible(false);
    auto *amounts = new QValueAxis;
    amounts->setReverse(true); // grows from the right
    amounts->setLabelFormat(QStringLiteral("%.0f"));
    chart->addAxis(names, Qt::AlignRight);
    chart->addAxis(amounts, Qt::AlignBottom);
    series->attachAxis(names);
    series->attachAxis(amounts);
    const auto [lowest, highest] = rangeOf(bars);
    amounts->setRange(lowest / unit, highest / unit);
    amounts->applyNiceNumbers();

    const std::unique_ptr<QChart> before(m_view->chart());
    m_view->setChart(chart);
    applyColors(false);
}

void IncomeChart::applyColors(bool forPaper)
{
    QChart *chart = m_view->chart();
    const QColor text = forPaper ? QColor(Qt::black) : palette().color(QPalette::WindowText);
    QColor grid = text;
    grid.setAlphaF(0.2F);
    chart->setBackgroundBrush(forPaper ? QBrush(Qt::white) : palette().brush(QPalette::Base));
    chart->setFont(font());
    chart->setTitleFont(font());
    chart->setTitleBrush(text);
    chart->legend()->setLabelColor(text);
    chart->legend()->setFont(font());
    const QList<QAbstractAxis *> axes = chart->axes();
    for (QAbstractAxis *axis : axes) {
        axis->setLabelsFont(font());
        axis->setLabelsColor(text);
        axis->setLinePenColor(grid);
        axis->setGridLineColor(grid);
    }
    const auto *series = qobject_cast<QAbstractBarSeries *>(chart->series().value(0));
    if (!series)
        return;
    const QList<QBarSet *> sets = series->barSets();
    sets.at(0)->setColor(incomeColor);
    sets.at(1)->setColor(expenseColor);
    for (QBarSet *set : sets)
        set->setBorderColor(Qt::transparent);
}

void IncomeChart::draw(QPainter &painter, const QRectF &rectangle)
{
    applyColors(true);
    m_view->scene()->render(&painter, rectangle, m_view->scene()->sceneRect(), Qt::KeepAspectRatio);
    applyColors(false);
}

void IncomeChart::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        applyColors(false);
}
