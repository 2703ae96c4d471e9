// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <pugixml.hpp>

#include <span>
#include <string>
#include <string_view>

// Names in the XML of a document. Programs bind the prefixes as they like, and no two elements that matter here differ in
// their prefix alone; so names compare by what stands behind it.
namespace WordXml {

const char *localName(const char *name);
bool is(const pugi::xml_node &node, const char *localName);
bool isOneOf(const pugi::xml_node &node, std::span<const std::string_view> localNames);
bool isProperties(const pugi::xml_node &node);  // as pPr: how its parent looks
std::string prefix(const pugi::xml_node &node); // with its colon; empty without one

pugi::xml_attribute findAttribute(const pugi::xml_node &node, const char *localName);
QString attribute(const pugi::xml_node &node, const char *localName); // empty: none
pugi::xml_node child(const pugi::xml_node &node, const char *localName);
pugi::xml_node ancestor(pugi::xml_node node, const char *localName); // itself or the nearest above; null: none

// Elements and attributes, with the node itself.
qsizetype nodesIn(const pugi::xml_node &node);

// Marks of a range: each has its other half elsewhere, so they outlive the text that they stand in.
bool isRangeMark(const pugi::xml_node &node);
// Moves the range marks inside a piece to just before the place.
void saveRangeMarks(const pugi::xml_node &piece, pugi::xml_node place);

} // namespace WordXml
