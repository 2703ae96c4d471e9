// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <pugixml.hpp>

#include <string>

// Names in the XML of a document. Programs bind the prefixes as they like, and no two elements that matter here differ in
// their prefix alone; so names compare by what stands behind it.
namespace WordXml {

const char *localName(const char *name);
bool is(const pugi::xml_node &node, const char *localName);
std::string prefix(const pugi::xml_node &node); // with its colon; empty without one

pugi::xml_attribute findAttribute(const pugi::xml_node &node, const char *localName);
QString attribute(const pugi::xml_node &node, const char *localName); // empty: none
pugi::xml_node child(const pugi::xml_node &node, const char *localName);
pugi::xml_node ancestor(pugi::xml_node node, const char *localName); // itself or the nearest above; null: none

} // namespace WordXml
