// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/FieldStory.h"
#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/WordXml.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <set>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Flows of their own within another one.
bool isStory(const pugi::xml_node &node)
{
    static constexpr std::array<std::string_view, 4> names{"tc", "txbxContent", "footnote", "endnote"};
    return WordXml::isOneOf(node, names);
}

// Shows something, or did, without being a run; nothing in it is a field that still counts.
bool isClosedPiece(const pugi::xml_node &node)
{
    static constexpr std::array<std::string_view, 4> names{"del", "moveFrom", "oMath", "oMathPara"};
    return WordXml::isOneOf(node, names);
}

bool isRunHolder(const pugi::xml_node &node)
{
    static constexpr std::array<std::string_view, 8> names{"hyperlink", "ins", "smartTag", "customXml", "sdtContent", "sdt", "bdo", "dir"};
    return WordXml::isOneOf(node, names);
}

bool hasContent(const pugi::xml_node &node)
{
    for (const pugi::xml_node child : node.children())
        if (child.type() == pugi::node_element && !WordXml::isProperties(child))
            return true;
    return false;
}

// Puts what follows a paragraph up to the last one, and that one's text, into the first.
void joinParagraphs(pugi::xml_node first, pugi::xml_node last)
{
    pugi::xml_node holder = first.parent();
    while (first.next_sibling() != last) {
        pugi::xml_node between = first.next_sibling();
        if (WordXml::isRangeMark(between)) {
            first.append_move(between);
            continue;
        }
        WordXml::saveRangeMarks(between, between);
        while (WordXml::isRangeMark(first.next_sibling()) && first.next_sibling() != between)
            first.append_move(first.next_sibling());
        holder.remove_child(between);
    }
    for (pugi::xml_node child = last.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (!WordXml::is(child, "pPr"))
            first.append_move(child);
        child = next;
    }
    holder.remove_child(last);
}

bool isBidiMark(QChar c)
{
    const char16_t code = c.unicode();
    return code == 0x200E || code == 0x200F || code == 0x061C || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

// The value between the marks of writing direction that stood around the former result.
QString betweenMarksOf(const QString &former, const QString &value)
{
    qsizetype head = 0, tail = former.size();
    while (head < former.size() && isBidiMark(former.at(head)))
        ++head;
    while (tail > head && isBidiMark(former.at(tail - 1)))
        --tail;
    return former.left(head) + value + former.mid(tail);
}

// Without characters that XML cannot hold, and with one sign for every kind of line break.
QString cleaned(const QString &value)
{
    QString text;
    text.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value.at(i);
        const bool pair = c.isHighSurrogate() && i + 1 < value.size() && value.at(i + 1).isLowSurrogate();
        if (pair) {
            text += c;
            text += value.at(++i);
        } else if (c == u'\r' || c == u'\v' || c.unicode() == 0x2028 || c.unicode() == 0x2029) {
            if (c != u'\r' || i + 1 == value.size() || value.at(i + 1) != u'\n')
                text += u'\n';
        } else if (c == u'\n' || c == u'\t' || (c.unicode() >= 0x20 && !c.isSurrogate() && c.unicode() < 0xFFFE)) {
            text += c;
        }
    }
    return text;
}

void appendText(pugi::xml_node run, const char *element, const QString &text)
{
    if (text.isEmpty())
        return;
    pugi::xml_node node = run.append_child((WordXml::prefix(run) + element).c_str());
    node.append_attribute("xml:space").set_value("preserve");
    node.append_child(pugi::node_pcdata).set_value(text.toUtf8().constData());
}

void appendShown(pugi::xml_node run, const QString &text)
{
    QString waiting;
    for (const QChar c : text) {
        if (c != u'\n' && c != u'\t') {
            waiting += c;
            continue;
        }
        appendText(run, "t", waiting);
        waiting.clear();
        run.append_child((WordXml::prefix(run) + (c == u'\n' ? "br" : "tab")).c_str());
    }
    appendText(run, "t", waiting);
}

} // namespace

QStringList FieldStory::names(pugi::xml_node below)
{
    std::map<int, QString> places;
    Walk walk{[&](FieldStory &story) {
        for (const Field &field : story.m_fields) {
            const QString name = FieldInstruction::parse(field.instruction).name;
            if (field.closed && !name.isEmpty())
                places.emplace(field.place, name);
        }
    }};
    read(below, walk);
    QStringList names;
    for (const auto &[place, name] : places)
        names.append(name);
    return names;
}

