// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/KeyCap.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

namespace {

constexpr int capPadding = 7;

QFont capFont()
{
    return LookFonts::font(LookFonts::Use::Key);
}

QSize capSize(const QString &key)
{
    const QFontMetrics metrics(capFont());
    const int height = std::max(LookSizes::scaled(LookSizes::chip), metrics.height() + 2);
    return {metrics.horizontalAdvance(key) + 2 * LookSizes::scaled(capPadding), height};
}

}

KeyCap::KeyCap(const QString &key, QWidget *parent)
    : QLabel(key, parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize KeyCap::sizeHint() const
{
    return capSize(text());
}

int KeyCap::paint(QPainter &painter, const QRect &rect, const QString &key)
{
    const QSize size = capSize(key);
    const QRectF cap = QRectF(QPointF(rect.left(), rect.center().y() - size.height() / 2), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(HostColors::of(HostColors::Role::Line));
    painter.setBrush(HostColors::of(HostColors::Role::Surface));
    const int corner = LookSizes::scaled(LookSizes::controlCorner);
    painter.drawRoundedRect(cap, corner, corner);
    painter.setFont(capFont());
    painter.setPen(HostColors::of(HostColors::Role::Quiet));
    painter.drawText(cap, Qt::AlignCenter, key);
    return rect.left() + size.width();
}

void KeyCap::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter, rect(), text());
}
