// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/FieldInstruction.h"

#include <QString>
#include <QStringList>

#include <pugixml.hpp>

#include <functional>
#include <optional>
#include <vector>

// The fields of one flow of text: a body, a table cell, a header, a note, a text box. A field never leaves its flow, so one
// that lacks its end spoils no other flow.
//
// A field is either one element (fldSimple) or a row of runs between the marks "begin", "separate" and "end" (fldChar),
// with the instruction before "separate" and what it shows behind it; either part may hold further fields.
class FieldStory
{
public:
    // Returns the text for a field of this name; null: the field stays. Not called for fields inside a filled one.
    using ValueOf = std::function<QString(const QString &fieldName)>;

    // The names of the merge fields in all flows below a node, in reading order; and filling them, inner flows first. Both
    // may cut runs into smaller ones of the same look. Throw DocxError for fields nested absurdly deep.
    static QStringList names(pugi::xml_node below);
    static int fill(pugi::xml_node below, const ValueOf &valueOf);

    // A merge field where it stands. Only whole ones that lie in no other field, and begin and end in one paragraph.
    struct Place
    {
        QString name;
        pugi::xml_node begin, end; // its first and last run; the same for an fldSimple
        std::vector<pugi::xml_node> pieces;

        pugi::xml_node paragraph() const;
        void remove() const; // but for the marks of ranges in it
    };
    // In reading order, under the same conditions as names.
    static std::vector<Place> places(pugi::xml_node below);

private:
    static constexpr std::size_t maxOpenFields = 30; // word processors stop at twenty
    static constexpr int maxLookNodes = 500;         // in the properties of one run that is cut
    static constexpr int maxInstruction = 1000;      // characters that are looked at,
    static constexpr int maxResult = 255;            //       here as well

    struct Field
    {
        pugi::xml_node begin;          // the run of the mark, or the fldSimple
        pugi::xml_node end;            // the same for fldSimple
        pugi::xml_node instructionRun; // the first
        pugi::xml_node resultRun;      // the first that shows something, else the first
        QString instruction, result;
        std::size_t first = 0, last = 0; // of m_pieces
        int outer = -1;                  // of m_fields
        int place = 0;                   // among the fields of all flows
        bool simple = false, separated = false, closed = false, shows = false;
        bool inInstruction = false; // of the outer field,
        bool quoted = false;        //        and between quotes there
    };

    // What is to be done with each flow once it has been read, and how many fields have been begun in all of them.
    struct Walk
    {
        std::function<void(FieldStory &)> onStory;
        int begun = 0;
    };

    explicit FieldStory(Walk &walk);
    static void read(pugi::xml_node root, Walk &walk);

    void walk(pugi::xml_node node);
    void walkSimple(pugi::xml_node node);
    void walkRun(pugi::xml_node run);
    void findInnerStories(pugi::xml_node node);
    void readMark(pugi::xml_node run, pugi::xml_node mark);
    void readText(pugi::xml_node run, pugi::xml_node child);
    void openField(pugi::xml_node begin, bool simple);
    void closeField(pugi::xml_node end);
    pugi::xml_node cut(pugi::xml_node run) const;

    int fillFields(const ValueOf &valueOf);
    bool canBeReplaced(const Field &field) const;
    bool standsInInstruction(const Field &field) const;
    void replace(const Field &field, const FieldInstruction &instruction, const QString &value);
    void replaceInInstruction(const Field &field, QString text);
    pugi::xml_node insertRun(const Field &field, pugi::xml_node look);
    static void removePieces(std::vector<pugi::xml_node>::const_iterator first, std::vector<pugi::xml_node>::const_iterator last);
    std::optional<Place> placeOf(const Field &field) const;

    Walk &m_walk;
    std::vector<Field> m_fields; // in the order of their beginnings
    std::vector<int> m_open;
    std::size_t m_floor = 0;              // of m_open: what an fldSimple lies in is not closed from within
    std::vector<pugi::xml_node> m_pieces; // runs and what else shows something, in reading order
};
