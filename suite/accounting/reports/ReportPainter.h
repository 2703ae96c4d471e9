// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ListReport.h"
#include "suite/accounting/reports/PaperPages.h"
#include "suite/accounting/reports/ReportGeometry.h"
#include "suite/accounting/reports/ReportProgress.h"
#include "suite/accounting/reports/ReportTexts.h"
#include "suite/accounting/TzAccountingExport.h"

#include <span>
#include <vector>

// Lays a list report out on A4 pages and paints any one of them: corners and title, the table with its header row on every
// page, the summary below its last row, "صفحه x از y" at the foot. Keeps a few numbers per cell, no painted page. Where not
// even the words of all columns fit across the paper, the rows of a page continue on the sheets that follow it.
class TZACCOUNTING_EXPORT ReportPainter : public PaperPages
{
public:
    // The report is read until the painter is destroyed. Without a font the program's own is used, in the layout's size.
    explicit ReportPainter(const ListReport &report, const QFont &font = {});

    // To be called first. False when progress asked to stop; there are no pages then.
    [[nodiscard]] bool layOut(const ReportProgress &progress = {});
    int pageCount() const override;
    // Of the columns from the right, in dots; of those that stand on more than one sheet, on the first.
    const std::vector<double> &columnWidths() const { return m_widths; }

    QPageLayout paper() const override;
    void paint(QPainter &painter, int page) const override;

private:
    // A column on one sheet: its position among those shown, and its width there.
    struct PlacedColumn
    {
        int position = 0;
        double width = 0;
    };
    using Sheet = std::vector<PlacedColumn>;

    bool measureColumns(const ReportProgress &progress);
    void placeColumns(std::span<const ReportGeometry::ColumnNeed> needs);
    int linesOfRow(int row) const;
    double advanceOf(int row, const PlacedColumn &column) const;
    double textWidth(const PlacedColumn &column) const;
    ReportTexts::Text cellText(const KListModel::Row &row, const PlacedColumn &column) const;
    bool countLines(const ReportProgress &progress);
    void placeHead();
    // Of a column's title.
    ReportTexts::Text titleText(const PlacedColumn &column) const;
    void drawText(QPainter &painter, const QRectF &box, const QString &text, ReportTexts::Face face, Qt::Alignment alignment) const;
    void paintHead(QPainter &painter) const;
    void paintTitles(QPainter &painter, const Sheet &sheet, double y) const;
    double paintRows(QPainter &painter, const Sheet &sheet, const ReportGeometry::Page &page, double y) const;
    void paintSlice(QPainter &painter, const Sheet &sheet, const ReportGeometry::Slice &slice, double y) const;
    void paintGrid(QPainter &painter, const Sheet &sheet, double y, double height, bool isBanded) const;

    const ListReport &m_report;
    QVector<ListReport::ShownColumn> m_columns;
    mutable ReportTexts m_texts; // learns while it paints
    QString m_summary;
    QRectF m_area;                 // inside the margins
    std::vector<float> m_advances; // of every shown cell on one line, row by row
    std::vector<double> m_widths;
    std::vector<int> m_lines;                  // of every row
    std::vector<ReportGeometry::Page> m_pages; // of rows; each takes all the sheets
    std::vector<Sheet> m_sheets;
    double m_line = 0; // height of a line of the table
    double m_padding = 0;
    double m_headHeight = 0;
    double m_titlesHeight = 0;
};
