// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KNextRows.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"

using namespace Qt::StringLiterals;

namespace {

bool goesOn(const QKeyEvent &event)
{
    return (event.key() == Qt::Key_Down || event.key() == Qt::Key_PageDown) && (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool isAtEnd(const QAbstractItemView &view)
{
    const QModelIndex current = view.currentIndex();
    return current.isValid() && current.row() == view.model()->rowCount() - 1;
}

}

KNextRows::KNextRows(QWidget *parent)
    : QPushButton(parent)
{
    LookMarks::setButton(this, LookMarks::Button::Flat);
    setIcon(LookIcons::icon(u":/icons/down.svg"_s));
    setAutoDefault(false);
    hide();
}

void KNextRows::follow(QAbstractItemView *view)
{
    view->installEventFilter(this);
    m_views.append(view);
}

QAbstractItemView *KNextRows::shownView() const
{
    for (QAbstractItemView *view : m_views) {
        if (view->isVisible())
            return view;
    }
    return nullptr;
}

void KNextRows::offer(qint64 rows)
{
    if (rows > 0)
        setText(u"نمایش %1 ردیف بعدی"_s.arg(rows));
    // The focus stays with the rows.
    else if (QAbstractItemView *view = shownView(); view && hasFocus())
        view->setFocus(Qt::OtherFocusReason);
    setVisible(rows > 0);
}

bool KNextRows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && isVisible()) {
        const auto *view = qobject_cast<QAbstractItemView *>(watched);
        if (view && goesOn(*static_cast<QKeyEvent *>(event)) && isAtEnd(*view)) {
            setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QPushButton::eventFilter(watched, event);
}

void KNextRows::keyPressEvent(QKeyEvent *event)
{
    QAbstractItemView *view = shownView();
    if (event->key() == Qt::Key_Up && view)
        view->setFocus(Qt::BacktabFocusReason);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}
