// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/papers/SheetFlow.h"

#include "suite/accounting/papers/QrCode.h"
#include "suite/utility/values/Money.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;
using SheetText::millimetres;
using SheetText::Style;

namespace {

const QColor stateColor(0xb3, 0x26, 0x1e, 0x66);
constexpr double smallFactor = 0.8;
constexpr double titleFactor = 1.5;
constexpr double headlineFactor = 2.4;
constexpr int leastLines = 2; // of a text, on the page where it begins, ends or goes with signatures

double squareSide()
{
    return millimetres(32);
}

QRectF fitted(const QSizeF &size, const QRectF &box, Qt::Alignment side)
{
    const QSizeF fit = size.scaled(box.size(), Qt::KeepAspectRatio);
    const double x = side & Qt::AlignRight ? box.right() - fit.width() : box.center().x() - fit.width() / 2;
    return {QPointF(x, box.top()), fit};
}

SheetItem rounded(const QRectF &box)
{
    return [box](QPainter &painter) {
        painter.setPen(QPen(SheetText::lineColor, SheetText::hairline()));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box, millimetres(2), millimetres(2));
    };
}

// What counts no more says so across its lines.
SheetItem stateAcross(const QRectF &area, const QString &word)
{
    return [area, word](QPainter &painter) {
        constexpr double slope = -18;
        const Style style{SheetText::font(48, true), stateColor, Qt::AlignHCenter};
        painter.save();
        painter.translate(area.center());
        painter.rotate(slope);
        const QSizeF size(QFontMetricsF(style.font).horizontalAdvance(word) + millimetres(16), SheetText::lineHeight(style.font));
        const QRectF frame(-size.width() / 2, -size.height() / 2, size.width(), size.height());
        painter.setPen(QPen(stateColor, millimetres(1)));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame, millimetres(3), millimetres(3));
        SheetText::draw(painter, frame, word, style);
        painter.restore();
    };
}

// Of each line, whether a page may end before it. A page keeps two lines of a paragraph that goes on, and so does the next; holdsEnd: and
// two of the text's end.
std::vector<bool> partings(const QTextLayout &layout, bool holdsEnd)
{
    const int count = layout.lineCount();
    const auto beginsParagraph = [&](int line) {
        return line >= count || line == 0 || layout.text().at(layout.lineAt(line).textStart() - 1) == QChar(QChar::LineSeparator);
    };
    std::vector<bool> parts;
    for (int line = 0; line < count; ++line) {
        const bool isWidow = !beginsParagraph(line) && (beginsParagraph(line - 1) || beginsParagraph(line + 1));
        parts.push_back(!isWidow && (!holdsEnd || line <= count - leastLines));
    }
    return parts;
}

SheetItem lineAt(const std::shared_ptr<QTextLayout> &layout, int line, const QPointF &at, double height)
{
    return [=](QPainter &painter) {
        painter.setPen(Qt::black);
        QTextLine one = layout->lineAt(line);
        one.setPosition({0, (height - one.height()) / 2});
        one.draw(&painter, at);
    };
}

// Two on a line, unless one is wide.
QList<QList<PaperSheet::Fact>> inPairs(const QList<PaperSheet::Fact> &facts)
{
    QList<QList<PaperSheet::Fact>> lines;
    bool open = false;
    for (const PaperSheet::Fact &fact : facts) {
        if (fact.text.isEmpty())
            continue;
        if (open && !fact.isWide)
            lines.last().append(fact);
        else
            lines.append({fact});
        open = !fact.isWide && lines.last().size() == 1;
    }
    return lines;
}

}

SheetFlow::SheetFlow(const PaperSheet &sheet, const Letterhead &office, const QRectF &area, double points, const QString &copy)
    : m_sheet(sheet)
    , m_office(office)
    , m_area(area)
    , m_points(points)
    , m_copy(copy)
    , m_bottom(area.bottom() - millimetres(7))
{
    const double shares = std::accumulate(sheet.columns.begin(), sheet.columns.end(), 0.0, [](double sum, const PaperSheet::Column &column) { return sum + column.share; });
    for (const PaperSheet::Column &column : sheet.columns)
        m_widths.push_back(area.width() * column.share / shares);
    m_pages.emplace_back();
    layHead();
    layPicture();
    layHeadline();
    layFacts();
    layHighlight();
    layOpening();
    layText(sheet.body, sheet.columns.isEmpty() && sheet.totals.isEmpty() && sheet.notes.isEmpty() ? closingHeight() : 0);
    layTable();
    layTotals();
    layText(sheet.notes, sheet.totals.isEmpty() ? closingHeight() : 0);
    layClosing();
    layFeet();
}

