// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/MessageSign.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int spot = 34;

struct Sign
{
    const char16_t *icon;
    HostColors::Role ink;
    HostColors::Role ground;
};

Sign signOf(KMessageDialog::Kind kind)
{
    using Role = HostColors::Role;
    switch (kind) {
    case KMessageDialog::Kind::Warning:
        return {u":/icons/warning.svg", Role::Warn, Role::WarnSoft};
    case KMessageDialog::Kind::Message:
        return {u":/icons/info.svg", Role::Info, Role::InfoSoft};
    case KMessageDialog::Kind::Question:
        return {u":/icons/help.svg", Role::Info, Role::InfoSoft};
    }
    Q_UNREACHABLE();
}

}

MessageSign::MessageSign(KMessageDialog::Kind kind, QWidget *parent)
    : QWidget(parent)
    , m_kind(kind)
{
    setFixedSize(LookSizes::scaled(spot), LookSizes::scaled(spot));
}

void MessageSign::paintEvent(QPaintEvent *)
{
    const Sign sign = signOf(m_kind);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(sign.ground));
    painter.drawEllipse(rect());
    const int size = LookSizes::scaled(LookSizes::iconSize);
    QRect place(0, 0, size, size);
    place.moveCenter(rect().center());
    LookIcons::icon(QString::fromUtf16(sign.icon), sign.ink).paint(&painter, place);
}
