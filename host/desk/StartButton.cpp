// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/StartButton.h"

#include "host/desk/ActionHindrance.h"

#include <QAction>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int pictureSize = 52;
constexpr int gap = 14;

}

StartButton::StartButton(QAction *action, QWidget *parent)
    : QPushButton(parent)
    , m_action(action)
{
    setIconSize(QSize(pictureSize, pictureSize));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // Enter presses it as the space bar does.
    setAutoDefault(true);
    connect(this, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, this, &StartButton::follow);
    follow();
}

void StartButton::follow()
{
    setText(m_action->text());
    setAccessibleName(m_action->text());
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
    const int lines = fontMetrics().lineSpacing();
    return {fontMetrics().averageCharWidth() * 30, pictureSize + gap + lines + 2 * lines};
}

void StartButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QIcon picture = option.icon;
    const QString caption = option.text;
    option.icon = {};
    option.text.clear();
    if (!looksEnabled()) {
        option.state &= ~QStyle::State_Enabled;
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    }
    painter.drawControl(QStyle::CE_PushButton, option);

    const int height = pictureSize + gap + fontMetrics().lineSpacing();
    const int top = (this->height() - height) / 2;
    picture.paint(&painter, QRect((width() - pictureSize) / 2, top, pictureSize, pictureSize), Qt::AlignCenter,
                  looksEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.drawItemText(QRect(0, top + pictureSize + gap, width(), fontMetrics().lineSpacing()), Qt::AlignCenter, option.palette,
                         looksEnabled(), caption, QPalette::ButtonText);
}
