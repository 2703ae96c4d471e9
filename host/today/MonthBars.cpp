// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/MonthBars.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;
using HostColors::Role;

namespace {

constexpr int usualBars = 138;
constexpr int leastBars = 92;
constexpr int leastMonth = 44; // of a month
constexpr int barWidth = 28;
constexpr int barCorner = 3;
constexpr int belowBar = 3;

}

MonthBars::MonthBars(QWidget *parent)
    : QWidget(parent)
{
    setFont(LookFonts::font(LookFonts::Use::Label));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void MonthBars::setMonths(const QList<std::pair<QString, int>> &months)
{
    m_months = months;
    QStringList texts;
    for (const auto &[name, count] : months)
        texts.append(u"%1 %2"_s.arg(name).arg(count));
    setAccessibleDescription(texts.join(u"، "_s));
    update();
}

QSize MonthBars::sizeHint() const
{
    return {minimumSizeHint().width(), LookSizes::scaled(usualBars)};
}

QSize MonthBars::minimumSizeHint() const
{
    return {int(m_months.size()) * LookSizes::scaled(leastMonth), LookSizes::scaled(leastBars)};
}

int MonthBars::labelHeight() const
{
    return fontMetrics().height() + belowBar;
}

// Of no height for a month without any.
QRectF MonthBars::barOf(qsizetype place) const
{
    const qreal step = qreal(width()) / qreal(m_months.size());
    const qreal floor = height() - labelHeight();
    int most = 1;
    for (const auto &month : m_months)
        most = std::max(most, month.second);
    const qreal tall = (floor - labelHeight()) * std::max(0, m_months.at(place).second) / most;
    const qreal wide = std::min<qreal>(LookSizes::scaled(barWidth), step * 2 / 3);
    return {(qreal(place) + 0.5) * step - wide / 2, floor - tall, wide, tall};
}

void MonthBars::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal step = m_months.isEmpty() ? 0 : qreal(width()) / qreal(m_months.size());
    const qreal floor = height() - labelHeight();
    painter.setPen(QPen(HostColors::of(Role::Line), 1));
    painter.drawLine(QPointF(0, floor + 0.5), QPointF(width(), floor + 0.5));
    for (qsizetype place = 0; place < m_months.size(); ++place) {
        const bool isRunning = place == 0;
        const QRectF bar = barOf(place);
        painter.setPen(Qt::NoPen);
        painter.setBrush(HostColors::of(isRunning ? Role::Chart : Role::ChartPast));
        painter.drawRoundedRect(bar, barCorner, barCorner);
        QFont font = this->font();
        font.setWeight(isRunning ? QFont::Medium : QFont::Normal);
        painter.setFont(font);
        painter.setPen(HostColors::of(isRunning ? Role::Text : Role::Quiet));
        const QRectF label(qreal(place) * step, 0, step, labelHeight());
        painter.drawText(label.translated(0, bar.top() - labelHeight()), Qt::AlignCenter, QString::number(m_months.at(place).second));
        painter.drawText(label.translated(0, floor + belowBar - 1), Qt::AlignCenter, m_months.at(place).first);
    }
}