void SheetFlow::newPage()
{
    m_pages.emplace_back();
    layShortHead();
}

void SheetFlow::need(double height)
{
    if (height > left() && m_y > m_top + 1)
        newPage();
}

void SheetFlow::add(SheetItem item)
{
    m_pages.back().push_back(std::move(item));
}

void SheetFlow::put(const QRectF &box, const QString &text, const Style &style)
{
    if (!text.isEmpty())
        add([box, text, style](QPainter &painter) { (void)SheetText::draw(painter, box, text, style); });
}

Style SheetFlow::style(double factor, bool bold, Qt::Alignment alignment) const
{
    return {SheetText::font(m_points * factor, bold), Qt::black, alignment};
}

Style SheetFlow::quiet(Style style) const
{
    style.color = SheetText::quietColor;
    return style;
}

// The office at the right, the title in the middle, number and date at the left.
void SheetFlow::layHead()
{
    const double side = m_area.width() * 0.36;
    const double office = layOffice({m_area.right() - side, m_area.top(), side, millimetres(34)});
    const QRectF middle(m_area.left() + m_area.width() * 0.26, m_area.top(), m_area.width() * 0.38, millimetres(16));
    const QString title = m_sheet.isLetter ? QString() : m_sheet.title;
    put(middle, title, style(titleFactor, true, Qt::AlignHCenter));
    layMarks({m_area.left(), m_area.top(), m_area.width() * 0.26, millimetres(20)});
    const double marks = static_cast<double>(m_sheet.marks.size()) * SheetText::lineHeight(style().font);
    const double titleHeight = SheetText::height(title, middle.width(), style(titleFactor, true, Qt::AlignHCenter));
    m_y = m_area.top() + std::max({office, marks, titleHeight}) + millimetres(2.5);
    m_top = m_y;
}

double SheetFlow::layOffice(const QRectF &box)
{
    double x = box.right();
    if (const QImage logo = QImage::fromData(m_office.logo); !logo.isNull()) {
        const QRectF place = fitted(logo.size(), {box.right() - millimetres(16), box.top(), millimetres(16), millimetres(16)}, Qt::AlignRight);
        add([place, logo](QPainter &painter) { painter.drawImage(place, logo); });
        x = place.left() - millimetres(2);
    }
    const double width = x - box.left();
    const Style name = style(1.05, true);
    const Style small = quiet(style(smallFactor));
    double y = std::min(SheetText::height(m_office.name, width, name), 2 * SheetText::lineHeight(name.font));
    put({box.left(), box.top(), width, y}, m_office.name, name);
    QString below = m_office.address;
    if (!m_office.telephone.isEmpty())
        below += (below.isEmpty() ? QString() : u"\n"_s) + u"تلفن : "_s + m_office.telephone;
    const double height = std::min(SheetText::height(below, width, small), 4 * SheetText::lineHeight(small.font));
    put({box.left(), box.top() + y, width, height}, below, small);
    y += height;
    return std::max(y, x < box.right() ? millimetres(16) : 0);
}

void SheetFlow::layMarks(const QRectF &box)
{
    QStringList lines;
    for (const PaperSheet::Fact &mark : m_sheet.marks) {
        if (!mark.text.isEmpty())
            lines.append(mark.label + u' ' + mark.text);
    }
    put(box, lines.join(u'\n'), style());
}

// A further page says of what it is.
void SheetFlow::layShortHead()
{
    QStringList parts{m_sheet.title};
    for (const PaperSheet::Fact &mark : m_sheet.marks) {
        if (!mark.text.isEmpty())
            parts.append(mark.label + u' ' + mark.text);
    }
    const Style small = quiet(style(smallFactor));
    const double height = SheetText::lineHeight(small.font);
    put({m_area.left(), m_area.top(), m_area.width(), height}, parts.join(u"     "_s), small);
    m_y = m_area.top() + height + millimetres(1.5);
    m_top = m_y;
}

void SheetFlow::layPicture()
{
    const QImage picture = QImage::fromData(m_sheet.picture);
    if (picture.isNull())
        return;
    const QRectF place = fitted(picture.size(), {m_area.left(), m_y, m_area.width(), m_area.height() * 0.035 * m_points}, Qt::AlignHCenter);
    add([place, picture](QPainter &painter) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(place, picture);
    });
    m_y = place.bottom() + millimetres(4);
}

void SheetFlow::layHeadline()
{
    const Style large = style(headlineFactor, true, Qt::AlignHCenter);
    const double height = SheetText::height(m_sheet.headline, m_area.width(), large);
    if (height <= 0)
        return;
    need(height);
    put({m_area.left(), m_y, m_area.width(), height}, m_sheet.headline, large);
    m_y += height + millimetres(2);
}

