// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KCommandButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

KCommandButton::KCommandButton(const QIcon &icon, const QString &text, QWidget *parent)
    : QPushButton(icon, text, parent)
{
    setAccessibleName(text);
}

void KCommandButton::setShortcutTip(const QKeySequence &shortcut)
{
    m_shortcut = shortcut;
    showTip();
}

void KCommandButton::setHindrance(const QString &reason)
{
    if (reason == m_hindrance)
        return;
    m_hindrance = reason;
    setAccessibleDescription(reason);
    showTip();
    update();
}

void KCommandButton::showTip()
{
    setToolTip(isHindered() ? m_hindrance : m_shortcut.toString(QKeySequence::NativeText));
}

void KCommandButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (isHindered()) {
        option.state &= ~QStyle::State_Enabled;
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    }
    painter.drawControl(QStyle::CE_PushButton, option);
}
