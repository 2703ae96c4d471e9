// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/ReportPainter.h"

#include "suite/utility/CodeText.h"

#include <QApplication>
#include <QPageSize>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr double dotsPerPoint = ReportPainter::resolution / 72.0;
constexpr double margin = 12 / 25.4 * ReportPainter::resolution;
constexpr double cellPadding = 5 * dotsPerPoint; // right and left of a cell's text
// A measured text and the same text broken into lines differ by a dot or two.
constexpr double slack = 6;
constexpr double gap = 6 * dotsPerPoint;
constexpr double hairline = 0.5 * dotsPerPoint;
// A line's share of room above and below its letters, as the font itself gives much or little.
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
}

QPageLayout ReportPainter::paper() const
{
    return {QPageSize(QPageSize::A4), m_report.layout().landscape ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

QSizeF ReportPainter::paperSize() const
{
    return paper().fullRect(QPageLayout::Inch).size() * resolution;
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

bool ReportPainter::measureColumns(const ReportProgress &progress)
{
    const QFontMetricsF metrics(m_font), bold(m_boldFont);
    const QVector<KListModel::Row> &rows = m_report.rows();
    std::vector<ReportGeometry::ColumnNeed> needs;
    for (const auto &shown : m_columns) {
        const QString &title = m_report.columns().at(shown.column).title;
        const double advance = bold.horizontalAdvance(title);
        needs.push_back({advance, advance * longestWord(title), shown.share});
    }
    m_advances.clear();
    m_advances.reserve(static_cast<size_t>(rows.size() * m_columns.size()));
    for (int row = 0; row < rows.size(); ++row) {
        if (progress && row % rowsPerReport == 0 && !progress(row, static_cast<int>(rows.size()) * 2))
            return false;
        const QVector<KListModel::Cell> &cells = rows.at(row).cells;
        for (size_t i = 0; i < needs.size(); ++i) {
            const int column = m_columns.at(static_cast<int>(i)).column;
            const QString text = column < cells.size() ? cells.at(column).text : QString();
            const double advance = text.isEmpty() ? 0 : metrics.horizontalAdvance(text);
            m_advances.push_back(static_cast<float>(advance));
            needs[i].wanted = std::max(needs[i].wanted, advance);
            needs[i].least = std::max(needs[i].least, advance * longestWord(text));
        }
    }
    for (auto &need : needs) {
        need.wanted = std::min(need.wanted, m_area.width() * widestColumn) + 2 * cellPadding + slack;
        need.least = std::min({need.least, m_area.width() * widestWord, need.wanted}) + 2 * cellPadding + slack;
    }
    m_widths = ReportGeometry::fitColumns(needs, m_area.width());
    return true;
}

bool ReportPainter::countLines(const ReportProgress &progress)
{
    const QVector<KListModel::Row> &rows = m_report.rows();
    m_lines.assign(static_cast<size_t>(rows.size()), 1);
    size_t cell = 0;
    for (int row = 0; row < rows.size(); ++row) {
        if (progress && row % rowsPerReport == 0 && !progress(static_cast<int>(rows.size()) + row, static_cast<int>(rows.size()) * 2))
            return false;
        const QVector<KListModel::Cell> &cells = rows.at(row).cells;
        int &lines = m_lines[static_cast<size_t>(row)];
        for (size_t i = 0; i < m_widths.size(); ++i, ++cell) {
            const int column = m_columns.at(static_cast<int>(i)).column;
            if (column >= cells.size())
                continue;
            const double width = m_widths[i] - 2 * cellPadding;
            const QString &text = cells.at(column).text;
            if (m_advances[cell] > width || text.contains(u'\n'))
                lines = std::max(lines, linesOf(text, m_font, width, KListModel::readsLeftToRight(m_report.columns().at(column), cells.at(column))));
        }
    }
    return true;
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
    for (size_t i = 0; i < m_widths.size(); ++i) {
        const QString &text = m_report.columns().at(m_columns.at(static_cast<int>(i)).column).title;
        lines = std::max(lines, linesOf(text, m_boldFont, m_widths[i] - 2 * cellPadding, false));
    }
    m_titlesHeight = lines * m_line + gap / 2;
}

int ReportPainter::linesOf(const QString &text, const QFont &font, double width, bool leftToRight) const
{
    if (text.isEmpty())
        return 1;
    QTextLayout layout(inLines(text, leftToRight), font);
    breakLines(layout, width, Qt::AlignRight, leftToRight);
    return std::max(1, layout.lineCount());
}

void ReportPainter::drawText(QPainter &painter, const QRectF &box, const QString &text, const QFont &font,
                             Qt::Alignment alignment, bool leftToRight, int firstLine, int lineCount) const
{
    if (text.isEmpty())
        return;
    QTextLayout layout(inLines(text, leftToRight), font);
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
    const ReportGeometry::Page &slices = m_pages.at(static_cast<size_t>(page));
    paintHead(painter);
    paintTitles(painter, m_area.top() + m_headHeight);
    const double end = paintRows(painter, slices, m_area.top() + m_headHeight + m_titlesHeight);
    painter.setPen(Qt::black);
    if (page == pageCount() - 1) {
        const QRectF below(m_area.left(), end + m_line / 2, m_area.width(), m_line);
        drawText(painter, below, m_summary, m_boldFont, Qt::AlignRight);
    }
    const QRectF foot(m_area.left(), m_area.bottom() - m_line, m_area.width(), m_line);
    drawText(painter, foot, QStringLiteral("صفحه %1 از %2").arg(page + 1).arg(pageCount()), m_font, Qt::AlignHCenter);
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

void ReportPainter::paintTitles(QPainter &painter, double y) const
{
    double right = m_area.right();
    for (size_t i = 0; i < m_widths.size(); ++i) {
        const QRectF cell(right - m_widths[i], y, m_widths[i], m_titlesHeight);
        painter.setPen(QPen(gridColor, hairline));
        painter.setBrush(titlesColor);
        painter.drawRect(cell);
        const QString &text = m_report.columns().at(m_columns.at(static_cast<int>(i)).column).title;
        const double height = linesOf(text, m_boldFont, m_widths[i] - 2 * cellPadding, false) * m_line;
        const QRectF inner = cell.adjusted(cellPadding, (m_titlesHeight - height) / 2, -cellPadding, 0);
        painter.setPen(Qt::black);
        drawText(painter, inner, text, m_boldFont, Qt::AlignHCenter);
        right -= m_widths[i];
    }
}

double ReportPainter::paintRows(QPainter &painter, const ReportGeometry::Page &page, double y) const
{
    for (const ReportGeometry::Slice &slice : page) {
        paintSlice(painter, slice, y);
        y += slice.lineCount * m_line;
    }
    return y;
}

void ReportPainter::paintSlice(QPainter &painter, const ReportGeometry::Slice &slice, double y) const
{
    const QVector<KListModel::Cell> &cells = m_report.rows().at(slice.row).cells;
    const double height = slice.lineCount * m_line;
    double right = m_area.right();
    for (size_t i = 0; i < m_widths.size(); ++i) {
        const int column = m_columns.at(static_cast<int>(i)).column;
        const QRectF box(right - m_widths[i], y, m_widths[i], height);
        right -= m_widths[i];
        painter.setPen(QPen(gridColor, hairline));
        painter.setBrush(slice.row % 2 == 1 ? QBrush(bandColor) : QBrush(Qt::NoBrush));
        painter.drawRect(box);
        if (column >= cells.size())
            continue;
        const KListModel::Column &shown = m_report.columns().at(column);
        painter.setPen(Qt::black);
        drawText(painter, box.adjusted(cellPadding, 0, -cellPadding, 0), cells.at(column).text, m_font,
                 shown.alignment & Qt::AlignHorizontal_Mask, KListModel::readsLeftToRight(shown, cells.at(column)),
                 slice.firstLine, slice.lineCount);
    }
}