std::vector<FieldStory::Place> FieldStory::places(pugi::xml_node below)
{
    std::map<int, Place> inOrder;
    Walk walk{[&](FieldStory &story) {
        for (const Field &field : story.m_fields)
            if (std::optional<Place> place = story.placeOf(field))
                inOrder.emplace(field.place, std::move(*place));
    }};
    read(below, walk);
    // A text box within a field is a flow of its own, but goes with it.
    std::set<pugi::xml_node> pieces;
    for (const auto &[order, place] : inOrder)
        pieces.insert(place.pieces.begin(), place.pieces.end());
    const auto goesWithAnother = [&](const Place &place) {
        for (pugi::xml_node above = place.begin.parent(); above; above = above.parent())
            if (pieces.contains(above))
                return true;
        return false;
    };
    std::vector<Place> places;
    for (auto &[order, place] : inOrder)
        if (!goesWithAnother(place))
            places.push_back(std::move(place));
    return places;
}

pugi::xml_node FieldStory::Place::paragraph() const
{
    return WordXml::ancestor(begin, "p");
}

void FieldStory::Place::remove() const
{
    removePieces(pieces.begin(), pieces.end());
}

std::optional<FieldStory::Place> FieldStory::placeOf(const Field &field) const
{
    const QString name = FieldInstruction::parse(field.instruction).name;
    const bool isWithin = field.outer >= 0 && m_fields[static_cast<std::size_t>(field.outer)].closed;
    if (!field.closed || name.isEmpty() || isWithin)
        return std::nullopt;
    const pugi::xml_node paragraph = WordXml::ancestor(field.begin, "p");
    if (!paragraph || paragraph != WordXml::ancestor(field.end, "p"))
        return std::nullopt;
    const auto at = [&](std::size_t index) { return m_pieces.begin() + static_cast<std::ptrdiff_t>(index); };
    return Place{name, field.begin, field.end, {at(field.first), at(field.last + 1)}};
}

int FieldStory::fill(pugi::xml_node below, const ValueOf &valueOf)
{
    int filled = 0;
    Walk walk{[&](FieldStory &story) { filled += story.fillFields(valueOf); }};
    read(below, walk);
    return filled;
}

FieldStory::FieldStory(Walk &walk)
    : m_walk(walk)
{
}

void FieldStory::read(pugi::xml_node root, Walk &walk)
{
    FieldStory story(walk);
    story.walk(root);
    walk.onStory(story);
}

void FieldStory::walk(pugi::xml_node node)
{
    // A run that is cut gets its parts as next siblings, where this loop meets them.
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() != pugi::node_element || WordXml::isProperties(child))
            continue;
        if (WordXml::is(child, "r")) {
            walkRun(cut(child));
        } else if (WordXml::is(child, "fldSimple")) {
            walkSimple(child);
        } else if (WordXml::is(child, "AlternateContent")) {
            m_pieces.push_back(child);
            for (const pugi::xml_node branch : child.children())
                read(branch, m_walk);
        } else if (isClosedPiece(child)) {
            m_pieces.push_back(child);
        } else if (isStory(child)) {
            read(child, m_walk);
        } else {
            walk(child);
        }
    }
}

void FieldStory::walkSimple(pugi::xml_node node)
{
    openField(node, true);
    m_fields.back().first = m_pieces.size();
    m_fields.back().separated = true;
    m_fields.back().instruction = WordXml::attribute(node, "instr").left(maxInstruction);
    const std::size_t floor = std::exchange(m_floor, m_open.size());
    walk(node);
    m_open.resize(m_floor); // what was begun within and not ended there is no field
    m_pieces.push_back(node);
    m_floor = m_open.size() - 1;
    closeField(node);
    m_floor = floor;
}

void FieldStory::walkRun(pugi::xml_node run)
{
    m_pieces.push_back(run);
    for (const pugi::xml_node child : run.children()) {
        if (child.type() != pugi::node_element || WordXml::isProperties(child))
            continue;
        if (WordXml::is(child, "fldChar"))
            readMark(run, child);
        else
            readText(run, child);
        findInnerStories(child);
    }
}

