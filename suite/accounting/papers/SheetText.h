// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QTextLayout>

#include <functional>

class QPainter;

// What is painted at its place on a page.
using SheetItem = std::function<void(QPainter &)>;

// Lengths and texts of papers, in dots of PaperPages.
namespace SheetText {

double millimetres(double length);
QFont font(double points, bool bold = false);
double lineHeight(const QFont &font);
double hairline();

inline constexpr QColor lineColor{0x80, 0x86, 0x8d};
inline constexpr QColor quietColor{0x55, 0x5b, 0x62};
inline constexpr QColor titlesColor{0xe9, 0xed, 0xf2};

struct Style
{
    QFont font;
    QColor color = Qt::black;
    Qt::Alignment alignment = Qt::AlignRight;
    bool leftToRight = false;
};

void lay(QTextLayout &layout, double width, const Style &style);
double height(const QString &text, double width, const Style &style);
// What passes the box is left out. Returns the height of what was drawn.
double draw(QPainter &painter, const QRectF &box, const QString &text, const Style &style);

}
