// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportPainter.h"

#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/entries/CutNumber.h"
#include "suite/utility/values/CodeText.h"

#include <QApplication>
#include <QPageSize>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

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
// Line height as a multiple of the font's, in place of the font's own leading, which may be much or little.
constexpr double leading = 1.15;
// One text must not take the paper from all the others.
constexpr double widestColumn = 0.45;
constexpr double widestWord = 0.2;
constexpr double cornerShare = 0.3;
// Rows between two questions whether to stop.
constexpr int rowsPerReport = 200;

const QColor gridColor(0xb0, 0xb4, 0xba);
const QColor titlesColor(0xe9, 0xed, 0xf2);
const QColor bandColor(0xf7, 0xf8, 0xfa);

QFont sized(QFont font, double points, bool bold)
{
    font.setPixelSize(qRound(points * dotsPerPoint));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

// Whether the column of the row holds one.
bool isAmount(const QVector<KListModel::Cell> &cells, int column)
{
    return column < cells.size() && cells.at(column).value.typeId() == QMetaType::Double;
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

// Lays the lines of a text out from the top; the height of each is the caller's matter.
void breakLines(QTextLayout &layout, double width, Qt::Alignment alignment, bool leftToRight)
{
    QTextOption option(alignment | Qt::AlignAbsolute);
    option.setTextDirection(leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();
}

QString inLines(QString text, bool leftToRight)
{
    text = text.remove(u'\r').replace(u'\n', QChar(QChar::LineSeparator));
    return leftToRight ? CodeText::shown(text) : text;
}

}

ReportPainter::ReportPainter(const ListReport &report, const QFont &font)
    : m_report(report)
    , m_columns(report.shownColumns())
{
    const QFont own = font == QFont() ? QApplication::font() : font;
    const double size = report.layout().fontSize;
    m_font = sized(own, size, false);
    m_boldFont = sized(own, size, true);
    m_titleFont = sized(own, size + 4, true);
    m_summary = report.shownSummary().join(QString(6, QChar(QChar::Nbsp)));
    m_area = QRectF({}, paperSize()).adjusted(margin, margin, -margin, -margin);
    m_line = lineHeight(m_font);
    m_padding = std::min(widestPadding, m_area.width() * paddingShare / 2 / std::max(1, static_cast<int>(m_columns.size())));
}

QPageLayout ReportPainter::paper() const
{
    return {QPageSize(QPageSize::A4), m_report.layout().landscape ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

double ReportPainter::lineHeight(const QFont &font) const
{
    return std::ceil(QFontMetricsF(font).height() * leading);
}

bool ReportPainter::layOut(const ReportProgress &progress)
{
    m_pages.clear();
    if (!measureColumns(progress) || !countLines(progress))
        return false;
    placeHead();
    // A line at the foot for the page number.
    const double room = m_area.height() - m_headHeight - m_titlesHeight - m_line - gap;
    const int tail = m_summary.isEmpty() ? 0 : linesOf(m_summary, m_boldFont, m_area.width(), false) + 1;
    m_pages = ReportGeometry::paginate(m_lines, static_cast<int>(room / m_line), tail);
    m_advances = {};
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
    const QFontMetricsF metrics(m_font), bold(m_boldFont);
    // Codes are measured in the font that draws them.
    const auto advanceOf = [&](const QString &text, bool heading) {
        if (CodeFont::isLatinCode(text))
            return QFontMetricsF(CodeFont::of(heading ? m_boldFont : m_font, text)).horizontalAdvance(text);
        return (heading ? bold : metrics).horizontalAdvance(text);
    };
    const QVector<KListModel::Row> &rows = m_report.rows();
    std::vector<ReportGeometry::ColumnNeed> needs;
    for (const auto &shown : m_columns) {
        const QString &title = m_report.columns().at(shown.column).title;
        // Titles are few, so that their words can be measured one by one.
        double word = 0;
        for (const QString &part : title.split(u' '))
            word = std::max(word, bold.horizontalAdvance(part));
        needs.push_back({bold.horizontalAdvance(title), word, shown.share});
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
            const double advance = text.isEmpty() ? 0 : advanceOf(text, rows.at(row).heading);
            m_advances.push_back(static_cast<float>(advance));
            needs[i].wanted = std::max(needs[i].wanted, advance);
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

const QFont &ReportPainter::fontOf(const KListModel::Row &row) const
{
    return row.heading ? m_boldFont : m_font;
}

bool ReportPainter::countLines(const ReportProgress &progress)
{
    const int rows = static_cast<int>(m_report.rows().size());
    m_lines.assign(static_cast<size_t>(rows), 1);
    for (int row = 0; row < rows; ++row) {
        if (progress && row % rowsPerReport == 0 && !progress(rows + row, rows * 2))
            return false;
        m_lines[static_cast<size_t>(row)] = linesOfRow(row, static_cast<size_t>(row) * m_widths.size());
    }
    return true;
}

// Of the highest cell on any sheet.
int ReportPainter::linesOfRow(int row, size_t firstAdvance) const
{
    const KListModel::Row &source = m_report.rows().at(row);
    int lines = 1;
    for (const Sheet &sheet : m_sheets) {
        for (const PlacedColumn &placed : sheet) {
            const int column = m_columns.at(placed.position).column;
            if (column >= source.cells.size())
                continue;
            const double width = placed.width - 2 * m_padding;
            const KListModel::Cell &cell = source.cells.at(column);
            if (isAmount(source.cells, column))
                continue;
            if (m_advances[firstAdvance + static_cast<size_t>(placed.position)] > width || cell.text.contains(u'\n'))
                lines = std::max(lines, linesOf(cell.text, fontOf(source), width, KListModel::readsLeftToRight(m_report.columns().at(column), cell)));
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
            lines = std::max(lines, linesOf(text, m_font, cornerWidth, false));
        }
        corners += lines * m_line;
    }
    const double titleWidth = m_area.width() - 2 * (cornerWidth + gap);
    const double title = linesOf(m_report.shownTitle(), m_titleFont, titleWidth, false) * lineHeight(m_titleFont);
    m_headHeight = std::max(any ? corners : 0, title) + gap;

    int lines = 1;
    for (const Sheet &sheet : m_sheets) {
        for (const PlacedColumn &placed : sheet) {
            const QString &text = m_report.columns().at(m_columns.at(placed.position).column).title;
            lines = std::max(lines, linesOf(text, m_boldFont, placed.width - 2 * m_padding, false));
        }
    }
    m_titlesHeight = lines * m_line + gap / 2;
}

int ReportPainter::linesOf(const QString &text, const QFont &font, double width, bool leftToRight) const
{
    if (text.isEmpty())
        return 1;
    QTextLayout layout(inLines(text, leftToRight), CodeFont::of(font, text));
    breakLines(layout, width, Qt::AlignRight, leftToRight);
    return std::max(1, layout.lineCount());
}

void ReportPainter::drawText(QPainter &painter, const QRectF &box, const QString &text, const QFont &font,
                             Qt::Alignment alignment, bool leftToRight, int firstLine, int lineCount) const
{
    if (text.isEmpty())
        return;
    QTextLayout layout(inLines(text, leftToRight), CodeFont::of(font, text));
    breakLines(layout, box.width(), alignment, leftToRight);
    const int last = lineCount < 0 ? layout.lineCount() : std::min(layout.lineCount(), firstLine + lineCount);
    const double height = lineHeight(font);
    for (int i = firstLine; i < last; ++i) {
        QTextLine line = layout.lineAt(i);
        // Each line in the middle of its own strip, whatever fonts its letters came from.
        line.setPosition({0, (i - firstLine) * height + (height - line.height()) / 2});
        line.draw(&painter, box.topLeft());
    }
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
        drawText(painter, below, m_summary, m_boldFont, Qt::AlignRight);
    }
    const QRectF foot(m_area.left(), m_area.bottom() - m_line, m_area.width(), m_line);
    drawText(painter, foot, u"صفحه %1 از %2"_s.arg(page + 1).arg(pageCount()), m_font, Qt::AlignHCenter);
}

void ReportPainter::paintHead(QPainter &painter) const
{
    painter.setPen(Qt::black);
    const double width = m_area.width() * cornerShare;
    const QRectF middle = m_area.adjusted(width + gap, 0, -width - gap, 0);
    drawText(painter, middle, m_report.shownTitle(), m_titleFont, Qt::AlignHCenter);
    double y = m_area.top();
    for (int i = 0; i < 3; ++i) {
        const QString right = m_report.shownCorner(ReportLayout::corners().at(i));
        const QString left = m_report.shownCorner(ReportLayout::corners().at(i + 3));
        drawText(painter, {m_area.right() - width, y, width, m_line}, right, m_font, Qt::AlignRight);
        drawText(painter, {m_area.left(), y, width, m_line}, left, m_font, Qt::AlignLeft);
        y += m_line * std::max(linesOf(right, m_font, width, false), linesOf(left, m_font, width, false));
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
        const QString &text = m_report.columns().at(m_columns.at(placed.position).column).title;
        const double height = linesOf(text, m_boldFont, placed.width - 2 * m_padding, false) * m_line;
        const QRectF inner = cell.adjusted(m_padding, (m_titlesHeight - height) / 2, -m_padding, 0);
        painter.setPen(Qt::black);
        drawText(painter, inner, text, m_boldFont, Qt::AlignHCenter);
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

void ReportPainter::paintSlice(QPainter &painter, const Sheet &sheet, const ReportGeometry::Slice &slice, double y) const
{
    const KListModel::Row &row = m_report.rows().at(slice.row);
    const QVector<KListModel::Cell> &cells = row.cells;
    const double height = slice.lineCount * m_line;
    double right = m_area.right();
    for (const PlacedColumn &placed : sheet) {
        const int column = m_columns.at(placed.position).column;
        const QRectF box(right - placed.width, y, placed.width, height);
        right -= placed.width;
        painter.setPen(QPen(gridColor, hairline));
        painter.setBrush(row.heading || slice.row % 2 == 1 ? QBrush(bandColor) : QBrush(Qt::NoBrush));
        painter.drawRect(box);
        if (column >= cells.size())
            continue;
        const KListModel::Column &shown = m_report.columns().at(column);
        painter.setPen(Qt::black);
        const QRectF inner = box.adjusted(m_padding, 0, -m_padding, 0);
        const bool isCut = isAmount(cells, column) && QFontMetricsF(fontOf(row)).horizontalAdvance(cells.at(column).text) > inner.width();
        drawText(painter, inner, isCut ? CutNumber::mark() : cells.at(column).text, fontOf(row),
                 shown.alignment & Qt::AlignHorizontal_Mask, KListModel::readsLeftToRight(shown, cells.at(column)),
                 slice.firstLine, slice.lineCount);
    }
}
