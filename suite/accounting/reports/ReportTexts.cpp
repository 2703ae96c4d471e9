// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportTexts.h"

#include "suite/accounting/reports/PaperPages.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/values/CodeText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Line height as a multiple of the font's, in place of the font's own leading, which may be much or little.
constexpr double leading = 1.15;
constexpr double biggerTitle = 4; // points
// Texts whose widths are kept, and letters of those whose lines are: a few megabytes of either.
constexpr qsizetype keptAdvances = 50'000;
constexpr qsizetype keptLetters = 100'000;

QFont sized(QFont font, double points, bool bold)
{
    font.setPixelSize(qRound(points * PaperPages::resolution / 72.0));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont codeFont(QFont font)
{
    font.setFamilies(CodeFont::families(font));
    return font;
}

// Lays the lines of a text out from the top; the height of each is the caller's matter.
void breakLines(QTextLayout &layout, const ReportTexts::Text &text)
{
    QTextOption option(text.alignment | Qt::AlignAbsolute);
    option.setTextDirection(text.leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(text.width);
    layout.endLayout();
}

QString inLines(QString text, bool leftToRight)
{
    text = text.remove(u'\r').replace(u'\n', QChar(QChar::LineSeparator));
    return leftToRight ? CodeText::shown(text) : text;
}

}

size_t qHash(const ReportTexts::Text &text, size_t seed)
{
    return qHashMulti(seed, text.text, static_cast<int>(text.face), text.width);
}

ReportTexts::Fonts::Fonts(const QFont &own, double points, bool bold)
    : plain(sized(own, points, bold))
    , code(codeFont(plain))
    , metrics(plain)
    , codeMetrics(code)
    , lineHeight(std::ceil(metrics.height() * leading))
{
}

ReportTexts::ReportTexts(const QFont &font, double size)
    : m_faces{Fonts(font, size, false), Fonts(font, size, true), Fonts(font, size + biggerTitle, true)}
    , m_layouts(keptLetters)
{
}

double ReportTexts::advance(const QString &text, Face face)
{
    QHash<QString, double> &advances = m_advances[face];
    const auto kept = advances.constFind(text);
    if (kept != advances.cend())
        return *kept;
    if (advances.size() >= keptAdvances)
        advances.clear();
    // Codes are measured in the font that draws them.
    const Fonts &fonts = m_faces[face];
    const double advance = (CodeFont::isLatinCode(text) ? fonts.codeMetrics : fonts.metrics).horizontalAdvance(text);
    advances.insert(text, advance);
    return advance;
}

const QTextLayout &ReportTexts::laidOut(const Text &text)
{
    if (const QTextLayout *kept = m_layouts.object(text))
        return *kept;
    const Fonts &fonts = m_faces[text.face];
    auto layout = std::make_unique<QTextLayout>(inLines(text.text, text.leftToRight),
                                                CodeFont::isLatinCode(text.text) ? fonts.code : fonts.plain);
    // Otherwise its letters would be joined once more when it is drawn.
    layout->setCacheEnabled(true);
    breakLines(*layout, text);
    const QTextLayout &made = *layout;
    // Never all that may be kept: the cache would refuse it.
    m_layouts.insert(text, layout.release(), std::min(text.text.size(), keptLetters / 2));
    return made;
}

int ReportTexts::lines(const Text &text)
{
    return text.text.isEmpty() ? 1 : std::max(1, laidOut(text).lineCount());
}

void ReportTexts::draw(QPainter &painter, const QPointF &at, const Text &text, int firstLine, int lineCount)
{
    if (text.text.isEmpty())
        return;
    const QTextLayout &layout = laidOut(text);
    const int last = lineCount < 0 ? layout.lineCount() : std::min(layout.lineCount(), firstLine + lineCount);
    const double height = lineHeight(text.face);
    for (int i = firstLine; i < last; ++i) {
        QTextLine line = layout.lineAt(i);
        // Each line in the middle of its own strip, whatever fonts its letters came from.
        line.setPosition({0, (i - firstLine) * height + (height - line.height()) / 2});
        line.draw(&painter, at);
    }
}
