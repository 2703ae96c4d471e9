// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/DocumentParts.h"

#include <pugixml.hpp>

namespace RepeatedRows {

// Each row of a document's table in which a field of this one's columns stands comes once for each of its rows, filled; without a row it
// goes. A paragraph outside of any table does the same. What would make the document larger than one that is taken stays as it is.
// Returns how many rows of the document did so.
int fill(pugi::xml_node below, const DocumentParts::Table &table);

}
