// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/KChip.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

namespace {

using HostColors::Role;

struct Inks
{
    Role ink;
    Role ground;
};

constexpr Inks inks[] = {
    {Role::Quiet, Role::NeutralSoft},
    {Role::Info, Role::InfoSoft},
    {Role::Good, Role::GoodSoft},
    {Role::Warn, Role::WarnSoft},
    {Role::Danger, Role::DangerSoft},
};

}

KChip::KChip(Kind kind, const QString &text, QWidget *parent)
    : QLabel(text, parent)
    , m_kind(kind)
{
    setTextFormat(Qt::PlainText);
    setFont(LookFonts::font(LookFonts::Use::Chip));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void KChip::setKind(Kind kind)
{
    m_kind = kind;
    update();
}

QSize KChip::sizeOf(const QString &text)
{
    const QFontMetrics metrics(LookFonts::font(LookFonts::Use::Chip));
    return {metrics.horizontalAdvance(text) + 2 * LookSizes::unit, qMax(LookSizes::chip, metrics.height())};
}

QSize KChip::sizeHint() const
{
    return sizeOf(text());
}

QSize KChip::minimumSizeHint() const
{
    return sizeHint();
}

void KChip::paint(QPainter &painter, const QRect &room, Kind kind, const QString &text)
{
    const Inks &own = inks[std::size_t(kind)];
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(LookFonts::font(LookFonts::Use::Chip));
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(own.ground));
    painter.drawRoundedRect(room, room.height() / 2.0, room.height() / 2.0);
    painter.setPen(HostColors::of(own.ink));
    painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void KChip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paint(painter, rect(), m_kind, text());
}
