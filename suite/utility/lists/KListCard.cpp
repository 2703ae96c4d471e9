// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KListCard.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QPainter>
#include <QStackedLayout>

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

namespace {

constexpr int footMargin = 12;
constexpr int footGap = 32;     // between its texts
constexpr int roomShare = 1000; // of the room left, against the end of the line

}

KListCard::KListCard(QAbstractItemView *list, QWidget *parent)
    : QWidget(parent)
    , m_list(list)
    , m_shown(list)
    , m_views(new QStackedLayout)
{
    LookMarks::setCard(this);
    auto *column = new QVBoxLayout(this);
    // Room for the ring of the focus.
    column->setContentsMargins(LookSizes::ring, LookSizes::ring, LookSizes::ring, LookSizes::ring);
    column->setSpacing(0);
    column->addLayout(m_views, 1);
    addView(list);
}

void KListCard::addView(QAbstractItemView *view)
{
    view->setFrameShape(QFrame::NoFrame);
    view->installEventFilter(this);
    m_views->addWidget(view);
    Q_EMIT viewAdded(view);
}

void KListCard::addBelowRows(QWidget *line)
{
    static_cast<QVBoxLayout *>(layout())->insertWidget(1, line);
}

// Whoever sends the focus to the list sends it to the view that is seen.
void KListCard::showView(QAbstractItemView *view)
{
    if (view == m_shown)
        return;
    const bool hadFocus = m_shown->hasFocus();
    m_shown = view;
    m_views->setCurrentWidget(view);
    m_list->setFocusProxy(view == m_list ? nullptr : view);
    if (hadFocus)
        view->setFocus(Qt::OtherFocusReason);
    update();
}

void KListCard::addToFoot(QWidget *text, bool takesRoom)
{
    if (!m_foot) {
        auto *bar = new QWidget(this);
        bar->setMinimumHeight(LookSizes::scaled(LookSizes::titleRow));
        LookMarks::setBar(bar, LookMarks::Bar::Bottom);
        m_foot = new QHBoxLayout(bar);
        m_foot->setContentsMargins(footMargin, 0, footMargin, 0);
        m_foot->setSpacing(footGap);
        m_foot->addStretch(1);
        static_cast<QVBoxLayout *>(layout())->addWidget(bar);
    }
    LookFonts::apply(text, LookFonts::Use::Strong);
    m_foot->insertWidget(m_foot->count() - 1, text, takesRoom ? roomShare : 0);
}

bool KListCard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

void KListCard::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (!m_shown->hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(HostColors::of(HostColors::Role::Accent), LookSizes::ring));
    constexpr qreal half = LookSizes::ring / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), LookSizes::cardCorner - half, LookSizes::cardCorner - half);
}