void SheetFlow::layFacts()
{
    const QList<QList<PaperSheet::Fact>> lines = inPairs(m_sheet.facts);
    if (lines.isEmpty())
        return;
    const double padding = millimetres(3), gap = millimetres(1.4);
    const QRectF inner(m_area.left() + padding, 0, m_area.width() - 2 * padding, 0);
    double label = 0;
    for (const PaperSheet::Fact &fact : m_sheet.facts)
        label = std::max(label, QFontMetricsF(style().font).horizontalAdvance(fact.label) + millimetres(3));
    label = std::min(label, inner.width() * 0.25);
    struct Placed
    {
        PaperSheet::Fact fact;
        QRectF labelBox, textBox;
        Style style;
    };
    QList<Placed> placed;
    double y = padding / 2;
    for (const QList<PaperSheet::Fact> &line : lines) {
        const double width = line.size() == 1 ? inner.width() : inner.width() / 2;
        double right = inner.right(), height = 0;
        const qsizetype first = placed.size();
        for (const PaperSheet::Fact &fact : line) {
            Style text = style(1, fact.isStrong);
            text.leftToRight = fact.isCode;
            const double textWidth = width - label - millimetres(1);
            height = std::max({height, SheetText::height(fact.text, textWidth, text), SheetText::height(fact.label, label, style())});
            placed.append({fact, {right - label, y, label, 0}, {right - label - textWidth, y, textWidth, 0}, text});
            right -= width;
        }
        for (qsizetype i = first; i < placed.size(); ++i) {
            placed[i].labelBox.setHeight(height);
            placed[i].textBox.setHeight(height);
        }
        y += height + gap;
    }
    const double height = y - gap + padding / 2;
    need(height);
    for (const Placed &one : placed) {
        put(one.labelBox.translated(0, m_y), one.fact.label, quiet(style()));
        put(one.textBox.translated(0, m_y), one.fact.text, one.style);
    }
    add(rounded({m_area.left(), m_y, m_area.width(), height}));
    m_y += height + millimetres(3);
}

void SheetFlow::layHighlight()
{
    if (m_sheet.highlight.label.isEmpty())
        return;
    const Style large = style(headlineFactor, true, Qt::AlignHCenter);
    const Style label = quiet(style(1.2, false, Qt::AlignHCenter));
    const double width = m_area.width() - millimetres(8);
    const double labelHeight = SheetText::lineHeight(label.font);
    // Without a text there is room for a pen.
    const double height = labelHeight + std::max(SheetText::height(m_sheet.highlight.text, width, large), 1.4 * SheetText::lineHeight(large.font)) + millimetres(4);
    need(height);
    const QRectF box(m_area.left(), m_y, m_area.width(), height);
    add(rounded(box));
    put(box.adjusted(0, millimetres(1.5), 0, 0), m_sheet.highlight.label, label);
    put(box.adjusted(millimetres(4), labelHeight + millimetres(2.5), -millimetres(4), 0), m_sheet.highlight.text, large);
    m_y += height + millimetres(3);
}

// Above the text, and never without its beginning.
void SheetFlow::layOpening()
{
    if (m_sheet.opening.isEmpty())
        return;
    const Style strong = style(1.05, true);
    const double width = m_area.width() - millimetres(4);
    const double height = SheetText::height(m_sheet.opening, width, strong);
    need(height + leastLines * SheetText::lineHeight(style().font));
    put({m_area.left() + millimetres(2), m_y, width, height}, m_sheet.opening, strong);
    m_y += height + millimetres(2);
}

// Line by line, so that a text longer than a page goes on. follows: the height of what must not stand without the text's last lines.
void SheetFlow::layText(const QString &text, double follows)
{
    if (text.isEmpty())
        return;
    const Style plain = style();
    const double line = SheetText::lineHeight(plain.font);
    const double gap = millimetres(3);
    auto layout = std::make_shared<QTextLayout>(QString(text).remove(u'\r').replace(u'\n', QChar(QChar::LineSeparator)), plain.font);
    SheetText::lay(*layout, m_area.width() - millimetres(4), plain);
    const std::vector<bool> parts = partings(*layout, follows > 0);
    const auto count = static_cast<int>(parts.size());
    for (int from = 0; from < count;) {
        const int to = lastLine(parts, from, line, follows > 0 ? gap + follows : 0);
        if (to == from) {
            newPage();
            continue;
        }
        for (int i = from; i < to; ++i, m_y += line)
            add(lineAt(layout, i, {m_area.left() + millimetres(2), m_y}, line));
        from = to;
        if (from < count)
            newPage();
    }
    m_y += gap;
}

