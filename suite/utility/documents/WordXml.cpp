// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/WordXml.h"

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
