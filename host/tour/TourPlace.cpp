// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/TourPlace.h"

#include "host/desk/MainWindow.h"
#include "host/desk/WorkArea.h"
#include "suite/utility/frame/KDialogTabPage.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenuBar>
#include <QScrollArea>

namespace {

QAction *entryCalled(const MainWindow &window, const QString &text)
{
    const QList<QAction *> menus = window.menuBar()->actions();
    for (const QAction *menu : menus) {
        const QList<QAction *> entries = menu->menu() ? menu->menu()->actions() : QList<QAction *>();
        for (QAction *entry : entries) {
            if (entry->iconText() == text)
                return entry;
        }
    }
    return nullptr;
}

QAction *menuCalled(const MainWindow &window, const QString &text)
{
    for (QAction *menu : window.menuBar()->actions()) {
        if (menu->iconText() == text)
            return menu;
    }
    return nullptr;
}

bool isCalled(const QWidget &widget, const QString &name)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    return widget.accessibleName() == name || (button && button->text().remove(u'&').trimmed() == name);
}

QWidget *controlCalled(const QWidget &around, const QString &name)
{
    for (QWidget *part : around.findChildren<QWidget *>()) {
        if (part->isVisibleTo(&around) && !part->isWindow() && isCalled(*part, name))
            return part;
    }
    return nullptr;
}

void scrollTo(QWidget &widget)
{
    for (QWidget *around = widget.parentWidget(); around; around = around->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(around); area && area->widget() && area->widget()->isAncestorOf(&widget))
            area->ensureWidgetVisible(&widget);
    }
}

}

TourPlace::TourPlace(QWidget *widget, bool isControl, QAction *entry)
    : m_widget(widget)
    , m_entry(entry)
    , m_isControl(isControl)
{
}

bool TourPlace::canOpen(const MainWindow &window, const TourStep &step)
{
    if (step.page.isEmpty())
        return true;
    const QAction *entry = entryCalled(window, step.page);
    return entry && entry->isEnabled();
}

TourPlace TourPlace::open(MainWindow &window, const TourStep &step)
{
    if (step.page.isEmpty())
        window.workArea()->showStartPage();
    else if (QAction *entry = entryCalled(window, step.page))
        entry->trigger();
    return find(window, step);
}

TourPlace TourPlace::find(const MainWindow &window, const TourStep &step)
{
    if (QAction *menu = menuCalled(window, step.control))
        return {window.menuBar(), true, menu};
    QWidget *page = window.workArea()->currentPage();
    const QWidget *around = step.page.isEmpty() || !page ? static_cast<const QWidget *>(&window) : page;
    if (QWidget *control = controlCalled(*around, step.control)) {
        scrollTo(*control);
        return {control, true};
    }
    return {page ? page : window.workArea(), false};
}

QRect TourPlace::rect() const
{
    if (!m_widget || !m_widget->isVisible())
        return {};
    QRect rect = m_widget->rect();
    if (m_entry)
        rect = qobject_cast<const QMenuBar *>(m_widget)->actionGeometry(m_entry);
    const QWidget *window = m_widget->window();
    rect.moveTopLeft(m_widget->mapTo(window, rect.topLeft()));
    // A part of it may be scrolled out of sight.
    for (const QWidget *around = m_widget->parentWidget(); around; around = around->isWindow() ? nullptr : around->parentWidget())
        rect &= QRect(around->isWindow() ? QPoint() : around->mapTo(window, QPoint()), around->size());
    return rect;
}
