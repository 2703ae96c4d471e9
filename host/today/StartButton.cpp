// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/StartButton.h"

#include "suite/utility/frame/ActionHindrance.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QAction>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int launcherHeight = 36;
constexpr int pictureSize = 20;
constexpr int padding = 10;

}

StartButton::StartButton(QAction *action, QWidget *parent)
    : QPushButton(parent)
    , m_action(action)
{
    setAttribute(Qt::WA_Hover);
    setIconSize(QSize(pictureSize, pictureSize));
    setFont(LookFonts::font(LookFonts::Use::Strong));
    // Enter presses it as the space bar does.
    setAutoDefault(true);
    connect(this, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, this, &StartButton::follow);
    follow();
}

void StartButton::follow()
{
    // Without the mark of its letter: Alt belongs to the menus.
    setText(m_action->iconText());
    setAccessibleName(text());
    setIcon(m_action->icon());
    setEnabled(m_action->isEnabled());
    setToolTip(looksEnabled() ? m_action->shortcut().toString(QKeySequence::NativeText) : m_action->toolTip());
    setAccessibleDescription(ActionHindrance::of(*m_action));
    update();
}

bool StartButton::looksEnabled() const
{
    return m_action->isEnabled() && ActionHindrance::of(*m_action).isEmpty();
}

QSize StartButton::sizeHint() const
{
    const int words = fontMetrics().horizontalAdvance(text());
    return {2 * padding + pictureSize + LookSizes::iconGap + words, std::max(LookSizes::scaled(launcherHeight), fontMetrics().height() + LookSizes::unit)};
}

void StartButton::paintEvent(QPaintEvent *)
{
    using HostColors::Role;
    const bool enabled = looksEnabled();
    const bool isHovered = enabled && underMouse();
    const Role ground = isDown() ? Role::Select : isHovered ? Role::Hover
                                                            : Role::Surface;
    const Role edge = hasFocus() || isDown() ? Role::Accent : isHovered ? Role::Quiet
                                                                        : Role::Line;
    const Role ink = !enabled ? Role::Disabled : isDown() ? Role::OnSelect
                                                          : Role::Text;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal line = hasFocus() ? LookSizes::ring : 1;
    painter.setPen(QPen(HostColors::of(edge), line));
    painter.setBrush(HostColors::of(ground));
    const QRectF frame = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.drawRoundedRect(frame, LookSizes::buttonCorner, LookSizes::buttonCorner);

    const QRect inner = rect().adjusted(padding, 0, -padding, 0);
    const QRect picture(inner.left(), (height() - pictureSize) / 2, pictureSize, pictureSize);
    icon().paint(&painter, QStyle::visualRect(layoutDirection(), inner, picture), Qt::AlignCenter,
                 enabled ? QIcon::Normal : QIcon::Disabled);
    const QRect words = inner.adjusted(pictureSize + LookSizes::iconGap, 0, 0, 0);
    painter.setPen(HostColors::of(ink));
    painter.drawText(QStyle::visualRect(layoutDirection(), inner, words),
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading | Qt::AlignVCenter)) | Qt::TextSingleLine, text());
}
