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

QSize KChip::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * LookSizes::unit, qMax(LookSizes::chip, fontMetrics().height())};
}

QSize KChip::minimumSizeHint() const
{
    return sizeHint();
}

void KChip::paintEvent(QPaintEvent *)
{
    const Inks &own = inks[std::size_t(m_kind)];
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(own.ground));
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    painter.setPen(HostColors::of(own.ink));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
}
