// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/WordXml.h"

#include <algorithm>
#include <array>
#include <cstring>

const char *WordXml::localName(const char *name)
{
    const char *colon = std::strchr(name, ':');
    return colon ? colon + 1 : name;
}

bool WordXml::is(const pugi::xml_node &node, const char *name)
{
    return std::strcmp(localName(node.name()), name) == 0;
}

bool WordXml::isOneOf(const pugi::xml_node &node, std::span<const std::string_view> names)
{
    return std::ranges::find(names, std::string_view(localName(node.name()))) != names.end();
}

bool WordXml::isProperties(const pugi::xml_node &node)
{
    const std::string_view name(node.name());
    return name.size() > 2 && name.substr(name.size() - 2) == "Pr";
}

std::string WordXml::prefix(const pugi::xml_node &node)
{
    const char *name = node.name();
    return {name, localName(name)};
}

pugi::xml_attribute WordXml::findAttribute(const pugi::xml_node &node, const char *name)
{
    for (const pugi::xml_attribute attribute : node.attributes())
        if (std::strcmp(localName(attribute.name()), name) == 0)
            return attribute;
    return {};
}

QString WordXml::attribute(const pugi::xml_node &node, const char *name)
{
    return QString::fromUtf8(findAttribute(node, name).value());
}

pugi::xml_node WordXml::child(const pugi::xml_node &node, const char *name)
{
    for (const pugi::xml_node candidate : node.children())
        if (is(candidate, name))
            return candidate;
    return {};
}

pugi::xml_node WordXml::ancestor(pugi::xml_node node, const char *name)
{
    while (node && !is(node, name))
        node = node.parent();
    return node;
}

qsizetype WordXml::nodesIn(const pugi::xml_node &node)
{
    qsizetype count = 1;
    for (const pugi::xml_node child : node.children())
        count += nodesIn(child);
    return count + std::distance(node.attributes_begin(), node.attributes_end());
}

bool WordXml::isRangeMark(const pugi::xml_node &node)
{
    static constexpr std::array<std::string_view, 6> names{"bookmarkStart", "bookmarkEnd", "commentRangeStart", "commentRangeEnd",
                                                           "permStart", "permEnd"};
    return isOneOf(node, names);
}

void WordXml::saveRangeMarks(const pugi::xml_node &piece, pugi::xml_node place)
{
    for (pugi::xml_node child = piece.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (isRangeMark(child))
            place.parent().insert_move_before(child, place);
        else
            saveRangeMarks(child, place);
        child = next;
    }
}
