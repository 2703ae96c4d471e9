// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/LauncherRow.h"

#include "host/today/MenuPlace.h"
#include "host/today/StartButton.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/look/LookIcons.h"

#include <QEvent>
#include <QStyle>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int launcherGap = 6;

}

LauncherRow::LauncherRow(const QList<QAction *> &actions, QWidget *parent)
    : QWidget(parent)
    , m_more(LookIcons::icon(u":/icons/more.svg"_s), u"بیشتر"_s)
    , m_menu(new CommandMenu(this))
{
    for (QAction *action : actions)
        m_buttons.append(new StartButton(action, this));
    m_moreButton = new StartButton(&m_more, this);
    m_menu->setToolTipsVisible(true);
    connect(&m_more, &QAction::triggered, this, [this] { openMenuBelow(*m_menu, *m_moreButton); });
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void LauncherRow::focusFirst()
{
    if (!m_buttons.isEmpty())
        m_buttons.constFirst()->setFocus();
}

QSize LauncherRow::sizeHint() const
{
    int width = 0;
    for (const StartButton *button : m_buttons)
        width += button->sizeHint().width() + launcherGap;
    return {width, m_moreButton->sizeHint().height()};
}

QSize LauncherRow::minimumSizeHint() const
{
    return m_moreButton->sizeHint();
}

bool LauncherRow::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void LauncherRow::resizeEvent(QResizeEvent *)
{
    arrange();
}

// How many launchers stand in the row; where it is not all of them, the last one's menu needs its room too.
int LauncherRow::fitting() const
{
    if (sizeHint().width() - launcherGap <= width())
        return int(m_buttons.size());
    int room = width() - m_moreButton->sizeHint().width();
    int count = 0;
    for (const StartButton *button : m_buttons) {
        room -= button->sizeHint().width() + launcherGap;
        if (room < 0)
            break;
        ++count;
    }
    return count;
}

void LauncherRow::arrange()
{
    const int count = fitting();
    const bool isWhole = count == m_buttons.size();
    QList<StartButton *> shown = m_buttons.first(count);
    if (!isWhole)
        shown.append(m_moreButton);
    m_menu->clear();
    for (StartButton *button : m_buttons.sliced(count)) {
        if (button->hasFocus())
            m_moreButton->setFocus();
        button->hide();
        m_menu->addAction(button->action());
    }
    m_moreButton->setVisible(!isWhole);

    // What is left of the row is shared out, so that its ends lie on those of the page.
    const int needed = std::accumulate(shown.cbegin(), shown.cend(), 0,
                                       [](int sum, const StartButton *button) { return sum + button->sizeHint().width() + launcherGap; });
    int extra = std::max(0, width() - needed + launcherGap);
    int left = 0;
    for (qsizetype place = 0; place < shown.size(); ++place) {
        const int share = extra / int(shown.size() - place);
        extra -= share;
        const QRect own(left, 0, shown[place]->sizeHint().width() + share, height());
        shown[place]->setGeometry(QStyle::visualRect(layoutDirection(), rect(), own));
        shown[place]->show();
        left += own.width() + launcherGap;
    }
}
