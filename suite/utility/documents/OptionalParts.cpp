// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/OptionalParts.h"
#include "suite/utility/documents/DocumentParts.h"
#include "suite/utility/documents/EmptyPlaces.h"
#include "suite/utility/documents/FieldStory.h"
#include "suite/utility/documents/WordXml.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace {

struct Mark
{
    FieldStory::Place place;
    PartMark says;
    std::optional<std::size_t> end; // of a beginning: its end, among all marks
    bool isPaired = false;
};

// The flow of text that a mark stands in. A branch of a drawing that another program takes instead is a flow as well.
pugi::xml_node flowOf(pugi::xml_node node)
{
    static constexpr std::array<std::string_view, 6> names{"tc", "txbxContent", "footnote", "endnote", "Choice", "Fallback"};
    while (node.parent() && !WordXml::isOneOf(node, names))
        node = node.parent();
    return node;
}

std::vector<Mark> marksBelow(pugi::xml_node below)
{
    std::vector<Mark> marks;
    for (FieldStory::Place &place : FieldStory::places(below))
        if (PartMark says = PartMark::of(place.name); says.kind != PartMark::None)
            marks.push_back({std::move(place), std::move(says), {}, false});
    std::map<pugi::xml_node, std::vector<std::size_t>> open; // by their flows
    for (std::size_t i = 0; i < marks.size(); ++i) {
        std::vector<std::size_t> &inFlow = open[flowOf(marks[i].place.begin)];
        if (marks[i].says.kind != PartMark::End) {
            inFlow.push_back(i);
            continue;
        }
        if (inFlow.empty())
            continue;
        Mark &beginning = marks[inFlow.back()];
        inFlow.pop_back();
        beginning.end = i;
        beginning.isPaired = marks[i].isPaired = true;
    }
    return marks;
}

std::vector<pugi::xml_node> wayUp(pugi::xml_node node)
{
    std::vector<pugi::xml_node> way;
    for (; node; node = node.parent())
        way.push_back(node);
    std::ranges::reverse(way);
    return way;
}

bool endsSection(const pugi::xml_node &node)
{
    return WordXml::is(node, "p") && WordXml::child(WordXml::child(node, "pPr"), "sectPr");
}

void removeSibling(pugi::xml_node node)
{
    if (node.type() == pugi::node_element && (WordXml::isProperties(node) || WordXml::isRangeMark(node)))
        return;
    WordXml::saveRangeMarks(node, node);
    if (!endsSection(node)) {
        node.parent().remove_child(node);
        return;
    }
    // The paragraph carries the page's layout; only its text goes.
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (!WordXml::isProperties(child))
            node.remove_child(child);
        child = next;
    }
}

void removeBetween(pugi::xml_node first, pugi::xml_node last)
{
    for (pugi::xml_node node = first; node && node != last;) {
        const pugi::xml_node next = node.next_sibling();
        removeSibling(node);
        node = next;
    }
}

// Everything behind the one node and before the other, which stay.
void removeRange(pugi::xml_node from, pugi::xml_node to)
{
    const std::vector<pugi::xml_node> toFrom = wayUp(from), toTo = wayUp(to);
    std::size_t fork = 0;
    while (fork < toFrom.size() && fork < toTo.size() && toFrom[fork] == toTo[fork])
        ++fork;
    for (std::size_t i = fork + 1; i < toFrom.size(); ++i)
        removeBetween(toFrom[i].next_sibling(), {});
    for (std::size_t i = fork + 1; i < toTo.size(); ++i)
        removeBetween(toTo[i].parent().first_child(), toTo[i]);
    if (fork < toFrom.size() && fork < toTo.size())
        removeBetween(toFrom[fork].next_sibling(), toTo[fork]);
}

}

int OptionalParts::leaveOut(pugi::xml_node below, const std::function<bool(const QString &)> &says)
{
    const std::vector<Mark> marks = marksBelow(below);
    std::vector<pugi::xml_node> paragraphs;
    std::size_t gone = 0; // marks below went with the part that they lay in
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const Mark &mark = marks[i];
        if (i < gone)
            continue;
        paragraphs.push_back(mark.place.paragraph());
        if (mark.end && !mark.says.keeps(says)) {
            removeRange(mark.place.end, marks[*mark.end].place.begin);
            gone = *mark.end;
        }
        mark.place.remove();
    }
    EmptyPlaces::tidy(paragraphs);
    return static_cast<int>(marks.size());
}

QStringList OptionalParts::unpairedMarks(pugi::xml_node below)
{
    QStringList names;
    for (const Mark &mark : marksBelow(below))
        if (!mark.isPaired)
            names.append(mark.place.name);
    return names;
}
