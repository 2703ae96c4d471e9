// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/Placement.h"

#include "tests/look/WindowParts.h"

#include <QDialogButtonBox>
#include <QMainWindow>
#include <QRubberBand>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSizeGrip>
#include <QSplitter>
#include <QSplitterHandle>
#include <QStatusBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

// A field's line; less shows nothing of a page.
constexpr int leastOfAPage = 56;

QString shown(const QRect &rect)
{
    return u"%1,%2 %3x%4"_s.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

// The scroll area whose contents the widget is; null for any other.
const QScrollArea *scrolling(const QWidget &widget)
{
    const QWidget *viewport = widget.parentWidget();
    const auto *area = viewport ? qobject_cast<const QScrollArea *>(viewport->parentWidget()) : nullptr;
    return area && area->widget() == &widget ? area : nullptr;
}

bool isWithinScrollArea(const QWidget &widget)
{
    for (const QWidget *around = &widget; around && !around->isWindow(); around = around->parentWidget()) {
        if (scrolling(*around))
            return true;
    }
    return false;
}

// A splitter rounds the widths of its parts each for itself.
QRect roomIn(const QWidget &around)
{
    return qobject_cast<const QSplitter *>(&around) ? around.rect().adjusted(-1, -1, 1, 1) : around.rect();
}

void lookAtScrolling(const QScrollArea &area, QStringList &faults)
{
    const QString name = WindowParts::name(*area.widget());
    const auto overflow = [](const QScrollBar &bar) { return bar.maximum() - bar.minimum(); };
    if (const int cut = overflow(*area.horizontalScrollBar()); cut > 0)
        faults.append(u"%1 scrolls sideways by %2 px"_s.arg(name).arg(cut));
    if (const int cut = overflow(*area.verticalScrollBar()); cut > 0 && area.verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff)
        faults.append(u"%1 has %2 px below that nobody can scroll to"_s.arg(name).arg(cut));
    if (area.viewport()->height() < qMin(leastOfAPage, area.widget()->height()))
        faults.append(u"%1 shows %2 px of its height"_s.arg(name).arg(area.viewport()->height()));
}

// These lie over their neighbours by their nature.
bool mayCover(const QWidget &widget)
{
    return qobject_cast<const QRubberBand *>(&widget) || qobject_cast<const QSizeGrip *>(&widget)
        || qobject_cast<const QSplitterHandle *>(&widget) || widget.inherits("QWidgetResizeHandler")
        || widget.inherits("SearchPopup");
}

// Its pages begin under the line of its tabs.
bool holdsItsOwnParts(const QWidget &around)
{
    return qobject_cast<const QTabWidget *>(&around) || qobject_cast<const QScrollArea *>(&around);
}

QList<QWidget *> childrenOf(const QWidget &around, const QList<QWidget *> &parts)
{
    QList<QWidget *> found;
    for (QWidget *part : parts) {
        if (part->parentWidget() == &around && !mayCover(*part))
            found.append(part);
    }
    return found;
}

}

QStringList Placement::beyondScreen(const QWidget &window)
{
    const QRect screen = window.screen()->availableGeometry();
    const QRect frame = window.frameGeometry();
    // A screen whose pixels do not divide by the factor is rounded one way, what fills it the other.
    if (screen.adjusted(-1, -1, 1, 1).contains(frame))
        return {};
    return {u"the window stands at %1, the screen has %2"_s.arg(shown(frame), shown(screen))};
}

QStringList Placement::outOfReach(const QWidget &window)
{
    QStringList faults;
    for (const QWidget *widget : WindowParts::of(window)) {
        if (const QScrollArea *area = scrolling(*widget))
            lookAtScrolling(*area, faults);
        else if (!widget->size().isEmpty() && !roomIn(*widget->parentWidget()).contains(widget->geometry()) && !mayCover(*widget))
            faults.append(u"%1 at %2 lies outside of %3 (%4)"_s.arg(WindowParts::name(*widget), shown(widget->geometry()), WindowParts::name(*widget->parentWidget()),
                                                                    shown(widget->parentWidget()->rect())));
        if (qobject_cast<const QDialogButtonBox *>(widget) && isWithinScrollArea(*widget))
            faults.append(u"%1 can be scrolled out of sight"_s.arg(WindowParts::name(*widget)));
    }
    return faults;
}

QStringList Placement::overlaps(const QWidget &window)
{
    QStringList faults;
    const QList<QWidget *> parts = WindowParts::of(window);
    QList<const QWidget *> arounds{&window};
    arounds.append({parts.cbegin(), parts.cend()});
    for (const QWidget *around : std::as_const(arounds)) {
        if (holdsItsOwnParts(*around))
            continue;
        const QList<QWidget *> children = childrenOf(*around, parts);
        for (qsizetype one = 0; one < children.size(); ++one) {
            for (qsizetype other = one + 1; other < children.size(); ++other) {
                const QRect both = children[one]->geometry().intersected(children[other]->geometry());
                if (!both.isEmpty())
                    faults.append(u"%1 and %2 cover each other at %3"_s.arg(WindowParts::name(*children[one]), WindowParts::name(*children[other]), shown(both)));
            }
        }
    }
    return faults;
}
