// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/TabOrder.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QList>
#include <QWidget>

#include <algorithm>

namespace {

void collect(const QLayout *layout, QList<QWidget *> &controls);

// What Tab meets inside a control (a date's own check box) comes right behind it.
void appendParts(const QWidget *control, QList<QWidget *> &controls)
{
    for (QWidget *part : control->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!part->isWindow() && (part->focusPolicy() & Qt::TabFocus) && !part->focusProxy())
            controls.append(part);
    }
}

void collect(QLayoutItem *item, QList<QWidget *> &controls)
{
    if (const QLayout *inner = item->layout()) {
        collect(inner, controls);
    } else if (QWidget *widget = item->widget()) {
        // A control that passes its focus to a part of its own moves with its parts: left behind, it would still be
        // met by Tab and send the focus back to that part.
        const QWidget *proxy = widget->focusProxy();
        if (widget->focusPolicy() & Qt::TabFocus) {
            controls.append(widget);
            appendParts(widget, controls);
        } else if (proxy && widget->isAncestorOf(proxy)) {
            controls.append(widget);
        } else if (widget->layout()) {
            collect(widget->layout(), controls);
        }
    }
}

void collect(const QLayout *layout, QList<QWidget *> &controls)
{
    QList<int> order;
    for (int i = 0; i < layout->count(); ++i)
        order.append(i);
    if (const auto *grid = qobject_cast<const QGridLayout *>(layout)) {
        auto cell = [grid](int index) {
            int row = 0;
            int column = 0;
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(index, &row, &column, &rows, &columns);
            return std::pair(row, column);
        };
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return cell(a) < cell(b); });
    }
    for (int index : std::as_const(order))
        collect(layout->itemAt(index), controls);
}

}

QList<QWidget *> tabStopsIn(const QWidget *container)
{
    QList<QWidget *> controls;
    if (container->layout())
        collect(container->layout(), controls);
    return controls;
}

void tabInLayoutOrder(QWidget *container)
{
    const QList<QWidget *> controls = tabStopsIn(container);
    for (qsizetype i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

void tabToPickedOption(QButtonGroup *group)
{
    const auto follow = [group] {
        const QList<QAbstractButton *> options = group->buttons();
        for (QAbstractButton *option : options)
            option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    };
    QObject::connect(group, &QButtonGroup::buttonToggled, group, follow);
    follow();
}
