// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <initializer_list>

class KForm;
class QGridLayout;
class QVBoxLayout;
class QWidget;

// How the fields of a form stand in the group boxes of an editor's page.
namespace FormLines {

// One field: its column, and how many of the line's parts it takes.
struct Cell
{
    const char *column;
    int span = 1;
};

using Line = std::initializer_list<Cell>;

// Makes the box's layout: labelled fields in lines below each other, label under label. A money field's words have the row
// below its line.
QGridLayout *grid(KForm &form, QWidget *box, std::initializer_list<Line> lines);

// Makes the box's layout, to be filled with lines that share nothing but their box.
QVBoxLayout *column(QWidget *box);
// For labels that are too long to stand below others: a line whose fields only share its width.
QGridLayout *line(KForm &form, Line cells);

}
