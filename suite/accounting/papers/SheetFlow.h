// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/Letterhead.h"
#include "suite/accounting/papers/PaperSheet.h"
#include "suite/accounting/papers/SheetText.h"

// Lays one sheet out from the top of an area, over as many pages as it takes.
class SheetFlow
{
public:
    using Page = std::vector<SheetItem>;

    // points: the size of its ordinary text. copy: which copy of a slip this is.
    SheetFlow(const PaperSheet &sheet, const Letterhead &office, const QRectF &area, double points, const QString &copy = {});

    std::vector<Page> pages() const { return m_pages; }
    int pageCount() const { return static_cast<int>(m_pages.size()); }

private:
    void newPage();
    // Moves to the next page unless that much fits, or nothing stands on this one yet.
    void need(double height);
    double left() const { return m_bottom - m_y; }
    void put(const QRectF &box, const QString &text, const SheetText::Style &style);
    void add(SheetItem item);
    SheetText::Style style(double factor = 1, bool bold = false, Qt::Alignment alignment = Qt::AlignRight) const;
    SheetText::Style quiet(SheetText::Style style) const;

    void layHead();
    void layShortHead();
    double layOffice(const QRectF &box);
    void layMarks(const QRectF &box);
    void layPicture();
    void layHeadline();
    void layFacts();
    void layHighlight();
    void layOpening();
    void layText(const QString &text, double follows);
    int lastLine(const std::vector<bool> &parts, int from, double line, double follows) const;
    void layTable();
    void layTitles();
    double rowHeight(const QList<PaperSheet::Cell> &row) const;
    void layRow(const QList<PaperSheet::Cell> &row, double height, bool strong, bool titles);
    QList<PaperSheet::Cell> sumRow(const QString &label, const QList<double> &sums) const;
    void layTotals();
    double closingHeight() const;
    void layClosing();
    void layFeet();

    const PaperSheet &m_sheet;
    const Letterhead &m_office;
    const QRectF m_area;
    const double m_points;
    const QString m_copy;
    std::vector<double> m_widths; // of the table's columns
    double m_top = 0;             // of the page's contents
    double m_y = 0;
    double m_bottom = 0;
    std::vector<Page> m_pages;
};
