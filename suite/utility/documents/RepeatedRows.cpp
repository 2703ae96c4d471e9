// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/RepeatedRows.h"
#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/EmptyPlaces.h"
#include "suite/utility/documents/FieldStory.h"
#include "suite/utility/documents/Fields.h"
#include "suite/utility/documents/WordXml.h"

#include <algorithm>
#include <set>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// In reading order; one that lies in another that repeats comes with that one.
std::vector<pugi::xml_node> rowsOf(pugi::xml_node below, const QStringList &columns)
{
    std::vector<pugi::xml_node> rows;
    std::set<pugi::xml_node> known;
    for (const FieldStory::Place &place : FieldStory::places(below)) {
        if (Fields::indexOfName(columns, place.name) < 0)
            continue;
        pugi::xml_node row = WordXml::ancestor(place.begin, "tr");
        if (!row)
            row = place.paragraph();
        if (known.insert(row).second)
            rows.push_back(row);
    }
    std::erase_if(rows, [&](const pugi::xml_node &row) {
        for (pugi::xml_node above = row.parent(); above; above = above.parent())
            if (known.contains(above))
                return true;
        return false;
    });
    return rows;
}

}

int RepeatedRows::fill(pugi::xml_node below, const DocumentParts::Table &table)
{
    int repeated = 0;
    qsizetype room = DocxPackage::maxMarks;
    for (pugi::xml_node row : rowsOf(below, table.columns)) {
        const qsizetype needed = WordXml::nodesIn(row) * std::max<qsizetype>(table.rows.size(), 1);
        if (needed > room)
            continue;
        room -= needed;
        for (const QStringList &values : table.rows) {
            pugi::xml_node copy = row.parent().insert_copy_before(row, row);
            FieldStory::fill(copy, [&](const QString &name) {
                const int column = Fields::indexOfName(table.columns, name);
                const QString value = column < 0 ? QString() : values.value(column);
                return column >= 0 && value.isNull() ? u""_s : value;
            });
        }
        EmptyPlaces::removeWhole(row);
        ++repeated;
    }
    return repeated;
}
