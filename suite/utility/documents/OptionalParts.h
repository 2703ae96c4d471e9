// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <pugixml.hpp>

#include <functional>

// The parts of a template between its marks (PartMark), below a node. A mark and its end lie in one flow of text: a cell, a
// header, a text box, or the body; parts may lie in each other. A mark without its other half leaves the text as it is and goes.
//
// What is left empty goes too, so that no blank line or box tells of what was left out: a paragraph that held nothing else; a
// cell, whose neighbour takes its room; a row with its last cell, and a table with its last row. In a table that repeats its first
// row as titles a cell stays, as its column must, and so does a cell that is joined to the one above or below.
namespace OptionalParts {

// Returns how many marks there were.
int leaveOut(pugi::xml_node below, const std::function<bool(const QString &fieldName)> &says);

// The names of the marks that lack their other half, in reading order.
QStringList unpairedMarks(pugi::xml_node below);

}