void FieldStory::findInnerStories(pugi::xml_node node)
{
    for (const pugi::xml_node child : node.children()) {
        if (isStory(child))
            read(child, m_walk);
        else
            findInnerStories(child);
    }
}

void FieldStory::readMark(pugi::xml_node run, pugi::xml_node mark)
{
    const char *kind = WordXml::findAttribute(mark, "fldCharType").value();
    if (std::strcmp(kind, "begin") == 0)
        openField(run, false);
    else if (std::strcmp(kind, "end") == 0)
        closeField(run);
    else if (std::strcmp(kind, "separate") == 0 && m_open.size() > m_floor)
        m_fields[static_cast<std::size_t>(m_open.back())].separated = true;
}

void FieldStory::readText(pugi::xml_node run, pugi::xml_node child)
{
    if (m_open.empty())
        return;
    Field &field = m_fields[static_cast<std::size_t>(m_open.back())];
    const bool isCode = WordXml::is(child, "instrText");
    const bool isText = isCode || WordXml::is(child, "t");
    const QString text = isText ? QString::fromUtf8(child.text().get()) : QString();
    if (!field.separated) {
        if (!isCode)
            return;
        if (!field.instructionRun)
            field.instructionRun = run;
        field.instruction = (field.instruction + text).left(maxInstruction);
        return;
    }
    const bool shows = !isText || !text.isEmpty();
    if (!field.resultRun || (shows && !field.shows))
        field.resultRun = run;
    field.shows = field.shows || shows;
    field.result = (field.result + text).left(maxResult);
}

void FieldStory::openField(pugi::xml_node begin, bool simple)
{
    if (m_open.size() >= maxOpenFields)
        throw DocxError("fields nested too deep");
    Field field;
    field.begin = begin;
    field.simple = simple;
    field.place = m_walk.begun++;
    field.first = m_pieces.empty() ? 0 : m_pieces.size() - 1;
    if (!m_open.empty()) {
        field.outer = m_open.back();
        const Field &outer = m_fields[static_cast<std::size_t>(field.outer)];
        field.inInstruction = !outer.separated;
        field.quoted = (outer.instruction.count(u'"') - outer.instruction.count(u"\\\""_s)) % 2 != 0;
    }
    m_open.push_back(static_cast<int>(m_fields.size()));
    m_fields.push_back(field);
}

void FieldStory::closeField(pugi::xml_node end)
{
    if (m_open.size() <= m_floor)
        return; // an end without a beginning
    Field &field = m_fields[static_cast<std::size_t>(m_open.back())];
    m_open.pop_back();
    field.end = end;
    field.last = m_pieces.size() - 1;
    field.closed = true;
    if (field.outer < 0)
        return;
    Field &outer = m_fields[static_cast<std::size_t>(field.outer)];
    if (!outer.separated) {
        outer.instruction = (outer.instruction + field.result).left(maxInstruction);
        return;
    }
    outer.result = (outer.result + field.result).left(maxResult);
    if (!outer.shows && field.resultRun)
        outer.resultRun = field.resultRun;
    outer.shows = outer.shows || field.shows;
}

// A run that holds a mark and more becomes several of the same look, so that a field begins and ends with whole runs.
pugi::xml_node FieldStory::cut(pugi::xml_node run) const
{
    std::vector<pugi::xml_node> children;
    bool hasMark = false;
    for (const pugi::xml_node child : run.children()) {
        if (child.type() != pugi::node_element || WordXml::is(child, "rPr"))
            continue;
        children.push_back(child);
        hasMark = hasMark || WordXml::is(child, "fldChar");
    }
    if (!hasMark || children.size() < 2)
        return run;
    const pugi::xml_node look = WordXml::child(run, "rPr");
    if (look && WordXml::nodesIn(look) > maxLookNodes)
        throw DocxError("the look of a run is too large");
    const std::string name = run.name();
    for (std::size_t i = children.size() - 1; i > 0; --i) {
        pugi::xml_node part = run.parent().insert_child_after(name.c_str(), run);
        if (look)
            part.append_copy(look);
        part.append_move(children[i]);
    }
    return run;
}

