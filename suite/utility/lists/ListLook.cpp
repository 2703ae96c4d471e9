// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/ListLook.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

namespace {

void applyToTitles(QHeaderView *titles)
{
    LookFonts::apply(titles, LookFonts::Use::Column);
    titles->setMinimumHeight(LookSizes::scaled(LookSizes::titleRow));
    titles->setDefaultAlignment(Qt::AlignCenter);
    titles->setHighlightSections(false);
}

// The style is told which row the pointer is on only by a viewport that follows it.
void followPointer(QAbstractItemView *view)
{
    view->viewport()->setAttribute(Qt::WA_Hover);
}

}

int ListLook::rowHeight(const QFontMetrics &metrics)
{
    return qMax(LookSizes::scaled(LookSizes::row), metrics.height() + LookSizes::unit);
}

void ListLook::apply(QTreeView *view)
{
    applyToTitles(view->header());
    followPointer(view);
    view->setAlternatingRowColors(true);
    view->setAllColumnsShowFocus(true);
}

void ListLook::apply(QTableView *view)
{
    applyToTitles(view->horizontalHeader());
    followPointer(view);
    view->setAlternatingRowColors(true);
    LookFonts::apply(view->verticalHeader(), LookFonts::Use::Label);
    view->verticalHeader()->setHighlightSections(false);
    view->verticalHeader()->setDefaultSectionSize(rowHeight(view->fontMetrics()));
}

int ListLook::titleWidth(const QHeaderView &header, int section)
{
    return header.isSectionHidden(section) ? 0 : header.sectionSizeHint(section);
}

int ListLook::lastShown(const QHeaderView &header)
{
    for (int visual = header.count() - 1; visual >= 0; --visual) {
        if (const int section = header.logicalIndex(visual); !header.isSectionHidden(section))
            return section;
    }
    return -1;
}
