// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportPainter.h"

#include "suite/utility/entries/CutNumber.h"

#include <QApplication>
#include <QPageSize>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double dotsPerPoint = ReportPainter::resolution / 72.0;
constexpr double margin = 12 / 25.4 * ReportPainter::resolution;
// Right and left of a cell's text; all of it together takes no more than its share of the paper from the texts.
constexpr double widestPadding = 5 * dotsPerPoint;
constexpr double paddingShare = 0.12;
// A measured text and the same text broken into lines differ by a dot or two.
constexpr double slack = 6;
constexpr double gap = 6 * dotsPerPoint;
constexpr double hairline = 0.5 * dotsPerPoint;
// One text must not take the paper from all the others.
constexpr double widestColumn = 0.45;
constexpr double widestWord = 0.2;
constexpr double cornerShare = 0.3;
// Rows between two questions whether to stop.
constexpr int rowsPerReport = 200;

const QColor gridColor(0xb0, 0xb4, 0xba);
const QColor titlesColor(0xe9, 0xed, 0xf2);
const QColor bandColor(0xf7, 0xf8, 0xfa);

// Whether the column of the row holds one.
bool isAmount(const QVector<KListModel::Cell> &cells, int column)
{
    return column < cells.size() && cells.at(column).value.typeId() == QMetaType::Double;
}

ReportTexts::Face faceOf(const KListModel::Row &row)
{
    return row.heading ? ReportTexts::Bold : ReportTexts::Plain;
}

double longestWord(const QString &text)
{
    qsizetype longest = 0, length = 0;
    for (const QChar character : text) {
        length = character.isSpace() ? 0 : length + 1;
        longest = std::max(longest, length);
    }
    return text.isEmpty() ? 0 : static_cast<double>(longest) / static_cast<double>(text.size());
}
}

ReportPainter::ReportPainter(const ListReport &report, const QFont &font)
    : m_report(report)
    , m_columns(report.shownColumns())
    , m_texts(font == QFont() ? QApplication::font() : font, report.layout().fontSize)
{
    m_summary = report.shownSummary().join(QString(6, QChar(QChar::Nbsp)));
    m_area = QRectF({}, paperSize()).adjusted(margin, margin, -margin, -margin);
    m_line = m_texts.lineHeight(ReportTexts::Plain);
    m_padding = std::min(widestPadding, m_area.width() * paddingShare / 2 / std::max(1, static_cast<int>(m_columns.size())));
}