int FieldStory::fillFields(const ValueOf &valueOf)
{
    int filled = 0;
    std::size_t gone = 0; // pieces below went with a filled field
    for (const Field &field : m_fields) {
        if (!field.closed || field.first < gone)
            continue;
        const FieldInstruction instruction = FieldInstruction::parse(field.instruction);
        if (instruction.name.isEmpty() || !canBeReplaced(field))
            continue;
        const QString value = valueOf(instruction.name);
        if (value.isNull())
            continue;
        replace(field, instruction, cleaned(value));
        gone = field.last + 1;
        ++filled;
    }
    return filled;
}

// A field over several paragraphs makes them one. That needs them side by side, and no change of page layout between.
bool FieldStory::canBeReplaced(const Field &field) const
{
    if (field.simple)
        return true;
    pugi::xml_node paragraph = WordXml::ancestor(field.begin, "p");
    const pugi::xml_node last = WordXml::ancestor(field.end, "p");
    while (paragraph && paragraph != last) {
        if (WordXml::child(WordXml::child(paragraph, "pPr"), "sectPr"))
            return false;
        paragraph = paragraph.next_sibling();
    }
    return static_cast<bool>(paragraph);
}

bool FieldStory::standsInInstruction(const Field &field) const
{
    for (const Field *inner = &field; inner->outer >= 0; inner = &m_fields[static_cast<std::size_t>(inner->outer)])
        if (inner->inInstruction && m_fields[static_cast<std::size_t>(inner->outer)].closed)
            return true;
    return false;
}

void FieldStory::replace(const Field &field, const FieldInstruction &instruction, const QString &value)
{
    const QString text = instruction.shaped(value);
    if (standsInInstruction(field)) {
        replaceInInstruction(field, text);
    } else if (!text.isEmpty()) {
        pugi::xml_node look = field.simple ? pugi::xml_node() : field.begin;
        if (field.instructionRun)
            look = field.instructionRun;
        if (field.resultRun && !(instruction.lookOfInstruction && field.instructionRun))
            look = field.resultRun;
        appendShown(insertRun(field, look), betweenMarksOf(field.result, text));
    }
    const pugi::xml_node first = WordXml::ancestor(field.begin, "p");
    const pugi::xml_node last = WordXml::ancestor(field.end, "p");
    const auto at = [&](std::size_t index) { return m_pieces.cbegin() + static_cast<std::ptrdiff_t>(index); };
    removePieces(at(field.first), at(field.last + 1));
    if (first != last)
        joinParagraphs(first, last);
}

// The value becomes a word of the outer field's instruction, and that field is to be worked out anew when it is opened.
void FieldStory::replaceInInstruction(const Field &field, QString text)
{
    text.replace(u'\n', u' ').replace(u'\t', u' ');
    text.replace(u"\\"_s, u"\\\\"_s).replace(u"\""_s, u"\\\""_s);
    if (field.inInstruction && !field.quoted)
        text = u'"' + text + u'"';
    appendText(insertRun(field, field.begin), "instrText", text);

    const Field &outer = m_fields[static_cast<std::size_t>(field.outer)];
    pugi::xml_node holder = outer.simple ? outer.begin : WordXml::child(outer.begin, "fldChar");
    if (WordXml::findAttribute(holder, "dirty"))
        WordXml::findAttribute(holder, "dirty").set_value("true");
    else
        holder.append_attribute((WordXml::prefix(holder) + "dirty").c_str()).set_value("true");
}

pugi::xml_node FieldStory::insertRun(const Field &field, pugi::xml_node look)
{
    pugi::xml_node begin = field.begin;
    pugi::xml_node run = begin.parent().insert_child_before((WordXml::prefix(begin) + "r").c_str(), begin);
    if (const pugi::xml_node properties = WordXml::child(look, "rPr"))
        run.append_copy(properties);
    return run;
}

void FieldStory::removePieces(std::vector<pugi::xml_node>::const_iterator first, std::vector<pugi::xml_node>::const_iterator last)
{
    for (; first != last; ++first) {
        const pugi::xml_node piece = *first;
        WordXml::saveRangeMarks(piece, piece);
        pugi::xml_node holder = piece.parent();
        holder.remove_child(piece);
        while (isRunHolder(holder) && !hasContent(holder)) {
            const pugi::xml_node empty = holder;
            holder = holder.parent();
            holder.remove_child(empty);
        }
    }
}
