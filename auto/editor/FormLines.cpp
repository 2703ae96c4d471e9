// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/FormLines.h"

#include "suite/utility/forms/KForm.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int lineSpacing = 3;
constexpr QMargins boxMargins(9, 4, 9, 4);

}

QGridLayout *FormLines::grid(KForm &form, QWidget *box, std::initializer_list<Line> lines)
{
    auto *grid = new QGridLayout(box);
    grid->setVerticalSpacing(lineSpacing);
    grid->setContentsMargins(boxMargins);
    int row = 0;
    int parts = 0;
    for (const Line &line : lines) {
        int part = 0;
        for (const Cell &cell : line) {
            form.place(grid, row, 2 * part, QString::fromLatin1(cell.column), 2 * cell.span - 1);
            part += cell.span;
        }
        parts = std::max(parts, part);
        row += 2;
    }
    for (int part = 0; part < parts; ++part)
        grid->setColumnStretch(2 * part + 1, 1);
    return grid;
}

QVBoxLayout *FormLines::column(QWidget *box)
{
    auto *lines = new QVBoxLayout(box);
    lines->setSpacing(lineSpacing);
    lines->setContentsMargins(boxMargins);
    return lines;
}

QGridLayout *FormLines::line(KForm &form, Line cells)
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(lineSpacing);
    int part = 0;
    for (const Cell &cell : cells) {
        form.place(grid, 0, 2 * part, QString::fromLatin1(cell.column));
        grid->setColumnStretch(2 * part + 1, cell.span);
        ++part;
    }
    return grid;
}
