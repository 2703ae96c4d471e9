// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <span>
#include <vector>

// Where a list falls on paper: plain numbers in any one unit of length.
namespace ReportGeometry {

struct ColumnNeed
{
    double wanted = 0; // its longest text on one line
    double least = 0;  // its longest word
    double share = 0;  // percent of the paper that the user gave it; 0: by its contents
};

// Widths that fill the paper's width exactly. Columns with a share get it, the others part what is left: where it is more
// than they want, in proportion to what they want; where it is less, each between its longest word and its longest text;
// where not even the words fit, in proportion to them. Empty for no columns.
[[nodiscard]] TZACCOUNTINGDATA_EXPORT std::vector<double> fitColumns(std::span<const ColumnNeed> columns, double width);

// The columns, by position, that stand together on one sheet. A table whose words do not fit across the paper
// continues over several sheets, each about as full as the others and each beginning with the table's first column, by which
// its rows are found again. Columns that the user gave a share of the paper stay on one sheet.
[[nodiscard]] TZACCOUNTINGDATA_EXPORT std::vector<std::vector<int>> partColumns(std::span<const ColumnNeed> columns, double width);

// A run of lines of one row on one page.
struct Slice
{
    int row = 0;
    int firstLine = 0;
    int lineCount = 0;
    bool operator==(const Slice &) const = default;
};
using Page = std::vector<Slice>;

// Divides rows, given as line counts, among pages of linesPerPage lines each. A row stays whole on one page unless
// it is longer than a page; then it continues from page to page. What stands below the last row (tailLines) goes on another page
// when it does not fit any more, and takes the last row along, or the last line of one that fills its page; without rows it
// stands there only where it leaves no line for them. Always at least one page.
[[nodiscard]] TZACCOUNTINGDATA_EXPORT std::vector<Page> paginate(std::span<const int> lines, int linesPerPage, int tailLines);

}