QPageLayout ReportPainter::paper() const
{
    return {QPageSize(QPageSize::A4), m_report.layout().landscape ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

bool ReportPainter::layOut(const ReportProgress &progress)
{
    m_pages.clear();
    if (!measureColumns(progress) || !countLines(progress))
        return false;
    placeHead();
    // A line at the foot for the page number.
    const double room = m_area.height() - m_headHeight - m_titlesHeight - m_line - gap;
    const int tail = m_summary.isEmpty() ? 0 : m_texts.lines({m_summary, ReportTexts::Bold, m_area.width()}) + 1;
    m_pages = ReportGeometry::paginate(m_lines, static_cast<int>(room / m_line), tail);
    return true;
}

int ReportPainter::pageCount() const
{
    const auto sheets = m_pages.size() * m_sheets.size();
    // A summary that stands alone needs no second sheet beside it.
    const bool summaryAlone = m_pages.size() > 1 && m_pages.back().empty();
    return static_cast<int>(summaryAlone ? sheets - m_sheets.size() + 1 : sheets);
}

bool ReportPainter::measureColumns(const ReportProgress &progress)
{
    const QVector<KListModel::Row> &rows = m_report.rows();
    std::vector<ReportGeometry::ColumnNeed> needs;
    for (const auto &shown : m_columns) {
        const QString &title = m_report.columns().at(shown.column).title;
        // Titles are few, so that their words can be measured one by one.
        double word = 0;
        for (const QString &part : title.split(u' '))
            word = std::max(word, m_texts.advance(part, ReportTexts::Bold));
        needs.push_back({m_texts.advance(title, ReportTexts::Bold), word, shown.share});
    }
    std::vector<double> amounts(needs.size(), 0);
    m_advances.clear();
    m_advances.reserve(static_cast<size_t>(rows.size() * m_columns.size()));
    for (int row = 0; row < rows.size(); ++row) {
        if (progress && row % rowsPerReport == 0 && !progress(row, static_cast<int>(rows.size()) * 2))
            return false;
        const QVector<KListModel::Cell> &cells = rows.at(row).cells;
        for (size_t i = 0; i < needs.size(); ++i) {
            const int column = m_columns.at(static_cast<int>(i)).column;
            const QString text = column < cells.size() ? cells.at(column).text : QString();
            const double advance = text.isEmpty() ? 0 : m_texts.advance(text, faceOf(rows.at(row)));
            m_advances.push_back(static_cast<float>(advance));
            needs[i].wanted = std::max(needs[i].wanted, advance);
            if (advance > needs[i].least) // no word is longer than its text
                needs[i].least = std::max(needs[i].least, advance * longestWord(text));
            if (isAmount(cells, column))
                amounts[i] = std::max(amounts[i], advance);
        }
    }
    for (size_t i = 0; i < needs.size(); ++i) {
        ReportGeometry::ColumnNeed &need = needs[i];
        need.wanted = std::min(need.wanted, m_area.width() * widestColumn) + 2 * m_padding + slack;
        // A word may be broken, an amount may not.
        need.least = std::min(std::max(std::min(need.least, m_area.width() * widestWord), amounts[i]), need.wanted) + 2 * m_padding + slack;
    }
    placeColumns(needs);
    return true;
}

void ReportPainter::placeColumns(std::span<const ReportGeometry::ColumnNeed> needs)
{
    m_sheets.clear();
    m_widths.assign(needs.size(), 0);
    for (const std::vector<int> &positions : ReportGeometry::partColumns(needs, m_area.width())) {
        std::vector<ReportGeometry::ColumnNeed> own;
        for (const int position : positions)
            own.push_back(needs[static_cast<size_t>(position)]);
        const std::vector<double> widths = ReportGeometry::fitColumns(own, m_area.width());
        Sheet sheet;
        for (size_t i = 0; i < widths.size(); ++i) {
            sheet.push_back({positions[i], widths[i]});
            double &first = m_widths[static_cast<size_t>(positions[i])];
            first = first > 0 ? first : widths[i];
        }
        m_sheets.push_back(std::move(sheet));
    }
}

double ReportPainter::advanceOf(int row, const PlacedColumn &column) const
{
    return m_advances[static_cast<size_t>(row) * m_widths.size() + static_cast<size_t>(column.position)];
}

double ReportPainter::textWidth(const PlacedColumn &column) const
{
    return column.width - m_padding - m_padding;
}

ReportTexts::Text ReportPainter::cellText(const KListModel::Row &row, const PlacedColumn &column) const
{
    const int source = m_columns.at(column.position).column;
    const KListModel::Column &shown = m_report.columns().at(source);
    const KListModel::Cell &cell = row.cells.at(source);
    return {cell.text, faceOf(row), textWidth(column), shown.alignment & Qt::AlignHorizontal_Mask,
            KListModel::readsLeftToRight(shown, cell)};
}

ReportTexts::Text ReportPainter::titleText(const PlacedColumn &column) const
{
    return {m_report.columns().at(m_columns.at(column.position).column).title, ReportTexts::Bold, textWidth(column),
            Qt::AlignHCenter};
}

bool ReportPainter::countLines(const ReportProgress &progress)
{
    const int rows = static_cast<int>(m_report.rows().size());
    m_lines.assign(static_cast<size_t>(rows), 1);
    for (int row = 0; row < rows; ++row) {
        if (progress && row % rowsPerReport == 0 && !progress(rows + row, rows * 2))
            return false;
        m_lines[static_cast<size_t>(row)] = linesOfRow(row);
    }
    return true;
}

// Of the highest cell on any sheet.
int ReportPainter::linesOfRow(int row) const
{
    const KListModel::Row &source = m_report.rows().at(row);
    int lines = 1;
    for (const Sheet &sheet : m_sheets) {
        for (const PlacedColumn &placed : sheet) {
            const int column = m_columns.at(placed.position).column;
            if (column >= source.cells.size() || isAmount(source.cells, column))
                continue;
            if (advanceOf(row, placed) > textWidth(placed) || source.cells.at(column).text.contains(u'\n'))
                lines = std::max(lines, m_texts.lines(cellText(source, placed)));
        }
    }
    return lines;
}

// Heights of what stands above the rows of every page.
void ReportPainter::placeHead()
{
    const double cornerWidth = m_area.width() * cornerShare;
    double corners = 0;
    bool any = false;
    for (int i = 0; i < 3; ++i) {
        int lines = 1;
        for (const int corner : {i, i + 3}) {
            const QString text = m_report.shownCorner(ReportLayout::corners().at(corner));
            any = any || !text.isEmpty();
            lines = std::max(lines, m_texts.lines({text, ReportTexts::Plain, cornerWidth}));
        }
        corners += lines * m_line;
    }
    const double titleWidth = m_area.width() - 2 * (cornerWidth + gap);
    const double title = m_texts.lines({m_report.shownTitle(), ReportTexts::Title, titleWidth, Qt::AlignHCenter})
        * m_texts.lineHeight(ReportTexts::Title);
    m_headHeight = std::max(any ? corners : 0, title) + gap;

    int lines = 1;
    for (const Sheet &sheet : m_sheets) {
        for (const PlacedColumn &placed : sheet)
            lines = std::max(lines, m_texts.lines(titleText(placed)));
    }
    m_titlesHeight = lines * m_line + gap / 2;
}

void ReportPainter::drawText(QPainter &painter, const QRectF &box, const QString &text, ReportTexts::Face face,
                             Qt::Alignment alignment) const
{
    m_texts.draw(painter, box.topLeft(), {text, face, box.width(), alignment});
}

void ReportPainter::paint(QPainter &painter, int page) const
{
    const ReportGeometry::Page &slices = m_pages.at(static_cast<size_t>(page) / m_sheets.size());
    const Sheet &sheet = m_sheets.at(static_cast<size_t>(page) % m_sheets.size());
    paintHead(painter);
    paintTitles(painter, sheet, m_area.top() + m_headHeight);
    const double end = paintRows(painter, sheet, slices, m_area.top() + m_headHeight + m_titlesHeight);
    painter.setPen(Qt::black);
    if (page == pageCount() - 1) {
        const QRectF below(m_area.left(), end + m_line / 2, m_area.width(), m_line);
        drawText(painter, below, m_summary, ReportTexts::Bold, Qt::AlignRight);
    }
    const QRectF foot(m_area.left(), m_area.bottom() - m_line, m_area.width(), m_line);
    drawText(painter, foot, u"صفحه %1 از %2"_s.arg(page + 1).arg(pageCount()), ReportTexts::Plain, Qt::AlignHCenter);
}

void ReportPainter::paintHead(QPainter &painter) const
{
    painter.setPen(Qt::black);
    const double width = m_area.width() * cornerShare;
    const QRectF middle = m_area.adjusted(width + gap, 0, -width - gap, 0);
    drawText(painter, middle, m_report.shownTitle(), ReportTexts::Title, Qt::AlignHCenter);
    double y = m_area.top();
    for (int i = 0; i < 3; ++i) {
        const QString right = m_report.shownCorner(ReportLayout::corners().at(i));
        const QString left = m_report.shownCorner(ReportLayout::corners().at(i + 3));
        drawText(painter, {m_area.right() - width, y, width, m_line}, right, ReportTexts::Plain, Qt::AlignRight);
        drawText(painter, {m_area.left(), y, width, m_line}, left, ReportTexts::Plain, Qt::AlignLeft);
        y += m_line * std::max(m_texts.lines({right, ReportTexts::Plain, width}), m_texts.lines({left, ReportTexts::Plain, width, Qt::AlignLeft}));
    }
}

void ReportPainter::paintTitles(QPainter &painter, const Sheet &sheet, double y) const
{
    double right = m_area.right();
    for (const PlacedColumn &placed : sheet) {
        const QRectF cell(right - placed.width, y, placed.width, m_titlesHeight);
        painter.setPen(QPen(gridColor, hairline));
        painter.setBrush(titlesColor);
        painter.drawRect(cell);
        const ReportTexts::Text title = titleText(placed);
        const double height = m_texts.lines(title) * m_line;
        painter.setPen(Qt::black);
        m_texts.draw(painter, {cell.left() + m_padding, y + (m_titlesHeight - height) / 2}, title);
        right -= placed.width;
    }
}

double ReportPainter::paintRows(QPainter &painter, const Sheet &sheet, const ReportGeometry::Page &page, double y) const
{
    for (const ReportGeometry::Slice &slice : page) {
        paintSlice(painter, sheet, slice, y);
        y += slice.lineCount * m_line;
    }
    return y;
}

// All cells of a row at once: pen and brush change between rows only.
void ReportPainter::paintGrid(QPainter &painter, const Sheet &sheet, double y, double height, bool isBanded) const
{
    QVarLengthArray<QRectF, 32> boxes;
    double right = m_area.right();
    for (const PlacedColumn &placed : sheet) {
        boxes.append({right - placed.width, y, placed.width, height});
        right -= placed.width;
    }
    painter.setPen(QPen(gridColor, hairline));
    painter.setBrush(isBanded ? QBrush(bandColor) : QBrush(Qt::NoBrush));
    painter.drawRects(boxes.constData(), static_cast<int>(boxes.size()));
    painter.setPen(Qt::black);
}

void ReportPainter::paintSlice(QPainter &painter, const Sheet &sheet, const ReportGeometry::Slice &slice, double y) const
{
    const KListModel::Row &row = m_report.rows().at(slice.row);
    paintGrid(painter, sheet, y, slice.lineCount * m_line, row.heading || slice.row % 2 == 1);
    double right = m_area.right();
    for (const PlacedColumn &placed : sheet) {
        const int column = m_columns.at(placed.position).column;
        right -= placed.width;
        if (column >= row.cells.size() || row.cells.at(column).text.isEmpty())
            continue;
        ReportTexts::Text text = cellText(row, placed);
        if (isAmount(row.cells, column) && advanceOf(slice.row, placed) > text.width)
            text.text = CutNumber::mark();
        m_texts.draw(painter, {right + m_padding, y}, text, slice.firstLine, slice.lineCount);
    }
}