// How far a text goes on this page: the line behind its last one there, from itself where it had better begin on the next page.
int SheetFlow::lastLine(const std::vector<bool> &parts, int from, double line, double follows) const
{
    const auto count = static_cast<int>(parts.size());
    if ((count - from) * line + follows <= left())
        return count;
    const bool isFresh = m_y <= m_top + 1;
    const int fits = std::clamp(static_cast<int>(left() / line), isFresh ? 1 : 0, count - from);
    for (int to = std::min(from + fits, count - 1); to > from; --to) {
        if (parts.at(static_cast<std::size_t>(to)))
            return to;
    }
    // A page of its own is parted where it ends.
    return isFresh ? from + fits : from;
}

double SheetFlow::rowHeight(const QList<PaperSheet::Cell> &row) const
{
    double height = SheetText::lineHeight(style(0.9).font);
    for (qsizetype i = 0; i < row.size() && i < m_sheet.columns.size(); ++i)
        height = std::max(height, SheetText::height(row.at(i).text, m_widths[static_cast<std::size_t>(i)] - millimetres(2), style(0.9, true)));
    return height + millimetres(1);
}

void SheetFlow::layRow(const QList<PaperSheet::Cell> &row, double height, bool strong, bool titles)
{
    double right = m_area.right();
    for (qsizetype i = 0; i < m_sheet.columns.size(); ++i) {
        const PaperSheet::Column &column = m_sheet.columns.at(i);
        const double width = m_widths[static_cast<std::size_t>(i)];
        const QRectF box(right - width, m_y, width, height);
        add([box, titles](QPainter &painter) {
            painter.setPen(QPen(SheetText::lineColor, SheetText::hairline()));
            painter.setBrush(titles ? QBrush(SheetText::titlesColor) : QBrush(Qt::NoBrush));
            painter.drawRect(box);
        });
        Style text = style(0.9, strong, titles || column.kind == PaperSheet::Column::Centred ? Qt::AlignHCenter : Qt::AlignRight);
        text.leftToRight = !titles && column.kind == PaperSheet::Column::Code;
        if (i < row.size())
            put(box.adjusted(millimetres(1), millimetres(0.5), -millimetres(1), 0), row.at(i).text, text);
        right -= width;
    }
    m_y += height;
}

void SheetFlow::layTitles()
{
    QList<PaperSheet::Cell> titles;
    for (const PaperSheet::Column &column : m_sheet.columns)
        titles.append({column.title});
    layRow(titles, rowHeight(titles), true, true);
}

QList<PaperSheet::Cell> SheetFlow::sumRow(const QString &label, const QList<double> &sums) const
{
    QList<PaperSheet::Cell> row;
    for (qsizetype i = 0; i < m_sheet.columns.size(); ++i)
        row.append({m_sheet.columns.at(i).isSummed ? DToMoney(sums.at(i)) : QString()});
    // The widest text column has room for the words.
    qsizetype widest = -1;
    for (qsizetype i = 0; i < m_sheet.columns.size(); ++i) {
        const PaperSheet::Column &column = m_sheet.columns.at(i);
        if (column.kind == PaperSheet::Column::Text && !column.isSummed && (widest < 0 || column.share > m_sheet.columns.at(widest).share))
            widest = i;
    }
    if (widest >= 0)
        row[widest].text = label;
    return row;
}

// A sum that goes on stands at the foot of one page and at the head of the next.
void SheetFlow::layTable()
{
    if (m_sheet.columns.isEmpty())
        return;
    const bool sums = std::any_of(m_sheet.columns.begin(), m_sheet.columns.end(), [](const PaperSheet::Column &column) { return column.isSummed; });
    QList<double> sum(m_sheet.columns.size(), 0.0);
    for (const QList<PaperSheet::Cell> &row : m_sheet.rows) {
        for (qsizetype i = 0; i < row.size() && i < sum.size(); ++i)
            sum[i] += row.at(i).amount;
    }
    const double reserve = sums ? rowHeight(sumRow(u"نقل از صفحه قبل"_s, sum)) : 0;
    sum.fill(0);
    const double line = rowHeight({});
    need(2 * line + reserve + line);
    layTitles();
    for (qsizetype at = 0; at < m_sheet.rows.size(); ++at) {
        const QList<PaperSheet::Cell> &row = m_sheet.rows.at(at);
        const double height = rowHeight(row);
        if (height + reserve > left()) {
            if (sums && at > 0)
                layRow(sumRow(u"نقل به صفحه بعد"_s, sum), reserve, true, false);
            newPage();
            layTitles();
            if (sums && at > 0)
                layRow(sumRow(u"نقل از صفحه قبل"_s, sum), reserve, true, false);
        }
        layRow(row, height, false, false);
        for (qsizetype i = 0; i < row.size() && i < sum.size(); ++i)
            sum[i] += row.at(i).amount;
    }
    if (sums)
        layRow(sumRow(u"جمع"_s, sum), reserve, true, false);
    m_y += millimetres(3);
}

