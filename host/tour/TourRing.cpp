// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/TourRing.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

namespace {

constexpr int thickness = 3;

int gap()
{
    return LookSizes::scaled(LookSizes::unit / 2);
}

}

TourRing::TourRing(QWidget *window)
    : QRubberBand(QRubberBand::Rectangle, window)
{
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void TourRing::showAround(const QRect &control)
{
    if (control.isEmpty()) {
        hide();
        return;
    }
    const int around = gap() + thickness;
    const QRect ring = control.adjusted(-around, -around, around, around) & parentWidget()->rect();
    if (ring != geometry())
        setGeometry(ring);
    if (!isVisible())
        show();
    raise();
}

// Two strokes, so that it stands out from a light ground as from the filled button.
void TourRing::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double half = thickness / 2.0;
    const QRectF line = QRectF(rect()).adjusted(half, half, -half, -half);
    const double corner = LookSizes::scaled(LookSizes::cardCorner);
    painter.setPen(QPen(HostColors::of(HostColors::Role::OnAccent), thickness + 2));
    painter.drawRoundedRect(line, corner, corner);
    painter.setPen(QPen(HostColors::of(HostColors::Role::Accent), thickness));
    painter.drawRoundedRect(line, corner, corner);
}
