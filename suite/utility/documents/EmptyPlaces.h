// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <pugixml.hpp>

#include <vector>

// What becomes of places in a document that were emptied.
namespace EmptyPlaces {

// Removes the paragraphs that show nothing, then whatever holds nothing more because of that: a cell, its row, its table. What a document
// cannot do without stays: the last paragraph of a cell, a header or a note, one between two tables, one that ends a section.
// None of the paragraphs may lie in another one that shows nothing.
void tidy(const std::vector<pugi::xml_node> &paragraphs);
// Removes a row or a paragraph, and whatever holds nothing more because of that, by the same rules.
void removeWhole(pugi::xml_node rowOrParagraph);

}
