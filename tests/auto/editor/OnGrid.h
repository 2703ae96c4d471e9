// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/look/FormGrid.h"

#include <QCoreApplication>
#include <QLabel>
#include <QWidget>

#include <algorithm>

// Where a page's fields stand on the form grid.
namespace OnGrid {

// What is off the columns of its card or has a label without room for its words; empty when everything stands right.
inline QString problem(const FormGrid &grid)
{
    const QRect inner = grid.contentsRect();
    const std::vector<FormGrid::Column> columns = grid.columns();
    for (int i = 0; i < grid.count(); ++i) {
        QLayoutItem *item = grid.itemAt(i);
        QWidget *widget = item->widget();
        if (item->isEmpty() || (widget && widget->isHidden()))
            continue;
        const int from = inner.right() - item->geometry().right();
        const int to = from + item->geometry().width();
        const bool begins = std::ranges::any_of(columns, [from](const FormGrid::Column &column) { return column.from == from; });
        const bool ends = std::ranges::any_of(columns, [to](const FormGrid::Column &column) { return column.to == to; });
        const bool isNote = qobject_cast<FieldNote *>(widget);
        const auto *label = isNote ? nullptr : qobject_cast<QLabel *>(widget);
        const bool ownWidth = label || (widget && widget->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed);
        const QString name = label ? label->text() : widget ? widget->objectName() + widget->accessibleName()
                                                            : QString::number(i);
        if ((!isNote && !begins) || (!ownWidth && !ends))
            return QStringLiteral("%1 from %2 to %3").arg(name).arg(from).arg(to);
        if (label && label->sizeHint().width() > item->geometry().width())
            return QStringLiteral("%1 is cut").arg(name);
    }
    return {};
}

// Shows the window so wide that its cards have so many columns, and looks at each card of the page.
inline QString problem(QWidget &window, const QWidget &page, int width, int columns)
{
    window.resize(width, 768);
    QCoreApplication::processEvents();
    const QList<FormGrid *> grids = page.findChildren<FormGrid *>();
    if (grids.size() < 3)
        return QStringLiteral("no cards");
    std::size_t most = 0;
    for (const FormGrid *grid : grids) {
        most = std::max(most, grid->columns().size());
        if (const QString found = problem(*grid); !found.isEmpty())
            return found;
    }
    return most == std::size_t(columns) ? QString() : QStringLiteral("%1 columns").arg(most);
}

}
