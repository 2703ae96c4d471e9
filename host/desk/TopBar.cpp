// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/TopBar.h"

#include "host/today/MenuPlace.h"
#include "host/desk/ReminderBadge.h"
#include "host/finding/SearchBox.h"
#include "host/frame/HostLook.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStyle>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int widestName = 160;

// From right to left the base class asks for the room of its first entry alone.
class BarMenus : public QMenuBar
{
public:
    using QMenuBar::QMenuBar;

    QSize sizeHint() const override
    {
        QRect entries;
        for (QAction *entry : actions())
            entries |= actionGeometry(entry);
        int around = 0;
        for (const QStyle::PixelMetric metric : {QStyle::PM_MenuBarHMargin, QStyle::PM_MenuBarPanelWidth, QStyle::PM_MenuBarItemSpacing})
            around += style()->pixelMetric(metric, nullptr, this);
        return {entries.width() + 2 * around, QMenuBar::sizeHint().height()};
    }
};

bool isDark()
{
    return HostColors::look() == HostColors::Look::Dark;
}

}

TopBar::TopBar(QWidget *parent)
    : QWidget(parent)
    , m_menuBar(new BarMenus(this))
    , m_search(new SearchBox(this, window()))
    , m_look(makeButton(u"moon"_s))
    , m_reminders(new ReminderBadge(this))
    , m_user(makeButton(u"user"_s))
    , m_userMenu(new CommandMenu(this))
{
    LookMarks::setBar(this, LookMarks::Bar::Top);
    setMinimumHeight(LookSizes::scaled(LookSizes::topBar));
    m_menuBar->setAccessibleName(u"منو"_s);
    // A desktop that shows the menus of programs itself would leave the bar without them.
    m_menuBar->setNativeMenuBar(false);
    m_menuBar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    connect(m_user, &QToolButton::clicked, this, [this] { openMenuBelow(*m_userMenu, *m_user); });
    connect(m_look, &QToolButton::clicked, this, [] { HostLook::choose(isDark() ? HostLook::Choice::Light : HostLook::Choice::Dark); });

    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(LookSizes::unit, 0, LookSizes::unit, 0);
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_menuBar, 0, Qt::AlignVCenter);
    line->addStretch(1);
    // Before the room around it.
    line->addWidget(m_search, 100);
    line->addStretch(1);
    for (QToolButton *button : {m_look, static_cast<QToolButton *>(m_reminders), m_user}) {
        LookMarks::setTall(button);
        line->addWidget(button);
    }
    showLook();
}

QToolButton *TopBar::makeButton(const QString &icon)
{
    auto *button = new QToolButton(this);
    button->setIcon(LookIcons::icon(u":/icons/%1.svg"_s.arg(icon)));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

// The button is named by what it brings.
void TopBar::showLook()
{
    const QString brings = isDark() ? u"روشن"_s : u"تیره"_s;
    m_look->setToolButtonStyle(Qt::ToolButtonIconOnly);
    m_look->setIcon(LookIcons::icon(isDark() ? u":/icons/sun.svg"_s : u":/icons/moon.svg"_s));
    m_look->setToolTip(brings);
    m_look->setAccessibleName(brings);
}

void TopBar::setUser(const QString &name)
{
    m_name = name;
    m_user->setAccessibleName(name);
    m_user->setToolTip(name);
    showUser();
}

void TopBar::showUser()
{
    const bool isWide = width() >= LookSizes::scaled(LookSizes::wide);
    m_user->setToolButtonStyle(isWide ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    m_user->setText(fontMetrics().elidedText(m_name, Qt::ElideRight, LookSizes::scaled(widestName)));
}

void TopBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showLook();
}

void TopBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_search->fit(width());
    showUser();
}
