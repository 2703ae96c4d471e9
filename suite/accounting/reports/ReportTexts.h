// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QCache>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QTextLayout>

#include <array>

class QPainter;

// The texts of a list on paper: how wide they are, in how many lines they stand, and how they are drawn. Most cells of a list
// say what another cell says, a kind, a brand, a day: what was found out about a text is kept for the next one, so that its
// letters are not joined anew. What is kept does not grow with the list.
class TZACCOUNTING_EXPORT ReportTexts
{
public:
    enum Face {
        Plain,
        Bold,
        Title
    };
    // A text as it stands on the paper.
    struct Text
    {
        QString text;
        Face face = Plain;
        double width = 0; // of its box, in dots
        Qt::Alignment alignment = Qt::AlignRight;
        bool leftToRight = false;

        friend bool operator==(const Text &, const Text &) = default;
    };

    // size: of Plain and Bold, in points.
    ReportTexts(const QFont &font, double size);

    double lineHeight(Face face) const { return m_faces[face].lineHeight; }
    // Of all of it on one line.
    double advance(const QString &text, Face face);
    // At least 1.
    int lines(const Text &text);
    // From that line on, each in a strip of the face's line height below the point. lineCount -1: all.
    void draw(QPainter &painter, const QPointF &at, const Text &text, int firstLine = 0, int lineCount = -1);

private:
    // A font, and that of the codes in it.
    struct Fonts
    {
        Fonts(const QFont &own, double points, bool bold);

        QFont plain;
        QFont code;
        QFontMetricsF metrics;
        QFontMetricsF codeMetrics;
        double lineHeight;
    };

    const QTextLayout &laidOut(const Text &text);

    std::array<Fonts, 3> m_faces;
    std::array<QHash<QString, double>, 3> m_advances;
    QCache<Text, QTextLayout> m_layouts;
};
