// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/ChartLegend.h"

#include "suite/utility/look/LookFonts.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int legendGap = 5;

}

ChartLegend::ChartLegend(HostColors::Role ink, const QString &text, QWidget *parent)
    : QLabel(text, parent)
    , m_ink(ink)
{
    setFont(LookFonts::font(LookFonts::Use::Chip));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize ChartLegend::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + fontMetrics().xHeight() + 2 * legendGap, fontMetrics().height()};
}

void ChartLegend::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int size = fontMetrics().xHeight() + legendGap / 2;
    const QRect dot(0, (height() - size) / 2, size, size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(m_ink));
    painter.drawEllipse(QStyle::visualRect(layoutDirection(), rect(), dot));
    const QRect words = rect().adjusted(size + legendGap, 0, 0, 0);
    painter.setPen(HostColors::of(HostColors::Role::Text));
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), words),
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading | Qt::AlignVCenter)) | Qt::TextSingleLine, text());
}