void SheetFlow::layTotals()
{
    const double label = m_area.width() * 0.24;
    // Nobody signs a page that says nothing: the sums and the signatures stay together.
    double whole = m_sheet.signatures.isEmpty() ? 0 : millimetres(24 + 5);
    whole += SheetText::height(m_sheet.notes, m_area.width() - millimetres(4), style());
    for (const PaperSheet::Fact &total : m_sheet.totals)
        whole += SheetText::height(total.text, m_area.width() - label - millimetres(4), style(1, total.isStrong)) + millimetres(1);
    if (!m_sheet.totals.isEmpty())
        need(whole + millimetres(2));
    for (const PaperSheet::Fact &total : m_sheet.totals) {
        if (total.text.isEmpty())
            continue;
        const Style text = style(1, total.isStrong);
        const double width = m_area.width() - label - millimetres(4);
        const double height = std::max(SheetText::height(total.text, width, text), SheetText::height(total.label, label, text));
        need(height);
        put({m_area.right() - millimetres(2) - label, m_y, label, height}, total.label, quiet(style()));
        put({m_area.left() + millimetres(2), m_y, width, height}, total.text, text);
        m_y += height + millimetres(0.8);
    }
    if (!m_sheet.totals.isEmpty())
        m_y += millimetres(2);
}

double SheetFlow::closingHeight() const
{
    return std::max(QrCode(m_sheet.scanCode).isEmpty() ? 0 : squareSide(), m_sheet.signatures.isEmpty() ? 0 : millimetres(24));
}

// Signatures, and beside them the square for telephones.
void SheetFlow::layClosing()
{
    const QrCode code(m_sheet.scanCode);
    const double square = code.isEmpty() ? 0 : squareSide();
    const double height = closingHeight();
    if (height <= 0)
        return;
    need(height);
    if (!code.isEmpty()) {
        const QRectF box(m_area.left(), m_y, square, square);
        add([box, code](QPainter &painter) { code.paint(painter, box); });
    }
    // A letter is signed at its left.
    const double least = m_sheet.isLetter ? 3 : 1;
    const double width = (m_area.width() - square) / std::max(least, static_cast<double>(m_sheet.signatures.size()));
    double right = m_sheet.isLetter ? m_area.left() + square + width * static_cast<double>(m_sheet.signatures.size()) : m_area.right();
    for (const PaperSheet::Signature &signature : m_sheet.signatures) {
        const QRectF cell = QRectF(right - width, m_y, width, height).adjusted(millimetres(2), millimetres(2), -millimetres(2), 0);
        const Style role = style(1, true, Qt::AlignHCenter);
        const Style name = quiet(style(smallFactor, false, Qt::AlignHCenter));
        const double roleHeight = SheetText::height(signature.role, cell.width(), role);
        put(cell, signature.role, role);
        QRectF person = cell.adjusted(0, roleHeight, 0, 0);
        person.setHeight(2 * SheetText::lineHeight(name.font));
        put(person, signature.name, name);
        right -= width;
    }
    m_y += height;
}

void SheetFlow::layFeet()
{
    const Style small = quiet(style(smallFactor));
    const double height = SheetText::lineHeight(small.font);
    const QRectF foot(m_area.left(), m_area.bottom() - height, m_area.width(), height);
    for (std::size_t page = 0; page < m_pages.size(); ++page) {
        const QString count = u"صفحه %1 از %2"_s.arg(page + 1).arg(m_pages.size());
        const QString texts[] = {m_sheet.foot, m_sheet.isSlip ? m_copy : count};
        const Qt::Alignment sides[] = {Qt::AlignRight, Qt::AlignLeft};
        for (std::size_t i = 0; i < 2; ++i) {
            Style style = small;
            style.alignment = sides[i];
            m_pages[page].push_back([foot, text = texts[i], style](QPainter &painter) { (void)SheetText::draw(painter, foot, text, style); });
        }
        if (!m_sheet.state.isEmpty())
            m_pages[page].push_back(stateAcross(m_area, m_sheet.state));
    }
}
