// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/MonthFigures.h"

#include "host/today/TodayCharts.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct Power
{
    double size;
    const char16_t *word;
};

constexpr Power powers[] = {{1e12, u"هزار میلیارد"}, {1e9, u"میلیارد"}, {1e6, u"میلیون"}, {1e3, u"هزار"}};

KChip::Kind kindOf(double now, double before)
{
    if (IsEquals(now, before))
        return KChip::Kind::Neutral;
    return now > before ? KChip::Kind::Good : KChip::Kind::Danger;
}

}

MonthFigures::MonthFigures(QWidget *parent)
    : QFrame(parent)
    , m_title(new ElidedLabel(this))
    , m_unit(new ElidedLabel(this))
    , m_cars(new ElidedLabel(this))
    , m_charts(new TodayCharts(this))
{
    LookMarks::setCard(this);
    LookFonts::apply(m_title, LookFonts::Use::Title);
    LookFonts::applyHint(m_unit);
    LookFonts::apply(m_cars, LookFonts::Use::Label);
    m_unit->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    auto *head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(m_unit);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(LookSizes::unit);
    grid->setVerticalSpacing(LookSizes::unit / 2);
    m_contracts = addFigure(grid, 0, u"قرارداد"_s);
    m_amount = addFigure(grid, 1, u"مبلغ قراردادها"_s);
    m_commission = addFigure(grid, 2, u"کمیسیون"_s);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    column->setSpacing(LookSizes::unit);
    column->addLayout(head);
    column->addLayout(grid);
    column->addWidget(m_cars);
    column->addWidget(m_charts, 1);
    show(TodayFigures(), {});
}

MonthFigures::Figure MonthFigures::addFigure(QGridLayout *grid, int column, const QString &title)
{
    auto *label = new ElidedLabel(this);
    label->setText(title);
    LookFonts::apply(label, LookFonts::Use::Label);
    Figure figure{new ElidedLabel(this), new KChip(KChip::Kind::Neutral, {}, this)};
    LookFonts::apply(figure.value, LookFonts::Use::Page);
    figure.value->setAccessibleDescription(title);
    // Digits alone would be taken for a text from left to right.
    figure.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
    grid->addWidget(label, 0, column);
    grid->addWidget(figure.value, 1, column);
    grid->addWidget(figure.change, 2, column, Qt::AlignLeading);
    grid->setColumnStretch(column, 1);
    return figure;
}

void MonthFigures::show(const TodayFigures &figures, const QString &unit)
{
    const TodayFigures::Month &now = figures.months[0];
    const TodayFigures::Month &before = figures.months[1];
    m_title->setText(u"ارقام %1"_s.arg(now.name));
    setAccessibleName(m_title->text());
    m_unit->setText(unit);
    m_contracts.value->setText(QString::number(now.contracts));
    m_contracts.change->setText(compared(now.contracts, before.contracts, before.name));
    m_contracts.change->setKind(kindOf(now.contracts, before.contracts));
    m_amount.value->setText(roundText(now.amount));
    m_amount.change->setText(comparedAmount(now.amount, before.amount, before.name));
    m_amount.change->setKind(kindOf(now.amount, before.amount));
    m_commission.value->setText(roundText(now.commission));
    m_commission.change->setText(comparedAmount(now.commission, before.commission, before.name));
    m_commission.change->setKind(kindOf(now.commission, before.commission));
    m_cars->setText(u"خودرو: %1 ورود، %2 فروش"_s.arg(now.carsIn).arg(now.carsOut));
    QList<std::pair<QString, int>> months;
    for (const TodayFigures::Month &month : figures.months)
        months.append({month.name, month.contracts});
    m_charts->setMonths(months);
    m_charts->setDays(figures.income, figures.expenses);
}

QString MonthFigures::roundText(double amount)
{
    for (const Power &power : powers) {
        if (std::abs(amount) < power.size)
            continue;
        QString figure = QString::number(amount / power.size, 'f', 1);
        if (figure.endsWith(u".0"))
            figure.chop(2);
        return figure + u' ' + QString::fromUtf16(power.word);
    }
    return DToMoney(amount);
}

QString MonthFigures::compared(int now, int before, const QString &month)
{
    if (now == before)
        return u"برابر %1"_s.arg(month);
    return (now > before ? u"%1 بیش از %2"_s : u"%1 کمتر از %2"_s).arg(std::abs(now - before)).arg(month);
}

QString MonthFigures::comparedAmount(double now, double before, const QString &month)
{
    if (IsEquals(now, before))
        return u"برابر %1"_s.arg(month);
    if (before <= 0)
        return u"در %1 نبود"_s.arg(month);
    const double percent = std::abs(now - before) / before * 100;
    const QString figure = percent < 1 ? u"کمی"_s : QString::number(std::floor(percent), 'f', 0) + u'٪';
    return (now > before ? u"%1 بیش از %2"_s : u"%1 کمتر از %2"_s).arg(figure, month);
}
