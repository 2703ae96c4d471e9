// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ReportGeometry {

namespace {

// On a sheet of its own a column may be as wide as its text, but a long text still breaks into lines of this share.
constexpr double readableShare = 0.06;

double readable(const ColumnNeed &column, double width)
{
    return std::min(column.wanted, std::max(column.least, width * readableShare));
}

// From the first column on, as many on each sheet as room allows.
std::vector<std::vector<int>> fillSheets(std::span<const ColumnNeed> columns, double width, double room)
{
    std::vector<std::vector<int>> sheets(1);
    double used = 0;
    for (int position = 0; position < static_cast<int>(columns.size()); ++position) {
        const double needed = readable(columns[static_cast<size_t>(position)], width);
        const size_t always = sheets.size() == 1 ? 0 : 1;
        if (used + needed > room && sheets.back().size() > always) {
            sheets.push_back({0});
            used = readable(columns.front(), width);
        }
        sheets.back().push_back(position);
        used += needed;
    }
    return sheets;
}

// The width of one column by its contents, when all such columns together have room of width.
double fitted(const ColumnNeed &column, double width, double wanted, double least)
{
    if (wanted <= width)
        return wanted > 0 ? column.wanted * width / wanted : 0;
    if (least <= width)
        return column.least + (column.wanted - column.least) * (width - least) / (wanted - least);
    return column.least * width / least;
}

// A page for the tail, and what comes along of the last one; room: the lines that the tail leaves.
void bringTail(std::vector<Page> &pages, int room)
{
    Page along;
    Page &last = pages.back();
    if (room > 0) {
        Slice &slice = last.back();
        const bool whole = last.size() > 1 && slice.lineCount <= room;
        const int lines = whole ? slice.lineCount : 1;
        along.push_back({slice.row, slice.firstLine + slice.lineCount - lines, lines});
        slice.lineCount -= lines;
        if (whole)
            last.pop_back();
    }
    pages.push_back(std::move(along));
}

}

std::vector<double> fitColumns(std::span<const ColumnNeed> columns, double width)
{
    double shares = 0, wanted = 0, least = 0;
    for (const ColumnNeed &column : columns) {
        shares += column.share;
        if (column.share <= 0) {
            wanted += column.wanted;
            least += column.least;
        }
    }
    // Shares that leave too little for the others, or alone do not fill the paper, are taken as proportions.
    const bool sharesOnly = wanted <= 0;
    const double taken = sharesOnly ? width : std::min(width * shares / 100, width - std::min(least, width / 2));
    const double unit = shares > 0 ? taken / shares : 0;
    std::vector<double> widths;
    widths.reserve(columns.size());
    for (const ColumnNeed &column : columns)
        widths.push_back(column.share > 0 ? column.share * unit : fitted(column, width - taken, wanted, least));
    return widths;
}

std::vector<std::vector<int>> partColumns(std::span<const ColumnNeed> columns, double width)
{
    constexpr int steps = 50;
    double least = 0;
    bool arranged = false;
    for (const ColumnNeed &column : columns) {
        least += column.least;
        arranged = arranged || column.share > 0;
    }
    std::vector<std::vector<int>> sheets = fillSheets(columns, width, least > width && !arranged ? width : HUGE_VAL);
    // The narrowest room in which so many sheets do is the one that they share most evenly.
    for (int step = steps; step > 0 && sheets.size() > 1; --step) {
        std::vector<std::vector<int>> narrower = fillSheets(columns, width, width * step / steps);
        if (narrower.size() > sheets.size())
            break;
        sheets = std::move(narrower);
    }
    return sheets;
}

std::vector<Page> paginate(std::span<const int> lines, int linesPerPage, int tailLines)
{
    const int capacity = std::max(1, linesPerPage);
    std::vector<Page> pages(1);
    int used = 0;
    auto turn = [&] {
        pages.emplace_back();
        used = 0;
    };
    for (int row = 0; row < static_cast<int>(lines.size()); ++row) {
        int left = std::max(1, lines[static_cast<size_t>(row)]);
        if (used > 0 && left > capacity - used)
            turn();
        for (int first = 0; left > 0;) {
            if (used == capacity)
                turn();
            const int taken = std::min(left, capacity - used);
            pages.back().push_back({row, first, taken});
            used += taken;
            first += taken;
            left -= taken;
        }
    }
    if (used > 0 && std::min(tailLines, capacity) > capacity - used)
        bringTail(pages, capacity - tailLines);
    return pages;
}

}
