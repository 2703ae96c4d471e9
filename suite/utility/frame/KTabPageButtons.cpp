// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KTabPageButtons.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "suite/utility/frame/KTabButton.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

namespace {

constexpr QKeyCombination nextKeys[] = {
    Qt::CTRL | Qt::Key_Tab,
    Qt::CTRL | Qt::Key_PageDown,
};
constexpr QKeyCombination previousKeys[] = {
    Qt::CTRL | Qt::SHIFT | Qt::Key_Tab,
    Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab,
    Qt::CTRL | Qt::Key_PageUp,
};

}

KTabPageButtons::KTabPageButtons(QWidget *parent)
    : QWidget(parent)
    , m_buttons(new QButtonGroup(this))
    , m_bar(new QWidget(this))
    , m_row(new QHBoxLayout(m_bar))
    , m_pages(new QStackedWidget(this))
{
    m_row->setContentsMargins(LookSizes::unit, 0, LookSizes::windowMargin, 0);
    m_row->setSpacing(0);
    m_row->addStretch(1);
    LookMarks::setBar(m_bar, LookMarks::Bar::Top);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(m_pages, 1);
    connect(m_buttons, &QButtonGroup::idClicked, this, &KTabPageButtons::setCurrentIndex);
    for (const QKeyCombination keys : nextKeys)
        addKeys(keys, &KTabPageButtons::nextPage);
    for (const QKeyCombination keys : previousKeys)
        addKeys(keys, &KTabPageButtons::previousPage);
}

// Shortcuts of the window, because a drop-down takes every key that reaches it, to search its entries or to go through
// them, and because the window's own buttons stand beside the pages.
void KTabPageButtons::addKeys(QKeyCombination keys, void (KTabPageButtons::*work)())
{
    auto *shortcut = new QShortcut(QKeySequence(keys), this, nullptr, nullptr, Qt::WindowShortcut);
    connect(shortcut, &QShortcut::activated, this, work);
}

int KTabPageButtons::addPage(QWidget *page, const QString &title)
{
    const int index = m_pages->addWidget(page);
    auto *button = new KTabButton(title, m_bar);
    button->installEventFilter(this);
    m_buttons->addButton(button, index);
    m_row->insertWidget(index, button);
    placeInTabOrder(button, index);
    if (index == 0) {
        button->setChecked(true);
        Q_EMIT currentChanged(0);
    }
    return index;
}

// The buttons come one after the other and before the pages, whichever were made first. Only what can have the focus is
// ordered, so the bar, the first in the order, can have it for this moment.
void KTabPageButtons::placeInTabOrder(QWidget *button, int index)
{
    m_bar->setFocusPolicy(Qt::TabFocus);
    setTabOrder(index == 0 ? m_bar : m_buttons->button(index - 1), button);
    m_bar->setFocusPolicy(Qt::NoFocus);
}

void KTabPageButtons::addAtEnd(QWidget *widget)
{
    m_row->addWidget(widget);
}

int KTabPageButtons::count() const
{
    return m_pages->count();
}

QWidget *KTabPageButtons::page(int index) const
{
    return m_pages->widget(index);
}

QAbstractButton *KTabPageButtons::button(int index) const
{
    return m_buttons->button(index);
}

void KTabPageButtons::setPageTitle(int index, const QString &title)
{
    if (QAbstractButton *const tab = button(index)) {
        tab->setText(title);
        tab->setAccessibleName(title);
    }
}

void KTabPageButtons::setPageEnabled(int index, bool enabled)
{
    if (!page(index))
        return;
    button(index)->setEnabled(enabled);
    if (!enabled && index == currentIndex())
        nextPage();
}

void KTabPageButtons::setPageShown(int index, bool shown)
{
    if (!page(index))
        return;
    setPageEnabled(index, shown);
    button(index)->setVisible(shown);
}

int KTabPageButtons::currentIndex() const
{
    return m_pages->currentIndex();
}

QWidget *KTabPageButtons::currentPage() const
{
    return m_pages->currentWidget();
}

void KTabPageButtons::setCurrentIndex(int index)
{
    if (!page(index) || !button(index)->isEnabled())
        return;
    button(index)->setChecked(true);
    if (index == currentIndex())
        return;
    // On a button of the row the focus goes along as well: the ring is round the current page's.
    const QWidget *focus = window()->focusWidget();
    const bool focusWasHere = focus && (currentPage()->isAncestorOf(focus) || m_bar->isAncestorOf(focus));
    m_pages->setCurrentIndex(index);
    if (focusWasHere)
        button(index)->setFocus(Qt::TabFocusReason);
    Q_EMIT currentChanged(index);
}

void KTabPageButtons::nextPage()
{
    step(1);
}

void KTabPageButtons::previousPage()
{
    step(-1);
}

void KTabPageButtons::step(int direction)
{
    const int pages = count();
    for (int distance = 1; distance < pages; ++distance) {
        const int index = (currentIndex() + direction * distance + pages * distance) % pages;
        if (button(index)->isEnabled()) {
            setCurrentIndex(index);
            return;
        }
    }
}

bool KTabPageButtons::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Left && key != Qt::Key_Right)
        return QWidget::eventFilter(watched, event);
    // The next page's button stands on the left when the row runs from right to left.
    step((key == Qt::Key_Left) == isRightToLeft() ? 1 : -1);
    if (QAbstractButton *current = button(currentIndex()))
        current->setFocus(Qt::TabFocusReason);
    return true;
}
