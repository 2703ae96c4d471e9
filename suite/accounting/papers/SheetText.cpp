// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/papers/SheetText.h"

#include "suite/accounting/reports/PaperPages.h"
#include "suite/utility/values/CodeText.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace {

constexpr double dotsPerPoint = PaperPages::resolution / 72.0;
// In place of the font's own, which may be much or little.
constexpr double leading = 1.15;

QString inLines(QString text, bool leftToRight)
{
    text = text.remove(u'\r').replace(u'\n', QChar(QChar::LineSeparator));
    return leftToRight ? CodeText::shown(text) : text;
}

}

double SheetText::millimetres(double length)
{
    return length * PaperPages::resolution / 25.4;
}

double SheetText::hairline()
{
    return 0.5 * dotsPerPoint;
}

QFont SheetText::font(double points, bool bold)
{
    QFont font = QApplication::font();
    font.setPixelSize(qRound(points * dotsPerPoint));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double SheetText::lineHeight(const QFont &font)
{
    return std::ceil(QFontMetricsF(font).height() * leading);
}

void SheetText::lay(QTextLayout &layout, double width, const Style &style)
{
    QTextOption option(style.alignment | Qt::AlignAbsolute);
    option.setTextDirection(style.leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();
}

double SheetText::height(const QString &text, double width, const Style &style)
{
    if (text.isEmpty())
        return 0;
    QTextLayout layout(inLines(text, style.leftToRight), style.font);
    lay(layout, width, style);
    return layout.lineCount() * lineHeight(style.font);
}

double SheetText::draw(QPainter &painter, const QRectF &box, const QString &text, const Style &style)
{
    if (text.isEmpty())
        return 0;
    QTextLayout layout(inLines(text, style.leftToRight), style.font);
    lay(layout, box.width(), style);
    const double height = lineHeight(style.font);
    painter.setPen(style.color);
    double y = 0;
    for (int i = 0; i < layout.lineCount() && y + height <= box.height() + 1; ++i, y += height) {
        QTextLine line = layout.lineAt(i);
        line.setPosition({0, y + (height - line.height()) / 2});
        line.draw(&painter, box.topLeft());
    }
    return y;
}
