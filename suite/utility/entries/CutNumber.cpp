// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/CutNumber.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionViewItem>

using namespace Qt::StringLiterals;

QString CutNumber::mark()
{
    return u"###"_s;
}

void CutNumber::markIfCut(QStyleOptionViewItem &cell)
{
    const QStyle *style = cell.widget ? cell.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    if (cell.rect.isValid() && cell.fontMetrics.horizontalAdvance(cell.text) > cell.rect.width() - 2 * margin)
        cell.text = mark();
}
