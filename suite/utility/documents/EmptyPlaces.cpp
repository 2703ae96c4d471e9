// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/EmptyPlaces.h"
#include "suite/utility/documents/WordXml.h"

#include <QString>

#include <array>
#include <initializer_list>
#include <iterator>
#include <map>
#include <set>

namespace {

// Holds nothing by itself, whatever it may hold within.
bool isHolder(const pugi::xml_node &node)
{
    static constexpr std::array<std::string_view, 9> names{"r", "hyperlink", "ins", "smartTag", "customXml", "sdtContent", "sdt", "bdo", "dir"};
    return WordXml::isOneOf(node, names);
}

bool isBlankMark(const pugi::xml_node &node)
{
    static constexpr std::array<std::string_view, 4> names{"proofErr", "lastRenderedPageBreak", "tab", "del"};
    return WordXml::isProperties(node) || WordXml::isRangeMark(node) || WordXml::isOneOf(node, names);
}

// Of a paragraph or of what holds runs in it: nothing to be seen, nor anything that another place refers to.
bool showsNothing(const pugi::xml_node &node)
{
    for (const pugi::xml_node child : node.children()) {
        if (child.type() != pugi::node_element || isBlankMark(child))
            continue;
        if (isHolder(child) ? showsNothing(child) : WordXml::is(child, "t") && QString::fromUtf8(child.text().get()).trimmed().isEmpty())
            continue;
        if (!WordXml::is(child, "br") || WordXml::findAttribute(child, "type"))
            return false;
    }
    return true;
}

pugi::xml_node elementBeside(pugi::xml_node node, bool before)
{
    do
        node = before ? node.previous_sibling() : node.next_sibling();
    while (node && (node.type() != pugi::node_element || WordXml::isRangeMark(node)));
    return node;
}

// A cell, a header, a note or a text box ends in a paragraph; so does what a body has before its section.
bool isNeeded(const pugi::xml_node &paragraph)
{
    const pugi::xml_node before = elementBeside(paragraph, true);
    const pugi::xml_node after = elementBeside(paragraph, false);
    if (WordXml::child(WordXml::child(paragraph, "pPr"), "sectPr"))
        return true;
    const bool isLast = !after || WordXml::is(after, "sectPr");
    return !WordXml::is(before, "p") && (isLast || (WordXml::is(before, "tbl") && WordXml::is(after, "tbl")));
}

pugi::xml_node propertyOf(const pugi::xml_node &node, std::initializer_list<const char *> path)
{
    pugi::xml_node found = node;
    for (const char *name : path)
        found = WordXml::child(found, name);
    return found;
}

bool isJoined(const pugi::xml_node &cell)
{
    return propertyOf(cell, {"tcPr", "vMerge"});
}

bool hasTitles(const pugi::xml_node &table)
{
    return propertyOf(table, {"tr", "trPr", "tblHeader"});
}

// The cell's width and columns, added to those of its neighbour.
void widen(pugi::xml_node cell, const pugi::xml_node &gone)
{
    const auto number = [](const pugi::xml_node &node, const char *name, int otherwise) {
        const pugi::xml_attribute attribute = WordXml::findAttribute(node, name);
        return attribute ? attribute.as_int() : otherwise;
    };
    const std::string prefix = WordXml::prefix(cell);
    pugi::xml_node properties = WordXml::child(cell, "tcPr");
    if (!properties)
        properties = cell.prepend_child((prefix + "tcPr").c_str());
    const int span = number(WordXml::child(properties, "gridSpan"), "val", 1) + number(propertyOf(gone, {"tcPr", "gridSpan"}), "val", 1);
    pugi::xml_node width = WordXml::child(properties, "tcW");
    if (width && WordXml::findAttribute(width, "w"))
        WordXml::findAttribute(width, "w").set_value(number(width, "w", 0) + number(propertyOf(gone, {"tcPr", "tcW"}), "w", 0));
    pugi::xml_node columns = WordXml::child(properties, "gridSpan");
    if (!columns) {
        columns = width ? properties.insert_child_after((prefix + "gridSpan").c_str(), width) : properties.prepend_child((prefix + "gridSpan").c_str());
        columns.append_attribute((prefix + "val").c_str());
    }
    WordXml::findAttribute(columns, "val").set_value(span);
}

bool isEmptyCell(const pugi::xml_node &cell)
{
    for (const pugi::xml_node child : cell.children()) {
        const bool counts = child.type() == pugi::node_element && !WordXml::isProperties(child) && !WordXml::isRangeMark(child);
        if (counts && !(WordXml::is(child, "p") && showsNothing(child)))
            return false;
    }
    return true;
}

void remove(pugi::xml_node node)
{
    WordXml::saveRangeMarks(node, node);
    node.parent().remove_child(node);
}

bool canGo(const pugi::xml_node &cell)
{
    return isEmptyCell(cell) && !isJoined(cell);
}

void removeEmptyCells(pugi::xml_node row)
{
    for (pugi::xml_node cell = row.first_child(); cell;) {
        const pugi::xml_node next = cell.next_sibling();
        pugi::xml_node neighbour = elementBeside(cell, true);
        if (!WordXml::is(neighbour, "tc"))
            neighbour = elementBeside(cell, false);
        if (WordXml::is(cell, "tc") && canGo(cell) && WordXml::is(neighbour, "tc") && !isJoined(neighbour)) {
            widen(neighbour, cell);
            remove(cell);
        }
        cell = next;
    }
}

// Returns the row around, where the table has gone and its cell may be empty now.
pugi::xml_node removeRow(pugi::xml_node row)
{
    pugi::xml_node table = row.parent();
    remove(row);
    for (const pugi::xml_node child : table.children())
        if (child.type() == pugi::node_element && !WordXml::isProperties(child) && !WordXml::is(child, "tblGrid") && !WordXml::isRangeMark(child))
            return {};
    const pugi::xml_node around = WordXml::ancestor(table.parent(), "tr");
    remove(table);
    return around;
}

pugi::xml_node tidyRow(pugi::xml_node row)
{
    bool isEmpty = WordXml::is(row.parent(), "tbl");
    for (const pugi::xml_node child : row.children())
        isEmpty = isEmpty && (WordXml::is(child, "tc") ? canGo(child) : WordXml::isProperties(child) || WordXml::isRangeMark(child));
    if (!isEmpty) {
        if (!hasTitles(WordXml::ancestor(row, "tbl")))
            removeEmptyCells(row);
        return {};
    }
    return removeRow(row);
}

int depthOf(pugi::xml_node node)
{
    int depth = 0;
    for (; node; node = node.parent())
        ++depth;
    return depth;
}

// rows: by their depth, as a row that goes holds no other one by then.
void tidyRows(std::map<int, std::set<pugi::xml_node>> rows)
{
    while (!rows.empty()) {
        const auto deepest = std::prev(rows.end());
        const std::set<pugi::xml_node> level = deepest->second;
        rows.erase(deepest);
        for (const pugi::xml_node row : level)
            if (const pugi::xml_node around = tidyRow(row))
                rows[depthOf(around)].insert(around);
    }
}

}

void EmptyPlaces::tidy(const std::vector<pugi::xml_node> &paragraphs)
{
    std::map<int, std::set<pugi::xml_node>> rows;
    for (pugi::xml_node paragraph : std::set<pugi::xml_node>(paragraphs.begin(), paragraphs.end())) {
        if (!showsNothing(paragraph))
            continue;
        if (const pugi::xml_node row = WordXml::ancestor(paragraph, "tr"))
            rows[depthOf(row)].insert(row);
        if (!isNeeded(paragraph))
            remove(paragraph);
    }
    tidyRows(std::move(rows));
}

void EmptyPlaces::removeWhole(pugi::xml_node rowOrParagraph)
{
    if (!WordXml::is(rowOrParagraph, "tr")) {
        for (pugi::xml_node child = rowOrParagraph.first_child(); child;) {
            const pugi::xml_node next = child.next_sibling();
            if (!WordXml::isProperties(child) && !WordXml::isRangeMark(child))
                remove(child);
            child = next;
        }
        tidy({rowOrParagraph});
    } else if (const pugi::xml_node around = removeRow(rowOrParagraph)) {
        tidyRows({{depthOf(around), {around}}});
    }
}
