// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/DayCurves.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPolygonF>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;
using HostColors::Role;

namespace {

constexpr int usualCurves = 110;
constexpr int leastCurves = 80;
constexpr int leastSpan = 160;
constexpr qreal endDot = 3;
constexpr qreal curveWidth = 2.2;
constexpr int ruledLines = 3; // lines across, the lowest one solid

}

DayCurves::DayCurves(QWidget *parent)
    : QWidget(parent)
{
    setFont(LookFonts::font(LookFonts::Use::Key));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void DayCurves::setDays(const QString &month, const QList<double> &income, const QList<double> &expenses)
{
    m_month = month;
    m_income = income;
    m_expenses = expenses;
    const qsizetype days = std::max(income.size(), expenses.size());
    setAccessibleDescription(days == 0 ? QString() : u"تا "_s + dayText(days - 1));
    update();
}

QString DayCurves::dayName(qsizetype day) const
{
    return u"%1 %2"_s.arg(day + 1).arg(m_month);
}

QString DayCurves::dayText(qsizetype day) const
{
    return u"%1: درآمد %2، هزینه %3"_s.arg(dayName(day), DToMoney(m_income.value(day)), DToMoney(m_expenses.value(day)));
}

QSize DayCurves::sizeHint() const
{
    return {LookSizes::scaled(leastSpan), LookSizes::scaled(usualCurves)};
}

QSize DayCurves::minimumSizeHint() const
{
    return {LookSizes::scaled(leastSpan), LookSizes::scaled(leastCurves)};
}

// What was taken back may lie below nothing.
DayCurves::Scale DayCurves::scale() const
{
    Scale scale{0, 0};
    for (const QList<double> *values : {&m_income, &m_expenses}) {
        for (const double value : *values) {
            scale.lowest = std::min(scale.lowest, value);
            scale.highest = std::max(scale.highest, value);
        }
    }
    if (scale.highest <= scale.lowest)
        scale.highest = scale.lowest + 1;
    return scale;
}

QRectF DayCurves::plot() const
{
    return QRectF(rect()).adjusted(endDot, endDot * 2, -endDot, -(fontMetrics().height() + endDot));
}

// One day alone stands at the right, where the month begins.
QPointF DayCurves::pointOf(const QList<double> &values, qsizetype day, const Scale &scale) const
{
    const QRectF area = plot();
    const qreal steps = qreal(std::max<qsizetype>(1, values.size() - 1));
    const qreal part = (values.at(day) - scale.lowest) / (scale.highest - scale.lowest);
    return {area.right() - area.width() * qreal(day) / steps, area.bottom() - area.height() * part};
}

bool DayCurves::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || m_income.isEmpty())
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QRectF area = plot();
    const qreal part = std::clamp((area.right() - help->pos().x()) / area.width(), 0.0, 1.0);
    QToolTip::showText(help->globalPos(), dayText(qRound(part * qreal(m_income.size() - 1))), this);
    return true;
}

void DayCurves::paintEvent(QPaintEvent *)
{
    struct Course
    {
        const QList<double> &values;
        Role ink;
        Qt::PenStyle style;
    };

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = plot();
    for (int line = 0; line < ruledLines; ++line) {
        const bool isFloor = line == ruledLines - 1;
        const qreal y = qRound(area.top() + area.height() * line / (ruledLines - 1)) + 0.5;
        painter.setPen(QPen(HostColors::of(Role::Line), 1, isFloor ? Qt::SolidLine : Qt::DotLine));
        painter.drawLine(QPointF(0, y), QPointF(width(), y));
    }
    const Scale own = scale();
    for (const Course &course : {Course{m_expenses, Role::ChartOther, Qt::DashLine}, Course{m_income, Role::Chart, Qt::SolidLine}}) {
        QPolygonF points;
        for (qsizetype day = 0; day < course.values.size(); ++day)
            points.append(pointOf(course.values, day, own));
        if (points.isEmpty())
            continue;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(HostColors::of(course.ink), curveWidth, course.style, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(points);
        painter.setBrush(HostColors::of(course.ink));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(points.constLast(), endDot, endDot);
    }
    if (m_income.isEmpty())
        return;
    painter.setPen(HostColors::of(Role::Quiet));
    const QRectF days(0, height() - fontMetrics().height(), width(), fontMetrics().height());
    painter.drawText(days, Qt::AlignRight | Qt::AlignAbsolute, dayName(0));
    if (m_income.size() > 1)
        painter.drawText(days, Qt::AlignLeft | Qt::AlignAbsolute, dayName(m_income.size() - 1));
}
