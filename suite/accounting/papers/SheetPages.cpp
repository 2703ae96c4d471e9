// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/papers/SheetPages.h"

#include "suite/accounting/papers/SheetFlow.h"

#include <QPageSize>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double largePoints = 10.5;
constexpr double smallPoints = 9;
constexpr double leastPoints = 4.5; // below it a slip says less than all
constexpr double pointStep = 0.5;

}

SheetPages::SheetPages(const QList<PaperSheet> &sheets, const Letterhead &office, Size size)
    : m_isSlip(!sheets.isEmpty() && sheets.constFirst().isSlip)
    , m_size(size)
{
    for (const PaperSheet &sheet : sheets)
        m_isSlip ? laySlip(sheet, office) : lay(sheet, office);
}

SheetPages::~SheetPages() = default;

int SheetPages::pageCount() const
{
    return static_cast<int>(m_pages.size());
}

QPageLayout SheetPages::paper() const
{
    const QPageSize size(m_size == Size::A4 ? QPageSize::A4 : QPageSize::A5);
    return {size, m_isSlip && m_size == Size::A5 ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

void SheetPages::lay(const PaperSheet &sheet, const Letterhead &office)
{
    const double margin = SheetText::millimetres(m_size == Size::A4 ? 14 : 10);
    const QRectF area = QRectF({}, paperSize()).adjusted(margin, margin, -margin, -margin);
    double points = m_size == Size::A4 ? largePoints : smallPoints;
    // What hangs behind glass has one side.
    while (!sheet.picture.isEmpty() && points > leastPoints && SheetFlow(sheet, office, area, points).pageCount() > 1)
        points -= pointStep;
    for (SheetFlow::Page &page : SheetFlow(sheet, office, area, points).pages())
        m_pages.push_back(std::move(page));
}

// In letters as large as keep it on its page.
void SheetPages::laySlip(const PaperSheet &sheet, const Letterhead &office)
{
    const double margin = SheetText::millimetres(10);
    const QSizeF whole = paperSize();
    const QRectF upper = QRectF(0, 0, whole.width(), std::min(SheetText::millimetres(148), whole.height())).adjusted(margin, margin, -margin, -margin);
    double points = largePoints;
    while (points > leastPoints && SheetFlow(sheet, office, upper, points).pageCount() > 1)
        points -= pointStep;
    const bool twice = m_size == Size::A4;
    const auto copy = [&](qsizetype index, const QRectF &area) { return SheetFlow(sheet, office, area, points, twice ? sheet.copies.value(index) : QString()).pages().front(); };
    SheetFlow::Page page = copy(0, upper);
    if (twice) {
        const double y = whole.height() / 2;
        page.push_back([y, margin, width = whole.width()](QPainter &painter) {
            painter.setPen(QPen(SheetText::lineColor, SheetText::hairline(), Qt::DashLine));
            painter.drawLine(QPointF(margin, y), QPointF(width - margin, y));
        });
        for (SheetItem &item : copy(1, upper.translated(0, y)))
            page.push_back(std::move(item));
    }
    m_pages.push_back(std::move(page));
}

void SheetPages::paint(QPainter &painter, int page) const
{
    for (const SheetItem &item : m_pages.at(static_cast<std::size_t>(page))) {
        painter.save();
        item(painter);
        painter.restore();
    }
}
